#pragma once
// The replay runner's transcript: one line for each thing that happens, in the order it
// happens, each a kind word ("do", "eval", "=", "msgbox"...) and its text. A transcript line
// never breaks: line breaks, tabs and other control characters in a text are written as \n,
// \r, \t and \xHH. The transcript also counts its lines by kind, which is how the load
// benchmark counts host calls.

#include <cstddef>
#include <map>
#include <ostream>
#include <string>
#include <string_view>

namespace vellant::replay {

// text with its control characters escaped, fit for one line.
std::string oneLine(std::string_view text);

class Transcript {
public:
    explicit Transcript(std::ostream& out) : out_(out) {}

    // "<kind> <text>"; the blank stays when the text is empty, so "= " is an empty answer.
    void write(std::string_view kind, std::string_view text);
    // A kind that carries no text.
    void write(std::string_view kind);
    // Lines written as they stand, for text that is already made of lines (the final state).
    void writeBlock(std::string_view text);

    std::size_t count(std::string_view kind) const;
    void flush() { out_.flush(); }

private:
    void tally(std::string_view kind);

    std::ostream& out_;
    std::map<std::string, std::size_t, std::less<>> counts_;
};

} // namespace vellant::replay
