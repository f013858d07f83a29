#include "mapx/layer_info.h"

#include "base/basic_text.h"
#include "base/runtime_error.h"

namespace vellant::mapx {

void LayerInfo::AddParameter(const std::string& name, const Variant& value) {
    parameters_[LCase(name)] = value;
}

const Variant* LayerInfo::parameter(const std::string& lowerName) const {
    const auto found = parameters_.find(lowerName);
    return found == parameters_.end() ? nullptr : &found->second;
}

std::optional<std::string> LayerInfo::text(const std::string& lowerName) const {
    const Variant* value = parameter(lowerName);
    if (value == nullptr) return std::nullopt;
    if (value->type() == VarType::Object) raiseError(kErrTypeMismatch);
    return value->toString();
}

} // namespace vellant::mapx
