#pragma once
// A MapBasic value. Statements and functions pass these; eval hands its result back to the
// client as text, formatted as the host formats it (logicals as "T" and "F").

#include <cstdint>
#include <memory>
#include <string>
#include <variant>

namespace vellant::engine {

struct MapObject;

enum class MbType {
    Logical,
    SmallInt,
    Integer,
    Float,
    String,
    Object,
    Pen,
    Brush,
    Symbol,
    Font,
};

// A style value keeps its clause in the canonical form "Pen (1,2,0)".
struct StyleClause {
    std::string text;
    bool operator==(const StyleClause&) const = default;
};

class MbValue {
public:
    MbValue() : type_(MbType::String), data_(std::string()) {}
    static MbValue logical(bool v) { return MbValue(MbType::Logical, v); }
    static MbValue smallInt(std::int16_t v) { return MbValue(MbType::SmallInt, std::int64_t{v}); }
    static MbValue integer(std::int32_t v) { return MbValue(MbType::Integer, std::int64_t{v}); }
    static MbValue number(double v) { return MbValue(MbType::Float, v); }
    static MbValue string(std::string v) { return MbValue(MbType::String, std::move(v)); }
    static MbValue object(std::shared_ptr<const MapObject> v) {
        return MbValue(MbType::Object, std::move(v));
    }
    // type is one of Pen, Brush, Symbol, Font.
    static MbValue style(MbType type, std::string clause) {
        return MbValue(type, StyleClause{std::move(clause)});
    }

    MbType type() const { return type_; }
    bool isNumber() const {
        return type_ == MbType::SmallInt || type_ == MbType::Integer || type_ == MbType::Float;
    }
    bool isStyle() const {
        return type_ == MbType::Pen || type_ == MbType::Brush || type_ == MbType::Symbol ||
               type_ == MbType::Font;
    }

    // Conversions as MapBasic makes them; a value that cannot convert raises an MbError.
    double asNumber() const;
    std::int64_t asInteger() const; // rounds a Float to the nearest whole number
    bool asLogical() const;
    std::string asString() const; // a string as it is, other values as toEvalText gives them
    std::shared_ptr<const MapObject> asObject() const;
    const std::string& styleClause() const;

    // The text that eval hands back to the client.
    std::string toEvalText() const;

private:
    using Data = std::variant<bool, std::int64_t, double, std::string,
                              std::shared_ptr<const MapObject>, StyleClause>;
    MbValue(MbType t, Data d) : type_(t), data_(std::move(d)) {}
    MbType type_;
    Data data_;
};

} // namespace vellant::engine
