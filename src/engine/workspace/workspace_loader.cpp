#include "engine/workspace/workspace_loader.h"

#include "engine/engine.h"
#include "engine/lang/lexer.h"
#include "engine/mb_error.h"
#include "engine/mb_value_text.h"
#include "engine/tables/catalog.h"
#include "engine/tables/charset.h"
#include "engine/tables/table_language_parts.h"
#include "engine/tables/table_path.h"
#include "engine/windows/window_manager.h"
#include "engine/workspace/workspace_charset.h"

#include <fstream>
#include <iterator>
#include <optional>
#include <set>

namespace vellant::engine {

namespace {

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

// "C:\maps\world.tab", "C:/maps", "\\server\share\world.tab": names of another machine.
bool isForeignAbsolute(std::string_view written) {
    const bool drive = written.size() >= 2 && isLetter(written[0]) && written[1] == ':';
    const bool network = written.starts_with("\\\\");
    return drive || network;
}

std::filesystem::path fileInFolder(std::string_view written, const std::filesystem::path& folder) {
    std::string slashed(written);
    for (char& c : slashed)
        if (c == '\\') c = '/';
    if (isForeignAbsolute(written)) {
        const std::size_t lastSlash = slashed.find_last_of('/');
        const std::size_t nameStart = lastSlash == std::string::npos ? 2 : lastSlash + 1;
        return folder / slashed.substr(nameStart);
    }
    const std::filesystem::path path(slashed);
    return path.is_absolute() ? path : folder / path;
}

} // namespace

std::string withTableFileInFolder(std::string_view statement, const std::filesystem::path& folder) {
    std::vector<Token> tokens;
    try {
        tokens = tokenize(statement);
    } catch (const MbError&) {
        return std::string(statement); // the engine reports it when it runs
    }
    const bool namesFile =
        (tokens.size() >= 4 && tokens[0].lower == "open" && tokens[1].lower == "table") ||
        (tokens.size() >= 3 && tokens[0].lower == "run" && tokens[1].lower == "application");
    if (!namesFile || tokens[2].kind != Token::Kind::String || tokens[2].text.empty())
        return std::string(statement);
    const std::filesystem::path file = fileInFolder(tokens[2].text, folder);
    const std::string rest =
        tokens.size() > 3 ? " " + std::string(statement.substr(tokens[3].position)) : "";
    return std::string(statement.substr(0, tokens[2].position)) + quotedMbString(file.string()) +
           rest;
}

namespace {

// The file an "Open Table" statement names when it is a path of another machine, as written.
std::optional<std::string> foreignTableFile(std::string_view statement) {
    std::vector<Token> tokens;
    try {
        tokens = tokenize(statement);
    } catch (const MbError&) {
        return std::nullopt;
    }
    if (tokens.size() < 3 || tokens[0].lower != "open" || tokens[1].lower != "table" ||
        tokens[2].kind != Token::Kind::String || !isForeignAbsolute(tokens[2].text))
        return std::nullopt;
    return tokens[2].text;
}

// What a workspace had opened when it failed, so that the load can be taken back.
class OpenedByLoad {
public:
    explicit OpenedByLoad(Engine& engine) : engine_(engine) {
        for (int n = 1; n <= engine.catalog().count(); ++n)
            tablesBefore_.insert(engine.catalog().at(n).name());
        const std::vector<int> ids = engine.windows().ids();
        windowsBefore_.insert(ids.begin(), ids.end());
    }

