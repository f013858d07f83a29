#include "engine/tables/ogr_style.h"

#include "engine/mb_value_text.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <vector>

namespace vellant::engine {

namespace {

// One tool of a style string: its name in lower case and its parameters by lower-case key,
// quoted values without their quotes.
struct StyleTool {
    std::string name;
    std::map<std::string, std::string, std::less<>> params;
};

std::string lowered(std::string_view text) {
    std::string out(text);
    for (char& c : out)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return out;
}

std::string trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    const auto last = text.find_last_not_of(" \t");
    return std::string(text.substr(first, last - first + 1));
}

// Splits at separator characters that stand outside double quotes; a backslash escapes the
// next character inside quotes, as GDAL writes "\"" within text.
std::vector<std::string> splitOutsideQuotes(std::string_view text, char separator) {
    std::vector<std::string> parts;
    std::string current;
    bool inQuotes = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (inQuotes && c == '\\' && i + 1 < text.size()) {
            current += c;
            current += text[++i];
            continue;
        }
        if (c == '"') inQuotes = !inQuotes;
        if (c == separator && !inQuotes) {
            parts.push_back(current);
            current.clear();
        } else {
            current += c;
        }
    }
    parts.push_back(current);
    return parts;
}

std::string unquoted(std::string_view value) {
    const std::string text = trimmed(value);
    if (text.size() < 2 || text.front() != '"' || text.back() != '"') return text;
    std::string out;
    for (std::size_t i = 1; i + 1 < text.size(); ++i) {
        if (text[i] == '\\' && i + 2 < text.size()) ++i;
        out += text[i];
    }
    return out;
}

std::vector<StyleTool> readTools(std::string_view styleString) {
    std::vector<StyleTool> tools;
    for (const std::string& part : splitOutsideQuotes(styleString, ';')) {
        const std::string text = trimmed(part);
        const auto open = text.find('(');
        if (open == std::string::npos || text.back() != ')') continue;
        StyleTool tool;
        tool.name = lowered(trimmed(std::string_view(text).substr(0, open)));
        const std::string_view body =
            std::string_view(text).substr(open + 1, text.size() - open - 2);
        for (const std::string& param : splitOutsideQuotes(body, ',')) {
            const auto colon = param.find(':');
            if (colon == std::string::npos) continue;
            tool.params[lowered(trimmed(std::string_view(param).substr(0, colon)))] =
                unquoted(std::string_view(param).substr(colon + 1));
        }
        tools.push_back(std::move(tool));
    }
    return tools;
}

const std::string* param(const StyleTool& tool, std::string_view key) {
    const auto found = tool.params.find(key);
    return found == tool.params.end() ? nullptr : &found->second;
}

// "#rrggbb" or "#rrggbbaa" as a MapBasic colour.
std::optional<int> readColor(const std::string* value) {
    if (value == nullptr || value->size() < 7 || (*value)[0] != '#') return std::nullopt;
    int color = 0;
    for (std::size_t i = 1; i < 7; ++i) {
        const char c = (*value)[i];
        if (!std::isxdigit(static_cast<unsigned char>(c))) return std::nullopt;
        color = color * 16 + (std::isdigit(static_cast<unsigned char>(c))
                                  ? c - '0'
                                  : std::tolower(static_cast<unsigned char>(c)) - 'a' + 10);
    }
    return color;
}

struct Measure {
    double value = 0;
    std::string unit; // "px", "pt", "mm", "cm", "in", "g" or ""
};

std::optional<Measure> readMeasure(const std::string* value) {
    if (value == nullptr) return std::nullopt;
    const char* start = value->c_str();
    char* end = nullptr;
    const double number = std::strtod(start, &end);
    if (end == start || !std::isfinite(number)) return std::nullopt;
    return Measure{number, lowered(trimmed(end))};
}

double toPoints(const Measure& m) {
    if (m.unit == "mm") return m.value * 72.0 / 25.4;
    if (m.unit == "cm") return m.value * 72.0 / 2.54;
    if (m.unit == "in") return m.value * 72.0;
    if (m.unit == "px") return m.value * 0.75;
    return m.value;
}

int clampRound(double value, int low, int high) {
    if (!std::isfinite(value)) return low;
    return static_cast<int>(
        std::lround(std::clamp(value, static_cast<double>(low), static_cast<double>(high))));
}

// The number after a prefix in a comma-separated id list ("mapinfo-pen-2,ogr-pen-0").
std::optional<int> idNumber(const std::string* ids, std::string_view prefix) {
    if (ids == nullptr) return std::nullopt;
    for (const std::string& id : splitOutsideQuotes(*ids, ',')) {
        const std::string text = lowered(trimmed(id));
        if (text.rfind(prefix, 0) != 0) continue;
        const std::string digits = text.substr(prefix.size());
        if (digits.empty() || digits.size() > 9 ||
            !std::all_of(digits.begin(), digits.end(),
                         [](char c) { return std::isdigit(static_cast<unsigned char>(c)); })) {
            return std::nullopt;
        }
        return std::atoi(digits.c_str());
    }
    return std::nullopt;
}

