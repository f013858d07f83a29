// The column rules of a layer's own attributes: display, selection, editing, the table state,
// zoom layering and the text columns.

#include "base/basic_text.h"
#include "grid/cell_rules.h"
#include "grid/layer_rows.h"
#include "grid/setpropandcell.h"
#include "hostmodel/host_predicates.h"
#include "hostmodel/mi_props.h"
#include "session/session.h"

namespace vellant::grid {

namespace {

using hostmodel::isgraycell;
using hostmodel::IsLayerReadonly;

bool isMapInfo(const CellAtHand& cell) {
    return cell.s.gIsMapInfo != kFalse;
}

// A change of visibility brings the cells that depend on it back to life or turns them gray.
// The repaint must not write the layer's own values back to it, so the writing is switched off
// around it; the only road here has it on.
void repaintVisibilityDependents(CellAtHand& cell) {
    Session& s = cell.s;
    hostmodel::ILayer& lyr = s.lyr();
    const int col = cell.grid.Col();
    s.gApplyToLayer = kFalse;
    if (s.gLayerType != 2) {
        bool paint = true;
        setpropandcell(s, "selectable", lyr.Selectable(), paint);
        setpropandcell(s, "editable", lyr.Editable(), paint);
        setpropandcell(s, "show nodes", lyr.Shownodes(), paint);
        setpropandcell(s, "show directions", lyr.Showlinedirection(), paint);
        setpropandcell(s, "show centroids", lyr.ShowCentroids(), paint);
    }
    s.gApplyToLayer = kTrue;
    cell.grid.setCol(col);
}

RuleEnd visibleRule(CellAtHand& cell) {
    Session& s = cell.s;
    if (s.gApplyToLayer) {
        s.lyr().setVisible(flagOf(cell.value));
        repaintVisibilityDependents(cell);
    }
    if (s.gLayer != 0) return RuleEnd::Paint;
    // The cosmetic layer is always shown.
    return grayPicture(cell, true);
}

// At most one layer is editable, so an editable layer clears the column before its own row
// shows the on picture.
void clearEditableColumn(CellAtHand& cell) {
    Session& s = cell.s;
    session::LayerForm& form = s.layerForm();
    for (int r = 1; r < cell.grid.Rows(); ++r) {
        cell.grid.setRow(r);
        s.gLayer = static_cast<std::int16_t>(RowToLayer(s, static_cast<std::uint16_t>(r)));
        bool off = false;
        if (s.lyr().Visible())
            imageon(s, off);
        else
            imageon(s, off, form.imageControl("Image1Gray"), form.imageControl("Image2gray"));
        cell.grid.setCol(cell.grid.Col());
    }
}

RuleEnd editableRule(CellAtHand& cell) {
    Session& s = cell.s;
    s.gCellState(cell.row, cell.col) = true;
    hostmodel::ILayer& lyr = s.lyr();
    if (isgraycell(s, lyr.Visible(), cell.key) || IsLayerReadonly(s))
        return grayPicture(cell, lyr.Editable());
    white(cell);
    if (s.gApplyToLayer) lyr.setEditable(flagOf(cell.value));
    if (cell.paint && lyr.Editable()) clearEditableColumn(cell);
    cell.grid.setRow(cell.row);
    // The MapX host leaves gLayer on the last row of the walk, and its callers rely on that.
    if (isMapInfo(cell))
        s.gLayer = static_cast<std::int16_t>(RowToLayer(s, static_cast<std::uint16_t>(cell.row)));
    return RuleEnd::Paint;
}

// Table state exists on the MapInfo host only.
bool tableStateLive(CellAtHand& cell) {
    return !isgraycell(cell.s, true, cell.key) && isMapInfo(cell) && !IsLayerReadonly(cell.s);
}

RuleEnd fasteditRule(CellAtHand& cell) {
    if (!tableStateLive(cell)) return grayBlank(cell);
    white(cell);
    if (!cell.s.gApplyToLayer) return RuleEnd::Paint;
    hostmodel::MIProps& props = hostmodel::asMIProps(cell.s.lyr());
    props.setFastedit(flagOf(cell.value));
    // A table the host would not switch keeps its old picture.
    if (props.Fastedit() != cell.value.toBool()) return RuleEnd::Leave;
    return RuleEnd::Paint;
}

RuleEnd undoRule(CellAtHand& cell) {
    const bool live =
        tableStateLive(cell) && RowToLayer(cell.s, static_cast<std::uint16_t>(cell.row)) > 0;
    if (!live) return grayBlank(cell);
    white(cell);
    if (cell.s.gApplyToLayer) hostmodel::asMIProps(cell.s.lyr()).setUndo(flagOf(cell.value));
    return RuleEnd::Paint;
}

RuleEnd readonlyRule(CellAtHand& cell) {
    Session& s = cell.s;
    if (isgraycell(s, true, cell.key) || !isMapInfo(cell)) return grayBlank(cell);
    if (!IsLayerReadonly(s)) {
        white(cell);
        if (s.gApplyToLayer) hostmodel::asMIProps(s.lyr()).setReadonly(flagOf(cell.value));
        return RuleEnd::Paint;
    }
    cell.grid.setCellBackColor(static_cast<platform::OleColor>(kGrayCellColor));
    grayPicture(cell, true);
    // Nothing of a read-only table can be edited.
    hostmodel::MIProps& props = hostmodel::asMIProps(s.lyr());
    bool paint = true;
    setpropandcell(s, "Editable", props.Editable(), paint);
    setpropandcell(s, "Fastedit", props.Fastedit(), paint);
    setpropandcell(s, "Undo", props.Undo(), paint);
    return RuleEnd::Leave;
}

// "show nodes", "show directions", "show centroids", "selectable": live on a white ground, or
// the stored state in gray.
RuleEnd displayToggleRule(CellAtHand& cell, bool live, bool (hostmodel::ILayer::*get)(),
                          void (hostmodel::ILayer::*set)(Flag)) {
    hostmodel::ILayer& lyr = cell.s.lyr();
    if (!live) return grayPicture(cell, (lyr.*get)());
    white(cell);
    if (cell.s.gApplyToLayer) (lyr.*set)(flagOf(cell.value));
    return RuleEnd::Paint;
}

} // namespace

std::optional<RuleEnd> layerColumnRule(CellAtHand& cell) {
    Session& s = cell.s;
    const std::string& key = cell.key;
    using L = hostmodel::ILayer;
    if (key == "visible") return visibleRule(cell);
    if (key == "show nodes")
        return displayToggleRule(cell, !isgraycell(s, true, key), &L::Shownodes, &L::setShownodes);
    if (key == "show directions")
        return displayToggleRule(cell, !isgraycell(s, true, key) && s.gFeatureType == 1,
                                 &L::Showlinedirection, &L::setShowlinedirection);
    if (key == "show centroids")
        return displayToggleRule(
            cell, !isgraycell(s, true, key) && (s.gFeatureType == 0 || s.gFeatureType == 2),
            &L::ShowCentroids, &L::setShowCentroids);
    if (key == "selectable") {
        s.gCellState(cell.row, cell.col) = true;
        return displayToggleRule(cell, !isgraycell(s, s.lyr().Visible(), key), &L::Selectable,
                                 &L::setSelectable);
    }
    if (key == "editable") return editableRule(cell);
    if (key == "fastedit") return fasteditRule(cell);
    if (key == "undo") return undoRule(cell);
    if (key == "readonly") return readonlyRule(cell);
    if (key == "autolabel") {
        if (isgraycell(s, true, key)) return gray(cell);
        if (s.gApplyToLayer) s.lyr().setAutolabel(flagOf(cell.value));
        return RuleEnd::Paint;
    }
    if (key == "zoom layer" || key == "zoom min" || key == "zoom max") {
        // The cosmetic layer has no zoom layering.
        if (s.gLayer == 0) return gray(cell);
        if (s.gApplyToLayer) {
            if (key == "zoom layer")
                s.lyr().setZoomLayer(flagOf(cell.value));
            else if (key == "zoom min")
                s.lyr().setZoomMin(cell.value.toDouble());
            else
                s.lyr().setZoomMax(cell.value.toDouble());
        }
        return RuleEnd::Paint;
    }
    if (key == "style" || key == "override") {
        // The sample cell of a layer is drawn by the override code; only the cosmetic layer's
        // is settled here.
        if (s.gLayer != 0) return RuleEnd::Leave;
        return gray(cell);
    }
    if (key == "info" || key == "table path" || key == "coordsys" || key == "group" ||
        key == "user info" || key == "user eval")
        return RuleEnd::Paint;
    return std::nullopt;
}

} // namespace vellant::grid
