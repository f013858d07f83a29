#include "base/basic_text.h"

#include "base/runtime_error.h"
#include "base/variant.h"

#include <cctype>
#include <cfenv>
#include <cmath>
#include <cstdio>
#include <limits>

namespace vellant {

namespace {

// %G gives the shortest form with the given significant digits and switches to E notation at
// the same thresholds as the classic runtime (exponent below -4 or at least the digit count).
std::string formatSignificant(double value, int digits) {
    if (!std::isfinite(value)) raiseError(kErrOverflow);
    if (value == 0) return "0";
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.*G", digits, value);
    std::string s(buf);
    // The runtime writes numbers below 1 without the zero in front of the point.
    if (s.rfind("0.", 0) == 0)
        s.erase(0, 1);
    else if (s.rfind("-0.", 0) == 0)
        s.erase(1, 1);
    return s;
}

std::string withSignBlank(std::string text) {
    if (text.empty() || text[0] != '-') text.insert(text.begin(), ' ');
    return text;
}

bool isSkippedInVal(char c) {
    return c == ' ' || c == '\t' || c == '\n';
}

double roundHalfEven(double value) {
    const int saved = std::fegetround();
    std::fesetround(FE_TONEAREST);
    const double rounded = std::nearbyint(value);
    std::fesetround(saved);
    return rounded;
}

// Reads a radix-prefixed integer ("&H1F", "&O17"); 16-bit when it fits four hex digits, as the
// runtime types such literals.
double radixValue(std::string_view digits, int radix) {
    std::uint64_t v = 0;
    size_t used = 0;
    for (char c : digits) {
        int d = -1;
        if (std::isdigit(static_cast<unsigned char>(c)))
            d = c - '0';
        else if (radix == 16 && std::isxdigit(static_cast<unsigned char>(c)))
            d = std::toupper(static_cast<unsigned char>(c)) - 'A' + 10;
        if (d < 0 || d >= radix) break;
        v = v * static_cast<std::uint64_t>(radix) + static_cast<std::uint64_t>(d);
        if (v > 0xFFFFFFFFULL) raiseError(kErrOverflow);
        ++used;
    }
    if (used == 0) return 0;
    if (v <= 0xFFFF) return static_cast<std::int16_t>(static_cast<std::uint16_t>(v));
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(v));
}

} // namespace

std::string CStr(std::int64_t value) {
    return std::to_string(value);
}
std::string CStr(float value) {
    return formatSignificant(static_cast<double>(value), 7);
}
std::string CStr(double value) {
    return formatSignificant(value, 15);
}

std::string Str(std::int64_t value) {
    return withSignBlank(CStr(value));
}
std::string Str(float value) {
    return withSignBlank(CStr(value));
}
std::string Str(double value) {
    return withSignBlank(CStr(value));
}

std::string Str(const Variant& value) {
    switch (value.type()) {
    case VarType::Boolean:
        return value.toBool() ? "True" : "False";
    case VarType::Integer:
    case VarType::Long:
        return Str(static_cast<std::int64_t>(value.toDouble()));
    case VarType::Single:
        return Str(static_cast<float>(value.toDouble()));
    case VarType::Null:
        raiseError(kErrInvalidCall);
    default:
        return Str(value.toDouble());
    }
}

double Val(std::string_view text) {
    // Blanks are dropped before the number is read, wherever they stand in it.
    std::string s;
    s.reserve(text.size());
    for (char c : text)
        if (!isSkippedInVal(c)) s.push_back(c);

    if (s.size() >= 2 && s[0] == '&') {
        const char kind = static_cast<char>(std::toupper(static_cast<unsigned char>(s[1])));
        if (kind == 'H') return radixValue(std::string_view(s).substr(2), 16);
        if (kind == 'O') return radixValue(std::string_view(s).substr(2), 8);
        return radixValue(std::string_view(s).substr(1), 8);
    }

    size_t i = 0;
    std::string number;
    if (i < s.size() && (s[i] == '+' || s[i] == '-')) number.push_back(s[i++]);
    bool digits = false;
    while (i < s.size() && std::isdigit(static_cast<unsigned char>(s[i]))) {
        number.push_back(s[i++]);
        digits = true;
    }
    if (i < s.size() && s[i] == '.') {
        number.push_back(s[i++]);
        while (i < s.size() && std::isdigit(static_cast<unsigned char>(s[i]))) {
            number.push_back(s[i++]);
            digits = true;
        }
    }
    if (!digits) return 0;
    if (i < s.size() && (s[i] == 'E' || s[i] == 'e' || s[i] == 'D' || s[i] == 'd')) {
        size_t j = i + 1;
        std::string exponent = "E";
        if (j < s.size() && (s[j] == '+' || s[j] == '-')) exponent.push_back(s[j++]);
        bool expDigits = false;
        while (j < s.size() && std::isdigit(static_cast<unsigned char>(s[j]))) {
            exponent.push_back(s[j++]);
            expDigits = true;
        }
        if (expDigits) number += exponent;
    }
    const double v = std::strtod(number.c_str(), nullptr);
    if (!std::isfinite(v)) raiseError(kErrOverflow);
    return v;
}

