// The row set: whole rows selected by pressing and dragging in the fixed first column. A set
// lives until a selection falls outside it, and the popup menu offers what fits the selection.

#include "grid/layer_rows.h"
#include "interaction/grid_event_handlers.h"
#include "interaction/toggle_cycle.h"
#include "session/session.h"

#include <vector>

namespace vellant::interaction {

namespace {

// The menu items the form's selection handler looks after. The floating form leaves
// View_Entire alone: it has no handler there.
std::vector<platform::MenuItem*> selectionItems(LayerForm& form, bool docked) {
    if (docked)
        return {&form.Group_selected, &form.Ungroup_layers, &form.Remove_layer, &form.Add_Layer,
                &form.View_Entire};
    return {&form.Group_selected, &form.Ungroup_layers, &form.Remove_layer, &form.Add_Layer};
}

void enableItems(const std::vector<platform::MenuItem*>& items, bool enabled) {
    for (platform::MenuItem* item : items)
        item->setEnabled(enabled);
}

// The layer of a grid row. The selection moves through the header row too (every load walks
// it), and the header stands above all layers: it has none of its own.
int layerOfRow(const Session& s, int row) {
    if (row < grid::LayerToRow(s, 0)) return -1;
    return grid::RowToLayer(s, static_cast<std::uint16_t>(row));
}

} // namespace

void lyrgrid_selchange(Session& s, LayerForm& form, bool docked) {
    const auto items = selectionItems(form, docked);
    enableItems(items, false);
    // The click is putting its row set back.
    if (s.gSelBusy) return;

    platform::FlexGrid& grid = form.LyrGrid;
    const int layer = layerOfRow(s, grid.Row());
    const int wholeRowsCol = grid.Cols() - 1;

    // A click on a cell of the set: the set stays, and the click acts on all of it.
    if (s.gSelFirst > 0 && s.gSelFirst <= layer && layer <= s.gSelLast && grid.Col() >= 2) return;

    // Several whole rows: a set begins. A set anchored on MapInfo's cosmetic row never does.
    if (layer >= 1 && grid.Col() == 1 && grid.ColSel() == wholeRowsCol &&
        grid.RowSel() != grid.Row()) {
        form.Group_selected.setEnabled(true);
        form.Remove_layer.setEnabled(true);
        if (docked) form.View_Entire.setEnabled(true);
        startToggleCycle(s);
        return;
    }

    if (layer > s.gSelLast || layer < s.gSelFirst || layer == 1 || grid.Col() == 1) {
        endToggleCycle(s);
        enableItems(items, true);
    } else if (!docked && s.gLayerCount == 0) {
        form.Add_Layer.setEnabled(true);
    }
}

} // namespace vellant::interaction
