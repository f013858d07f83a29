// The column rules of the label settings.

#include "base/basic_text.h"
#include "grid/cell_rules.h"
#include "grid/column_catalogue.h"
#include "grid/setpropandcell.h"
#include "hostmodel/host_predicates.h"
#include "hostmodel/mapx_map.h"
#include "hostmodel/mi_props_label_props.h"
#include "session/session.h"

namespace vellant::grid {

namespace {

using hostmodel::isgraycell;

// Labels beyond this count mean "no limit" to the user, so the cell stays empty.
constexpr std::int32_t kLargestShownLabelCount = 2000000000;

bool isMapInfo(const CellAtHand& cell) {
    return cell.s.gIsMapInfo != kFalse;
}

bool notApplicable(CellAtHand& cell) {
    return isgraycell(cell.s, true, cell.key);
}

void showPicture(CellAtHand& cell, const char* image) {
    cell.grid.setCellPicture(cell.s.layerForm().imageControl(image).Picture());
}

RuleEnd fieldRule(CellAtHand& cell) {
    if (notApplicable(cell)) return gray(cell);
    Session& s = cell.s;
    if (isMapInfo(cell)) {
        if (s.gApplyToLayer) hostmodel::asMIPropsLabelProps(s.labelProps()).setDatafield(cell.text);
        return RuleEnd::Paint;
    }
    // The MapX host's field is an object of the layer's first dataset, chosen by name; only a
    // click chooses one.
    if (s.gInClick && !cell.text.empty()) {
        hostmodel::MXLabelProperties& labels = hostmodel::asMXLabelProperties(s.labelProps());
        labels.setDataset(hostmodel::asMXLayer(s.lyr()).Datasets()->Item(Variant(1)));
        const auto dataset = std::dynamic_pointer_cast<hostmodel::MXDataset>(labels.Dataset());
        if (!dataset) raiseError(kErrObjectNotSet);
        labels.setDataField(dataset->Fields()->Item(Variant(cell.text)));
    }
    return RuleEnd::Paint;
}

RuleEnd lineRule(CellAtHand& cell) {
    if (notApplicable(cell)) return gray(cell);
    const std::int16_t kind = CInt(cell.value);
    if (cell.s.gApplyToLayer) cell.s.labelProps().setLinetype(kind);
    if (!cell.paint) return RuleEnd::Leave;
    showPicture(cell, kind == 0 ? "Image2" : kind == 1 ? "Linestylelinepic" : "Linestylearrowpic");
    cell.grid.setPictureType(platform::flexPictureColor);
    return RuleEnd::Paint;
}

// Partial segments and rotation apply to line layers alone; any other layer has them off.
RuleEnd lineOnlyRule(CellAtHand& cell, void (hostmodel::ILabelProps::*set)(Flag)) {
    Session& s = cell.s;
    if (notApplicable(cell)) return gray(cell);
    const bool line = cell.grid.TextMatrix(cell.row, getcolnum(s, "Type")) == "Line";
    if (!line) {
        if (s.gApplyToLayer) (s.labelProps().*set)(kFalse);
        if (!cell.paint) return RuleEnd::Leave;
        return gray(cell);
    }
    if (s.gApplyToLayer) (s.labelProps().*set)(flagOf(cell.value));
    return RuleEnd::Paint;
}

RuleEnd countRule(CellAtHand& cell) {
    const std::int32_t count = CLng(Variant(cell.text));
    if (notApplicable(cell)) return gray(cell);
    if (count > kLargestShownLabelCount) cell.text.clear();
    if (cell.s.gApplyToLayer) cell.s.labelProps().setLabelMax(CLng(cell.value));
    return RuleEnd::Paint;
}

// Two properties behind three pictures: labels off, on at every zoom, on within a zoom range.
RuleEnd zoomRule(CellAtHand& cell) {
    Session& s = cell.s;
    if (notApplicable(cell)) return gray(cell);
    hostmodel::ILabelProps& labels = s.labelProps();
    const bool shown = labels.Visible();
    const bool byZoom = cell.value.toBool();
    const bool apply = s.gApplyToLayer != kFalse;
    const char* picture = nullptr;
    if (shown && !byZoom) {
        if (apply) labels.setLabelZoom(kFalse);
        picture = "LabelVisOnPic";
    } else if (isMapInfo(cell) && !shown && !byZoom) {
        if (apply) {
            labels.setVisible(kFalse);
            labels.setLabelZoom(kFalse);
        }
        picture = "Image2";
    } else if (isMapInfo(cell) && !shown && byZoom) {
        // Hidden labels keep their zoom range until they are shown again.
    } else {
        if (apply) {
            labels.setVisible(kTrue);
            labels.setLabelZoom(kTrue);
        }
        picture = "LabelVisZmPic";
    }
    if (picture && cell.paint) showPicture(cell, picture);
    cell.grid.setPictureType(platform::flexPictureColor);
    return RuleEnd::Leave;
}

} // namespace

std::optional<RuleEnd> labelColumnRule(CellAtHand& cell) {
    Session& s = cell.s;
    const std::string& key = cell.key;
    using P = hostmodel::ILabelProps;
    if (key == "label field") return fieldRule(cell);
    if (key == "label line") return lineRule(cell);
    if (key == "label partial") return lineOnlyRule(cell, &P::setPartialSegments);
    if (key == "label rotate") return lineOnlyRule(cell, &P::setParallel);
    if (key == "label count") return countRule(cell);
    if (key == "label zoom") return zoomRule(cell);
    if (key == "label dataset") {
        if (notApplicable(cell) || isMapInfo(cell)) return gray(cell);
        return RuleEnd::Paint;
    }
    if (key == "label line style") {
        if (notApplicable(cell) || !isMapInfo(cell)) return gray(cell);
        return RuleEnd::Paint;
    }
    if (key == "label orient") {
        if (notApplicable(cell)) return gray(cell);
        return RuleEnd::Paint;
    }
    if (key == "label visible" || key == "label overlap" || key == "label duplicate") {
        if (notApplicable(cell)) return gray(cell);
        if (s.gApplyToLayer) {
            const Flag on = flagOf(cell.value);
            if (key == "label visible")
                s.labelProps().setVisible(on);
            else if (key == "label overlap")
                s.labelProps().setOverlap(on);
            else
                s.labelProps().setDuplicate(on);
        }
        return RuleEnd::Paint;
    }
    if (key == "label zoom min" || key == "label zoom max" || key == "label offset") {
        if (notApplicable(cell)) return gray(cell);
        if (s.gApplyToLayer) {
            // These take the value through its text, as the cell shows it.
            const Variant asText(cell.text);
            if (key == "label zoom min")
                s.labelProps().setLabelZoomMin(asText.toDouble());
            else if (key == "label zoom max")
                s.labelProps().setLabelZoomMax(asText.toDouble());
            else
                s.labelProps().setOffset(CLng(asText));
        }
        return RuleEnd::Paint;
    }
    return std::nullopt;
}

} // namespace vellant::grid
