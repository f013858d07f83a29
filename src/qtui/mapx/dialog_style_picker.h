#pragma once
// MapX's style pickers on the desktop: the host's own style dialog of the kind, modal, seeded
// with the style's clauses; OK answers the clause chosen, Cancel nothing.

#include "mapx/style_picker.h"

#include <QDialog>
#include <QWidget>
#include <functional>

namespace vellant::qtui {

class DialogStylePicker : public mapx::StylePicker {
public:
    // parent answers the widget a dialog belongs to when it opens.
    explicit DialogStylePicker(std::function<QWidget*()> parent) : parent_(std::move(parent)) {}

    std::optional<std::string> pick(const mapx::StylePickRequest& request) override;

    // Told of each dialog just before it runs: a test answers it from here.
    std::function<void(QDialog&)> onDialogOpened;

private:
    std::function<QWidget*()> parent_;
};

} // namespace vellant::qtui
