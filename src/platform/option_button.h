#pragma once
// An option button: one of a group of which at most one is set. Setting one (any value but 0)
// clears the others of its group; only the one set hears a click.

#include "platform/control.h"

#include <vector>

namespace vellant::platform {

class OptionButton : public Control {
public:
    using Control::Control;

    // The buttons that exclude one another; each member is told of all, itself included.
    static void group(const std::vector<OptionButton*>& members);

    void setValue(int v) override;
    // A click of the user's: the option becomes the set one of its group.
    void select() { setValue(kSet); }

    static constexpr int kSet = 1;

private:
    std::vector<OptionButton*> group_;
};

} // namespace vellant::platform
