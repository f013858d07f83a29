// The string functions of MapBasic. Positions count from 1; a count or position outside what
// the function allows gives 644 "Argument <n> of <function> out of range."

#include "engine/engine.h"
#include "engine/lang/core_parts.h"
#include "engine/lang/format_number.h"
#include "engine/lang/function_args.h"
#include "engine/lang/registry.h"
#include "engine/mb_error.h"
#include "engine/mb_value_text.h"

#include <algorithm>
#include <cctype>

namespace vellant::engine {

namespace {

// Val reads the longest leading number and ignores the rest, as the host does ("12abc" is 12).
double leadingNumber(std::string_view text) {
    std::size_t i = 0;
    while (i < text.size() && (text[i] == ' ' || text[i] == '\t'))
        ++i;
    const std::size_t start = i;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
    const auto digits = [&] {
        const std::size_t from = i;
        while (i < text.size() && std::isdigit(static_cast<unsigned char>(text[i])) != 0)
            ++i;
        return i > from;
    };
    bool any = digits();
    if (i < text.size() && text[i] == '.') {
        ++i;
        any = digits() || any;
    }
    if (!any) return 0;
    std::size_t end = i;
    if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
        ++i;
        if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
        if (digits()) end = i;
    }
    return parseMbNumber(text.substr(start, end - start)).value_or(0);
}

std::string transformed(std::string text, int (*change)(int)) {
    for (char& c : text)
        c = static_cast<char>(change(static_cast<unsigned char>(c)));
    return text;
}

void registerSubstrings(Registry& r) {
    r.addFunction("Left$", 2, 2, [](Engine&, Args& a) {
        const std::string text = a[0].asString();
        const std::size_t n = countArg(a, 1, "Left$");
        return MbValue::string(text.substr(0, std::min(n, text.size())));
    });
    r.addFunction("Right$", 2, 2, [](Engine&, Args& a) {
        const std::string text = a[0].asString();
        const std::size_t n = std::min(countArg(a, 1, "Right$"), text.size());
        return MbValue::string(text.substr(text.size() - n));
    });
    r.addFunction("Mid$", 3, 3, [](Engine&, Args& a) {
        const std::string text = a[0].asString();
        const std::size_t start = positionArg(a, 1, "Mid$");
        const std::size_t n = countArg(a, 2, "Mid$");
        if (start > text.size()) return MbValue::string("");
        return MbValue::string(text.substr(start - 1, n));
    });
    r.addFunction("InStr", 3, 3, [](Engine&, Args& a) {
        const std::size_t start = positionArg(a, 0, "InStr");
        const std::string text = a[1].asString();
        const std::string part = a[2].asString();
        if (start > text.size() + 1) return MbValue::integer(0);
        const std::size_t found = text.find(part, start - 1);
        return MbValue::integer(found == std::string::npos ? 0
                                                           : static_cast<std::int32_t>(found + 1));
    });
    r.addFunction("Len", 1, 1, [](Engine&, Args& a) {
        return MbValue::integer(static_cast<std::int32_t>(a[0].asString().size()));
    });
}

void registerCase(Registry& r) {
    r.addFunction("UCase$", 1, 1, [](Engine&, Args& a) {
        return MbValue::string(transformed(a[0].asString(), [](int c) { return std::toupper(c); }));
    });
    r.addFunction("LCase$", 1, 1, [](Engine&, Args& a) {
        return MbValue::string(transformed(a[0].asString(), [](int c) { return std::tolower(c); }));
    });
    r.addFunction("LTrim$", 1, 1, [](Engine&, Args& a) {
        const std::string text = a[0].asString();
        const std::size_t first = text.find_first_not_of(' ');
        return MbValue::string(first == std::string::npos ? "" : text.substr(first));
    });
    r.addFunction("RTrim$", 1, 1, [](Engine&, Args& a) {
        const std::string text = a[0].asString();
        const std::size_t last = text.find_last_not_of(' ');
        return MbValue::string(last == std::string::npos ? "" : text.substr(0, last + 1));
    });
}

void registerConversions(Registry& r) {
    r.addFunction("Str$", 1, 1, [](Engine&, Args& a) { return MbValue::string(a[0].asString()); });
    r.addFunction("Val", 1, 1,
                  [](Engine&, Args& a) { return MbValue::number(leadingNumber(a[0].asString())); });
    r.addFunction("Chr$", 1, 1, [](Engine&, Args& a) {
        const std::int64_t code = a[0].asInteger();
        if (code < 0 || code > 255) outOfRange(1, "Chr$");
        if (code == 0) return MbValue::string("");
        return MbValue::string(std::string(1, static_cast<char>(static_cast<unsigned char>(code))));
    });
    r.addFunction("Asc", 1, 1, [](Engine&, Args& a) {
        const std::string text = a[0].asString();
        return MbValue::integer(text.empty() ? 0 : static_cast<unsigned char>(text[0]));
    });
    r.addFunction("Space$", 1, 1, [](Engine&, Args& a) {
        return MbValue::string(std::string(boundedCountArg(a, 0, "Space$"), ' '));
    });
    r.addFunction("String$", 2, 2, [](Engine&, Args& a) {
        const std::size_t n = boundedCountArg(a, 0, "String$");
        const std::string text = a[1].asString();
        return MbValue::string(text.empty() ? "" : std::string(n, text[0]));
    });
    r.addFunction("Format$", 2, 2, [](Engine&, Args& a) {
        return MbValue::string(formatNumber(a[0].asNumber(), a[1].asString()));
    });
}

} // namespace

void registerStringFunctions(Registry& registry) {
    registerSubstrings(registry);
    registerCase(registry);
    registerConversions(registry);
}

} // namespace vellant::engine
