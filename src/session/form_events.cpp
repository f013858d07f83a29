// The layer forms' own events, each handing over to the session's procedure of that name.

#include "mapchanges/map_refresh.h"
#include "prefs/setting_controls.h"
#include "session/closing.h"
#include "session/form_load.h"
#include "session/layer_form.h"
#include "session/session.h"
#include "session/window_settings.h"
#include "support/support_buttons.h"

namespace vellant::session {

namespace {

constexpr const char* kRestartNeeded =
    "You will need to exit Vellant and restart for this setting to take effect.";

} // namespace

void LayerForm::wireButtons() {
    OK.onClick = [this] {
        if (session) okclick(*session);
    };
    Cancel.onClick = [this] { Cancel_Click(); };
    Docked.onClick = [this] { Docked_Click(); };
    MapImmediate.onClick = [this] { MapImmediate_Click(); };
    Info.onClick = [this] {
        if (session) support::Info_Click(*session);
    };
    Feedback.onClick = [this] {
        if (session) support::Feedback_Click(*session);
    };
    VL_on_top.onClick = [this] {
        if (session) vl_on_top(*session);
    };
    show_MI_statusbar.onClick = [this] { show_MI_statusbar_click(); };
    // What the user did in the view map shows in the panel's captions.
    for (platform::Control* frame : {&MapInfoFrame, &Mapframe})
        frame->onClick = [this] {
            if (session) captionsFollowViewZoom(*session);
        };
}

void LayerForm::Form_Unload(bool& /*cancel*/) {
    if (session) shutdown(*session);
}

// The session goes on in the mode it began in, since mapinfo_init has already decided about the
// windows; only the closing procedures read the new setting, hence the call for a restart.
void LayerForm::changeImmediate(bool showMessages) {
    if (!session) return;
    Session& s = *session;
    if (MapImmediate.Value() == 1 && !s.gImmediate) {
        if (showMessages)
            s.showMessage(std::string("Warning: Map changes are made immediately with no undo.") +
                          "\r\n" + kRestartNeeded);
        s.gImmediate = kTrue;
        Cancel.setEnabled(false);
        map_bounds.setEnabled(false);
    } else if (MapImmediate.Value() == 0 && s.gImmediate) {
        if (showMessages) s.showMessage(kRestartNeeded);
        s.gImmediate = kFalse;
        Cancel.setEnabled(true);
        map_bounds.setEnabled(true);
    }
}

void vlLayerControl::Form_Load() {
    if (session) vlLayerControl_Load(*session, *this);
}

void vlLayerControl::RefreshMap() {
    if (session) mapchanges::refreshFromUserMap(*session);
}

void vlLayerControl::Cancel_Click() {
    if (session) session::Cancel_Click(*session);
}

// The floating form only notes the setting: it is saved at OK and takes effect at the next start.
void vlLayerControl::Docked_Click() {
    if (session) prefs::docked_change(*session);
}

// The value loaded from the settings equals the setting, so that load passes without a word.
void vlLayerControl::MapImmediate_Click() {
    changeImmediate(true);
}

void vlLayerControl::show_MI_statusbar_click() {
    if (session) session::show_MI_statusbar_click(*session);
}

void vlLayerDocked::Form_Load() {
    if (session) vlLayerDocked_Load(*session, *this);
}

void vlLayerDocked::Cancel_Click() {
    if (session) cencelclick(*session);
}

// Undocking ends the session with the setting written, and the public method opens the other
// form at once. A click during load does not restart.
void vlLayerDocked::Docked_Click() {
    if (!session) return;
    Session& s = *session;
    prefs::docked_change(s);
    if (s.gFormReady) {
        s.gRestart = kTrue;
        okclick(s);
    }
}

void vlLayerDocked::MapImmediate_Click() {
    changeImmediate(session && session->gFormReady);
}

void vlLayerDocked::show_MI_statusbar_click() {
    if (session) showMIstatusbar(*session);
}

} // namespace vellant::session
