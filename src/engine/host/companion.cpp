#include "engine/host/companion.h"

#include "base/basic_text.h"
#include "engine/engine.h"
#include "engine/host/host_services.h"
#include "engine/mb_error.h"

#include <algorithm>
#include <cctype>

namespace vellant::engine {

namespace {

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

std::string_view trimmed(std::string_view s) {
    while (!s.empty() && isBlank(s.front()))
        s.remove_prefix(1);
    while (!s.empty() && isBlank(s.back()))
        s.remove_suffix(1);
    return s;
}

// Takes the leading word off text (blanks before it skipped) and answers it.
std::string_view takeWord(std::string_view& text) {
    text = trimmed(text);
    std::size_t end = 0;
    while (end < text.size() && !isBlank(text[end]))
        ++end;
    const std::string_view word = text.substr(0, end);
    text.remove_prefix(end);
    return word;
}

[[noreturn]] void unrecognized(std::string_view message) {
    raiseMb(kMbSyntax, "Unrecognized command: " + std::string(trimmed(message)) + ".");
}

} // namespace

Companion::Companion(Engine& engine)
    : engine_(engine), globals_{{"hwnd", "0"}, {"VLadvice", ""}, {"currstyle", ""}} {}

const std::string* Companion::findGlobal(std::string_view name) const {
    const std::string lower = LCase(name);
    for (const auto& [globalName, value] : globals_)
        if (LCase(globalName) == lower) return &value;
    return nullptr;
}

bool Companion::hasGlobal(std::string_view name) const {
    return findGlobal(name) != nullptr;
}

const std::string& Companion::global(std::string_view name) const {
    const std::string* value = findGlobal(name);
    if (!value)
        raiseMb(kMbUnknownVariable, "Variable or Field " + std::string(name) + " not defined.");
    return *value;
}

void Companion::setGlobal(std::string_view name, std::string value) {
    // The globals are the companion's own; global() finds the slot and raises for a stranger.
    const std::string& slot = global(name);
    for (auto& g : globals_) {
        if (&g.second == &slot) {
            g.second = std::move(value);
            return;
        }
    }
}

std::vector<std::string> Companion::globalNames() const {
    std::vector<std::string> names;
    for (const auto& g : globals_)
        names.push_back(g.first);
    return names;
}

void Companion::Do(std::string_view message) {
    std::string_view rest = message;
    const std::string first = LCase(takeWord(rest));
    if (first == "drop") {
        std::string_view afterDrop = rest;
        if (LCase(takeWord(afterDrop)) == "table" && !trimmed(afterDrop).empty()) {
            engine_.run(trimmed(message));
            return;
        }
    } else if (first == "dialog") {
        queueStyleDialog(rest);
        return;
    }
    unrecognized(message);
}

void Companion::queueStyleDialog(std::string_view arguments) {
    arguments = trimmed(arguments);
    std::size_t digits = 0;
    while (digits < arguments.size() && digits < 9 &&
           std::isdigit(static_cast<unsigned char>(arguments[digits])))
        ++digits;
    if (digits == 0 || (digits < arguments.size() && !isBlank(arguments[digits])))
        unrecognized("Dialog " + std::string(arguments));
    const int kind = std::stoi(std::string(arguments.substr(0, digits)));
    if (kind != 0 && kind != 1 && kind != 2 && kind != 5)
        raiseMb(kMbArgRange, "Argument 1 of Dialog out of range.");
    requests_.push_back(
        {static_cast<StyleDialogKind>(kind), std::string(trimmed(arguments.substr(digits)))});
    styleDialogRequested.notify();
}

std::optional<StyleDialogRequest> Companion::takeStyleDialogRequest() {
    if (requests_.empty()) return std::nullopt;
    StyleDialogRequest request = std::move(requests_.front());
    requests_.pop_front();
    return request;
}

void Companion::styleDialogClosed(const std::optional<std::string>& chosenClause) {
    setGlobal("currstyle", chosenClause.value_or(std::string()));
    giveAdvice("style");
}

bool Companion::giveAdvice(std::string_view word) {
    setGlobal("VLadvice", std::string(word));
    HostServices& host = engine_.host();
    ButtonPad* pad = host.findButtonPad(kPadName);
    if (!pad || !pad->button(kAdviceButton)) return false;
    host.pressButton(kPadName, kAdviceButton);
    return true;
}

} // namespace vellant::engine
