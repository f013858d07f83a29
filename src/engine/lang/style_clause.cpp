#include "engine/lang/style_clause.h"

#include "engine/lang/cursor.h"
#include "engine/mb_error.h"
#include "engine/mb_value_text.h"

namespace vellant::engine {

namespace {

enum class Field { Whole, Number, Text };

// The shapes each clause may take, by number of fields.
std::vector<Field> layoutOf(MbType type, const std::vector<MbValue>& fields) {
    const std::size_t n = fields.size();
    const bool firstIsText = n > 0 && fields[0].type() == MbType::String;
    switch (type) {
    case MbType::Pen:
        if (n == 3) return {Field::Whole, Field::Whole, Field::Whole};
        break;
    case MbType::Brush:
        if (n == 2) return {Field::Whole, Field::Whole};
        if (n == 3) return {Field::Whole, Field::Whole, Field::Whole};
        break;
    case MbType::Symbol:
        if (n == 3) return {Field::Whole, Field::Whole, Field::Whole};
        if (n == 4 && firstIsText) return {Field::Text, Field::Whole, Field::Whole, Field::Whole};
        if (n == 6) {
            return {Field::Whole, Field::Whole, Field::Whole,
                    Field::Text,  Field::Whole, Field::Number};
        }
        break;
    case MbType::Font:
        if (n == 4) return {Field::Text, Field::Whole, Field::Whole, Field::Whole};
        if (n == 5) return {Field::Text, Field::Whole, Field::Whole, Field::Whole, Field::Whole};
        break;
    default:
        break;
    }
    raiseMb(kMbSyntax, std::string(mbTypeName(type)) + " clause with " + std::to_string(n) +
                           " values is not valid.");
}

std::string fieldText(Field field, const MbValue& value, MbType type) {
    if (field == Field::Text) {
        if (value.type() != MbType::String) {
            raiseMb(kMbTypeMismatch, std::string("Type mismatch: ") + mbTypeName(type) +
                                         " clause needs a name in quotes, not " +
                                         value.toEvalText() + ".");
        }
        std::string quoted = "\"";
        for (char c : value.asString()) {
            quoted += c;
            if (c == '"') quoted += '"';
        }
        return quoted + "\"";
    }
    if (!value.isNumber()) {
        raiseMb(kMbTypeMismatch, std::string("Type mismatch: ") + mbTypeName(type) +
                                     " clause needs a number, not " + value.toEvalText() + ".");
    }
    if (field == Field::Whole) return std::to_string(value.asInteger());
    return formatMbFloat(value.asNumber());
}

} // namespace

MbValue makeStyle(MbType type, const std::vector<MbValue>& fields) {
    const std::vector<Field> layout = layoutOf(type, fields);
    std::string text = mbTypeName(type);
    text += " (";
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (i > 0) text += ',';
        text += fieldText(layout[i], fields[i], type);
    }
    text += ')';
    return MbValue::style(type, std::move(text));
}

std::optional<MbValue> acceptStyleClause(Cursor& cursor, bool lineIsPen) {
    MbType type;
    if (cursor.peekWord("pen") || (lineIsPen && cursor.peekWord("line")))
        type = MbType::Pen;
    else if (cursor.peekWord("brush"))
        type = MbType::Brush;
    else if (cursor.peekWord("symbol"))
        type = MbType::Symbol;
    else if (cursor.peekWord("font"))
        type = MbType::Font;
    else
        return std::nullopt;
    cursor.advance();

    if (cursor.acceptSymbol("(")) {
        std::vector<MbValue> fields;
        do {
            fields.push_back(cursor.expression());
        } while (cursor.acceptSymbol(","));
        cursor.expectSymbol(")");
        // "Pen (myPen)": a parenthesised style expression, not a field list.
        if (fields.size() == 1 && fields[0].type() == type) return fields[0];
        return makeStyle(type, fields);
    }
    MbValue value = cursor.expression();
    if (value.type() != type) {
        raiseMb(kMbTypeMismatch, std::string("Type mismatch: ") + mbTypeName(type) +
                                     " clause needs a " + mbTypeName(type) + " value, not " +
                                     value.toEvalText() + ".");
    }
    return value;
}

} // namespace vellant::engine
