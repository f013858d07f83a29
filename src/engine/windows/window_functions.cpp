// NumWindows, FrontWindow, WindowID and Distance.

#include "engine/engine.h"
#include "engine/lang/registry.h"
#include "engine/windows/coord_transform.h"
#include "engine/windows/geodesy.h"
#include "engine/windows/info_values.h"
#include "engine/windows/units.h"
#include "engine/windows/window_language_parts.h"
#include "engine/windows/window_manager.h"

#include <cmath>

namespace vellant::engine {

namespace {

// WindowID(n): 0 the most recent window (0 when there is none), n the n-th window, an id
// itself for an open window's id (so that WindowID(FrontWindow()) is the front window).
MbValue windowId(Engine& engine, const MbValue& which) {
    WindowManager& windows = engine.windows();
    const double n = which.asNumber();
    if (n != std::floor(n) || std::fabs(n) > 2147483647.0) raiseInvalidWindowNumber(n);
    const auto value = static_cast<int>(n);
    if (value == 0) return MbValue::integer(windows.mostRecentWindow());
    if (windows.find(value)) return MbValue::integer(value);
    const int id = windows.idAtNumber(std::abs(value));
    if (id == 0) raiseInvalidWindowNumber(n);
    return MbValue::integer(id);
}

// Points in the session's coordinate system: on an Earth system along the great circle
// (projected points are first taken back to longitude and latitude), on a NonEarth plan
// straight across in its units.
MbValue distance(Engine& engine, std::vector<MbValue>& args) {
    double x1 = args[0].asNumber();
    double y1 = args[1].asNumber();
    double x2 = args[2].asNumber();
    double y2 = args[3].asNumber();
    const double unit = distanceUnitMetres(args[4].asString());
    const CoordSys session = parseCoordSys(engine.settings().coordSys);
    if (!session.earth) {
        const double planUnit = distanceUnitMetres(session.coordinateUnit());
        return MbValue::number(std::hypot(x2 - x1, y2 - y1) * planUnit / unit);
    }
    const CoordTransform& toLongLat = engine.windows().transforms().toLongLat(session);
    if (!toLongLat.apply(x1, y1) || !toLongLat.apply(x2, y2)) {
        raiseArgumentOutOfRange(1, "Distance");
    }
    return MbValue::number(greatCircleMetres(x1, y1, x2, y2) / unit);
}

} // namespace

void registerWindowFunctions(Registry& registry) {
    registry.addFunction("NumWindows", 0, 0, [](Engine& engine, std::vector<MbValue>&) {
        return smallInt(engine.windows().count());
    });
    registry.addFunction("FrontWindow", 0, 0, [](Engine& engine, std::vector<MbValue>&) {
        return MbValue::integer(engine.windows().frontWindow());
    });
    registry.addFunction("WindowID", 1, 1, [](Engine& engine, std::vector<MbValue>& args) {
        return windowId(engine, args[0]);
    });
    registry.addFunction("Distance", 5, 5, distance);
}

} // namespace vellant::engine
