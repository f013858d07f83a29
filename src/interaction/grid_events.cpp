#include "interaction/grid_events.h"

#include "base/error_trap.h"
#include "grid/header_cells.h"
#include "grid/layer_rows.h"
#include "interaction/double_click.h"
#include "interaction/grid_click.h"
#include "interaction/grid_event_handlers.h"
#include "interaction/layer_groups.h"
#include "interaction/self_test.h"
#include "prefs/setting_controls.h"
#include "prefs/settings.h"
#include "session/session.h"

#include <algorithm>
#include <functional>

namespace vellant::interaction {

namespace {

constexpr const char* kAllSelectedRows = " - edit will be applied to all selected rows";
constexpr int kFirstPrintable = 32;
constexpr int kLastPrintable = 126;

// The tip of the column under the mouse. The walk goes on after a hit, so the tip ends as that
// of the column the mouse is in; the column of the last hit is passed over.
void columnTip(Session& s, platform::FlexGrid& grid, bool docked, float x, float y) {
    for (int i = 1; i <= grid.Cols() - 1; ++i) {
        if (i == s.gTipCol) continue;
        if (static_cast<float>(grid.ColPos(i - 1)) <= x && x < static_cast<float>(grid.ColPos(i))) {
            std::string tip = s.gColTip[i - 1];
            // Over the header of the layer names the docked form, which has no caption of its
            // own, names the map.
            if (docked && i == 1 && y <= static_cast<float>(grid.RowPos(1))) tip = s.gMapPrefName;
            if (grid.Row() != grid.RowSel()) {
                const int anchor = grid.RowPos(grid.Row());
                const int end = grid.RowPos(grid.RowSel());
                if (static_cast<float>(std::min(anchor, end)) <= y &&
                    y <= static_cast<float>(std::max(anchor, end)))
                    tip += kAllSelectedRows;
            }
            grid.setToolTipText(tip);
            s.gTipCol = i;
        } else if (static_cast<float>(grid.ColPos(i)) <= x) {
            grid.setToolTipText(s.gColTip[i]);
            s.gTipCol = i;
        }
    }
}

// The floating form reads the row under the mouse as a layer number as it stands, so with
// MapInfo's cosmetic row the name is that of the row below the mouse.
void dragTip(Session& s, platform::FlexGrid& grid, bool docked) {
    int over = grid.MouseRow();
    if (docked && s.gIsMapInfo) over = grid::RowToLayer(s, static_cast<std::uint16_t>(over));
    const std::string dragged = layerName(s, s.gDragLayer);
    grid.setToolTipText("Move " + dragged + " to before " +
                        layerName(s, static_cast<std::int16_t>(over)));
}

// The floating form takes every key and hands it to the grid's Click; the docked form keeps
// only printable characters, so that Enter opens the editor on the cell's own text.
void keyPress(Session& s, LayerForm& form, bool docked, int key) {
    platform::FlexGrid& grid = form.LyrGrid;
    if (s.gColType[grid.Col()] == 0) return;
    if (!docked) {
        s.gCellText = std::string(1, static_cast<char>(key));
        grid.Click();
        return;
    }
    if (key >= kFirstPrintable && key <= kLastPrintable)
        s.gCellText = std::string(1, static_cast<char>(key));
    Layergridclick(s);
}

// The column-group glyphs lie over the grid and have to follow a sideways scroll.
void placeGlyphs(Session& s, platform::FlexGrid& grid) {
    if (s.gGlyphColPos != grid.ColPos(grid.Cols() - 1)) grid::setcolglyph(s, 0, false);
}

void scroll(Session& s, LayerForm& form, bool docked) {
    if (docked) {
        placeGlyphs(s, form.LyrGrid);
        return;
    }
    onErrorGoTo([&] { placeGlyphs(s, form.LyrGrid); },
                [&](const RuntimeError& e) {
                    prefs::logQuietly(s, "From lyrgrid_scroll " + e.description());
                });
}

// Off, the grid's tip is cleared so that no stale column help stays behind.
void show_tooltips_click(Session& s, LayerForm& form) {
    form.show_tooltips.setChecked(!form.show_tooltips.Checked());
    s.gShowTips = toFlag(form.show_tooltips.Checked());
    if (!s.gShowTips) form.LyrGrid.setToolTipText("");
}

// Runs a handler with the form's session; a form that has none yet has no session to act on.
template <class Handler> std::function<void()> withSession(LayerForm& form, Handler handler) {
    return [&form, handler] {
        if (form.session) handler(*form.session);
    };
}

} // namespace

void Mousemove(Session& s, LayerForm& form, bool docked, float x, float y) {
    if (s.gInMouseMove || !s.gShowTips) return;
    s.gInMouseMove = kTrue;
    // A failure leaves the guard set: tool-tips stop for the rest of the session.
    onErrorGoTo(
        [&] {
            platform::FlexGrid& grid = form.LyrGrid;
            if (s.gDragLayer > 0 && grid.MouseCol() == 1)
                dragTip(s, grid, docked);
            else
                columnTip(s, grid, docked, x, y);
            s.gInMouseMove = kFalse;
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "Error from Mousemove " + e.description());
        });
}

void wireLayerGrid(session::LayerForm& form, bool docked) {
    platform::FlexGrid& grid = form.LyrGrid;
    grid.onClick = withSession(form, [](Session& s) { Layergridclick(s); });
    grid.onDblClick = withSession(form, [](Session& s) { dblclick(s); });
    grid.onMouseDown = [&form, docked](int button, int, float x, float y) {
        if (form.session) lyrgrid_mousedown(*form.session, form, docked, button, x, y);
    };
    grid.onMouseMove = [&form, docked](int, int, float x, float y) {
        if (form.session) Mousemove(*form.session, form, docked, x, y);
    };
    grid.onMouseUp = [&form](int, int, float, float) { lyrgrid_mouseup(form); };
    grid.onDragDrop = [&form, docked](platform::Control&, float, float y) {
        if (form.session) lyrgrid_dragdrop(*form.session, form, docked, y);
    };
    grid.onKeyPress = [&form, docked](int& key) {
        if (form.session) keyPress(*form.session, form, docked, key);
    };
    grid.onScroll = withSession(form, [&form, docked](Session& s) { scroll(s, form, docked); });
    grid.onSelChange =
        withSession(form, [&form, docked](Session& s) { lyrgrid_selchange(s, form, docked); });

    // Read by the header whenever a sample sizes its row; not kept between sessions.
    form.Expand_Row.onClick = [&form] { form.Expand_Row.setChecked(!form.Expand_Row.Checked()); };
    form.show_tooltips.onClick =
        withSession(form, [&form](Session& s) { show_tooltips_click(s, form); });
    form.Group_selected.onClick = withSession(form, [](Session& s) { groupSelectedLayers(s); });
    form.Ungroup_layers.onClick = withSession(form, [](Session& s) { ungroupLayers(s); });
    form.remove_group_prefs.onClick =
        withSession(form, [](Session& s) { prefs::remove_group_prefs_clicK(s); });
    form.Save_user_position.onClick =
        withSession(form, [](Session& s) { prefs::save_user_position_click(s); });
    form.self_test.onClick = withSession(form, [](Session& s) { selftestclick(s); });
    // Remove_layer, Add_Layer and View_Entire act on the map's layers (mapchanges/map_panel.h).
    // The window's items are the form's own (session/form_events.cpp).
}

} // namespace vellant::interaction
