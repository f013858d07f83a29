#pragma once
// The ways a session ends: accept, the two cancels, and the shutdown that gives MapInfo back
// what the session took.

namespace vellant::session {

struct Session;

void okclick(Session& s);
void cencelclick(Session& s);
// The floating form's Cancel.
void Cancel_Click(Session& s);
void shutdown(Session& s);

} // namespace vellant::session
