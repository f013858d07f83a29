#include "interaction/grid_click.h"

#include "base/error_trap.h"
#include "grid/column_catalogue.h"
#include "grid/header_cells.h"
#include "grid/layer_rows.h"
#include "grid/setpropandcell.h"
#include "hostmodel/host_predicates.h"
#include "hostmodel/mapx_map.h"
#include "hostmodel/mi_props.h"
#include "interaction/edit_cell.h"
#include "interaction/toggle_cycle.h"
#include "platform/toolkit.h"
#include "prefs/settings.h"
#include "session/session.h"
#include "styles/label_copy.h"
#include "styles/label_style.h"
#include "styles/override_cells.h"
#include "styles/style_samples.h"

namespace vellant::interaction {

namespace {

using grid::LayerToRow;
using grid::RowToLayer;

// A layer of the MapX host's view map by its number.
std::shared_ptr<hostmodel::MXLayer> viewLayer(Session& s, std::int32_t layer) {
    return s.layerForm().MapDisplay.map().Layers()->Item(Variant(layer));
}

// The grid's row of a layer and the layer of a row, for the plain ints the walk counts in.
int rowOf(const Session& s, int layer) {
    return LayerToRow(s, static_cast<std::uint16_t>(layer));
}
int layerOf(const Session& s, int row) {
    return RowToLayer(s, static_cast<std::uint16_t>(row));
}

// The style kind of a label's font.
constexpr std::int32_t kLabelStyleKind = 5;

// The rows a click covers, as layer numbers.
struct CoveredRows {
    int first = 0;
    int last = 0;
};

// The columns whose click is decided by their key rather than their type.
struct KeyedColumns {
    explicit KeyedColumns(Session& s)
        : labelProperties(grid::getcolnum(s, "Label properties")),
          style(grid::getcolnum(s, "Style")), group(grid::getcolnum(s, "Group")) {}
    int labelProperties;
    int style;
    int group;
};

CoveredRows coveredRows(Session& s) {
    session::LayerForm& form = s.layerForm();
    platform::FlexGrid& grid = form.LyrGrid;
    if (s.gSelFirst > 0) {
        s.gClickRow = layerOf(s, grid.Row());
        // The pictures of the later steps go beside the clicked row; the first one keeps its
        // place at the head of the set.
        for (int i = 1; i <= 3; ++i) {
            platform::Control& pic = form.ToggleStatusPic(i);
            pic.setLeft(grid.Left() - pic.Width());
            pic.setTop(grid.RowPos(grid.Row()) + grid.Top());
            pic.setVisible(false);
        }
        return {s.gSelFirst, s.gSelLast};
    }
    const int clicked = layerOf(s, grid.Row());
    // A collapsed group answers for all its layers: the walk covers every layer and keeps
    // those of the clicked row's group.
    if (!s.gLayerGroup[clicked].empty() && s.gRowExpanded[clicked] != kTrue) {
        s.gGroupClick = kTrue;
        s.gClickRow = clicked;
        return {1, s.gLayerCount};
    }
    s.gClickRow = clicked;
    return {clicked, clicked};
}

// The click fell on the layer names or right of the last column.
bool outsideTheCells(Session& s) {
    const platform::FlexGrid& grid = s.layerForm().LyrGrid;
    const int last = grid.Cols() - 1;
    const double x = s.gMouseX;
    return x <= grid.ColWidth(grid::getcolnum(s, "Layer")) ||
           x > grid.ColPos(last) + grid.ColWidth(last);
}

// The editor opens once for a row set, at its first row, and once for a group, at the
// clicked row; the other rows take its result.
void editCellRow(Session& s, const CoveredRows& rows, const KeyedColumns& keyed) {
    session::LayerForm& form = s.layerForm();
    platform::FlexGrid& grid = form.LyrGrid;
    const bool opens = rows.first == rows.last || (s.gRow == rows.first && s.gCol > 0) ||
                       (s.gGroupClick && s.gRow == s.gClickRow);
    if (opens) {
        // A typed character stands in front of the cell's text.
        s.gCellText += grid.TextMatrix(rowOf(s, s.gClickRow), s.gCol);
        s.toolkit.SetWindowPos(form.hWnd(), platform::HWND_NOTOPMOST, 0, 0, 0, 0,
                               platform::SWP_NOMOVE | platform::SWP_NOSIZE);
        // The editor refuses a cell by unloading itself while it loads, which fails the Show.
        ResumeNext ignoring;
        ignoring([&] { editCellForm(s).Show(platform::vbModal, &form); });
        ignoring([&] { editCellForm(s).Unload(); });
        if (s.gOnTop)
            s.toolkit.SetWindowPos(form.hWnd(), platform::HWND_TOPMOST, 0, 0, 0, 0,
                                   platform::SWP_NOMOVE | platform::SWP_NOSIZE);
        grid.setTextMatrix(rowOf(s, s.gClickRow), s.gCol, s.gCellText);
    }
    grid.setTextMatrix(rowOf(s, s.gRow), s.gCol, s.gCellText);
    if (!s.gCellText.empty()) {
        bool paint = true;
        grid::setpropandcell(s, s.gColKey[s.gCol], s.gCellText, paint);
    }
    if (s.gCol == keyed.group) s.gLayerGroup[s.gRow] = grid.TextMatrix(rowOf(s, s.gRow), s.gCol);
}

// The MapX host repeats the clicked row's labels on each row of a set.
void copyClickedLabels(Session& s) {
    if (!s.gViewLyr) raiseError(kErrObjectNotSet);
    styles::copylabelprops(s, *s.gViewLyr, s.viewLabelProps(), s.lyr(), s.labelProps(),
                           static_cast<std::int16_t>(s.gRow), true);
}

// A click on the label style cell of the row at hand. Answers false when the click is to end
// here: on the MapInfo host a row set's labels wait for the font picked in the host's dialog,
// and the rest of the set and the click's closing steps come with that pick.
bool labelStyleRow(Session& s, const CoveredRows& rows) {
    platform::FlexGrid& grid = s.layerForm().LyrGrid;
    hostmodel::ILabelProps& viewLabels = s.viewLabelProps();
    s.gLayer = static_cast<std::int16_t>(s.gClickRow);
    const bool clickedVisible = viewLabels.Visible();
    s.gLayer = static_cast<std::int16_t>(s.gRow);
    std::int16_t clickRow = static_cast<std::int16_t>(s.gClickRow);
    std::int16_t row = static_cast<std::int16_t>(s.gRow);
    bool toggle = true;
    if (rows.first != rows.last && s.gRow == rows.first) {
        s.labelProps().setVisible(toFlag(!clickedVisible));
        styles::setlabelprops(s, viewLabels, clickRow, toggle);
        if (s.gIsMapInfo) {
            s.gPendFirst = rows.first;
            s.gPendLast = rows.last;
            s.gPendCol = kLabelStyleKind;
            grid.setCol(grid::getcolnum(s, "Label Properties"));
            s.gInClick = kFalse;
            return false;
        }
        copyClickedLabels(s);
    } else if (rows.first != rows.last && !s.gIsMapInfo) {
        s.labelProps().setVisible(toFlag(viewLabels.Visible()));
        copyClickedLabels(s);
    } else if (rows.first == rows.last) {
        styles::setlabelprops(s, s.labelProps(), row, toggle);
        if (s.gIsMapInfo) {
            s.gPendFirst = rows.first;
            s.gPendLast = rows.last;
            s.gPendCol = kLabelStyleKind;
            grid.setCol(grid::getcolnum(s, "Label properties"));
        }
    }
    return true;
}

} // namespace

void Layergridclick(Session& s) {
    onErrorGoTo(
        [&] {
            hostmodel::MapRedraw(s, "off");
            s.gFormReady = kFalse;
            s.gGroupClick = kFalse;
            session::LayerForm& form = s.layerForm();
            platform::FlexGrid& grid = form.LyrGrid;
            // A click that does not count leaves the map's drawing off; the next one that
            // counts turns it on again.
            if (static_cast<double>(s.gMouseY) <= grid.RowHeight(0)) {
                s.gRow = 0;
                return;
            }
            const CoveredRows rows = coveredRows(s);
            if (outsideTheCells(s)) {
                s.gCol = 0;
                return;
            }
            s.gCol = grid.Col();

            // The selection handlers enable them again.
            form.Group_selected.setEnabled(false);
            form.Ungroup_layers.setEnabled(false);
            form.View_Entire.setEnabled(false);
            form.Remove_layer.setEnabled(false);
            form.Add_Layer.setEnabled(false);

            s.gApplyToLayer = kTrue;
            grid.setRedraw(false);
            // The label object of the clicked row; the MapInfo facade follows gLayer.
            if (s.gIsMapInfo) {
                s.gViewLabelProps = s.gLabelProps;
            } else {
                const auto clicked = viewLayer(s, s.gClickRow);
                if (clicked->Type() == 0) s.gViewLabelProps = clicked->LabelProperties();
            }

            s.gInClick = kTrue;
            const std::uint16_t type = s.gColType[s.gCol];
            const KeyedColumns keyed(s);
            for (s.gRow = rows.first; s.gRow <= rows.last; ++s.gRow) {
                grid.setRow(rowOf(s, s.gRow));
                s.gLayer = static_cast<std::int16_t>(s.gRow);
                if (!s.gIsMapInfo && s.gRow >= 1) {
                    const auto layer = viewLayer(s, s.gRow);
                    s.gLyr = layer;
                    s.gViewLyr = layer;
                    if (layer->Type() == 0) s.gLabelProps = layer->LabelProperties();
                }
                s.gLayerType = s.gIsMapInfo ? hostmodel::asMIProps(s.lyr()).ltype()
                                            : hostmodel::asMXLayer(s.lyr()).Type();
                s.gFeatureType = hostmodel::GetFeatureType(s, s.lyr());

                if (s.gGroupClick && s.gLayerGroup[s.gRow] != s.gLayerGroup[s.gClickRow]) continue;
                if (s.gRow < 0) continue;
                if (!s.gCellState(grid.Row(), s.gCol)) continue;
                if ((type & grid::kColNoClick) != 0) continue;
                if (type == grid::kColPicture) {
                    dotoggles(s);
                    continue;
                }
                if (s.gLayerType == 0 && s.gCol == keyed.labelProperties) {
                    if (!labelStyleRow(s, rows)) return;
                    continue;
                }
                if (s.gLayerType == 0 && s.gCol == keyed.style) {
                    // The first row of a set turned on waits for the pick, which covers them all.
                    if (!styles::togglestyle(s, static_cast<std::int16_t>(rows.first),
                                             static_cast<std::int16_t>(rows.last))) {
                        s.gInClick = kFalse;
                        return;
                    }
                    continue;
                }
                editCellRow(s, rows, keyed);
            }

            // A scroll during the walk moved the columns under the group glyphs.
            if (s.gGlyphColPos != grid.ColPos(grid.Cols() - 1)) grid::setcolglyph(s, 0, false);
            if (s.gSelFirst > 0) {
                s.gSelBusy = kTrue;
                grid.setRow(rowOf(s, s.gSelFirst));
                grid.setCol(0);
                grid.setRowSel(rowOf(s, s.gSelLast));
                grid.setColSel(grid.Cols() - 1);
                s.gSelBusy = kFalse;
                s.gToggleStep = static_cast<std::int16_t>((s.gToggleStep + 1) & 3);
            }
            s.gCellText.clear();
            grid.setRedraw(true);
            hostmodel::MapRedraw(s, "on");
            s.gClickRow = 0;
            s.gFormReady = kTrue;
            s.gInClick = kFalse;
            styles::closestylewin(s);
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "From Layergridclick " + e.description());
        });
}

} // namespace vellant::interaction
