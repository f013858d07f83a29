#include "mapchanges/layer_operations.h"

#include "base/basic_text.h"
#include "base/error_trap.h"
#include "base/int16.h"
#include "grid/layer_rows.h"
#include "hostmodel/mapx_map.h"
#include "interaction/edit_cell.h"
#include "mapchanges/layer_journal.h"
#include "mapchanges/layer_moves.h"
#include "mapchanges/row_walk.h"
#include "platform/toolkit.h"
#include "prefs/settings.h"
#include "session/session.h"

#include <algorithm>
#include <map>

namespace vellant::mapchanges {

namespace {

constexpr int kKeepPlaceAndSize = platform::SWP_NOMOVE | platform::SWP_NOSIZE;
// The common dialog's "hide read-only" flag, and the error its cancel raises when asked to.
constexpr int kOpenHideReadOnly = 4;
constexpr int kErrDialogCancelled = 32755;

int layerOf(const Session& s, int row) {
    return grid::RowToLayer(s, static_cast<std::uint16_t>(row));
}
int rowOf(const Session& s, int layer) {
    return grid::LayerToRow(s, static_cast<std::uint16_t>(layer));
}

// The layers a removal covers, as the statement lists them and by name for the MapX host.
struct Removal {
    int count = 0;
    std::string list;
    std::map<int, std::string> names;
    int lowest = 0;
    int highest = 0;
};

Removal selectedForRemoval(Session& s, platform::FlexGrid& grid) {
    Removal removal;
    const int first = layerOf(s, grid.Row());
    if (grid.Row() == grid.RowSel()) {
        removal.count = 1;
        removal.list = Str(static_cast<std::int32_t>(first));
        grid.setRowSel(grid.Row());
        removal.names[first] = grid.TextMatrix(grid.Row(), 0);
        removal.lowest = removal.highest = first;
        return removal;
    }
    const RowWalk walk = rowWalk(grid.Row(), grid.RowSel());
    removal.count = walk.count;
    const int last = layerOf(s, grid.RowSel());
    for (int layer = first; walk.step > 0 ? layer <= last : layer >= last; layer += walk.step) {
        removal.list += Str(static_cast<std::int32_t>(layer)) + ",";
        removal.names[layer] = grid.TextMatrix(rowOf(s, layer), 0);
    }
    removal.list.pop_back();
    s.gTrace = "2";
    removal.lowest = std::min(first, last);
    removal.highest = std::max(first, last);
    return removal;
}

// The cell editor lists the open tables here: the form steps down from the top while it shows.
std::string chooseOpenTable(Session& s) {
    session::LayerForm& form = s.layerForm();
    s.gCellText.clear();
    s.toolkit.SetWindowPos(form.hWnd(), platform::HWND_NOTOPMOST, 0, 0, 0, 0, kKeepPlaceAndSize);
    // With no table to offer the editor unloads itself while it loads, and the Show fails.
    ResumeNext refused;
    refused([&] { interaction::editCellForm(s).Show(platform::vbModal, &form); });
    if (s.gOnTop)
        s.toolkit.SetWindowPos(form.hWnd(), platform::HWND_TOPMOST, 0, 0, 0, 0, kKeepPlaceAndSize);
    interaction::editCellForm(s).Unload();
    return s.gCellText;
}

std::string chooseTableFile(Session& s) {
    platform::OpenDialogRequest request;
    request.Filter = "MapInfo tables (*.tab)";
    request.FilterIndex = 2;
    request.Flags = kOpenHideReadOnly;
    const std::string file = s.toolkit.ShowOpen(request);
    if (file.empty()) raiseError(kErrDialogCancelled, "Cancel was selected.");
    return file;
}

} // namespace

void removelayerclick(Session& s) {
    onErrorGoTo(
        [&] {
            s.gTrace = "1";
            platform::FlexGrid& grid = s.layerForm().LyrGrid;
            if (layerOf(s, grid.Row()) <= 0 || s.gLayerCount <= 1) {
                if (s.gLayerCount == 1) s.showMessage("Close map to remove last layer");
                return;
            }
            const Removal removal = selectedForRemoval(s, grid);
            if (s.gIsMapInfo) {
                s.mapInfoApp().Do("Remove map window " + Str(s.gViewWin) + " layer " +
                                  removal.list);
            } else {
                s.gTrace = "3";
                // From the highest down, so that each number in the journal still names the
                // same layer when the commit replays it.
                for (int layer = removal.highest; layer >= removal.lowest; --layer) {
                    s.gTrace = "4";
                    mapDisplay(s).Layers()->Remove(Variant(removal.names.at(layer)));
                    journalLayerOp(s, "remove", static_cast<std::int16_t>(layer));
                }
            }
            s.gTrace = "5";
            s.gLayerCount = Int16(s.gLayerCount) - Int16(removal.count);
            // Removing a layer dissolves every group, whatever group it was in.
            for (int layer = 1; layer <= s.gLayerCount; ++layer)
                s.gLayerGroup[layer].clear();
            reloadGridAfterLayerChange(s);
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "Error from removelayerclick " + s.gTrace + " " + e.description());
        });
}

void addlayer(Session& s) {
    // A cancel or a refused table leaves without a word, before the count has grown.
    onErrorGoTo(
        [&] {
            platform::FlexGrid& grid = s.layerForm().LyrGrid;
            s.gCol = 0;
            grid.setCol(0);
            s.gRow = layerOf(s, grid.Row());
            const auto row = static_cast<std::int16_t>(s.gRow);
            if (s.gIsMapInfo) {
                const std::string table = chooseOpenTable(s);
                if (table.empty()) return;
                s.mapInfoApp().Do("Add map window " + Str(s.gViewWin) + " layer " + table);
                // The new layer is on top and not yet counted: the order lists one layer
                // fewer than the map has, and the uncounted last keeps its place.
                MoveLayers(s, 1, row);
            } else {
                const std::string file = chooseTableFile(s);
                mapDisplay(s).Layers()->Add(Variant(file), row);
                journalLayerOp(s, "add", row, 0, file);
            }
            s.gLayerCount = Int16(s.gLayerCount) + Int16(1);
            reloadGridAfterLayerChange(s);
        },
        [](const RuntimeError&) {});
}

} // namespace vellant::mapchanges
