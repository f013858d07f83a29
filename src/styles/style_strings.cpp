#include "styles/style_strings.h"

#include "base/basic_text.h"
#include "base/error_trap.h"
#include "prefs/settings.h"
#include "session/session.h"

#include <initializer_list>

namespace vellant::styles {

namespace {

constexpr long kLongestTail = 100;
constexpr std::int16_t kNoFontSize = 7;
constexpr std::int16_t kNoSymbolSize = 12;

// The position just after the next comma from `from`; a search that finds none gives 1, so the
// next search starts again at the beginning.
long afterComma(const std::string& text, long from) {
    return InStr(from, text, ",") + 1;
}

// The number at `start`, `length` characters long, rounded to a whole number.
std::int16_t sizeAt(const std::string& text, long start, long length) {
    return CInt(Val(Mid(text, start, length)));
}

} // namespace

void pentoline(std::string& style) {
    if (Left(style, 3) == "Pen") style = "Line" + Mid(style, 4, kLongestTail);
}

std::int16_t parsefont(Session& s, const std::string& style) {
    long p1 = 0;
    long p2 = 0;
    long p3 = 0;
    long p4 = 0;
    long p5 = 0;
    long p6 = 0;
    std::int16_t size = 0;
    onErrorGoTo(
        [&] {
            const std::string text = RTrim(style);
            if (text.empty() || InStr(text, "(") == 0) {
                size = kNoFontSize;
                return;
            }
            p1 = InStr(text, "(") + 1;
            p2 = afterComma(text, p1);
            p3 = afterComma(text, p2);
            p4 = afterComma(text, p3);
            p5 = afterComma(text, p4);
            // A clause of four fields has no back colour.
            if (p5 == 1) p5 = p4;
            p6 = InStr(p5, text, ")");
            double backColor = -1;
            if (p4 == p5)
                p5 = p6;
            else
                backColor = Val(Mid(text, p5, p6 - p5));
            std::string name = Mid(text, p1, p2 - p1 - 1);
            std::erase(name, '"');
            // The name and the back colour are worked out for nobody: only the size leaves.
            static_cast<void>(backColor);
            size = sizeAt(text, p3, p4 - p3);
        },
        [&](const RuntimeError& e) {
            std::string line = "Error parsefont " + e.description() + " ";
            for (long position : {p1, p2, p3, p4, p5, p6})
                line += "\r\n" + CStr(static_cast<std::int32_t>(position));
            prefs::logQuietly(s, line);
            size = 0;
        });
    return size;
}

std::int16_t parsesymbol(Session& s, std::string& style) {
    std::int16_t size = kNoSymbolSize;
    onErrorGoTo(
        [&] {
            const std::string text = RTrim(style);
            if (text.empty()) return;
            const long q1 = InStr(text, "(") + 1;
            const long q2 = afterComma(text, q1);
            const long q3 = afterComma(text, q2);
            long q4 = afterComma(text, q3);
            long q5 = afterComma(text, q4);
            std::string name;
            if (q4 == 1) {
                // Three fields: shape, colour, size.
                q4 = InStr(q3, text, ")");
            } else if (q5 == 1) {
                // Four fields: a bitmap's file name first.
                q5 = InStr(q4, text, ")");
                name = Mid(text, q1 + 1, q2 - q1 - 2);
            } else {
                // Six fields: a font symbol's font name fourth.
                name = Mid(text, q4 + 1, q5 - q4 - 2);
            }
            // The names are cut for nobody; the size stands third in every form.
            static_cast<void>(name);
            size = sizeAt(text, q3, q4 - q3);
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "Error from parsesymbol " + e.description());
            size = kNoSymbolSize;
        });
    return size;
}

} // namespace vellant::styles
