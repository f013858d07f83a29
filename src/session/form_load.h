#pragma once
// Form_Load of the two layer forms: the whole set-up of a session in its documented order, then
// the modal show inside which the session runs.

namespace vellant::session {

struct Session;
class vlLayerControl;
class vlLayerDocked;

void vlLayerControl_Load(Session& s, vlLayerControl& form);
void vlLayerDocked_Load(Session& s, vlLayerDocked& form);

} // namespace vellant::session
