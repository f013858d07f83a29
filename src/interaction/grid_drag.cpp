// Picking a layer up by its "order" handle and dropping it on another row.

#include "base/basic_text.h"
#include "base/error_trap.h"
#include "grid/layer_rows.h"
#include "hostmodel/mapx_map.h"
#include "interaction/grid_event_handlers.h"
#include "mapchanges/layer_journal.h"
#include "mapchanges/layer_moves.h"
#include "prefs/settings.h"
#include "session/session.h"

namespace vellant::interaction {

namespace {

// Where a drop makes the layer go. The row comes from the height of the first data row alone,
// rounded so that the border between two rows' results lies in the middle of a row; a scrolled
// grid or rows folded to nothing are not taken into account.
void dropLayer(Session& s, platform::FlexGrid& grid, float y) {
    const int rowHeight = grid.RowHeight(1);
    if (rowHeight == 0) raiseError(kErrDivisionByZero);
    grid.setRow(CLng((y - static_cast<float>(grid.RowHeight(0))) / static_cast<float>(rowHeight)));

    const std::int16_t target =
        static_cast<std::int16_t>(grid::RowToLayer(s, static_cast<std::uint16_t>(grid.Row())));
    // Dragged upward the layer comes in under the row it was dropped on, dragged downward in
    // its place.
    std::int16_t dest = target;
    if (s.gDragLayer > target) ++dest;
    grid.Drag(platform::vbEndDrag);

    if (s.gDragLayer <= 0 || s.gDragLayer == target) return;
    if (!mapchanges::MoveLayers(s, s.gDragLayer, dest)) return;
    mapchanges::reloadGridAfterLayerChange(s);
}

// The docked form's drop is a procedure of its own, with its own trap.
void lyrgridDragdrop(Session& s, platform::FlexGrid& grid, float y) {
    onErrorGoTo([&] { dropLayer(s, grid, y); },
                [&](const RuntimeError& e) {
                    prefs::logQuietly(s, "From lyrgridDragdrop " + e.description());
                });
}

} // namespace

std::string layerName(Session& s, std::int16_t layer) {
    if (!s.gIsMapInfo)
        return s.layerForm().MapDisplay.map().Layers()->Item(Variant(std::int32_t{layer}))->Name();
    s.gLayer = layer;
    return s.lyr().Name();
}

void lyrgrid_mousedown(Session& s, LayerForm& form, bool docked, int button, float x, float y) {
    onErrorGoTo(
        [&] {
            platform::FlexGrid& grid = form.LyrGrid;
            s.gDragLayer = 0;
            s.gMouseX = x;
            s.gMouseY = y;
            // The menu blocks until it closes; a press in the handle then still picks the layer
            // up.
            if (button == platform::vbRightButton) form.PopupMenu(form.layers_popup);
            if (static_cast<float>(grid.ColWidth(0)) <= x &&
                x <= static_cast<float>(grid.ColPos(2))) {
                s.gDragLayer = static_cast<std::int16_t>(
                    grid::RowToLayer(s, static_cast<std::uint16_t>(grid.MouseRow())));
                grid.setToolTipText("Move " + layerName(s, s.gDragLayer) + " to before ...");
                grid.setDragMode(platform::vbManual);
                grid.Drag(platform::vbBeginDrag);
            }
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s,
                              std::string(docked ? "From mousedown " : "From lyrgrid_mousedown ") +
                                  e.description());
        });
}

void lyrgrid_mouseup(LayerForm& form) {
    form.LyrGrid.Drag(platform::vbEndDrag);
}

void lyrgrid_dragdrop(Session& s, LayerForm& form, bool docked, float y) {
    onErrorGoTo(
        [&] {
            if (docked)
                lyrgridDragdrop(s, form.LyrGrid, y);
            else
                dropLayer(s, form.LyrGrid, y);
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "From lyrgrid_dragdrop " + e.description());
        });
}

} // namespace vellant::interaction
