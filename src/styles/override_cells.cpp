#include "styles/override_cells.h"

#include "base/basic_text.h"
#include "base/error_trap.h"
#include "grid/column_catalogue.h"
#include "hostmodel/host_predicates.h"
#include "hostmodel/mapx_map.h"
#include "hostmodel/mi_props.h"
#include "prefs/settings.h"
#include "session/session.h"
#include "styles/mapx_samples.h"
#include "styles/sample_cells.h"

namespace vellant::styles {

namespace {

struct StylePictures {
    const char* off;
    const char* on;
};

// The pictures of the style cell by kind; kinds without a style cell have none.
const StylePictures* picturesOf(std::int16_t kind) {
    static constexpr StylePictures kRegion{"RgnStyleOffPic", "RgnStylePic"};
    static constexpr StylePictures kLine{"LineStyleOffPic", "LinestylePic"};
    static constexpr StylePictures kSymbol{"SymStyleOffPic", "SymStylePic"};
    static constexpr StylePictures kText{"TxtStyleOffPic", "TxtStylePic"};
    switch (kind) {
    case 0:
        return &kRegion;
    case 1:
        return &kLine;
    case 2:
        return &kSymbol;
    case 5:
        return &kText;
    default:
        return nullptr;
    }
}

void showPicture(Session& s, const char* name) {
    session::LayerForm& form = s.layerForm();
    form.LyrGrid.setCellPicture(form.imageControl(name).Picture());
}

// The layer's style as the facade gives it: a clause on the MapInfo host.
std::string layerStyle(Session& s) {
    return hostmodel::asMIProps(s.lyr()).Style();
}

// The companion shows the host's style dialog once this call has returned; its button brings
// the choice back. Until then the form's call-backs stand back.
void askForStyleDialog(Session& s, std::int16_t kind) {
    s.mapInfoApp().Do("Set Application Window " + CStr(s.layerForm().MapInfoFrame.hWnd()));
    s.gFormReady = kFalse;
    if (!s.gMBApp) raiseError(kErrObjectNotSet);
    s.gMBApp->Do("Dialog " + CStr(kind) + " " + s.gStyleValue);
}

} // namespace

void setoridestylecell(Session& s, std::int16_t kind, bool on, bool pick) {
    onErrorGoTo(
        [&] {
            // The MapX host keeps the style as the layer's own object, so that a pick changes
            // the layer.
            std::shared_ptr<hostmodel::MXStyle> object;
            if (s.gIsMapInfo)
                s.gStyleValue = layerStyle(s);
            else
                object = hostmodel::asMXLayer(s.lyr()).Style();
            const StylePictures* pictures = picturesOf(kind);
            if (!pictures) return;
            platform::FlexGrid& grid = s.layerForm().LyrGrid;
            grid.setCol(grid::getcolnum(s, "Style"));
            showPicture(s, pictures->off);
            if (!on) return;
            showPicture(s, pictures->on);
            if (!s.gIsMapInfo) {
                if (pick) pickMXStyle(kind, *object);
                updateMXcell(s, kind, static_cast<std::int16_t>(grid::getcolnum(s, "Override")),
                             *object);
                return;
            }
            if (!pick) {
                grid.setCol(grid::getcolnum(s, "Override"));
                updateMicell(s, kind, s.gStyleValue, false);
            } else {
                askForStyleDialog(s, kind);
            }
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "Error from setoridestylecell " + e.description());
        });
}

bool togglestyle(Session& s, std::int16_t first, std::int16_t last) {
    bool goOn = true;
    onErrorGoTo(
        [&] {
            const bool rowSet = first != last;
            if (rowSet && s.gRow == first) {
                s.gLayer = static_cast<std::int16_t>(s.gClickRow);
                s.gClickOverride = toFlag(s.lyr().overridestyle());
                s.gLayer = static_cast<std::int16_t>(s.gRow);
            }
            goOn = true;
            bool state = s.lyr().overridestyle();
            if (s.gIsMapInfo) s.gStyleValue = layerStyle(s);
            const std::int16_t kind = hostmodel::GetFeatureType(s, s.lyr());
            s.gPendCol = kind;
            // When the clicked row has an override, every row counts as having one: all go off.
            if (rowSet && s.gClickOverride) state = true;
            setoridestylecell(s, kind, !state, true);
            if (state) {
                s.lyr().setoverridestyle(kFalse);
            } else {
                // The MapInfo host turns the override on when the pick comes back, for every
                // row of the click.
                if (s.gIsMapInfo) {
                    s.gPendFirst = first;
                    s.gPendLast = last;
                } else {
                    s.lyr().setoverridestyle(kTrue);
                }
                platform::FlexGrid& grid = s.layerForm().LyrGrid;
                grid.setCol(grid::getcolnum(s, "Override"));
                grid.setPictureType(platform::flexPictureColor);
            }
            s.gOrigOverride[s.gLayer] = !state;
            if (!s.gIsMapInfo) s.layerForm().MapDisplay.map().setAutoRedraw(true);
            if (rowSet && !state) goOn = false;
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "Error from togglestyle " + e.description());
        });
    return goOn;
}

} // namespace vellant::styles
