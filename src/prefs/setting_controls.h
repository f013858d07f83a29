#pragma once
// The form controls that show the stored settings, and the menu item that forgets the stored
// map preferences.

namespace vellant::session {
struct Session;
}

namespace vellant::prefs {

using session::Session;

// Brings the form's controls in line with the settings just read; leaves the settings as the
// file had them although docked and save-position are flipped on the way.
void updatecontrolsfromprefs(Session& s);
// Turns the docked setting over and shows it on the Docked button.
void docked_change(Session& s);
// Turns the save-position setting and its menu check over.
void save_user_position_click(Session& s);
// Asks, then forgets the stored map slots; nothing is written until the next accept.
void remove_group_prefs_clicK(Session& s);

} // namespace vellant::prefs
