// The ways a session ends. A closing procedure decides what becomes of the maps and hides the
// form, which ends the modal show; the public method then unloads the form, and its unload runs
// shutdown, which gives MapInfo back what the session took from it.

#include "session/closing.h"

#include "base/basic_text.h"
#include "base/error_trap.h"
#include "hostmodel/host_predicates.h"
#include "interaction/edit_cell.h"
#include "interaction/label_orientation.h"
#include "prefs/map_prefs.h"
#include "prefs/map_slots.h"
#include "prefs/settings.h"
#include "session/attach.h"
#include "session/mapx_commit.h"
#include "session/session.h"
#include "styles/style_samples.h"
#include "support/vl_feedback.h"
#include "support/vl_info.h"

namespace vellant::session {

namespace {

constexpr int kCloneMapWindow = 811;

void send(Session& s, const std::string& command) {
    s.mapInfoApp().Do(command);
}

void closeWindow(Session& s, std::int32_t id) {
    send(s, "Close window " + Str(id));
}

bool windowOpen(Session& s, std::int32_t id) {
    return hostmodel::IsWindowOpen(s, id);
}

// The trap of okclick and cencelclick. The test meant to keep a vanished host out of the log
// compares 24 characters with 25, so it never holds and the line is always written; the log
// is the only trace such an ending leaves, and it stays so. A failed close must never leave
// the user in a modal form, so the form is hidden all the same.
void closingTrap(Session& s, const std::string& label, const RuntimeError& e) {
    if (Left(LCase(e.description()), 24) != "the remote server machine")
        prefs::logQuietly(s, label + e.description());
    ResumeNext next;
    next([&] { s.layerForm().Hide(); });
}

// The view map, worked on by the user, takes the place and size of the user's map and becomes
// an ordinary window through a clone of itself; the view map itself goes.
void replaceUserMap(Session& s) {
    const std::string view = Str(s.gViewWin);
    send(s, "Set window " + view + " front");
    send(s, "Set window " + view + " Position (" + Str(s.gMapLeft) + "," + Str(s.gMapTop) + ")");
    send(s, "Set window " + view + " width " + Str(s.gMapWidthSaved));
    send(s, "Set window " + view + " height " + Str(s.gMapHeightSaved));
    readMapFigures(s);
    // The centre of the user's map with the zoom of the view, whatever the panel showed.
    send(s, "Set Map Window " + view + " center ( " + Str(s.gCenterX) + "," + Str(s.gCenterY) +
                ") zoom " + Str(s.gViewZoom));
    // The parent rule of the view map was cancelled when it was made, so the clone opens as an
    // ordinary window.
    s.mapInfoApp().RunMenuCommand(kCloneMapWindow);
    closeWindow(s, s.gViewWin);
}

} // namespace

void okclick(Session& s) {
    onErrorGoTo(
        [&] {
            s.gAccepted = kTrue;
            // Call-backs that the commands below raise must find nothing to do.
            s.gFormReady = kFalse;
            // The map's groups are saved while the grid is still as the user left it, and
            // before the settings, which hold the count of stored maps.
            prefs::writemapprefs(s, prefs::mapprefname(prefs::maptitle(s)));
            prefs::writeprefs(s);
            copytomap2(s);
            if (s.gIsMapInfo) {
                if (windowOpen(s, s.gViewWin) && !s.gImmediate) replaceUserMap(s);
                if (windowOpen(s, s.gMapWin) && !s.gImmediate) closeWindow(s, s.gMapWin);
                if (windowOpen(s, s.gSpareWin) && s.gSpareWin != 0) closeWindow(s, s.gSpareWin);
                send(s, "Set Application Window 0");
                // The window ids stay as they are; shutdown finds those windows closed.
            }
            s.layerForm().Hide();
        },
        [&](const RuntimeError& e) { closingTrap(s, "Error from okclick ", e); });
}

void cencelclick(Session& s) {
    onErrorGoTo(
        [&] {
            s.gFormReady = kFalse;
            s.gAccepted = kFalse;
            if (s.gIsMapInfo) {
                if (windowOpen(s, s.gViewWin) && !s.gImmediate) {
                    closeWindow(s, s.gViewWin);
                    s.gViewWin = 0;
                    s.gMapWin = 0;
                }
                if (windowOpen(s, s.gSpareWin) && s.gSpareWin != 0) closeWindow(s, s.gSpareWin);
                send(s, "Set Application Window 0");
            }
            s.layerForm().Hide();
        },
        [&](const RuntimeError& e) { closingTrap(s, "Error from cencelclick ", e); });
}

// Unlike cencelclick it leaves gFormReady and gAccepted alone, because mapinfo_init runs it
// before the form is ready, and it gives the host's dialogs back only when it closed a view.
void Cancel_Click(Session& s) {
    onErrorGoTo(
        [&] {
            if (s.gIsMapInfo) {
                if (windowOpen(s, s.gViewWin) && !s.gImmediate) {
                    closeWindow(s, s.gViewWin);
                    s.gViewWin = 0;
                    s.gMapWin = 0;
                    send(s, "Set Application Window 0");
                }
                if (windowOpen(s, s.gSpareWin)) closeWindow(s, s.gSpareWin);
            }
            s.layerForm().Hide();
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "Error from cancel_click " + e.description());
        });
}

// Every statement runs whatever the one before it did: this is how a host that has gone away
// is survived, and why a second run finds nothing left to do and does no harm.
void shutdown(Session& s) {
    ResumeNext next;
    s.gShuttingDown = kTrue;
    // The reference is tested for being an object, which it is even when set to nothing; a
    // host that is gone fails every call below quietly.
    if (s.gIsMapInfo) {
        s.gFormReady = kFalse;
        next([&] { styles::dropstyletable(s); });
        next([&] { send(s, "statusbar Show"); });
        next([&] { send(s, "Alter Buttonpad \"Callback\" Destroy"); });
        next([&] {
            if (windowOpen(s, s.gViewWin) && !s.gImmediate && s.gViewWin != 0)
                closeWindow(s, s.gViewWin);
        });
        next([&] {
            if (windowOpen(s, s.gSpareWin) && s.gSpareWin != 0) closeWindow(s, s.gSpareWin);
        });
        next([&] { send(s, "Set progressbars on"); });
        next([&] { send(s, "Set Application Window 0"); });
        next([&] { s.mapInfoApp().SetCallback(nullptr); });
        s.gMapInfo.reset();
    }
    s.releaseHostObjects();
    prefs::closelog(s);
    // A form that was never made has nothing to unload.
    next([&] {
        if (s.gEditCell) s.gEditCell->Unload();
    });
    next([&] {
        if (s.gInfoForm) s.gInfoForm->Unload();
    });
    next([&] {
        if (s.gLabelOrient) s.gLabelOrient->Unload();
    });
    next([&] {
        if (s.gFeedbackForm) s.gFeedbackForm->Unload();
    });
    next([&] { s.layerForm().Hide(); });
}

} // namespace vellant::session
