#include "engine/lang/format_number.h"

#include "engine/mb_value_text.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <vector>

namespace vellant::engine {

namespace {

// More decimals than a double holds would only print noise.
constexpr int kMaxDecimals = 15;

std::string grouped(const std::string& digits) {
    std::string out;
    const std::size_t n = digits.size();
    for (std::size_t i = 0; i < n; ++i) {
        if (i > 0 && (n - i) % 3 == 0) out += ',';
        out += digits[i];
    }
    return out;
}

} // namespace

std::string formatNumber(double value, std::string_view pattern) {
    if (pattern.empty()) return formatMbFloat(value);
    if (!std::isfinite(value)) return formatMbFloat(value);

    std::string_view section = pattern;
    bool showSign = value < 0;
    const std::size_t semicolon = pattern.find(';');
    if (semicolon != std::string_view::npos) {
        section = pattern.substr(0, semicolon);
        if (value < 0) {
            std::string_view negative = pattern.substr(semicolon + 1);
            negative = negative.substr(0, negative.find(';'));
            if (!negative.empty()) {
                section = negative;
                showSign = false;
            }
        }
    }
    double magnitude = std::fabs(value);
    if (section.find('%') != std::string_view::npos) magnitude *= 100;

    const std::size_t first = section.find_first_of("#0.,");
    if (first == std::string_view::npos) return std::string(section); // no digits wanted
    const std::size_t lastDigit = section.find_last_of("#0");
    const std::size_t last = lastDigit == std::string_view::npos || lastDigit < first
                                 ? section.find_last_of("#0.,")
                                 : lastDigit;
    const std::string_view prefix = section.substr(0, first);
    const std::string_view body = section.substr(first, last - first + 1);
    const std::string_view suffix = section.substr(last + 1);

    const std::size_t point = body.find('.');
    const std::string_view whole = body.substr(0, point);
    const std::string_view fraction =
        point == std::string_view::npos ? std::string_view() : body.substr(point + 1);
    const auto minWhole = static_cast<std::size_t>(std::count(whole.begin(), whole.end(), '0'));
    const bool grouping = whole.find(',') != std::string_view::npos;
    const int minDecimals =
        std::min(kMaxDecimals, static_cast<int>(std::count(fraction.begin(), fraction.end(), '0')));
    const int maxDecimals =
        std::min(kMaxDecimals,
                 minDecimals + static_cast<int>(std::count(fraction.begin(), fraction.end(), '#')));

    std::vector<char> buffer(400 + kMaxDecimals);
    std::snprintf(buffer.data(), buffer.size(), "%.*f", maxDecimals, magnitude);
    std::string digits(buffer.data());
    std::string wholeDigits = digits.substr(0, digits.find('.'));
    std::string fractionDigits =
        digits.find('.') == std::string::npos ? "" : digits.substr(digits.find('.') + 1);
    while (static_cast<int>(fractionDigits.size()) > minDecimals && fractionDigits.back() == '0') {
        fractionDigits.pop_back();
    }
    if (wholeDigits == "0" && minWhole == 0) wholeDigits.clear();
    if (wholeDigits.size() < minWhole) wholeDigits.insert(0, minWhole - wholeDigits.size(), '0');
    if (grouping) wholeDigits = grouped(wholeDigits);

    const bool allZero =
        std::all_of(digits.begin(), digits.end(), [](char c) { return c == '0' || c == '.'; });
    std::string text;
    if (showSign && !allZero) text += '-';
    text += prefix;
    text += wholeDigits;
    if (point != std::string_view::npos) text += '.' + fractionDigits;
    text += suffix;
    return text;
}

} // namespace vellant::engine
