#pragma once
// The label orientation picker: nine picture buttons in a three-by-three block, one for each
// position of a label around its anchor, the index being the position code. A double click
// applies the code to the current layer's labels and paints the grid cell; Esc leaves without a
// change. The form is hidden after use and kept, so it opens again where it first stood.

#include "platform/control_array.h"
#include "platform/form.h"

namespace vellant::session {
struct Session;
}

namespace vellant::interaction {

using session::Session;

class Label_Orientation : public platform::Form {
public:
    // The session outlives the form.
    Label_Orientation(platform::Toolkit& toolkit, Session& session);

    platform::ControlArray<platform::Control> LabOrient{"LabOrient", 0, 8};

    // The user's double click on a button, and a key pressed on the form or on a button.
    void LabOrient_DblClick(int index);
    void Form_KeyPress(int& keyAscii);

protected:
    void Form_Load() override;

private:
    Session& session_;
};

// The session's one picker, made on first reference.
Label_Orientation& labelOrientationForm(Session& s);

} // namespace vellant::interaction
