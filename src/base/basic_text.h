#pragma once
// Number-to-text and text-to-number conversions and the string functions of the classic runtime.
// The program's wire format to the map host is text built with these, so their exact output
// (the leading blank of Str, the dropped leading zero of ".5", 7 or 15 significant digits)
// reaches the host's command strings, group names and grid cells.

#include <cstdint>
#include <string>
#include <string_view>

namespace vellant {

class Variant;

// Str: a blank in front of a number that is not negative. Singles print with at most 7
// significant digits, Doubles with 15, without trailing zeros; very large or small numbers in
// E notation ("1E+16", "1.5E-05").
std::string Str(std::int64_t value);
inline std::string Str(std::int32_t value) {
    return Str(static_cast<std::int64_t>(value));
}
inline std::string Str(std::int16_t value) {
    return Str(static_cast<std::int64_t>(value));
}
std::string Str(float value);
std::string Str(double value);
// A string argument is read as a number first (error 13 when it is none); a Boolean gives
// "True" or "False".
std::string Str(const Variant& value);

// CStr: as Str without the leading blank.
std::string CStr(std::int64_t value);
inline std::string CStr(std::int32_t value) {
    return CStr(static_cast<std::int64_t>(value));
}
inline std::string CStr(std::int16_t value) {
    return CStr(static_cast<std::int64_t>(value));
}
std::string CStr(float value);
std::string CStr(double value);

// Val: the leading number of a text, 0 if there is none. Blanks, tabs and line feeds are
// skipped anywhere inside the number; "&H" and "&O" prefixes read hexadecimal and octal.
double Val(std::string_view text);

// True when the whole text (blanks around it aside) reads as a number.
bool IsNumericText(std::string_view text);

// CInt and CLng round half to even and raise error 6 outside their range; a text that is not a
// number raises error 13.
std::int16_t CInt(double value);
std::int16_t CInt(const Variant& value);
std::int32_t CLng(double value);
std::int32_t CLng(const Variant& value);

std::string LCase(std::string_view s);
std::string UCase(std::string_view s);
std::string Trim(std::string_view s);
std::string LTrim(std::string_view s);
std::string RTrim(std::string_view s);
// Left, Right and Mid count from 1; a negative length or a start below 1 raises error 5.
std::string Left(std::string_view s, long length);
std::string Right(std::string_view s, long length);
std::string Mid(std::string_view s, long start);
std::string Mid(std::string_view s, long start, long length);
long Len(std::string_view s);
// InStr from position start (from 1); 0 when not found.
long InStr(long start, std::string_view haystack, std::string_view needle);
inline long InStr(std::string_view haystack, std::string_view needle) {
    return InStr(1, haystack, needle);
}
std::string Space(long count);

} // namespace vellant
