#include "engine/lang/registry.h"

#include <cctype>

namespace vellant::engine {

namespace {

std::string toLower(std::string_view text) {
    std::string lower(text);
    for (char& c : lower)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return lower;
}

} // namespace

void Registry::addStatement(std::vector<std::string> leadingWords, StatementHandler handler) {
    Node* node = &statements_;
    for (const std::string& word : leadingWords)
        node = &node->next[toLower(word)];
    node->handler = std::move(handler);
}

void Registry::addFunction(const std::string& name, int minArgs, int maxArgs,
                           FunctionHandler handler) {
    functions_[toLower(name)] = Function{name, minArgs, maxArgs, std::move(handler)};
}

Registry::StatementMatch
Registry::findStatement(const std::vector<std::string_view>& leadingWords) const {
    StatementMatch best;
    const Node* node = &statements_;
    for (std::size_t i = 0; i < leadingWords.size(); ++i) {
        const auto found = node->next.find(leadingWords[i]);
        if (found == node->next.end()) break;
        node = &found->second;
        if (node->handler) {
            best.handler = &node->handler;
            best.wordCount = i + 1;
        }
    }
    return best;
}

const Registry::Function* Registry::findFunction(std::string_view lowerName) const {
    const auto found = functions_.find(lowerName);
    return found == functions_.end() ? nullptr : &found->second;
}

} // namespace vellant::engine
