#include "mapchanges/map_bounds.h"

#include "base/basic_text.h"
#include "base/error_trap.h"
#include "base/int16.h"
#include "grid/layer_rows.h"
#include "grid/load_grid.h"
#include "hostmodel/host_predicates.h"
#include "prefs/settings.h"
#include "session/session.h"

namespace vellant::mapchanges {

namespace {

constexpr const char* kNotForMapX = "Not available for MapX in this version";
// Light orange: the bounds layer's row stands out while it is on.
constexpr std::uint32_t kBoundsRowColour = 0xC0E0FF;
// A red pen of width 1 and pattern 2, and brush pattern 1: an outline with no fill.
constexpr const char* kOutline = "  pen (1, 2, 255 )   brush (01, 0, 0) ";

// The table's bounds as the host writes them, with the blank before the comma.
std::string tableBound(Session& s, const std::string& table, const char* code) {
    return s.mapInfoApp().eval("TableInfo(\"" + table + "\" ," + code + ")");
}

void colourTopRow(Session& s, std::uint32_t colour) {
    platform::FlexGrid& grid = s.layerForm().LyrGrid;
    grid.setRow(grid::LayerToRow(s, 1));
    for (int col = 1; col <= grid.Cols() - 1; ++col) {
        grid.setCol(col);
        grid.setCellBackColor(colour);
    }
}

void removeBounds(Session& s) {
    s.mapInfoApp().Do("remove map window " + Str(s.gViewWin) + " layer vlbounds");
    s.gLayerCount = Int16(s.gLayerCount) - Int16(1);
    grid::shiftlayergroups(s, "Sub");
    bool rebuild = false;
    grid::load_grid(s, rebuild);
    colourTopRow(s, 0);
}

} // namespace

void showbounds(Session& s) {
    onErrorGoTo(
        [&] {
            if (!s.gIsMapInfo) {
                s.showMessage(kNotForMapX);
                return;
            }
            const std::string view = Str(s.gViewWin);
            for (s.gLayer = 1; s.gLayer <= s.gLayerCount; ++s.gLayer) {
                const std::string name = s.lyr().Name();
                const std::string minX = tableBound(s, name, "20");
                const std::string maxX = tableBound(s, name, "22");
                const std::string minY = tableBound(s, name, "21");
                const std::string maxY = tableBound(s, name, "23");
                s.mapInfoApp().Do("Create Region into variable tobj 1 4 (" + minX + "," + minY +
                                  ") (" + maxX + "," + minY + ") (" + maxX + "," + maxY + ") (" +
                                  minX + "," + maxY + ")" + kOutline);
                s.mapInfoApp().Do("insert into vlBounds (obj,name) Values (tobj,\"" + name + "\")");
            }
            s.mapInfoApp().Do("add Map Window " + view + " layer \"vlbounds\"");
            s.gLayerCount = Int16(s.gLayerCount) + Int16(1);
            s.mapInfoApp().Do("Set Map Window " + view + " Zoom Entire");
            grid::shiftlayergroups(s, "Add");
            colourTopRow(s, kBoundsRowColour);
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "Error from showbounds " + e.description());
        });
}

void mapboundsclick(Session& s) {
    onErrorGoTo(
        [&] {
            if (s.gImmediate) return;
            if (!s.gIsMapInfo) {
                s.showMessage(kNotForMapX);
                return;
            }
            platform::FlexGrid& grid = s.layerForm().LyrGrid;
            hostmodel::MapRedraw(s, "off");
            grid.setRedraw(false);
            if (s.layerForm().map_bounds.Value() == 1) {
                showbounds(s);
                // The load paints every cell white, the bounds row's colour included.
                bool rebuild = false;
                grid::load_grid(s, rebuild);
            } else {
                removeBounds(s);
            }
            grid.setRedraw(true);
            hostmodel::MapRedraw(s, "on");
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "Error from mapboundsclick " + s.gTrace + " " + e.description());
        });
}

} // namespace vellant::mapchanges
