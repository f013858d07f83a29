#pragma once
// The line discipline of the MapBasic shell (vellant-mb): one line of input, its answer on the
// output. "#" lines and blank lines are skipped; "=expression" prints what eval answers;
// anything else runs as Do and prints nothing; a refused line prints "! <code> <message>".

#include "hostmodel/mapinfo_app.h"

#include <ostream>
#include <string_view>

namespace vellant::engine {

// Answers false when the line was refused.
bool runShellLine(hostmodel::MapInfoApp& host, std::string_view line, std::ostream& out);

} // namespace vellant::engine
