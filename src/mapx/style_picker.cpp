#include "mapx/style_picker.h"

namespace vellant::mapx {

std::optional<std::string> QueuedStylePicker::pick(const StylePickRequest& request) {
    requests_.push_back(request);
    if (answers_.empty()) return std::nullopt;
    std::optional<std::string> next = std::move(answers_.front());
    answers_.pop_front();
    return next;
}

} // namespace vellant::mapx
