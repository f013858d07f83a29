#include "engine/workspace/workspace_text.h"

#include "base/basic_text.h"
#include "engine/mb_error.h"

#include <cctype>
#include <charconv>

namespace vellant::engine {

namespace {

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\f' || c == '\v';
}

std::string_view trimmed(std::string_view s) {
    while (!s.empty() && isBlank(s.front()))
        s.remove_prefix(1);
    while (!s.empty() && isBlank(s.back()))
        s.remove_suffix(1);
    return s;
}

// Splits off the next line; line ends are LF, CR LF or a lone CR.
std::string_view nextLine(std::string_view& text) {
    std::size_t end = 0;
    while (end < text.size() && text[end] != '\n' && text[end] != '\r')
        ++end;
    const std::string_view line = text.substr(0, end);
    if (end < text.size()) {
        const bool crlf = text[end] == '\r' && end + 1 < text.size() && text[end + 1] == '\n';
        end += crlf ? 2 : 1;
    }
    text.remove_prefix(end);
    return line;
}

[[noreturn]] void invalid(const std::string& message) {
    raiseMb(kMbInvalidFormat, message);
}

// "!Version 600", "!Version  950": the number after the word, blanks in any amount.
int readVersion(std::string_view rest, int lineNumber) {
    rest = trimmed(rest);
    int version = 0;
    const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), version);
    if (error != std::errc() || end != rest.data() + rest.size() || version < 0)
        invalid("Invalid workspace version at line " + std::to_string(lineNumber) + ".");
    return version;
}

void readHeaderLine(std::string_view line, int lineNumber, WorkspaceText& workspace) {
    line.remove_prefix(1); // the "!"
    std::size_t wordEnd = 0;
    while (wordEnd < line.size() && !isBlank(line[wordEnd]))
        ++wordEnd;
    const std::string word = LCase(line.substr(0, wordEnd));
    const std::string_view rest = line.substr(wordEnd);
    if (word == "version")
        workspace.version = readVersion(rest, lineNumber);
    else if (word == "charset") {
        workspace.charset = std::string(trimmed(rest));
        workspace.charsetLine = lineNumber;
    }
    // Other "!" lines carry nothing the host acts on.
}

} // namespace

WorkspaceText parseWorkspaceText(std::string_view text) {
    if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3); // a byte order mark

    WorkspaceText workspace;
    int lineNumber = 0;
    bool seenMagic = false;
    bool inHeader = true;
    while (!text.empty()) {
        const std::string_view line = nextLine(text);
        ++lineNumber;
        const std::string_view content = trimmed(line);
        if (content.empty()) continue;
        if (!seenMagic) {
            if (LCase(content) != "!workspace")
                invalid("Not a workspace: the first line is not !Workspace.");
            seenMagic = true;
            continue;
        }
        if (inHeader && content.front() == '!') {
            readHeaderLine(content, lineNumber, workspace);
            continue;
        }
        inHeader = false;
        if (isBlank(line.front())) {
            if (workspace.statements.empty())
                invalid("Statement expected at line " + std::to_string(lineNumber) + ".");
            std::string& statement = workspace.statements.back().text;
            statement += '\n';
            statement += content;
        } else {
            workspace.statements.push_back({lineNumber, std::string(content)});
        }
    }
    if (!seenMagic) invalid("Not a workspace: the first line is not !Workspace.");
    return workspace;
}

} // namespace vellant::engine
