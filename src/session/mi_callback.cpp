// MapInfo's calls into the program. They arrive on the program's one thread, between messages
// and also inside any Do or eval the program is making, and run to their end first.

#include "session/mi_callback.h"

#include "base/basic_text.h"
#include "base/error_trap.h"
#include "prefs/settings.h"
#include "session/closing.h"
#include "session/session.h"
#include "session/window_settings.h"
#include "styles/sample_cells.h"

namespace vellant::session {

namespace {

// The handler's line carries the host's own view of the last call, which is often the cause.
void logWithHostError(Session& s, const std::string& label, const RuntimeError& e) {
    ResumeNext next;
    next([&] {
        hostmodel::MapInfoApp& app = s.mapInfoApp();
        prefs::vlog(s, label + e.description() + "\r\n" + "   :" + CStr(app.LastErrorCode()) +
                           " = " + app.LastErrorMessage());
    });
}

// MapInfo is going away: every reference into it is let go, nothing is saved, and the form's
// own unload then finds no host to give anything back to.
void letGoOfMapInfo(Session& s) {
    s.gMapInfo.reset();
    s.releaseHostObjects();
    s.layerForm().Hide();
}

} // namespace

void MICallback::RunCommand(const std::string& command) {
    Session& s = session_;
    // A leftover word is not cleared, so the order of the tests decides: "resize" still in the
    // global wins over a press of 2002.
    onErrorGoTo(
        [&] {
            if (!s.gMBGlobals) raiseError(kErrObjectNotSet);
            const std::string advice = LCase(s.gMBGlobals->MBGlobals("VLadvice").Value());
            if (advice == "resize") {
                s.layerForm().Resize_LayerForm();
            } else if (advice == "style") {
                s.mapInfoApp().Do("Set Application Window 0");
                s.gFormReady = kTrue;
                // The end of the style pick that the click began by freezing the form.
                styles::updateMicellfromPick(s);
            } else if (advice == "exit vl" || InStr(command, "2002") > 0) {
                cencelclick(s);
            } else if (advice == "exit mapinfo") {
                letGoOfMapInfo(s);
            } else {
                s.showMessage("Unknown update advice from Vellant.mbx");
            }
        },
        [&](const RuntimeError& e) { logWithHostError(s, "Error from RUnCommand ", e); });
}

void MICallback::WindowContentsChanged(std::int32_t windowId) {
    Session& s = session_;
    onErrorGoTo(
        [&] {
            if (!s.gFormReady) return;
            captionsFollowViewZoom(s);
            if (s.gImmediate && windowId == s.gMapWin) s.gMapChanged = kTrue;
        },
        [&](const RuntimeError& e) {
            logWithHostError(s, "Error from Windowcontentschanged ", e);
        });
}

} // namespace vellant::session
