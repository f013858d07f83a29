// The marks in gTrace say, in the log line of a failed commit, how far it came; their order is
// not numeric, and each stands where the copy reached it.

#include "session/mapx_commit.h"

#include "base/basic_text.h"
#include "base/error_trap.h"
#include "grid/setpropandcell.h"
#include "hostmodel/mapx_map.h"
#include "prefs/settings.h"
#include "session/session.h"
#include "styles/label_datasets.h"
#include "styles/style_copy.h"

namespace vellant::session {

namespace {

using hostmodel::MXLabelProperties;
using hostmodel::MXLayer;

void write(Session& s, const std::string& column, const Variant& value) {
    bool paint = false;
    grid::setpropandcell(s, column, value, paint);
}

void copyLayerValues(Session& s, MXLayer& view, MXLayer& user) {
    const bool plain = s.gLayerType == 0;
    user.setVisible(toFlag(view.Visible()));
    s.gTrace = "5";
    if (plain) user.setSelectable(toFlag(view.Selectable()));
    s.gTrace = "6";
    s.gTrace = "8";
    if (plain) user.setAutolabel(toFlag(view.Autolabel()));
    s.gTrace = "9";
    user.setZoomLayer(toFlag(view.ZoomLayer()));
    user.setZoomMin(view.ZoomMin());
    user.setZoomMax(view.ZoomMax());
    if (plain) {
        s.gTrace = "7";
        user.setEditable(toFlag(view.Editable()));
        user.setoverridestyle(toFlag(view.overridestyle()));
        s.gTrace = "10";
    }
}

// The label values go through setpropandcell, which writes them to gLabelProps and paints
// nothing; the position, the dataset and the text style are written directly.
void copyLabels(Session& s, MXLayer& view, MXLayer& user) {
    styles::copystyle(s, view, user);
    const std::shared_ptr<MXLabelProperties> userLabels = user.LabelProperties();
    s.gLabelProps = userLabels;
    const std::shared_ptr<MXLabelProperties> labels = view.LabelProperties();
    s.gTrace = "11";
    write(s, "Label duplicate", labels->Duplicate());
    write(s, "Label zoom", labels->LabelZoom());
    write(s, "Label count", labels->LabelMax());
    write(s, "Label zoom max", labels->LabelZoomMax());
    write(s, "Label zoom min", labels->LabelZoomMin());
    write(s, "Label line", labels->Linetype());
    write(s, "Label line style", false);
    write(s, "Label visible", labels->Visible());
    write(s, "Label overlap", labels->Overlap());
    write(s, "Label rotate", labels->Parallel());
    write(s, "Label partial", labels->PartialSegments());
    write(s, "Label offset", labels->Offset());
    userLabels->setPosition(labels->Position());
    styles::CopyDatasets(s, view, *labels, hostmodel::asMXMap(s.map()), user, *userLabels, false);
    s.gTrace = "12";
    styles::copyLabelTextStyle(*labels->Style(), *userLabels->Style());
}

} // namespace

// The journal's entries are written from index 0; all of them are replayed, the first included,
// so that the user's map goes through every operation the view went through. An overflowed
// journal fails at its 201st entry, after the first 200 are applied.
void replayLayerOperations(Session& s) {
    const std::shared_ptr<hostmodel::MXLayers> layers = hostmodel::asMXMap(s.map()).Layers();
    for (long i = 0; i < s.gLayerOpCount; ++i) {
        const std::string& kind = s.gLayerOpKind[i];
        if (kind == "remove")
            layers->Remove(Variant(static_cast<std::int32_t>(s.gLayerOpFrom[i])));
        else if (kind == "add")
            layers->Add(Variant(s.gLayerOpFile[i]), s.gLayerOpFrom[i]);
        else if (kind == "move")
            layers->Move(s.gLayerOpFrom[i], s.gLayerOpTo[i]);
    }
}

void copytomap2(Session& s) {
    if (s.gIsMapInfo) return;
    onErrorGoTo(
        [&] {
            hostmodel::MXMap& user = hostmodel::asMXMap(s.map());
            hostmodel::MXMap& view = s.layerForm().MapDisplay.map();
            user.setAutoRedraw(false);
            s.gTrace = "1";
            // The form is about to be hidden: its grid is not drawn again.
            s.layerForm().LyrGrid.setRedraw(false);
            s.gTrace = "2";
            replayLayerOperations(s);
            const std::int32_t userCount = user.Layers()->Count();
            const std::int32_t viewCount = view.Layers()->Count();
            if (viewCount != userCount)
                s.toolkit.MsgBox("Vellant error: Layer mismatch on save (changes too complex) " +
                                 CStr(userCount) + " " + CStr(viewCount));
            s.gApplyToLayer = kTrue;
            for (std::int32_t i = 1; i <= s.gLayerCount; ++i) {
                const Variant index(i);
                const std::shared_ptr<MXLayer> userLayer = user.Layers()->Item(index);
                s.gLyr = userLayer;
                s.gTrace = "3";
                const std::shared_ptr<MXLayer> viewLayer = view.Layers()->Item(index);
                s.gTrace = "4";
                s.gLayerType = viewLayer->Type();
                copyLayerValues(s, *viewLayer, *userLayer);
                if (s.gLayerType == 0) copyLabels(s, *viewLayer, *userLayer);
            }
            s.gTrace = "21";
            user.setAutoRedraw(true);
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "From copytomap2 " + s.gTrace + " " + e.description());
        });
}

} // namespace vellant::session