PenStyle readPen(const StyleTool& tool) {
    PenStyle pen;
    pen.color = readColor(param(tool, "c")).value_or(0);
    if (const auto width = readMeasure(param(tool, "w"))) {
        if (width->unit == "px" || width->unit == "g" || width->unit.empty()) {
            pen.width = clampRound(width->value, 1, 7);
        } else {
            pen.width = clampRound(10 + toPoints(*width) * 10, 11, 2047);
        }
    }
    const std::string* ids = param(tool, "id");
    if (const auto pattern = idNumber(ids, "mapinfo-pen-")) {
        pen.pattern = std::clamp(*pattern, 1, 255);
    } else if (const auto ogr = idNumber(ids, "ogr-pen-")) {
        static const std::map<int, int> kFromOgr{{0, 2}, {1, 1}, {2, 5}, {3, 4}, {4, 6}, {5, 3}};
        const auto found = kFromOgr.find(*ogr);
        pen.pattern = found == kFromOgr.end() ? 2 : found->second;
    }
    if (pen.pattern == 1 && pen.width == 0) pen.width = 1;
    return pen;
}

BrushStyle readBrush(const StyleTool& tool) {
    BrushStyle brush;
    brush.foreColor = readColor(param(tool, "fc")).value_or(0);
    brush.backColor = readColor(param(tool, "bc"));
    const std::string* ids = param(tool, "id");
    if (const auto pattern = idNumber(ids, "mapinfo-brush-")) {
        brush.pattern = std::clamp(*pattern, 1, 255);
    } else if (const auto ogr = idNumber(ids, "ogr-brush-")) {
        static const std::map<int, int> kFromOgr{{0, 2}, {1, 1}, {2, 3}, {3, 4},
                                                 {4, 6}, {5, 5}, {6, 7}, {7, 8}};
        const auto found = kFromOgr.find(*ogr);
        brush.pattern = found == kFromOgr.end() ? 2 : found->second;
    }
    return brush;
}

SymbolStyle readSymbol(const StyleTool& tool) {
    SymbolStyle symbol;
    symbol.color = readColor(param(tool, "c")).value_or(0);
    if (const auto size = readMeasure(param(tool, "s"))) {
        symbol.size = clampRound(
            size->unit == "pt" || size->unit.empty() ? size->value : toPoints(*size), 1, 240);
    }
    const std::string* ids = param(tool, "id");
    const std::string idText = ids == nullptr ? std::string() : lowered(*ids);
    if (const auto shape = idNumber(ids, "mapinfo-sym-")) {
        symbol.shape = std::clamp(*shape, 31, 67);
        return symbol;
    }
    if (const auto glyph = idNumber(ids, "font-sym-")) {
        symbol.kind = SymbolKind::TrueType;
        symbol.shape = std::clamp(*glyph, 0, 65535);
        const std::string* font = param(tool, "f");
        symbol.fontName = font != nullptr ? *font : std::string("Arial");
        if (const auto angle = readMeasure(param(tool, "a"))) symbol.rotation = angle->value;
        // GDAL marks the border with a black outline and the halo with a white one.
        if (const auto outline = readColor(param(tool, "o"))) {
            symbol.fontStyle = *outline == 0 ? 16 : 256;
        }
        return symbol;
    }
    const std::string customPrefix = "mapinfo-custom-sym-";
    const auto custom = ids == nullptr ? std::string::npos : idText.find(customPrefix);
    if (custom != std::string::npos) {
        // "mapinfo-custom-sym-<style>-<file>"; the file name keeps its letter case.
        const std::string rest = ids->substr(custom + customPrefix.size());
        const auto dash = rest.find('-');
        if (dash != std::string::npos) {
            symbol.kind = SymbolKind::Bitmap;
            symbol.shape = 0;
            symbol.customStyle = std::clamp(std::atoi(rest.substr(0, dash).c_str()), 0, 255);
            // GDAL follows the id with further ids of the same symbol after a comma.
            std::string file = rest.substr(dash + 1);
            const auto nextId = file.find(',');
            if (nextId != std::string::npos) file.erase(nextId);
            symbol.fileName = file;
            return symbol;
        }
    }
    if (const auto ogr = idNumber(ids, "ogr-sym-")) {
        static const std::map<int, int> kFromOgr{{0, 49}, {1, 50}, {2, 40}, {3, 34}, {4, 38},
                                                 {5, 32}, {6, 42}, {7, 36}, {8, 41}, {9, 35}};
        const auto found = kFromOgr.find(*ogr);
        symbol.shape = found == kFromOgr.end() ? 35 : found->second;
    }
    return symbol;
}

// GDAL gives 69% of the text box height as the label size of a one-line text.
constexpr double kLabelSizeOfBox = 0.69;

