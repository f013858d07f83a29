// The docked form glues itself to the bottom edge of MapInfo's main window and fits the grid
// to itself. It learns of a change of MapInfo's window only from the companion's "resize"
// advice and from its own timer, so the layout may run at any moment, any number of times:
// gFormSized and the saved sizes are its only memory, and a second run moves nothing.

#include "base/basic_text.h"
#include "base/error_trap.h"
#include "base/int16.h"
#include "prefs/settings.h"
#include "session/layer_form.h"
#include "session/session.h"
#include "session/window_settings.h"

#include <algorithm>

namespace vellant::session {

namespace {

// What MapInfo's status bar takes at the bottom of its window, kept free when it is shown.
constexpr int kStatusBarReserve = 300;
constexpr int kGridRowsShown = 4;
// The grid's border inside the form, top and bottom together.
constexpr int kGridFrame = 40;
constexpr int kGridTop = 20;
constexpr int kLeastHeight = 140;
constexpr int kRightRoom = 25;
constexpr int kButtonsTop = 20;
// The timer checks quickly until it has made its first adjustment, then once a second.
constexpr int kSettledInterval = 1000;

bool sizeDiffersFromSaved(const Session& s, const LayerForm& form) {
    return form.Width() != s.gFormWidthSaved || form.Height() != s.gFormHeightSaved;
}

// The form's height: the user's when they dragged it, the remembered one when they want it
// kept, else four rows of the grid.
void chooseHeight(Session& s, vlLayerDocked& form) {
    platform::FlexGrid& grid = form.LyrGrid;
    grid.setHeight(kGridRowsShown * grid.RowHeight(grid.Rows() - 1));
    if (s.gFormSized)
        s.gDockedHeight = Int16(form.Height());
    else if (s.gSaveUserPosition)
        form.setHeight(s.gDockedHeight);
    else
        form.setHeight(grid.Height() + kGridFrame);
    form.setHeight(std::max(form.Height(), kLeastHeight));
    grid.setHeight(form.Height() - kGridFrame);
    grid.setTop(kGridTop);
}

// The window order is asserted again whenever the form is put back in sight: the check is
// set against the setting, and the handler turns both back.
void assertWindowOrder(Session& s, vlLayerDocked& form) {
    form.VL_on_top.setChecked(!s.gOnTop);
    vl_on_top(s);
}

// Answers false when MapInfo is minimised: the form has gone out of sight with it, and the
// rest of the layout waits until MapInfo comes back.
bool followMapInfo(Session& s, vlLayerDocked& form, int reserve) {
    s.gMIPlacement.length = 44;
    s.toolkit.GetWindowPlacement(s.gMIHwnd, s.gMIPlacement);
    const platform::WindowPlacement& placement = s.gMIPlacement;
    const platform::ScreenMetrics screen = s.toolkit.Screen();
    switch (placement.showCmd) {
    case platform::SW_SHOWNORMAL:
    case platform::SW_RESTORE: {
        assertWindowOrder(s, form);
        const platform::WindowRect& rc = placement.rcNormalPosition;
        form.setLeft(rc.left * screen.TwipsPerPixelX);
        form.setTop(rc.bottom * screen.TwipsPerPixelY - form.Height() - reserve);
        form.setWidth((rc.right - rc.left) * screen.TwipsPerPixelX);
        return true;
    }
    case platform::SW_SHOWMINIMIZED:
    case platform::SW_MINIMIZE:
        s.toolkit.SetWindowPos(form.hWnd(), platform::HWND_BOTTOM, 0, 0, 0, 0,
                               platform::SWP_NOMOVE);
        return false;
    case platform::SW_SHOWMAXIMIZED:
        assertWindowOrder(s, form);
        form.setLeft(0);
        form.setTop(screen.Height - form.Height() - reserve);
        form.setWidth(screen.Width);
        return true;
    default:
        // The form keeps the place it had.
        prefs::vlog(s, "Vellant: unhandled MI window position " + CStr(placement.showCmd));
        return true;
    }
}

void layOutDocked(Session& s, vlLayerDocked& form) {
    const int reserve = s.gShowMIStatusbar ? kStatusBarReserve : 0;
    chooseHeight(s, form);
    if (!followMapInfo(s, form, reserve)) return;

    platform::FlexGrid& grid = form.LyrGrid;
    grid.setLeft(form.toggleStatusDesignLeft());
    s.gFormSized = toFlag(sizeDiffersFromSaved(s, form));
    grid.setTop(kGridTop);
    grid.setWidth(form.Width() - form.Buttonframe.Width() - kRightRoom - grid.Left());
    // The docked form shows no map panel.
    form.Mapframe.setVisible(false);
    form.MapPropsFrame.setVisible(false);
    form.MapButtonFrame.setVisible(false);
    form.Buttonframe.setTop(kButtonsTop);
    form.Buttonframe.setLeft(form.Width() - form.Buttonframe.Width() - kRightRoom);
    s.gFormWidthSaved = form.Width();
    s.gFormHeightSaved = form.Height();
}

} // namespace

// A "resize" advice may arrive while the form is still loading; it is harmless then.
void vlLayerDocked::Resize_LayerForm() {
    if (!session) return;
    Session& s = *session;
    if (!s.gFormReady) return;
    onErrorGoTo([&] { layOutDocked(s, *this); },
                [&](const RuntimeError& e) {
                    prefs::logQuietly(s, "From resize_layerform " + e.description());
                });
}

// In the steady state a tick compares one number. A height that differs from the last tick's
// is the user's drag of the form's edge: it becomes the user's height, and the form goes back
// on MapInfo's edge.
void vlLayerDocked::Timer1_Timer() {
    if (!session) return;
    Session& s = *session;
    if (s.gDockedFormHeight == Height() || !s.gFormReady) return;
    Timer1.setInterval(kSettledInterval);
    s.gFormSized = kTrue;
    Resize_LayerForm();
    s.gDockedFormHeight = Height();
}

} // namespace vellant::session