    // Closes the windows and tables opened since; what was open before stays as it was.
    void closeAll() noexcept {
        try {
            for (int id : engine_.windows().ids())
                if (!windowsBefore_.contains(id)) engine_.windows().close(id);
            std::vector<std::string> opened;
            for (int n = 1; n <= engine_.catalog().count(); ++n) {
                const std::string& name = engine_.catalog().at(n).name();
                if (!tablesBefore_.contains(name)) opened.push_back(name);
            }
            for (const std::string& name : opened)
                if (engine_.catalog().find(name) != nullptr) closeTable(engine_, name);
        } catch (const MbError&) {
            // A table that refuses to close stays; the load's own error is the one to report.
        }
    }

private:
    Engine& engine_;
    std::set<std::string> tablesBefore_;
    std::set<int> windowsBefore_;
};

// The leading words of a statement in lower case (at most four), or none when it does not
// tokenize; the engine reports that when it runs.
std::vector<std::string> leadingWords(std::string_view statement) {
    std::vector<std::string> words;
    try {
        for (const Token& token : tokenize(statement)) {
            if (words.size() == 4 || token.kind == Token::Kind::End) break;
            words.push_back(token.kind == Token::Kind::Identifier ? token.lower : token.text);
        }
    } catch (const MbError&) {
    }
    return words;
}

bool beginsWith(const std::vector<std::string>& words,
                std::initializer_list<std::string_view> wanted) {
    if (words.size() < wanted.size()) return false;
    std::size_t i = 0;
    for (std::string_view word : wanted)
        if (words[i++] != word) return false;
    return true;
}

// A statement that opens a window the engine does not show; its kind for the note.
std::optional<std::string> unshownWindow(const std::vector<std::string>& words) {
    if (beginsWith(words, {"layout"})) return "Layout";
    if (beginsWith(words, {"graph"})) return "Graph";
    if (beginsWith(words, {"create", "legend"})) return "Legend";
    if (beginsWith(words, {"create", "cartographic", "legend"})) return "Cartographic legend";
    if (beginsWith(words, {"create", "redistricter"})) return "Redistricting";
    return std::nullopt;
}

// What follows such a statement and belongs to its window: the frames of a layout, the
// settings of the window just opened (which FrontWindow() now names) and of its legend.
bool belongsToUnshownWindow(const std::vector<std::string>& words) {
    return beginsWith(words, {"set", "window", "frontwindow"}) ||
           beginsWith(words, {"create", "frame"}) || beginsWith(words, {"set", "layout"}) ||
           beginsWith(words, {"set", "graph"}) || beginsWith(words, {"set", "legend"}) ||
           beginsWith(words, {"set", "cartographic", "legend"}) ||
           beginsWith(words, {"add", "cartographic", "frame"}) ||
           beginsWith(words, {"alter", "cartographic", "frame"}) ||
           beginsWith(words, {"create", "text", "into", "window"});
}

// A statement as a workspace writes it: continuation lines indented.
std::string asWorkspaceLines(const std::string& statement) {
    std::string lines;
    for (char c : statement) {
        lines += c;
        if (c == '\n') lines += "  ";
    }
    return lines + "\n";
}

// Workspaces that open workspaces (Run Application "x.wor") may not go round for ever.
constexpr int kMaxNestedWorkspaces = 8;
thread_local int nestedWorkspaces = 0;

void checkLineLengths(const WorkspaceText& workspace) {
    for (const WorkspaceStatement& statement : workspace.statements) {
        if (statement.text.size() > kMaxWorkspaceStatementBytes) {
            raiseMb(kMbInvalidFormat, "Workspace line " + std::to_string(statement.line) +
                                          ": the statement is longer than " +
                                          std::to_string(kMaxWorkspaceStatementBytes) +
                                          " characters.");
        }
        std::size_t lineStart = 0;
        int line = statement.line;
        while (lineStart <= statement.text.size()) {
            std::size_t lineEnd = statement.text.find('\n', lineStart);
            if (lineEnd == std::string::npos) lineEnd = statement.text.size();
            if (lineEnd - lineStart > kMaxWorkspaceLineBytes) {
                raiseMb(kMbInvalidFormat,
                        "Workspace line " + std::to_string(line) + " is longer than " +
                            std::to_string(kMaxWorkspaceLineBytes) + " characters.");
            }
            lineStart = lineEnd + 1;
            ++line;
        }
    }
}

} // namespace

std::vector<std::string> loadWorkspaceText(Engine& engine, std::string_view text,
                                           const std::filesystem::path& folder,
                                           const WorkspaceStatementFilter& filter) {
    if (nestedWorkspaces >= kMaxNestedWorkspaces)
        raiseMb(kMbCantAccessFile, "Workspaces open each other more than " +
                                       std::to_string(kMaxNestedWorkspaces) + " deep.");
    struct Nesting {
        Nesting() { ++nestedWorkspaces; }
        ~Nesting() { --nestedWorkspaces; }
        Nesting(const Nesting&) = delete;
        Nesting& operator=(const Nesting&) = delete;
    } nesting;

    WorkspaceText workspace = parseWorkspaceText(text);
    // The header is ASCII in every charset MapInfo writes; the rest is read again once it is
    // UTF-8, so that no trail byte of a double-byte charset is taken for a backslash.
    const std::optional<std::string> from = iconvCharsetName(workspace.charset);
    if (!workspace.charset.empty() && (!from || !from->empty())) {
        const std::string utf8 =
            workspaceTextAsUtf8(text, workspace.charset, workspace.charsetLine);
        workspace = parseWorkspaceText(utf8);
    }
    checkLineLengths(workspace);

    OpenedByLoad opened(engine);
    std::vector<std::string>& kept = engine.settings().keptWorkspaceText;
    const std::size_t keptBefore = kept.size();
    std::vector<std::string> notes;
    bool inUnshownWindow = false;
    for (const WorkspaceStatement& statement : workspace.statements) {
        if (filter && !filter(statement)) continue;
        const std::vector<std::string> words = leadingWords(statement.text);
        if (const std::optional<std::string> kind = unshownWindow(words)) {
            kept.push_back(asWorkspaceLines(statement.text));
            notes.push_back(*kind + " window at line " + std::to_string(statement.line) +
                            ": kept for Save Workspace, not shown.");
            inUnshownWindow = true;
            continue;
        }
        if (inUnshownWindow && belongsToUnshownWindow(words)) {
            kept.back() += asWorkspaceLines(statement.text);
            continue;
        }
        inUnshownWindow = false;
        const std::string rewritten = withTableFileInFolder(statement.text, folder);
        try {
            engine.run(rewritten);
        } catch (const MbError& e) {
            opened.closeAll();
            kept.resize(keptBefore);
            std::string message = e.what();
            if (const std::optional<std::string> foreign = foreignTableFile(statement.text);
                foreign && e.code() == kMbCantAccessFile &&
                !findTableFile(fileInFolder(*foreign, folder).string())) {
                // The folder was the last place to look; the path as written is the one the
                // user knows.
                message = "Unable to open table " + *foreign +
                          ": the file is not there, nor in the workspace's folder " +
                          folder.string() + ".";
            }
            raiseMb(e.code(), "Workspace line " + std::to_string(statement.line) + ": " + message);
        }
    }
    return notes;
}

std::vector<std::string> loadWorkspace(Engine& engine, const std::filesystem::path& file) {
    std::error_code error;
    const auto size = std::filesystem::file_size(file, error);
    std::ifstream in(file, std::ios::binary);
    if (error || !in) raiseMb(kMbCantAccessFile, "Unable to open workspace " + file.string() + ".");
    if (size > kMaxWorkspaceBytes)
        raiseMb(kMbCantAccessFile, "Workspace " + file.string() + " is too large.");
    std::string text;
    text.reserve(static_cast<std::size_t>(size));
    text.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    if (in.bad()) raiseMb(kMbCantAccessFile, "Unable to open workspace " + file.string() + ".");
    const std::filesystem::path folder = std::filesystem::absolute(file, error).parent_path();
    return loadWorkspaceText(engine, text, folder);
}

} // namespace vellant::engine
