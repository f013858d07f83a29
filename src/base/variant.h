#pragma once
// The classic runtime's Variant: values cross the host interfaces and the facades untyped, and
// the program's behaviour depends on which type a value carries (a number has a blank in front
// when turned into text, a string does not).

#include <cstdint>
#include <memory>
#include <string>
#include <type_traits>
#include <variant>

namespace vellant {

enum class VarType : int {
    Empty = 0,
    Null = 1,
    Integer = 2,
    Long = 3,
    Single = 4,
    Double = 5,
    String = 8,
    Object = 9,
    Boolean = 11,
};

// Base of everything a Variant can hold as an object reference.
class BasicObject {
public:
    virtual ~BasicObject() = default;
};

class Variant {
public:
    Variant() = default;
    Variant(std::int16_t v) : value_(v) {}
    Variant(std::int32_t v) : value_(v) {}
    Variant(float v) : value_(v) {}
    Variant(double v) : value_(v) {}
    Variant(bool v) : value_(v) {}
    Variant(std::string v) : value_(std::move(v)) {}
    Variant(const char* v) : value_(std::string(v)) {}
    Variant(std::shared_ptr<BasicObject> v) : value_(std::move(v)) {}
    // Any object reference, as a variable of an object's own class is assigned to a Variant.
    template <class T>
    requires std::is_base_of_v<BasicObject, T> Variant(std::shared_ptr<T> v)
        : value_(std::shared_ptr<BasicObject>(std::move(v))) {}
    static Variant null() {
        Variant v;
        v.value_ = NullTag{};
        return v;
    }

    VarType type() const;
    bool isEmpty() const { return type() == VarType::Empty; }
    bool isNumber() const;
    // IsNumeric: a number, a boolean, empty, or a string that reads fully as a number.
    bool isNumeric() const;

    // Conversions as the runtime's CDbl, CStr, CBool: a string that is no number raises error
    // 13, and CStr writes numbers without the leading blank that Str gives them.
    double toDouble() const;
    std::string toString() const;
    bool toBool() const;
    std::shared_ptr<BasicObject> toObject() const;

    bool operator==(const Variant& other) const { return value_ == other.value_; }

private:
    struct NullTag {
        bool operator==(const NullTag&) const { return true; }
    };
    std::variant<std::monostate, NullTag, std::int16_t, std::int32_t, float, double, std::string,
                 std::shared_ptr<BasicObject>, bool>
        value_;
};

// VarType as the runtime numbers it.
inline int VarTypeOf(const Variant& v) {
    return static_cast<int>(v.type());
}

} // namespace vellant
