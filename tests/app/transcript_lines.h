#pragma once
// A replay's transcript as the acceptance tests read it: a line each, in order.

#include <sstream>
#include <string>
#include <vector>

namespace vellant::replay {

inline std::vector<std::string> transcriptLines(const std::string& transcript) {
    std::vector<std::string> lines;
    std::istringstream in(transcript);
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

} // namespace vellant::replay
