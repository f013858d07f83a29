#include "app/replay/script.h"

#include "base/basic_text.h"

#include <algorithm>
#include <charconv>

namespace vellant::replay {

namespace {

bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

std::string_view trimmed(std::string_view s) {
    while (!s.empty() && isBlank(s.front()))
        s.remove_prefix(1);
    while (!s.empty() && isBlank(s.back()))
        s.remove_suffix(1);
    return s;
}

bool hasControlCharacter(std::string_view line) {
    return std::any_of(line.begin(), line.end(), [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return c != '\t' && (byte < 0x20 || byte == 0x7F);
    });
}

const Verb* findVerb(std::span<const Verb> verbs, std::string_view word) {
    const std::string lower = LCase(word);
    for (const Verb& verb : verbs)
        if (verb.name == lower) return &verb;
    return nullptr;
}

std::string knownVerbs(std::span<const Verb> verbs) {
    std::string names;
    for (const Verb& verb : verbs)
        names += (names.empty() ? "" : ", ") + std::string(verb.name);
    return names;
}

// The argument as the verb wants it; throws ScriptError when it is not that.
std::string checkedArgument(const Verb& verb, std::string_view argument, int number) {
    const auto refuse = [&](const std::string& why) {
        throw ScriptError(number, why + " (write: " + std::string(verb.usage) + ")");
    };
    switch (verb.argument) {
    case Argument::None:
        if (!argument.empty()) refuse(std::string(verb.name) + " takes no argument");
        return {};
    case Argument::Word:
        if (argument.empty()) refuse(std::string(verb.name) + " needs a name");
        if (std::any_of(argument.begin(), argument.end(), isBlank))
            refuse(std::string(verb.name) + " takes one name without blanks");
        return std::string(argument);
    case Argument::Text:
        if (argument.empty()) refuse(std::string(verb.name) + " needs an argument");
        return std::string(argument);
    case Argument::Integer: {
        int value = 0;
        const char* end = argument.data() + argument.size();
        const auto [stop, error] = std::from_chars(argument.data(), end, value);
        if (argument.empty() || error != std::errc() || stop != end)
            refuse(std::string(verb.name) + " needs a whole number, not '" + std::string(argument) +
                   "'");
        return std::to_string(value);
    }
    case Argument::Choice: {
        const std::string lower = LCase(argument);
        if (std::find(verb.choices.begin(), verb.choices.end(), lower) == verb.choices.end())
            refuse("'" + std::string(argument) + "' is not one of the choices");
        return lower;
    }
    }
    return {};
}

// The next line without its line feed; false at the end of the input. A line longer than
// kMaxLineBytes is cut one byte past that length, so that the caller can refuse it without
// reading it all.
bool nextLine(std::istream& in, std::string& line) {
    line.clear();
    bool any = false;
    char c = 0;
    while (in.get(c)) {
        any = true;
        if (c == '\n') return true;
        line += c;
        if (line.size() > kMaxLineBytes) return true;
    }
    return any;
}

} // namespace

std::string ScriptLine::text() const {
    std::string line(verb->name);
    if (!argument.empty()) line += " " + argument;
    return line;
}

std::vector<ScriptLine> readScript(std::istream& in, std::span<const Verb> verbs) {
    std::vector<ScriptLine> script;
    std::size_t total = 0;
    int number = 0;
    std::string raw;
    while (nextLine(in, raw)) {
        ++number;
        total += raw.size() + 1;
        if (raw.size() > kMaxLineBytes)
            throw ScriptError(number, "the line is longer than " + std::to_string(kMaxLineBytes) +
                                          " bytes");
        if (total > kMaxScriptBytes)
            throw ScriptError(number, "the script is longer than " +
                                          std::to_string(kMaxScriptBytes) + " bytes");
        if (raw.ends_with('\r')) raw.pop_back();
        if (hasControlCharacter(raw))
            throw ScriptError(number, "the line holds a control character");

        const std::string_view line = trimmed(raw);
        if (line.empty() || line.front() == '#') continue;
        const auto wordEnd = static_cast<std::size_t>(
            std::find_if(line.begin(), line.end(), isBlank) - line.begin());
        const std::string_view word = line.substr(0, wordEnd);
        const Verb* verb = findVerb(verbs, word);
        if (!verb)
            throw ScriptError(number, "unknown verb '" + std::string(word) + "' (the verbs are " +
                                          knownVerbs(verbs) + ")");
        script.push_back(ScriptLine{number, verb,
                                    checkedArgument(*verb, trimmed(line.substr(wordEnd)), number)});
    }
    return script;
}

} // namespace vellant::replay
