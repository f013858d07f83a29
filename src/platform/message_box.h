#pragma once
// The buttons of a message box style and its default answer, as the desktop's message box
// offers them: one source for every toolkit.

#include <vector>

namespace vellant::platform {

// The answers (vbOK..vbNo) a style's buttons give, left to right; run-time error 5 for a style
// whose button set does not exist.
std::vector<int> messageBoxButtons(int style);
// The answer of the style's default button.
int messageBoxDefault(int style);

} // namespace vellant::platform
