#pragma once
// The user's own actions in a replay script: mouse and keyboard on the layer grid, the cell
// editor, the orientation picker and the menus. Each goes through the control's input (a press
// and release at the middle of a cell, a key into the grid), so that the same handlers run as
// for a person at the desk, with the mouse where a person's would be.

#include "app/replay/script.h"

namespace vellant::replay {

// Rows are grid rows (0 the header); a column is a catalogue key in any letter case, blanks
// written as blanks or "_", or a column number.
void clickVerb(ReplayRun& replay, const ScriptLine& line);
void rightClickVerb(ReplayRun& replay, const ScriptLine& line);
void doubleClickVerb(ReplayRun& replay, const ScriptLine& line);
void selectRowsVerb(ReplayRun& replay, const ScriptLine& line);
void selectCellsVerb(ReplayRun& replay, const ScriptLine& line);
void dragVerb(ReplayRun& replay, const ScriptLine& line);
void keyVerb(ReplayRun& replay, const ScriptLine& line);
void typeVerb(ReplayRun& replay, const ScriptLine& line);
void enterVerb(ReplayRun& replay, const ScriptLine& line);
void escapeVerb(ReplayRun& replay, const ScriptLine& line);
void pickVerb(ReplayRun& replay, const ScriptLine& line);
void menuVerb(ReplayRun& replay, const ScriptLine& line);
void orientVerb(ReplayRun& replay, const ScriptLine& line);

} // namespace vellant::replay
