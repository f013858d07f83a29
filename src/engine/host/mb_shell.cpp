#include "engine/host/mb_shell.h"

#include "base/runtime_error.h"

#include <string>

namespace vellant::engine {

namespace {

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

} // namespace

bool runShellLine(hostmodel::MapInfoApp& host, std::string_view line, std::ostream& out) {
    while (!line.empty() && isBlank(line.front()))
        line.remove_prefix(1);
    while (!line.empty() && isBlank(line.back()))
        line.remove_suffix(1);
    if (line.empty() || line.front() == '#') return true;
    try {
        if (line.front() == '=')
            out << host.eval(std::string(line.substr(1))) << '\n';
        else
            host.Do(std::string(line));
    } catch (const RuntimeError& e) {
        out << "! " << e.number() << ' ' << e.description() << '\n';
        return false;
    }
    return true;
}

} // namespace vellant::engine
