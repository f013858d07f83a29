#pragma once
// The cell editor: a small form laid over the clicked cell that takes one value, in a text box
// or in a combo box with a list. It carries the value back in gCellText and decides only
// whether the cell may be edited at all and what the list offers. It refuses by unloading
// itself while it loads, which makes the caller's modal Show fail with error 364.

#include "platform/combo_box.h"
#include "platform/form.h"

#include <string>

namespace vellant::session {
struct Session;
}

namespace vellant::interaction {

using session::Session;

class EditCell : public platform::Form {
public:
    // The session outlives the form.
    EditCell(platform::Toolkit& toolkit, Session& session);

    platform::Control ecell{"ecell"};
    platform::ComboBox EditList{"EditList"};

    // Key down in either control: Tab and Enter take the text, Esc leaves gCellText as it was.
    void ecell_KeyDown(int keyCode);
    void EditList_KeyDown(int keyCode);
    // A click on an item of the list (EditList.ListIndex is the item).
    void EditList_Click();

    // Where the caret stands in ecell: behind the first character, so that a character typed
    // into the cell, which stands in front of the old text, is followed by the caret.
    int ecellSelStart() const { return ecell.SelStart(); }

protected:
    void Form_Load() override;

private:
    void loadeditcell();
    // False when the list column offers nothing, and the editor refuses.
    bool fillList();
    bool fillMapXFields();
    void onKeyDown(int keyCode, const std::string& text);

    Session& session_;
};

// The session's one editor, made on first reference.
EditCell& editCellForm(Session& s);

} // namespace vellant::interaction
