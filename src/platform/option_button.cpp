#include "platform/option_button.h"

namespace vellant::platform {

void OptionButton::group(const std::vector<OptionButton*>& members) {
    for (OptionButton* member : members)
        member->group_ = members;
}

void OptionButton::setValue(int v) {
    if (v != 0) {
        for (OptionButton* other : group_)
            if (other != this) other->clearOptionValue();
    }
    Control::setValue(v);
}

} // namespace vellant::platform
