// The header row as a form starts, the fold glyphs over the head columns, and the sizes that
// rows and columns take for samples.

#include "base/basic_text.h"
#include "base/error_trap.h"
#include "grid/column_catalogue.h"
#include "grid/header_cells.h"
#include "grid/layer_rows.h"
#include "hostmodel/mi_props.h"
#include "prefs/settings.h"
#include "session/session.h"

#include <algorithm>

namespace vellant::grid {

namespace {

// The glyphs stand just above the grid's header.
void placeOverGrid(platform::Control& glyph, const platform::FlexGrid& grid) {
    glyph.setTop(grid.Top() - glyph.Height());
}

void placeOverColumn(platform::Control& glyph, const platform::FlexGrid& grid, int col) {
    glyph.setLeft(grid.ColPos(col) + grid.Left());
}

} // namespace

void labelgrid(Session& s) {
    onErrorGoTo(
        [&] {
            session::LayerForm& form = s.layerForm();
            platform::FlexGrid& grid = form.LyrGrid;
            grid.setRow(0);
            grid.setCol(1);
            grid.setRows(s.gLayerCount + (s.gIsMapInfo ? 2 : 1));
            grid.setRowHeight(0, kHeaderRowHeight);
            grid.setRow(0);

            for (const CatalogueColumn& column : columnCatalogue()) {
                if (column.headerText) {
                    if (s.gIsMapInfo && std::string_view(column.key) == "label dataset") continue;
                    grid.setTextMatrix(0, getcolnum(s, column.key), column.headerText);
                } else {
                    std::string key = column.key;
                    labelcolheader(s, key, form.imageControl(column.headerPic));
                }
            }

            // Every group starts unfolded.
            for (s.gColIter = 1; s.gColIter < s.gColCount; ++s.gColIter) {
                const std::int16_t glyph = s.gColGroupPic[s.gColIter];
                if (glyph <= 0) continue;
                platform::Control& collapse = form.CollapseColsPic(glyph - 1);
                collapse.setVisible(true);
                placeOverGrid(collapse, grid);
            }

            for (int layer = 1; layer <= s.gLayerCount; ++layer) {
                s.gRowExpanded[layer] = kTrue;
                if (!s.gIsMapInfo || s.gImmediate) continue;
                // The view starts from the user's map; a layer drawn there in an override style
                // keeps that style in the view.
                s.gLayer = static_cast<std::int16_t>(layer);
                hostmodel::MIProps& props = hostmodel::asMIProps(s.lyr());
                if (props.overridestyleOrig()) {
                    s.gStyleValue = props.StyleOrig();
                    props.setoverridestyle(kTrue);
                }
            }
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "Error from labelgrid " + e.description());
        });
}

void setcolglyph(Session& s, std::int16_t head, bool state) {
    onErrorGoTo(
        [&] {
            session::LayerForm& form = s.layerForm();
            const platform::FlexGrid& grid = form.LyrGrid;
            if (s.gColGroupPic[head] > 0) {
                const int i = s.gColGroupPic[head] - 1;
                platform::Control& collapse = form.CollapseColsPic(i);
                platform::Control& expand = form.ExpandColsPic(i);
                collapse.setVisible(state);
                expand.setVisible(!state);
                placeOverColumn(collapse, grid, head);
                placeOverColumn(expand, grid, head);
                placeOverGrid(collapse, grid);
                placeOverGrid(expand, grid);
            }
            // A fold or a scroll moves every head right of it.
            for (int c = 1; c < s.gColCount; ++c) {
                const std::int16_t glyph = s.gColGroupPic[c];
                if (glyph <= 0) continue;
                placeOverColumn(form.CollapseColsPic(glyph - 1), grid, c);
                placeOverColumn(form.ExpandColsPic(glyph - 1), grid, c);
            }
            s.gGlyphColPos = grid.ColPos(grid.Cols() - 1);
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "Error from setcolglyph " + e.description());
        });
}

void Resize_RowCol(Session& s, const Variant& layer, const Variant& column, const Variant& height,
                   const Variant& width) {
    onErrorGoTo(
        [&] {
            session::LayerForm& form = s.layerForm();
            platform::FlexGrid& grid = form.LyrGrid;
            const int row = LayerToRow(s, static_cast<std::uint16_t>(CInt(layer)));
            const std::int16_t col = CInt(column);
            if (form.Expand_Row.Checked()) {
                grid.setRowHeight(row, std::max(grid.RowHeight(row), CLng(height)));
                grid.setColWidth(col, std::max(CLng(width), std::int32_t{s.gColWidth[col]}));
                const int kept = grid.ColWidth(col);
                if (kept > 0xFFFF) raiseError(kErrOverflow);
                s.gColWidth[col] = static_cast<std::uint16_t>(kept);
            } else {
                grid.setRowHeight(row, -1);
                grid.setColWidth(col, std::max(kSmallestStyleColumn, int{s.gColWidth[col]}));
            }
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "Error from Resize_RowCol " + e.description());
        });
}

} // namespace vellant::grid
