#include "engine/mb_value.h"

#include "engine/map_object.h"
#include "engine/mb_error.h"
#include "engine/mb_value_text.h"

#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>

namespace vellant::engine {

namespace {

[[noreturn]] void mismatch(MbType have, const char* wanted) {
    raiseMb(kMbTypeMismatch, std::string("Type mismatch: ") + mbTypeName(have) + " found where " +
                                 wanted + " expected.");
}

} // namespace

std::optional<double> parseMbNumber(std::string_view text) {
    std::size_t begin = 0;
    std::size_t end = text.size();
    while (begin < end && (text[begin] == ' ' || text[begin] == '\t'))
        ++begin;
    while (end > begin && (text[end - 1] == ' ' || text[end - 1] == '\t'))
        --end;
    if (begin == end) return 0.0; // the host reads an empty string as zero
    bool negative = false;
    if (text[begin] == '+' || text[begin] == '-') {
        negative = text[begin] == '-';
        ++begin;
    }
    if (begin == end) return std::nullopt;
    // from_chars would accept "inf" and "nan", which the host does not.
    const char lead = text[begin];
    if (!(lead == '.' || (lead >= '0' && lead <= '9'))) return std::nullopt;
    double value = 0;
    const auto result =
        std::from_chars(text.data() + begin, text.data() + end, value, std::chars_format::general);
    if (result.ec != std::errc() || result.ptr != text.data() + end) return std::nullopt;
    return negative ? -value : value;
}

std::string quotedMbString(const std::string& text) {
    std::string out = "\"";
    for (char c : text) {
        if (c == '"') out += '"';
        out += c;
    }
    return out + "\"";
}

std::string formatMbFloat(double value) {
    if (std::isnan(value)) return "NaN";
    if (std::isinf(value)) return value > 0 ? "Infinity" : "-Infinity";
    if (value == 0) return "0";
    // 15 significant digits: d.dddddddddddddde+XX.
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.14e", std::fabs(value));
    const std::string_view scientific(buffer);
    const std::size_t ePos = scientific.find('e');
    std::string digits;
    digits.push_back(scientific[0]);
    digits.append(scientific.substr(2, ePos - 2));
    int exponent = 0;
    std::from_chars(scientific.data() + ePos + (scientific[ePos + 1] == '+' ? 2 : 1),
                    scientific.data() + scientific.size(), exponent);
    while (digits.size() > 1 && digits.back() == '0')
        digits.pop_back();

    std::string text = value < 0 ? "-" : "";
    // Ordinary magnitudes print plainly; the far ends in the form 1.5E+25.
    if (exponent >= -10 && exponent <= 20) {
        if (exponent >= 0) {
            const auto whole = static_cast<std::size_t>(exponent) + 1;
            if (digits.size() <= whole) {
                text += digits;
                text.append(whole - digits.size(), '0');
            } else {
                text += digits.substr(0, whole);
                text += '.';
                text += digits.substr(whole);
            }
        } else {
            text += "0.";
            text.append(static_cast<std::size_t>(-exponent - 1), '0');
            text += digits;
        }
        return text;
    }
    text += digits[0];
    if (digits.size() > 1) {
        text += '.';
        text += digits.substr(1);
    }
    text += exponent < 0 ? "E-" : "E+";
    text += std::to_string(std::abs(exponent));
    return text;
}

const char* objectKindName(ObjectKind kind) {
    switch (kind) {
    case ObjectKind::Arc:
        return "Arc";
    case ObjectKind::Ellipse:
        return "Ellipse";
    case ObjectKind::Line:
        return "Line";
    case ObjectKind::Polyline:
        return "Polyline";
    case ObjectKind::Point:
        return "Point";
    case ObjectKind::Frame:
        return "Frame";
    case ObjectKind::Region:
        return "Region";
    case ObjectKind::Rect:
        return "Rectangle";
    case ObjectKind::RoundedRect:
        return "Rounded Rectangle";
    case ObjectKind::Text:
        return "Text";
    case ObjectKind::MultiPoint:
        return "Multipoint";
    case ObjectKind::Collection:
        return "Collection";
    }
    return "Object";
}

double MbValue::asNumber() const {
    switch (type_) {
    case MbType::SmallInt:
    case MbType::Integer:
        return static_cast<double>(std::get<std::int64_t>(data_));
    case MbType::Float:
        return std::get<double>(data_);
    case MbType::Logical:
        return std::get<bool>(data_) ? 1.0 : 0.0;
    case MbType::String: {
        const auto& text = std::get<std::string>(data_);
        if (const auto number = parseMbNumber(text)) return *number;
        raiseMb(kMbTypeMismatch, "Type mismatch: \"" + text + "\" is not a number.");
    }
    default:
        mismatch(type_, "a number");
    }
}

std::int64_t MbValue::asInteger() const {
    if (type_ == MbType::SmallInt || type_ == MbType::Integer) {
        return std::get<std::int64_t>(data_);
    }
    const double number = asNumber();
    const double rounded = std::round(number);
    // Beyond what an Integer column or variable can hold the host reports an overflow.
    if (!(rounded >= -9.2e18 && rounded <= 9.2e18)) {
        raiseMb(kMbFloatRange, "Floating point overflow: " + formatMbFloat(number) +
                                   " is too large for an integer.");
    }
    return static_cast<std::int64_t>(rounded);
}

bool MbValue::asLogical() const {
    switch (type_) {
    case MbType::Logical:
        return std::get<bool>(data_);
    case MbType::SmallInt:
    case MbType::Integer:
        return std::get<std::int64_t>(data_) != 0;
    case MbType::Float:
        return std::get<double>(data_) != 0;
    case MbType::String: {
        const auto& text = std::get<std::string>(data_);
        std::string lower;
        for (char c : text) {
            lower.push_back(static_cast<char>(std::tolower(static_cast<unsigned char>(c))));
        }
        if (lower == "t" || lower == "true") return true;
        if (lower == "f" || lower == "false") return false;
        raiseMb(kMbTypeMismatch, "Type mismatch: \"" + text + "\" is not a logical value.");
    }
    default:
        mismatch(type_, "a logical value");
    }
}

std::string MbValue::asString() const {
    if (type_ == MbType::String) return std::get<std::string>(data_);
    return toEvalText();
}

std::shared_ptr<const MapObject> MbValue::asObject() const {
    if (type_ != MbType::Object) mismatch(type_, "an object");
    return std::get<std::shared_ptr<const MapObject>>(data_);
}

const std::string& MbValue::styleClause() const {
    if (!isStyle()) mismatch(type_, "a Pen, Brush, Symbol or Font");
    return std::get<StyleClause>(data_).text;
}

std::string MbValue::toEvalText() const {
    switch (type_) {
    case MbType::Logical:
        return std::get<bool>(data_) ? "T" : "F";
    case MbType::SmallInt:
    case MbType::Integer:
        return std::to_string(std::get<std::int64_t>(data_));
    case MbType::Float:
        return formatMbFloat(std::get<double>(data_));
    case MbType::String:
        return std::get<std::string>(data_);
    case MbType::Object: {
        const auto& object = std::get<std::shared_ptr<const MapObject>>(data_);
        return object ? objectKindName(object->kind) : "";
    }
    case MbType::Pen:
    case MbType::Brush:
    case MbType::Symbol:
    case MbType::Font:
        return std::get<StyleClause>(data_).text;
    }
    return "";
}

const char* mbTypeName(MbType type) {
    switch (type) {
    case MbType::Logical:
        return "Logical";
    case MbType::SmallInt:
        return "SmallInt";
    case MbType::Integer:
        return "Integer";
    case MbType::Float:
        return "Float";
    case MbType::String:
        return "String";
    case MbType::Object:
        return "Object";
    case MbType::Pen:
        return "Pen";
    case MbType::Brush:
        return "Brush";
    case MbType::Symbol:
        return "Symbol";
    case MbType::Font:
        return "Font";
    }
    return "?";
}

} // namespace vellant::engine
