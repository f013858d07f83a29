#pragma once
// A menu item: a caption with a check mark, enabled and visible states, and a click handler. A
// menu that opens as a popup holds its items in order; a caption of "-" is a separator.

#include "platform/control.h"

#include <string>
#include <vector>

namespace vellant::platform {

class MenuItem : public Control {
public:
    using Control::Control;

    // The form owns its items; a menu only lists them.
    void addItem(MenuItem& item) { items_.push_back(&item); }
    const std::vector<MenuItem*>& Items() const { return items_; }

    MenuItem* findItem(const std::string& name) const {
        for (MenuItem* item : items_)
            if (item->Name() == name) return item;
        return nullptr;
    }

    bool isSeparator() const { return Caption() == "-"; }

private:
    std::vector<MenuItem*> items_;
};

} // namespace vellant::platform
