#include "support/support_buttons.h"

#include "platform/toolkit.h"
#include "session/layer_form.h"
#include "session/session.h"
#include "support/vl_feedback.h"
#include "support/vl_info.h"

namespace vellant::support {

namespace {

constexpr int kKeepPlaceAndSize = platform::SWP_NOSIZE | platform::SWP_NOMOVE;

// A form that is topmost would cover the modal form it owns, so it steps down while that one
// is shown.
void showOver(Session& s, platform::Form& modal) {
    session::LayerForm& owner = s.layerForm();
    s.toolkit.SetWindowPos(owner.hWnd(), platform::HWND_NOTOPMOST, 0, 0, 0, 0, kKeepPlaceAndSize);
    modal.Show(platform::vbModal, &owner);
    if (s.gOnTop)
        s.toolkit.SetWindowPos(owner.hWnd(), platform::HWND_TOPMOST, 0, 0, 0, 0, kKeepPlaceAndSize);
}

} // namespace

void Info_Click(Session& s) {
    showOver(s, infoForm(s));
}

void Feedback_Click(Session& s) {
    showOver(s, feedbackForm(s));
}

} // namespace vellant::support
