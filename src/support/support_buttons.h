#pragma once
// The layer form's buttons that open the information form and the problem report.

namespace vellant::session {
struct Session;
}

namespace vellant::support {

using session::Session;

// Each shows its form modally over the layer form, which steps down from the top of the window
// order meanwhile and goes back there afterwards if the user keeps it on top.
void Info_Click(Session& s);
void Feedback_Click(Session& s);

} // namespace vellant::support
