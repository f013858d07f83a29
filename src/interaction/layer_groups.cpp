#include "interaction/layer_groups.h"

#include "base/basic_text.h"
#include "grid/column_catalogue.h"
#include "grid/layer_rows.h"
#include "prefs/settings.h"
#include "session/session.h"

#include <functional>

namespace vellant::interaction {

namespace {

int layerOf(const Session& s, int row) {
    return grid::RowToLayer(s, static_cast<std::uint16_t>(row));
}

// The selected rows from the anchor to the far end, so that a selection made upward is walked
// from where it began. The visitor answers true to stop the walk.
void walkSelection(const platform::FlexGrid& grid, const std::function<bool(int)>& visit) {
    const int anchor = grid.Row();
    const int end = grid.RowSel();
    const int step = anchor > end ? -1 : 1;
    for (int r = anchor; step > 0 ? r <= end : r >= end; r += step)
        if (visit(r)) return;
}

// The first row from the anchor with a name in the group column, blanks before it aside. The
// layer of that row takes the name as the cell gives it back through `stored`.
bool firstGroupName(Session& s, const platform::FlexGrid& grid, int groupCol,
                    const std::function<std::string(const std::string&)>& stored,
                    std::string& name) {
    bool found = false;
    walkSelection(grid, [&](int r) {
        const std::string cell = grid.TextMatrix(r, groupCol);
        if (LTrim(cell).empty()) return false;
        name = stored(cell);
        s.gLayerGroup[layerOf(s, r)] = name;
        found = true;
        return true;
    });
    return found;
}

} // namespace

void groupSelectedLayers(Session& s) {
    platform::FlexGrid& grid = s.layerForm().LyrGrid;
    // The cosmetic layer can't stand at either end of a group.
    if (!(layerOf(s, grid.Row()) > 0 && layerOf(s, grid.RowSel()) > 0 &&
          grid.Row() != grid.RowSel())) {
        prefs::vlog(s, "Select multiple layers to group");
        return;
    }
    const int groupCol = grid::getcolnum(s, "group");
    std::string name;
    // A selection that touches a group extends it; the group met first from the anchor wins.
    const auto trimmed = [](const std::string& cell) { return LTrim(cell); };
    if (!firstGroupName(s, grid, groupCol, trimmed, name)) name = "Group " + Str(grid.Row());
    walkSelection(grid, [&](int r) {
        s.gLayerGroup[layerOf(s, r)] = name;
        grid.setTextMatrix(r, groupCol, name);
        return false;
    });
    grid.Refresh();
}

void ungroupLayers(Session& s) {
    platform::FlexGrid& grid = s.layerForm().LyrGrid;
    if (!(layerOf(s, grid.RowSel()) > 0 && layerOf(s, grid.Row()) > 0)) {
        prefs::vlog(s, "No group name in selected layer");
        return;
    }
    const int groupCol = grid::getcolnum(s, "group");
    std::string name;
    // Unlike grouping, the name is the cell as it stands, and only cells equal to it are
    // cleared: a selection across two groups loses only the first of them.
    const auto asItStands = [](const std::string& cell) { return cell; };
    if (!firstGroupName(s, grid, groupCol, asItStands, name)) {
        prefs::vlog(s, "No group name in selected layers");
        return;
    }
    walkSelection(grid, [&](int r) {
        if (grid.TextMatrix(r, groupCol) == name) {
            s.gLayerGroup[layerOf(s, r)] = "";
            grid.setTextMatrix(r, groupCol, "");
        }
        return false;
    });
    grid.Refresh();
}

} // namespace vellant::interaction
