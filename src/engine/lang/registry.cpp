#include "engine/lang/registry.h"

#include "base/basic_text.h"

#include <cctype>

namespace vellant::engine {

void Registry::addStatement(std::vector<std::string> leadingWords, StatementHandler handler) {
    Node* node = &statements_;
    for (const std::string& word : leadingWords)
        node = &node->next[LCase(word)];
    node->handler = std::move(handler);
}

void Registry::addFunction(const std::string& name, int minArgs, int maxArgs,
                           FunctionHandler handler) {
    functions_[LCase(name)] = Function{name, minArgs, maxArgs, std::move(handler)};
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
