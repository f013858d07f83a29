#pragma once
// A combo box: a text the user may type plus a drop-down list to pick from. Picking an item
// makes it the text and the list index and fires the click handler, as the real control does.

#include "base/runtime_error.h"
#include "platform/control.h"

#include <string>
#include <vector>

namespace vellant::platform {

inline constexpr int kErrInvalidProcedureCall = 5;

class ComboBox : public Control {
public:
    using Control::Control;

    void AddItem(const std::string& item) {
        items_.push_back(item);
        notify(Property::Text);
    }
    void Clear() {
        items_.clear();
        listIndex_ = -1;
        setText("");
        notify(Property::Text);
    }
    int ListCount() const { return static_cast<int>(items_.size()); }
    // Error 381 for an index outside the list, as the control raises it.
    const std::string& List(int index) const {
        if (index < 0 || index >= ListCount()) raiseError(381, "Invalid property array index");
        return items_[static_cast<std::size_t>(index)];
    }
    const std::vector<std::string>& items() const { return items_; }
    // -1 when the text is not a picked item.
    int ListIndex() const { return listIndex_; }

    // The user picks the item at index (from 0).
    void pick(int index) {
        setText(List(index));
        listIndex_ = index;
        Click();
    }
    // The user types: the text no longer names a picked item.
    void type(const std::string& text) {
        listIndex_ = -1;
        setText(text);
    }

private:
    std::vector<std::string> items_;
    int listIndex_ = -1;
};

} // namespace vellant::platform
