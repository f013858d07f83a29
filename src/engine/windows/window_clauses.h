#pragma once
// Clause readers the window statements share. Each reads from the cursor and raises the
// cursor's syntax error (or the error of window_errors.h) when the clause is not there.

#include "engine/windows/coordsys.h"
#include "engine/windows/map_state.h"
#include "engine/windows/window_manager.h"

#include <optional>
#include <string>

namespace vellant::engine {

class Cursor;
class Engine;

// A window id given by any numeric expression ("3", "FrontWindow()", a variable).
int readWindowId(Cursor& cursor);

// On or Off.

// An optional "Units <name>" clause; nullopt when the next word is not Units.
std::optional<std::string> readUnits(Cursor& cursor);

// A length on paper: a number and an optional Units clause; inches. Default units: the
// session's paper units.
double readPaperLength(Cursor& cursor);

// The host keeps windows and margins within this many inches of the origin.
inline constexpr double kMaxWindowInches = 10000;

// A window's width or height: above 0 and at most kMaxWindowInches; inches.
double readWindowSize(Cursor& cursor, const char* what);
// A window's Position (x, y) [Units], "Position" already read; inches.
MapPoint readWindowPosition(Cursor& cursor);
// A margin: 0 up to kMaxWindowInches; inches.
double readMargin(Cursor& cursor);

// "(x, y)".
MapPoint readPoint(Cursor& cursor);

// A layer of the map by number (0 the cosmetic layer) or name, bare or as a string; 600 for
// one the map lacks.
int readLayerRef(Cursor& cursor, const MapState& map);

// The text of an expression as written, read without evaluating it (Label With names columns
// of the layer's table, not variables). Leading and trailing blanks are left out.
std::string readExpressionText(Cursor& cursor);

// The placement clauses of a new window: Position (x, y) [Units], Width w [Units],
// Height h [Units], Min or Max, in any order.
NewWindowOptions readNewWindowOptions(Cursor& cursor);

// A CoordSys clause, the word CoordSys already read: Earth ..., NonEarth ..., Table <t> or
// Window <id>.
CoordSys readCoordSys(Cursor& cursor);

} // namespace vellant::engine
