// Copying a layer's label settings to another layer, painting the label cells on the way. The
// marks in gTrace tell, in a log line, how far a failed copy came.

#include "styles/label_copy.h"

#include "base/basic_text.h"
#include "base/error_trap.h"
#include "grid/column_catalogue.h"
#include "grid/layer_rows.h"
#include "grid/setpropandcell.h"
#include "hostmodel/mapx_map.h"
#include "hostmodel/mi_props_label_props.h"
#include "prefs/settings.h"
#include "session/session.h"
#include "styles/label_datasets.h"
#include "styles/mapx_samples.h"
#include "styles/sample_cells.h"
#include "styles/style_copy.h"

namespace vellant::styles {

namespace {

constexpr std::int16_t kTextKind = 5;

void copyValue(Session& s, const std::string& column, const Variant& value, bool& paint) {
    grid::setpropandcell(s, column, value, paint);
}

// The orientation picture of the label position; a raster layer and the cosmetic layer have no
// label position, so their cell is gray.
void paintOrientation(Session& s, hostmodel::ILabelProps& sourceLabels, std::int16_t layer) {
    session::LayerForm& form = s.layerForm();
    platform::FlexGrid& lyrGrid = form.LyrGrid;
    lyrGrid.setCol(grid::getcolnum(s, "Label Orient"));
    if ((!s.gIsMapInfo || s.gLayer != 0) && s.gLayerType != 2) {
        bool on = true;
        grid::imageon(s, on, form.LabelOrient(sourceLabels.Position()),
                      form.imageControl("Image2"));
    } else {
        lyrGrid.setCellBackColor(static_cast<platform::OleColor>(grid::kGrayCellColor));
        s.gCellState(grid::LayerToRow(s, static_cast<std::uint16_t>(layer)), lyrGrid.Col()) = false;
    }
}

} // namespace

void copylabelprops(Session& s, hostmodel::ILayer& sourceLayer,
                    hostmodel::ILabelProps& sourceLabels, hostmodel::ILayer& targetLayer,
                    hostmodel::ILabelProps& targetLabels, std::int16_t layer, bool paint) {
    onErrorGoTo(
        [&] {
            // The MapInfo host writes through the facades, which follow gLayer. On the MapX
            // host every caller hands in gLyr and gLabelProps as the target already, so
            // setpropandcell writes there.
            const bool mapInfo = s.gIsMapInfo != kFalse;
            if (mapInfo) {
                bool always = true;
                copyValue(s, "Label field",
                          hostmodel::asMIPropsLabelProps(sourceLabels).Datafield(), always);
            }
            s.gTrace = "copy label dup " + CStr(s.gApplyToLayer);

            copyValue(s, "Label duplicate", sourceLabels.Duplicate(), paint);
            copyValue(s, "Label zoom", sourceLabels.LabelZoom(), paint);
            copyValue(s, "Label count", sourceLabels.LabelMax(), paint);
            copyValue(s, "Label zoom max", sourceLabels.LabelZoomMax(), paint);
            copyValue(s, "Label zoom min", sourceLabels.LabelZoomMin(), paint);
            copyValue(s, "Label line", sourceLabels.Linetype(), paint);
            copyValue(s, "Label line style", false, paint);
            s.gTrace = "label orient? .1";

            copyValue(s, "Label visible", sourceLabels.Visible(), paint);
            copyValue(s, "Label overlap", sourceLabels.Overlap(), paint);
            copyValue(s, "Label rotate", sourceLabels.Parallel(), paint);
            copyValue(s, "Label partial", sourceLabels.PartialSegments(), paint);
            copyValue(s, "Label offset", sourceLabels.Offset(), paint);
            s.gTrace = "label orient?";

            if (paint) paintOrientation(s, sourceLabels, layer);
            s.gTrace = "label orient?1";
            if (!mapInfo) targetLabels.setPosition(sourceLabels.Position());
            s.gTrace = "label orient?2";

            std::shared_ptr<hostmodel::MXStyle> sourceStyle;
            if (!mapInfo) {
                hostmodel::MXLabelProperties& from = hostmodel::asMXLabelProperties(sourceLabels);
                hostmodel::MXLabelProperties& to = hostmodel::asMXLabelProperties(targetLabels);
                CopyDatasets(s, hostmodel::asMXLayer(sourceLayer), from,
                             s.layerForm().MapDisplay.map(), hostmodel::asMXLayer(targetLayer), to,
                             paint);
                sourceStyle = from.Style();
                s.gTrace = "in copyl 4";
                copyLabelTextStyle(*sourceStyle, *to.Style());
            }

            if (mapInfo && s.gLayerType == 0)
                s.gStyleValue = hostmodel::asMIPropsLabelProps(sourceLabels).Style();

            if (paint && s.gLayerType == 0) {
                s.gTrace = "in copyl 5";
                platform::FlexGrid& lyrGrid = s.layerForm().LyrGrid;
                lyrGrid.setCol(grid::getcolnum(s, "Label Properties"));
                // Hidden labels show the off picture in place of their font sample.
                if (!s.labelProps().Visible())
                    lyrGrid.setCellPicture(s.layerForm().imageControl("TxtStyleOffPic").Picture());
                else if (mapInfo)
                    updateMicell(s, kTextKind, s.gStyleValue, false);
                else {
                    s.gTrace = "in copyl 6";
                    updateMXcell(s, kTextKind, static_cast<std::int16_t>(lyrGrid.Col()),
                                 *sourceStyle);
                }
            }
        },
        [&](const RuntimeError& e) {
            ResumeNext next;
            next([&] {
                prefs::vlog(s, "Error from copylabelprops " + s.gTrace + " " + e.description());
            });
        });
}

} // namespace vellant::styles
