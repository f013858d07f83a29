#pragma once
// The text of a workspace (.WOR): a header of "!" lines, then MapBasic statements. A statement
// begins at the start of a line and goes on over the indented lines after it, which is how the
// host writes its long Set Map and Map From statements. Blank lines are skipped. Lines end in
// LF, CR LF or CR.
//
// Errors (MbError 643):
//   "Not a workspace: the first line is not !Workspace."
//   "Invalid workspace version at line <n>."           (!Version without a whole number)
//   "Statement expected at line <n>."                  (an indented line before any statement)

#include <string>
#include <string_view>
#include <vector>

namespace vellant::engine {

struct WorkspaceStatement {
    int line = 0;     // where the statement begins, from 1
    std::string text; // its lines joined by line feeds
};

struct WorkspaceText {
    int version = 0;     // !Version; 0 when the header has none
    std::string charset; // !Charset; empty when the header has none
    int charsetLine = 0; // where the !Charset line is
    std::vector<WorkspaceStatement> statements;
};

WorkspaceText parseWorkspaceText(std::string_view text);

} // namespace vellant::engine