OgrLabel readLabel(const StyleTool& tool) {
    OgrLabel label;
    if (const std::string* text = param(tool, "t")) label.text = *text;
    if (const auto angle = readMeasure(param(tool, "a"))) label.angle = angle->value;
    if (const auto size = readMeasure(param(tool, "s"))) {
        label.height = size->value > 0 ? size->value / kLabelSizeOfBox : 0;
    }
    label.font.size = 0;
    if (const std::string* font = param(tool, "f")) label.font.name = *font;
    label.font.foreColor = readColor(param(tool, "c")).value_or(0);
    int style = 0;
    auto flag = [&](std::string_view key, int bit) {
        const std::string* value = param(tool, key);
        if (value != nullptr && *value == "1") style |= bit;
    };
    flag("bo", 1);
    flag("it", 2);
    flag("un", 4);
    if (param(tool, "h") != nullptr) style |= 32;
    if (const auto halo = readColor(param(tool, "o"))) {
        style |= 256;
        label.font.backColor = *halo;
    } else if (const auto box = readColor(param(tool, "b"))) {
        label.font.backColor = *box;
    }
    label.font.style = style;
    return label;
}

std::string hexColor(int color) {
    char text[8];
    std::snprintf(text, sizeof text, "#%06x", color & 0xFFFFFF);
    return text;
}

std::string escapedText(const std::string& text) {
    std::string out;
    for (char c : text) {
        if (c == '"' || c == '\\') out += '\\';
        out += c;
    }
    return out;
}

} // namespace

OgrStyle readOgrStyle(std::string_view styleString) {
    OgrStyle style;
    for (const StyleTool& tool : readTools(styleString)) {
        if (tool.name == "pen" && !style.pen) {
            style.pen = readPen(tool);
        } else if (tool.name == "brush" && !style.brush) {
            style.brush = readBrush(tool);
        } else if (tool.name == "symbol" && !style.symbol) {
            style.symbol = readSymbol(tool);
        } else if (tool.name == "label" && !style.label) {
            style.label = readLabel(tool);
        }
    }
    return style;
}

std::string ogrPenString(const PenStyle& pen) {
    const std::string width = pen.width > 10 ? formatMbFloat((pen.width - 10) / 10.0) + "pt"
                                             : std::to_string(std::max(pen.width, 1)) + "px";
    const int ogrPen = pen.pattern == 1 ? 1 : (pen.pattern == 2 ? 0 : 2);
    return "PEN(w:" + width + ",c:" + hexColor(pen.color) + ",id:\"mapinfo-pen-" +
           std::to_string(pen.pattern) + ",ogr-pen-" + std::to_string(ogrPen) + "\")";
}

std::string ogrBrushString(const BrushStyle& brush) {
    static const std::map<int, int> kToOgr{{1, 1}, {2, 0}, {3, 2}, {4, 3},
                                           {5, 5}, {6, 4}, {7, 6}, {8, 7}};
    const auto found = kToOgr.find(brush.pattern);
    std::string text = "BRUSH(fc:" + hexColor(brush.foreColor);
    if (brush.backColor) text += ",bc:" + hexColor(*brush.backColor);
    text += ",id:\"mapinfo-brush-" + std::to_string(brush.pattern);
    if (found != kToOgr.end()) text += ",ogr-brush-" + std::to_string(found->second);
    return text + "\")";
}

std::string ogrSymbolString(const SymbolStyle& symbol) {
    const std::string common =
        "c:" + hexColor(symbol.color) + ",s:" + std::to_string(symbol.size) + "pt";
    switch (symbol.kind) {
    case SymbolKind::TrueType: {
        std::string outline;
        if (symbol.fontStyle & 16) {
            outline = ",o:#000000";
        } else if (symbol.fontStyle & 256) {
            outline = ",o:#ffffff";
        }
        return "SYMBOL(a:" + formatMbFloat(symbol.rotation) + "," + common + ",id:\"font-sym-" +
               std::to_string(symbol.shape) + ",ogr-sym-9\"" + outline + ",f:\"" +
               escapedText(symbol.fontName) + "\")";
    }
    case SymbolKind::Bitmap:
        return "SYMBOL(a:0," + common + ",id:\"mapinfo-custom-sym-" +
               std::to_string(symbol.customStyle) + "-" + escapedText(symbol.fileName) + "\")";
    case SymbolKind::Vector:
        break;
    }
    return "SYMBOL(a:0," + common + ",id:\"mapinfo-sym-" + std::to_string(symbol.shape) + "\")";
}

std::string ogrLabelString(const OgrLabel& label) {
    std::string text = "LABEL(t:\"" + escapedText(label.text) +
                       "\",a:" + formatMbFloat(label.angle) +
                       ",s:" + formatMbFloat(label.height * kLabelSizeOfBox) +
                       "g,c:" + hexColor(label.font.foreColor);
    if (label.font.backColor) {
        text += ((label.font.style & 256) ? ",o:" : ",b:") + hexColor(*label.font.backColor);
    }
    if (label.font.style & 32) text += ",h:#808080";
    if (label.font.style & 1) text += ",bo:1";
    if (label.font.style & 2) text += ",it:1";
    if (label.font.style & 4) text += ",un:1";
    return text + ",f:\"" + escapedText(label.font.name) + "\")";
}

} // namespace vellant::engine
