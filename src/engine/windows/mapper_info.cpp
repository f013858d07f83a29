// MapperInfo(window_id, attribute). Zoom and scale come in the session's distance and paper
// units, the centre and the bounds in the session's coordinate system.

#include "engine/engine.h"
#include "engine/lang/registry.h"
#include "engine/windows/coord_transform.h"
#include "engine/windows/info_values.h"
#include "engine/windows/map_view.h"
#include "engine/windows/units.h"
#include "engine/windows/window_language_parts.h"
#include "engine/windows/window_manager.h"

#include <algorithm>

namespace vellant::engine {

namespace {

constexpr const char* kFunction = "MapperInfo";

// The view's box in the session's coordinates: the corners and the middles of the edges,
// as a box in one projection is bent in another.
Bounds sessionBounds(const Window& window, const CoordTransform& toSession) {
    const Bounds box = viewBounds(*window.map, window.placement.width, window.placement.height);
    if (toSession.isIdentity()) return box;
    Bounds out{box.maxX, box.maxY, box.minX, box.minY};
    bool any = false;
    for (double x : {box.minX, (box.minX + box.maxX) / 2, box.maxX}) {
        for (double y : {box.minY, (box.minY + box.maxY) / 2, box.maxY}) {
            double px = x;
            double py = y;
            if (!toSession.apply(px, py)) continue;
            any = true;
            out.minX = std::min(out.minX, px);
            out.minY = std::min(out.minY, py);
            out.maxX = std::max(out.maxX, px);
            out.maxY = std::max(out.maxY, py);
        }
    }
    return any ? out : box;
}

MbValue mapperInfo(Engine& engine, const Window& window, int code) {
    const MapState& map = *window.map;
    const SessionSettings& session = engine.settings();
    const double zoom = map.zoomMetres / distanceUnitMetres(session.distanceUnits);
    switch (code) {
    case 1:
        return MbValue::number(zoom);
    case 2: {
        const double paper = window.placement.width / paperUnitInches(session.paperUnits);
        return MbValue::number(paper > 0 ? zoom / paper : 0);
    }
    case 3:
    case 4: {
        double x = map.centreX;
        double y = map.centreY;
        engine.windows()
            .transforms()
            .between(map.coordSys, parseCoordSys(session.coordSys))
            .apply(x, y);
        return MbValue::number(code == 3 ? x : y);
    }
    case 5:
    case 6:
    case 7:
    case 8: {
        const Bounds box = sessionBounds(
            window,
            engine.windows().transforms().between(map.coordSys, parseCoordSys(session.coordSys)));
        const double values[] = {box.minX, box.minY, box.maxX, box.maxY};
        return MbValue::number(values[code - 5]);
    }
    case 9:
        return smallInt(map.layerCount());
    case 10:
        return smallInt(map.editableLayer());
    case 11:
        return MbValue::string(map.xyUnitName());
    case 12:
        return MbValue::string(map.distanceUnits);
    case 13:
        return MbValue::string(map.areaUnits);
    case 14:
        return MbValue::logical(window.settings.scrollBars);
    case 15:
        return smallInt(static_cast<int>(map.statusDisplay));
    case 16:
        return smallInt(0); // no thematic layers
    case 17:
        return MbValue::string(map.coordSys.clause());
    case 18:
        return MbValue::string(""); // names come from a projection file the host lacks
    case 19:
        return smallInt(0);
    case 20:
        return smallInt(map.cartesianDistance ? 1 : 0);
    case 21:
        return smallInt(map.displayDms);
    case 22:
        return MbValue::string(map.coordSys.clause(true));
    case 23:
        return smallInt(map.clipType);
    case 24:
        return MbValue::logical(map.clipOn);
    case 25:
        return MbValue::string("None");
    case 26:
        return MbValue::string("CubicConvolution");
    case 27:
        return MbValue::logical(false);
    case 28:
        return smallInt(map.layerCount()); // no group layers
    case 29:
        return smallInt(0);
    default:
        raiseArgumentOutOfRange(2, kFunction);
    }
}

} // namespace

void registerMapperInfo(Registry& registry) {
    registry.addFunction(kFunction, 2, 2, [](Engine& engine, std::vector<MbValue>& args) {
        const Window& window = engine.windows().getMap(windowIdArgument(args[0]));
        return mapperInfo(engine, window, attributeCode(args[1], 2, kFunction));
    });
}

} // namespace vellant::engine