bool IsNumericText(std::string_view text) {
    const std::string s = Trim(text);
    if (s.empty()) return false;
    if (s.size() > 2 && s[0] == '&' && (s[1] == 'H' || s[1] == 'h')) {
        for (size_t k = 2; k < s.size(); ++k)
            if (!std::isxdigit(static_cast<unsigned char>(s[k]))) return false;
        return true;
    }
    size_t i = 0;
    if (s[i] == '+' || s[i] == '-') ++i;
    bool digits = false;
    while (i < s.size() && std::isdigit(static_cast<unsigned char>(s[i])))
        ++i, digits = true;
    if (i < s.size() && s[i] == '.') {
        ++i;
        while (i < s.size() && std::isdigit(static_cast<unsigned char>(s[i])))
            ++i, digits = true;
    }
    if (!digits) return false;
    if (i < s.size() && (s[i] == 'E' || s[i] == 'e' || s[i] == 'D' || s[i] == 'd')) {
        ++i;
        if (i < s.size() && (s[i] == '+' || s[i] == '-')) ++i;
        bool expDigits = false;
        while (i < s.size() && std::isdigit(static_cast<unsigned char>(s[i])))
            ++i, expDigits = true;
        if (!expDigits) return false;
    }
    return i == s.size();
}

std::int16_t CInt(double value) {
    const double r = roundHalfEven(value);
    if (!(r >= std::numeric_limits<std::int16_t>::min() &&
          r <= std::numeric_limits<std::int16_t>::max()))
        raiseError(kErrOverflow);
    return static_cast<std::int16_t>(r);
}

std::int16_t CInt(const Variant& value) {
    return CInt(value.toDouble());
}

std::int32_t CLng(double value) {
    const double r = roundHalfEven(value);
    if (!(r >= std::numeric_limits<std::int32_t>::min() &&
          r <= std::numeric_limits<std::int32_t>::max()))
        raiseError(kErrOverflow);
    return static_cast<std::int32_t>(r);
}

std::int32_t CLng(const Variant& value) {
    return CLng(value.toDouble());
}

std::string LCase(std::string_view s) {
    std::string out(s);
    for (char& c : out)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return out;
}

std::string UCase(std::string_view s) {
    std::string out(s);
    for (char& c : out)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return out;
}

// The runtime's trims remove blanks only, not tabs or line ends.
std::string LTrim(std::string_view s) {
    const size_t first = s.find_first_not_of(' ');
    return first == std::string_view::npos ? std::string() : std::string(s.substr(first));
}

std::string RTrim(std::string_view s) {
    const size_t last = s.find_last_not_of(' ');
    return last == std::string_view::npos ? std::string() : std::string(s.substr(0, last + 1));
}

std::string Trim(std::string_view s) {
    return LTrim(RTrim(s));
}

std::string Left(std::string_view s, long length) {
    if (length < 0) raiseError(kErrInvalidCall);
    return std::string(s.substr(0, static_cast<size_t>(length)));
}

std::string Right(std::string_view s, long length) {
    if (length < 0) raiseError(kErrInvalidCall);
    const auto n = std::min(s.size(), static_cast<size_t>(length));
    return std::string(s.substr(s.size() - n));
}

std::string Mid(std::string_view s, long start) {
    if (start < 1) raiseError(kErrInvalidCall);
    const auto from = static_cast<size_t>(start - 1);
    return from >= s.size() ? std::string() : std::string(s.substr(from));
}

std::string Mid(std::string_view s, long start, long length) {
    if (length < 0) raiseError(kErrInvalidCall);
    return Left(Mid(s, start), length);
}

long Len(std::string_view s) {
    return static_cast<long>(s.size());
}

long InStr(long start, std::string_view haystack, std::string_view needle) {
    if (start < 1) raiseError(kErrInvalidCall);
    const auto from = static_cast<size_t>(start - 1);
    if (from > haystack.size()) return 0;
    const size_t at = haystack.find(needle, from);
    return at == std::string_view::npos ? 0 : static_cast<long>(at + 1);
}

std::string Space(long count) {
    if (count < 0) raiseError(kErrInvalidCall);
    return std::string(static_cast<size_t>(count), ' ');
}

} // namespace vellant
