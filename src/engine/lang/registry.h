#pragma once
// The statements and functions the interpreter knows. Each part of the engine registers its
// own: statements by their leading words, functions by name (both in any letter case).

#include "engine/mb_value.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace vellant::engine {

class Engine;
class Cursor;

// Called with the cursor behind the leading words.
using StatementHandler = std::function<void(Engine&, Cursor&)>;
using FunctionHandler = std::function<MbValue(Engine&, std::vector<MbValue>& args)>;

class Registry {
public:
    // Leading words in lower case, e.g. {"set", "map"}; the longest registered match wins.
    void addStatement(std::vector<std::string> leadingWords, StatementHandler handler);
    void addFunction(const std::string& name, int minArgs, int maxArgs, FunctionHandler handler);

    struct StatementMatch {
        const StatementHandler* handler = nullptr;
        std::size_t wordCount = 0;
    };
    // Looks at the lower-case words a statement begins with.
    StatementMatch findStatement(const std::vector<std::string_view>& leadingWords) const;

    struct Function {
        std::string name; // as registered, for messages ("LayerInfo")
        int minArgs = 0;
        int maxArgs = 0;
        FunctionHandler handler;
    };
    const Function* findFunction(std::string_view lowerName) const;

private:
    struct Node {
        StatementHandler handler;
        std::map<std::string, Node, std::less<>> next;
    };
    Node statements_;
    std::map<std::string, Function, std::less<>> functions_;
};

} // namespace vellant::engine
