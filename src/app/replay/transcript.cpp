#include "app/replay/transcript.h"

#include <cstdio>

namespace vellant::replay {

std::string oneLine(std::string_view text) {
    std::string line;
    line.reserve(text.size());
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '\n') {
            line += "\\n";
        } else if (c == '\r') {
            line += "\\r";
        } else if (c == '\t') {
            line += "\\t";
        } else if (byte < 0x20 || byte == 0x7F) {
            char escaped[5];
            std::snprintf(escaped, sizeof escaped, "\\x%02X", byte);
            line += escaped;
        } else {
            line += c;
        }
    }
    return line;
}

void Transcript::write(std::string_view kind, std::string_view text) {
    out_ << kind << ' ' << oneLine(text) << '\n';
    tally(kind);
}

void Transcript::write(std::string_view kind) {
    out_ << kind << '\n';
    tally(kind);
}

void Transcript::tally(std::string_view kind) {
    const auto it = counts_.find(kind);
    if (it == counts_.end())
        counts_.emplace(std::string(kind), 1);
    else
        ++it->second;
}

void Transcript::writeBlock(std::string_view text) {
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        const std::string_view line = text.substr(0, end);
        out_ << oneLine(line.ends_with('\r') ? line.substr(0, line.size() - 1) : line) << '\n';
        if (end == std::string_view::npos) break;
        text.remove_prefix(end + 1);
    }
}

std::size_t Transcript::count(std::string_view kind) const {
    const auto it = counts_.find(kind);
    return it == counts_.end() ? 0 : it->second;
}

} // namespace vellant::replay
