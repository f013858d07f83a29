#include "styles/label_style.h"

#include "base/basic_text.h"
#include "base/error_trap.h"
#include "grid/column_catalogue.h"
#include "hostmodel/mapx_map.h"
#include "hostmodel/mi_props_label_props.h"
#include "prefs/settings.h"
#include "session/session.h"
#include "styles/mapx_samples.h"

namespace vellant::styles {

namespace {

constexpr std::int16_t kTextKind = 5;

} // namespace

void setlabelprops(Session& s, hostmodel::ILabelProps& labelProps, std::int16_t& row,
                   bool& toggle) {
    onErrorGoTo(
        [&] {
            session::LayerForm& form = s.layerForm();
            platform::FlexGrid& grid = form.LyrGrid;
            grid.setCol(grid::getcolnum(s, "Label Properties"));
            // The MapX host keeps the style object, picks with it and samples it whatever the
            // toggle.
            std::string style;
            std::shared_ptr<hostmodel::MXStyle> object;
            if (s.gIsMapInfo)
                style = hostmodel::asMIPropsLabelProps(labelProps).Style();
            else
                object = hostmodel::asMXLabelProperties(labelProps).Style();
            grid.setPictureType(platform::flexPictureColor);
            if (toggle) labelProps.setVisible(toFlag(!labelProps.Visible()));
            if (!labelProps.Visible()) {
                grid.setCellPicture(form.imageControl("TxtStyleOffPic").Picture());
                return;
            }
            if (!s.gIsMapInfo) {
                hostmodel::MXLabelProperties& labels = hostmodel::asMXLabelProperties(labelProps);
                if (toggle) {
                    object->PickText();
                    labels.setStyle(*object);
                }
                exportLabelSample(s, row, *object);
                return;
            }
            if (!toggle) return;
            // The pick draws the cell when the companion's button calls back.
            s.mapInfoApp().Do("Set Application Window " + CStr(form.MapInfoFrame.hWnd()));
            s.gFormReady = kFalse;
            if (!s.gMBApp) raiseError(kErrObjectNotSet);
            s.gMBApp->Do("Dialog " + Trim(Str(kTextKind)) + " " + style);
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "Error from setlabelprops " + e.description());
        });
}

} // namespace vellant::styles
