#include "prefs/setting_controls.h"

#include "base/basic_text.h"
#include "base/error_trap.h"
#include "prefs/settings.h"
#include "session/session.h"

namespace vellant::prefs {

namespace {

void logError(Session& s, const char* label, const RuntimeError& e) {
    logQuietly(s, std::string(label) + e.description());
}

} // namespace

void updatecontrolsfromprefs(Session& s) {
    onErrorGoTo(
        [&] {
            session::LayerForm& form = s.layerForm();
            if (s.gImmediate) {
                if (s.gIsMapInfo) form.MapImmediate.setValue(1);
                form.map_bounds.setEnabled(false);
                form.Cancel.setEnabled(false);
            }
            s.gDocked = toFlag(!s.gDocked);
            docked_change(s);
            if (s.gDocked) {
                form.Save_user_position.setChecked(!s.gSaveUserPosition);
                save_user_position_click(s);
            }
        },
        [&](const RuntimeError& e) { logError(s, "Error from updatecontrolsfromprefs ", e); });
}

void docked_change(Session& s) {
    onErrorGoTo(
        [&] {
            session::LayerForm& form = s.layerForm();
            if (s.gDocked) {
                s.gDocked = kFalse;
                form.Docked.setValue(0);
                form.Docked.setToolTipText("Vellant is floating");
            } else {
                form.Docked.setValue(1);
                s.gDocked = kTrue;
                form.Docked.setToolTipText("Vellant is docked");
            }
        },
        [&](const RuntimeError& e) { logError(s, "Error from docked_change ", e); });
}

void save_user_position_click(Session& s) {
    onErrorGoTo(
        [&] {
            session::LayerForm& form = s.layerForm();
            // The setting follows the check mark, so a check set against the setting before the
            // call leaves both as they were stored.
            form.Save_user_position.setChecked(!form.Save_user_position.Checked());
            s.gSaveUserPosition = toFlag(form.Save_user_position.Checked());
        },
        [&](const RuntimeError& e) { logError(s, "Error from save_user_position_click ", e); });
}

void remove_group_prefs_clicK(Session& s) {
    onErrorGoTo(
        [&] {
            const std::string text = "Your current stored map preferences count is " +
                                     Str(s.gMapPrefCount) + "\r\n" +
                                     "Do you wish to remove these references?";
            if (s.toolkit.MsgBox(text, platform::vbYesNo, "") == platform::vbYes) {
                s.gMapPrefCount = 0;
                s.gMapPrefSlot = 0;
            }
        },
        [&](const RuntimeError& e) { logError(s, "Error from remove_group_prefs_clicK ", e); });
}

} // namespace vellant::prefs
