// "View Entire Selected": the view map shows the selected layers whole.

#include "base/basic_text.h"
#include "base/error_trap.h"
#include "grid/layer_rows.h"
#include "hostmodel/host_predicates.h"
#include "hostmodel/mi_props.h"
#include "mapchanges/layer_operations.h"
#include "mapchanges/row_walk.h"
#include "prefs/settings.h"
#include "session/session.h"

#include <algorithm>

namespace vellant::mapchanges {

namespace {

// Start values no real bound passes, so that the first layer with objects sets them all.
constexpr float kNoMinimum = 100000000.0F;
constexpr float kNoMaximum = -100000000.0F;
// A range of one point would zoom to nothing; half a kilometre is the least width.
constexpr float kLeastWidthKm = 0.5F;

int layerOf(const Session& s, int row) {
    return grid::RowToLayer(s, static_cast<std::uint16_t>(row));
}

struct Extent {
    float minX = kNoMinimum;
    float minY = kNoMinimum;
    float maxX = kNoMaximum;
    float maxY = kNoMaximum;
};

// The union of the bounds of the walked layers that hold objects, in each table's own
// coordinates. gLayer is left on the last layer walked.
Extent unionOfBounds(Session& s, hostmodel::MIProps& layer, int first, int last, int step) {
    Extent box;
    for (int n = first; step > 0 ? n <= last : n >= last; n += step) {
        s.gLayer = static_cast<std::int16_t>(n);
        if (layer.count() <= 0) continue;
        box.minX = std::min(box.minX, layer.MinX());
        box.minY = std::min(box.minY, layer.MinY());
        box.maxX = std::max(box.maxX, layer.MaxX());
        box.maxY = std::max(box.maxY, layer.MaxY());
    }
    return box;
}

} // namespace

void viewentireclick(Session& s) {
    onErrorGoTo(
        [&] {
            s.gTrace = "1";
            platform::FlexGrid& grid = s.layerForm().LyrGrid;
            hostmodel::MIProps& layer = hostmodel::asMIProps(s.lyr());
            const std::string view = Str(s.gViewWin);
            const int row = grid.Row();
            // The cosmetic row alone counts as a range, so it is zoomed to by its bounds.
            const bool whole = layerOf(s, row) == 0 || row != grid.RowSel();
            if (!whole) {
                s.gLayer = static_cast<std::int16_t>(layerOf(s, row));
                grid.setRowSel(row);
                if (s.gIsMapInfo)
                    s.mapInfoApp().Do("Set map window " + view + " zoom entire layer " +
                                      Str(s.gLayer));
            } else {
                const RowWalk walk = rowWalk(row, grid.RowSel());
                const Extent box =
                    unionOfBounds(s, layer, layerOf(s, row), layerOf(s, grid.RowSel()), walk.step);
                s.gTrace = "2";
                const float centreX = (box.maxX + box.minX) / 2;
                const float centreY = (box.maxY + box.minY) / 2;
                // The test pits x against y: untouched start values fail it, and so does a box
                // whose west edge happens to equal its south edge.
                if (box.minX == box.minY || box.maxX == box.maxY) {
                    s.showMessage("No objects in layers");
                    return;
                }
                // Only the x extent counts, turned into km by the length of one degree at a
                // fixed place, wherever the map lies.
                const float width =
                    std::max(layer.Degtokm() * (box.maxX - box.minX), kLeastWidthKm);
                if (s.gIsMapInfo)
                    s.mapInfoApp().Do("Set map window " + view + " center (" + Str(centreX) + "," +
                                      Str(centreY) + ") zoom " + Str(width) + " units \"km\"");
            }
            s.gTrace = "5";
            hostmodel::MapRedraw(s, "on");
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "Error from viewentireclick " + s.gTrace + " " + e.description());
        });
}

} // namespace vellant::mapchanges
