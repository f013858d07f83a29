#pragma once
// Replay scripts: one action of the user (or of the host, or of the companion) a line. A line
// is a verb and its argument; "#" lines and blank lines are skipped. Which verbs there are,
// what argument each takes and what it does is one table (replay_verbs.h): the reader checks
// each line against it, so that a script with a fault is refused whole, before anything runs.
//
// A script is text a person wrote, and it may be hostile: lines are at most kMaxLineBytes, a
// script at most kMaxScriptBytes, and no control character but the tab may stand in a line (a
// carriage return before the line's end is taken off, for scripts written on Windows).

#include <cstddef>
#include <istream>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace vellant::replay {

class ReplayRun;
struct ScriptLine;

inline constexpr std::size_t kMaxLineBytes = 64 * 1024;
inline constexpr std::size_t kMaxScriptBytes = 4 * 1024 * 1024;

// What follows a verb: nothing; one word without blanks; the rest of the line, blanks and all
// (a MapBasic statement, an advice word such as "exit vl"); a whole number; one of a few words.
enum class Argument { None, Word, Text, Integer, Choice };

struct Verb {
    std::string_view name; // lower case; scripts may write it in any letter case
    Argument argument = Argument::None;
    std::span<const std::string_view> choices; // for Argument::Choice, lower case
    // Lines of this verb that stand before any other action run before the session starts
    // (an answer for a message box of the load); all other lines run in the order written.
    bool aheadOfSession = false;
    void (*run)(ReplayRun& replay, const ScriptLine& line) = nullptr;
    std::string_view usage; // how a line of this verb is written, for error messages
};

struct ScriptLine {
    int number = 0; // line in the script, from 1
    const Verb* verb = nullptr;
    std::string argument; // as written; a Choice in lower case

    // The line as the transcript echoes it: the verb, a blank and the argument.
    std::string text() const;
};

// A fault of the script: the line it stands on and what is wrong.
class ScriptError : public std::runtime_error {
public:
    ScriptError(int line, const std::string& message)
        : std::runtime_error("line " + std::to_string(line) + ": " + message), line_(line) {}
    int line() const { return line_; }

private:
    int line_;
};

// Reads a whole script; throws ScriptError for the first faulty line.
std::vector<ScriptLine> readScript(std::istream& in, std::span<const Verb> verbs);

} // namespace vellant::replay
