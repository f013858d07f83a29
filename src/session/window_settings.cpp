#include "session/window_settings.h"

#include "base/error_trap.h"
#include "mapchanges/map_panel.h"
#include "platform/toolkit.h"
#include "prefs/settings.h"
#include "session/layer_form.h"
#include "session/session.h"

namespace vellant::session {

namespace {

constexpr int kKeepPlaceAndSize = platform::SWP_NOSIZE | platform::SWP_NOMOVE;

// The item's check says what the user had; the click turns setting and check over, tells
// MapInfo and lays the form out again, since the status bar changes the room at the bottom.
void toggleStatusBar(Session& s) {
    LayerForm& form = s.layerForm();
    if (form.show_MI_statusbar.Checked()) {
        s.gShowMIStatusbar = kFalse;
        form.show_MI_statusbar.setChecked(false);
        s.mapInfoApp().Do("Statusbar hide");
    } else {
        s.gShowMIStatusbar = kTrue;
        form.show_MI_statusbar.setChecked(true);
        s.mapInfoApp().Do("Statusbar show");
    }
    form.Resize_LayerForm();
}

} // namespace

void vl_on_top(Session& s) {
    onErrorGoTo(
        [&] {
            LayerForm& form = s.layerForm();
            if (form.VL_on_top.Checked()) {
                s.toolkit.SetWindowPos(form.hWnd(), s.gMIHwnd, 0, 0, 0, 0, kKeepPlaceAndSize);
                form.VL_on_top.setChecked(false);
                s.gOnTop = kFalse;
            } else {
                s.toolkit.SetWindowPos(form.hWnd(), platform::HWND_TOPMOST, 0, 0, 0, 0,
                                       kKeepPlaceAndSize);
                form.VL_on_top.setChecked(true);
                s.gOnTop = kTrue;
            }
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "Error from vl_on_top " + e.description());
        });
}

void showMIstatusbar(Session& s) {
    onErrorGoTo(
        [&] {
            if (s.gIsMapInfo) toggleStatusBar(s);
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "Error from showMIstatusbar " + e.description());
        });
}

void show_MI_statusbar_click(Session& s) {
    onErrorGoTo([&] { toggleStatusBar(s); },
                [&](const RuntimeError& e) {
                    prefs::logQuietly(s, "Error from show_MI_statusbar " + e.description());
                });
}

void captionsFollowViewZoom(Session& s) {
    mapchanges::setmapcaptions(s, s.map().zoom());
}

} // namespace vellant::session
