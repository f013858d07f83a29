#include "qtui/mapx/dialog_style_picker.h"

#include "qtui/host/style_dialog.h"

namespace vellant::qtui {

std::optional<std::string> DialogStylePicker::pick(const mapx::StylePickRequest& request) {
    // The two models number the kinds alike: 0 region, 1 line, 2 symbol, 5 text.
    const auto kind = static_cast<engine::StyleDialogKind>(static_cast<int>(request.kind));
    std::unique_ptr<StyleDialog> dialog =
        StyleDialog::create(kind, request.startClauses, parent_ ? parent_() : nullptr);
    if (onDialogOpened) onDialogOpened(*dialog);
    if (dialog->exec() != QDialog::Accepted) return std::nullopt;
    return dialog->clause();
}

} // namespace vellant::qtui
