#include "base/variant.h"

#include "base/basic_text.h"
#include "base/runtime_error.h"

namespace vellant {

VarType Variant::type() const {
    switch (value_.index()) {
    case 0:
        return VarType::Empty;
    case 1:
        return VarType::Null;
    case 2:
        return VarType::Integer;
    case 3:
        return VarType::Long;
    case 4:
        return VarType::Single;
    case 5:
        return VarType::Double;
    case 6:
        return VarType::String;
    case 7:
        return VarType::Object;
    default:
        return VarType::Boolean;
    }
}

bool Variant::isNumber() const {
    const VarType t = type();
    return t == VarType::Integer || t == VarType::Long || t == VarType::Single ||
           t == VarType::Double;
}

bool Variant::isNumeric() const {
    switch (type()) {
    case VarType::Empty:
    case VarType::Boolean:
        return true;
    case VarType::String:
        return IsNumericText(std::get<std::string>(value_));
    default:
        return isNumber();
    }
}

double Variant::toDouble() const {
    switch (type()) {
    case VarType::Empty:
        return 0;
    case VarType::Integer:
        return std::get<std::int16_t>(value_);
    case VarType::Long:
        return std::get<std::int32_t>(value_);
    case VarType::Single:
        return std::get<float>(value_);
    case VarType::Double:
        return std::get<double>(value_);
    case VarType::Boolean:
        return std::get<bool>(value_) ? -1 : 0;
    case VarType::String: {
        const auto& s = std::get<std::string>(value_);
        if (!IsNumericText(s)) raiseError(kErrTypeMismatch);
        return Val(s);
    }
    default:
        raiseError(kErrTypeMismatch);
    }
}

std::string Variant::toString() const {
    switch (type()) {
    case VarType::Empty:
        return "";
    case VarType::Integer:
        return CStr(std::get<std::int16_t>(value_));
    case VarType::Long:
        return CStr(std::get<std::int32_t>(value_));
    case VarType::Single:
        return CStr(std::get<float>(value_));
    case VarType::Double:
        return CStr(std::get<double>(value_));
    case VarType::Boolean:
        return std::get<bool>(value_) ? "True" : "False";
    case VarType::String:
        return std::get<std::string>(value_);
    default:
        raiseError(kErrTypeMismatch);
    }
}

bool Variant::toBool() const {
    if (type() == VarType::Boolean) return std::get<bool>(value_);
    if (type() == VarType::String) {
        const std::string s = LCase(Trim(std::get<std::string>(value_)));
        if (s == "true") return true;
        if (s == "false") return false;
    }
    return toDouble() != 0;
}

std::shared_ptr<BasicObject> Variant::toObject() const {
    if (type() == VarType::Empty) return nullptr;
    if (type() != VarType::Object) raiseError(kErrTypeMismatch);
    return std::get<std::shared_ptr<BasicObject>>(value_);
}

} // namespace vellant
