#include "interaction/double_click.h"

#include "base/basic_text.h"
#include "base/error_trap.h"
#include "grid/column_catalogue.h"
#include "grid/header_cells.h"
#include "grid/layer_rows.h"
#include "hostmodel/mapx_map.h"
#include "hostmodel/mi_props.h"
#include "interaction/info_cells.h"
#include "platform/toolkit.h"
#include "prefs/settings.h"
#include "session/session.h"

#include <algorithm>

namespace vellant::interaction {

namespace {

constexpr int kTwipsPerCharacter = 85;
// Two characters of margin beside the longest text of a column.
constexpr long kTextMargin = 2;
// The master row of a collapsed layer group stands out in the head columns' colour.
constexpr platform::OleColor kCollapsedRowColor = 0xFFFFC0;
constexpr platform::OleColor kGridBackColor = 0;
constexpr int kDefaultRowHeight = -1;

int textWidth(long characters) {
    return static_cast<int>((characters + kTextMargin) * kTwipsPerCharacter);
}

int layerRow(const Session& s, int layer) {
    return grid::LayerToRow(s, static_cast<std::uint16_t>(layer));
}

// The head column shows each layer's feature count. Counting a large table is slow, so this
// happens only when the user unfolds the group, and the column fills row by row as it goes.
void fillFeatureCounts(Session& s, platform::FlexGrid& grid, int head) {
    s.toolkit.setMousePointer(platform::vbHourglass);
    long widest = 0;
    // On the MapX host a layer that is not plain shows the count last read before it.
    std::int32_t count = 0;
    const bool mapInfo = s.gIsMapInfo != kFalse;
    for (s.gLayer = mapInfo ? 0 : 1; s.gLayer <= s.gLayerCount; ++s.gLayer) {
        const int row = layerRow(s, s.gLayer);
        if (mapInfo) {
            count = hostmodel::asMIProps(s.lyr()).count();
        } else {
            const auto layer = s.layerForm().MapDisplay.map().Layers()->Item(Variant(s.gLayer));
            if (layer->Type() == 0) count = layer->AllFeatures()->Count();
        }
        grid.setTextMatrix(row, head, Str(count));
        widest = std::max(widest, Len(grid.TextMatrix(row, head)));
        grid.Refresh();
    }
    grid.setColWidth(head, textWidth(widest));
    s.toolkit.setMousePointer(platform::vbDefault);
}

// The expressions keep their own width; their values are evaluated only now, for the same
// reason as the feature counts.
void fillUserValues(Session& s, platform::FlexGrid& grid, int head) {
    s.toolkit.setMousePointer(platform::vbHourglass);
    long widest = 4;
    for (s.gLayer = 0; s.gLayer <= s.gLayerCount; ++s.gLayer)
        widest = std::max(widest, Len(Trim(grid.TextMatrix(layerRow(s, s.gLayer), head))));
    grid.setColWidth(head, textWidth(widest));
    const int evalCol = grid::getcolnum(s, "user eval");
    grid.setCol(evalCol);
    widest = 4;
    // Only MapInfo can evaluate the expressions.
    if (s.gIsMapInfo) {
        for (s.gLayer = 0; s.gLayer <= s.gLayerCount; ++s.gLayer) {
            const int row = layerRow(s, s.gLayer);
            grid.setTextMatrix(row, evalCol, runfunction(s, s.gLayer));
            grid.Refresh();
            widest = std::max(widest, Len(grid.TextMatrix(row, evalCol)));
        }
    }
    grid.setColWidth(evalCol, textWidth(widest));
    s.toolkit.setMousePointer(platform::vbDefault);
}

// The members of a column group go to width 0 and lose their header picture, or come back to
// the width they had; the head stays in either state. The glyph over the head is the only
// record of the fold.
void foldColumnGroup(Session& s, session::LayerForm& form, std::int16_t head) {
    platform::FlexGrid& grid = form.LyrGrid;
    const int last = s.gColCount - 1;
    int first = last;
    for (int c = 1; c <= last; ++c) {
        if (s.gColGroup[c] == head) {
            first = c;
            break;
        }
    }
    const bool expand = !form.CollapseColsPic(s.gColGroupPic[head] - 1).Visible();
    for (int c = first; c <= last && s.gColGroup[c] == head; ++c) {
        if (c == head) continue;
        grid.setCol(c);
        grid.setRow(0);
        if (expand) {
            grid.setColWidth(c, s.gColWidth[c]);
        } else {
            grid.setColWidth(c, 0);
            grid.setCellPicture(platform::Picture{});
        }
    }
    if (expand && head == grid::getcolnum(s, "info")) fillFeatureCounts(s, grid, head);
    if (expand && head == grid::getcolnum(s, "user info")) fillUserValues(s, grid, head);
    if (expand) grid::colgroup(s, head);
    // The form fits itself to the grid's new width here, once its layout code exists.
    grid::setcolglyph(s, head, expand);
}

// Collapsing leaves the clicked row as the group's master and hides the other members.
// The master's colour goes on whichever row is current when the walk reaches it: the master
// itself when it is the group's first member, otherwise the member just above it. Members
// that join the group later do not collapse with it.
void collapseLayerGroup(Session& s, platform::FlexGrid& grid) {
    const int master = grid::RowToLayer(s, static_cast<std::uint16_t>(grid.Row()));
    const std::string group = s.gLayerGroup[master];
    if (group.empty()) return;
    const Flag state = s.gRowExpanded[master] == kFalse ? kTrue : kFalse;
    const bool collapse = state == kFalse;
    for (int i = 1; i <= s.gLayerCount; ++i) {
        if (s.gLayerGroup[i] != group) continue;
        s.gRowExpanded[i] = state;
        if (i == master) {
            for (int c = 1; c <= grid.Cols() - 1; ++c) {
                grid.setCol(c);
                grid.setCellBackColor(collapse ? kCollapsedRowColor : kGridBackColor);
            }
        } else {
            grid.setRow(layerRow(s, i));
            grid.setRowHeight(grid.Row(), collapse ? 0 : kDefaultRowHeight);
        }
    }
    // The form fits itself to the grid's new height here, once its layout code exists.
}

} // namespace

void dblclick(Session& s) {
    onErrorGoTo(
        [&] {
            session::LayerForm& form = s.layerForm();
            platform::FlexGrid& grid = form.LyrGrid;
            s.gFormReady = kFalse;
            grid.setRedraw(false);
            // A double click on the fixed row or column leaves the current cell where it was.
            if (s.gMouseY <= static_cast<float>(grid.RowHeight(0))) grid.setRow(0);
            if (s.gMouseX <= static_cast<float>(grid.ColWidth(0))) grid.setCol(0);
            if (grid.Row() == 0 && s.gColGroup[grid.Col()] >= 1) {
                foldColumnGroup(s, form, s.gColGroup[grid.Col()]);
            } else if (grid.Col() == 0 && grid.Row() >= layerRow(s, 1)) {
                // Rows from layer 1 on: MapInfo's cosmetic layer belongs to no group.
                collapseLayerGroup(s, grid);
            }
            grid.setRedraw(true);
            s.gFormReady = kTrue;
        },
        [&](const RuntimeError& e) {
            // The grid stays frozen and the form unready until the next click ends normally.
            s.toolkit.setMousePointer(platform::vbDefault);
            prefs::logQuietly(s, "From dblclick " + e.description());
        });
}

} // namespace vellant::interaction
