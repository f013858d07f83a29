#include "engine/tables/table_path.h"

#include <cctype>
#include <system_error>

namespace vellant::engine {

namespace {

bool sameIgnoringCase(const std::string& a, const std::string& b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (std::tolower(static_cast<unsigned char>(a[i])) !=
            std::tolower(static_cast<unsigned char>(b[i]))) {
            return false;
        }
    }
    return true;
}

// The entry of folder whose name equals name in any letter case. The exact name wins; where
// several differ from it only in letter case ("World.TAB" and "WORLD.tab" copied side by side
// from a Windows share), the first in sorted order is taken, whatever order the folder lists
// them in, so that the same workspace always opens the same file.
std::optional<std::filesystem::path> entryIgnoringCase(const std::filesystem::path& folder,
                                                       const std::string& name) {
    std::error_code error;
    const std::filesystem::path exact = folder / name;
    if (std::filesystem::exists(exact, error)) return exact;
    std::filesystem::directory_iterator entries(folder.empty() ? "." : folder, error);
    if (error) return std::nullopt;
    std::optional<std::string> first;
    for (const auto& entry : entries) {
        std::string candidate = entry.path().filename().string();
        if (sameIgnoringCase(candidate, name) && (!first || candidate < *first))
            first = std::move(candidate);
    }
    if (!first) return std::nullopt;
    return folder / *first;
}

} // namespace

std::filesystem::path tablePathFromText(std::string_view written) {
    std::string text(written);
    for (char& c : text) {
        if (c == '\\') c = '/';
    }
    std::filesystem::path path(text);
    if (path.is_relative()) {
        std::error_code error;
        const std::filesystem::path here = std::filesystem::current_path(error);
        if (!error) path = here / path;
    }
    path = path.lexically_normal();
    if (!path.has_extension()) path += ".tab";
    return path;
}

std::optional<std::filesystem::path> findTableFile(std::string_view written) {
    return findFileIgnoringCase(tablePathFromText(written));
}

std::optional<std::filesystem::path> findFileIgnoringCase(const std::filesystem::path& path) {
    std::error_code error;
    if (std::filesystem::is_regular_file(path, error)) return path;
    std::filesystem::path found = path.root_path();
    for (const auto& name : path.relative_path()) {
        const std::optional<std::filesystem::path> next = entryIgnoringCase(found, name.string());
        if (!next) return std::nullopt;
        found = *next;
    }
    if (!std::filesystem::is_regular_file(found, error)) return std::nullopt;
    return found;
}

std::string defaultTableName(const std::filesystem::path& file) {
    std::string name = file.stem().string();
    // A MapBasic name holds letters, digits and underscores and does not start with a digit.
    // Letters include those of other alphabets ("Города" from a Cyrillic Windows), whose UTF-8
    // bytes are all above 0x7f.
    for (char& c : name) {
        const auto byte = static_cast<unsigned char>(c);
        if (!std::isalnum(byte) && c != '_' && byte < 0x80) c = '_';
    }
    if (name.empty() || std::isdigit(static_cast<unsigned char>(name[0]))) name = "_" + name;
    return name;
}

} // namespace vellant::engine
