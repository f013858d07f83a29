// Set Distance Units, Set Area Units, Set Paper Units and Set CoordSys: the session's units
// and coordinate system, which the window statements and functions read and report in.

#include "engine/engine.h"
#include "engine/lang/cursor.h"
#include "engine/lang/registry.h"
#include "engine/windows/units.h"
#include "engine/windows/window_clauses.h"
#include "engine/windows/window_language_parts.h"

namespace vellant::engine {

namespace {

void setDistanceUnits(Engine& engine, Cursor& cursor) {
    cursor.expectWord("units");
    engine.settings().distanceUnits = distanceUnitName(cursor.nameOrString());
}

void setAreaUnits(Engine& engine, Cursor& cursor) {
    cursor.expectWord("units");
    engine.settings().areaUnits = areaUnitName(cursor.nameOrString());
}

void setPaperUnits(Engine& engine, Cursor& cursor) {
    cursor.expectWord("units");
    engine.settings().paperUnits = paperUnitName(cursor.nameOrString());
}

void setCoordSys(Engine& engine, Cursor& cursor) {
    engine.settings().coordSys = readCoordSys(cursor).clause(true);
}

} // namespace

void registerSessionStatements(Registry& registry) {
    registry.addStatement({"set", "distance"}, setDistanceUnits);
    registry.addStatement({"set", "area"}, setAreaUnits);
    registry.addStatement({"set", "paper"}, setPaperUnits);
    registry.addStatement({"set", "coordsys"}, setCoordSys);
}

} // namespace vellant::engine
