#include "engine/workspace/workspace_loader.h"

#include "engine/engine.h"
#include "engine/lang/lexer.h"
#include "engine/mb_error.h"
#include "engine/mb_value_text.h"

#include <fstream>
#include <iterator>

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
    if (tokens.size() < 4 || tokens[0].lower != "open" || tokens[1].lower != "table" ||
        tokens[2].kind != Token::Kind::String || tokens[2].text.empty())
        return std::string(statement);
    const std::filesystem::path file = fileInFolder(tokens[2].text, folder);
    return std::string(statement.substr(0, tokens[2].position)) + quotedMbString(file.string()) +
           " " + std::string(statement.substr(tokens[3].position));
}

void loadWorkspaceText(Engine& engine, std::string_view text, const std::filesystem::path& folder,
                       const WorkspaceStatementFilter& filter) {
    const WorkspaceText workspace = parseWorkspaceText(text);
    for (const WorkspaceStatement& statement : workspace.statements) {
        if (filter && !filter(statement)) continue;
        try {
            engine.run(withTableFileInFolder(statement.text, folder));
        } catch (const MbError& e) {
            raiseMb(e.code(), "Workspace line " + std::to_string(statement.line) + ": " + e.what());
        }
    }
}

void loadWorkspace(Engine& engine, const std::filesystem::path& file) {
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
    loadWorkspaceText(engine, text, folder);
}

} // namespace vellant::engine
