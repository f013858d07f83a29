#include "engine/engine.h"
#include "engine/lang/cursor.h"
#include "engine/lang/style_clause.h"
#include "engine/mb_error.h"
#include "engine/tables/catalog.h"
#include "engine/tables/column_type.h"
#include "engine/windows/label_position.h"
#include "engine/windows/set_map_parts.h"
#include "engine/windows/table_layer.h"
#include "engine/windows/units.h"
#include "engine/windows/window_clauses.h"
#include "engine/windows/window_errors.h"

#include <cctype>
#include <cmath>

namespace vellant::engine {

namespace {

constexpr int kMaxLabelOffset = 200;

std::optional<LabelLine> readLineType(Cursor& cursor) {
    if (cursor.acceptWord("none")) return LabelLine::None;
    if (cursor.acceptWord("simple")) return LabelLine::Simple;
    if (cursor.acceptWord("arrow")) return LabelLine::Arrow;
    return std::nullopt;
}

LabelLine expectLineType(Cursor& cursor) {
    if (const auto line = readLineType(cursor)) return *line;
    cursor.syntaxError("None, Simple or Arrow");
}

// Center, Above or Below, Left or Right, in any order; at least one word.
int readPosition(Cursor& cursor) {
    LabelRow row = LabelRow::Middle;
    LabelColumn column = LabelColumn::Middle;
    bool any = false;
    while (true) {
        if (cursor.acceptWord("center")) {
        } else if (cursor.acceptWord("above")) {
            row = LabelRow::Above;
        } else if (cursor.acceptWord("below")) {
            row = LabelRow::Below;
        } else if (cursor.acceptWord("left")) {
            column = LabelColumn::Left;
        } else if (cursor.acceptWord("right")) {
            column = LabelColumn::Right;
        } else {
            break;
        }
        any = true;
    }
    if (!any) cursor.syntaxError("Center, Above, Below, Left or Right");
    return labelPositionCode(row, column);
}

int readOffset(Cursor& cursor) {
    const double offset = cursor.numberExpression();
    if (offset < 0 || offset > kMaxLabelOffset) raiseValueOutOfRange("Label offset", offset);
    return static_cast<int>(std::lround(offset));
}

std::string readStyle(Cursor& cursor, MbType type) {
    const std::optional<MbValue> style = acceptStyleClause(cursor);
    if (!style || style->type() != type) cursor.syntaxError(type == MbType::Font ? "Font" : "Pen");
    return style->styleClause();
}

double distanceMetres(Cursor& cursor, double value, const std::optional<std::string>& units) {
    return value * distanceUnitMetres(units ? *units : cursor.engine().settings().distanceUnits);
}

// A label expression names columns of the layer's table: it is tried on the table's first
// row, so that a column or function the host does not know is refused now, as the host
// refuses it, and not when the labels are drawn.
void checkLabelExpression(Cursor& cursor, const Layer& layer, const std::string& text) {
    Engine& engine = cursor.engine();
    const Table* table = engine.catalog().find(layer.name);
    if (!table || text.empty()) return;
    const std::int64_t row = table->rowCount() > 0 && table->rowExists(1) ? 1 : 0;
    const NameResolver resolver = [table, row](std::string_view name) -> std::optional<MbValue> {
        if (name == "obj" || name == "object") {
            return MbValue::object(row == 0 ? nullptr : table->object(row));
        }
        // By name or by number (Col1, COL2), as the labels are drawn.
        const std::optional<std::size_t> column = findColumn(table->columns(), name);
        if (!column) return std::nullopt;
        if (row == 0) return MbValue::string("");
        return table->value(row, *column);
    };
    Cursor check(engine, text, tokenize(text));
    check.setNameResolver(&resolver);
    try {
        check.expression();
        check.expectEnd();
    } catch (const MbError& error) {
        // Only names and syntax are faults of the expression; what the first row's values
        // make of it (a division by zero, an empty object) is not.
        const int code = error.code();
        if (code == kMbSyntax || code == kMbUnknownVariable || code == kMbUnknownFunction ||
            code == kMbWrongArgCount) {
            throw;
        }
    }
}

void readFollowPath(Cursor& cursor, LabelSettings& label) {
    label.orientation = LabelOrientation::Curved;
    while (true) {
        if (cursor.acceptWord("bestposition") || cursor.acceptWord("fallback")) {
            cursor.onOff();
        } else if (cursor.acceptWord("percent")) {
            cursor.expectWord("over");
            cursor.numberExpression();
        } else {
            break;
        }
    }
}

void readVisibility(Cursor& cursor, LabelSettings& label) {
    if (cursor.acceptWord("zoom")) {
        const MapPoint range = readPoint(cursor);
        const auto units = readUnits(cursor);
        const double min = distanceMetres(cursor, range.x, units);
        const double max = distanceMetres(cursor, range.y, units);
        if (min < 0 || max < min) raiseValueOutOfRange("Label zoom range", range.y);
        label.visibility = LabelVisibility::Zoom;
        label.zoomMinMetres = min;
        label.zoomMaxMetres = max;
        return;
    }
    label.visibility = cursor.onOff() ? LabelVisibility::On : LabelVisibility::Off;
}

// The clauses of one label edited by hand.
void readLabelObject(Cursor& cursor, LabelSettings& label) {
    const double row = cursor.numberExpression();
    if (row < 1 || row != std::floor(row)) raiseValueOutOfRange("Label object", row);
    LabelEdit& edit = label.edits[static_cast<std::int64_t>(row)];
    while (true) {
        if (cursor.acceptWord("visibility")) {
            edit.visible = cursor.onOff();
        } else if (cursor.acceptWord("anchor")) {
            edit.anchor = readPoint(cursor);
        } else if (cursor.acceptWord("text")) {
            edit.text = cursor.stringExpression();
        } else if (cursor.acceptWord("position")) {
            edit.position = readPosition(cursor);
        } else if (cursor.acceptWord("offset")) {
            edit.offset = readOffset(cursor);
        } else if (cursor.acceptWord("angle")) {
            edit.angle = cursor.numberExpression();
        } else if (cursor.peekWord("font")) {
            edit.font = readStyle(cursor, MbType::Font);
        } else if (cursor.peekWord("pen")) {
            edit.pen = readStyle(cursor, MbType::Pen);
        } else if (cursor.acceptWord("line")) {
            edit.line = expectLineType(cursor);
            if (cursor.peek().kind == Token::Kind::Symbol && cursor.peek().text == "(") {
                edit.calloutEnd = readPoint(cursor);
            }
        } else if (cursor.acceptWord("callout")) {
            edit.calloutEnd = readPoint(cursor);
        } else {
            break;
        }
    }
}

void resetLabels(Cursor& cursor, Layer& layer) {
    layer.label = LabelSettings{};
    if (const Table* table = cursor.engine().catalog().find(layer.name)) {
        if (!table->columns().empty()) layer.label.expression = table->columns().front().name;
    }
}

} // namespace

void readLabelClauses(Cursor& cursor, Layer& layer) {
    LabelSettings& label = layer.label;
    while (true) {
        if (cursor.acceptWord("line")) {
            label.line = expectLineType(cursor);
        } else if (cursor.acceptWord("position")) {
            label.position = readPosition(cursor);
        } else if (cursor.acceptWord("auto")) {
            if (cursor.acceptWord("retry")) {
                label.autoRetry = cursor.onOff();
            } else {
                label.autoLabel = cursor.onOff();
            }
        } else if (cursor.peekWord("font")) {
            label.font = readStyle(cursor, MbType::Font);
            label.fontGiven = true;
        } else if (cursor.peekWord("pen")) {
            label.pen = readStyle(cursor, MbType::Pen);
        } else if (cursor.acceptWord("with")) {
            const std::string text = readExpressionText(cursor);
            checkLabelExpression(cursor, layer, text);
            label.expression = text;
        } else if (cursor.acceptWord("parallel")) {
            const bool on = cursor.onOff();
            if (on) {
                label.orientation = LabelOrientation::Parallel;
            } else if (label.orientation == LabelOrientation::Parallel) {
                label.orientation = LabelOrientation::Horizontal;
            }
        } else if (cursor.acceptWord("follow")) {
            cursor.expectWord("path");
            readFollowPath(cursor, label);
        } else if (cursor.acceptWord("overlap")) {
            label.overlap = cursor.onOff();
        } else if (cursor.acceptWord("duplicates")) {
            label.duplicates = cursor.onOff();
        } else if (cursor.acceptWord("partialsegments")) {
            label.partialSegments = cursor.onOff();
        } else if (cursor.acceptWord("offset")) {
            label.offset = readOffset(cursor);
        } else if (cursor.acceptWord("max")) {
            // A bare Max lifts the limit.
            const Token& next = cursor.peek();
            if (next.kind == Token::Kind::Number ||
                (next.kind == Token::Kind::Symbol && (next.text == "(" || next.text == "-"))) {
                const double max = cursor.numberExpression();
                if (max < 0 || max > kNoLabelLimit) raiseValueOutOfRange("Label max", max);
                label.max = static_cast<int>(max);
            } else {
                label.max.reset();
            }
        } else if (cursor.acceptWord("visibility")) {
            readVisibility(cursor, label);
        } else if (cursor.acceptWord("labelalpha")) {
            const double alpha = cursor.numberExpression();
            if (alpha < 0 || alpha > 255) raiseValueOutOfRange("Label alpha", alpha);
            label.alpha = static_cast<int>(alpha);
        } else if (cursor.acceptWord("default")) {
            resetLabels(cursor, layer);
        } else if (cursor.acceptWord("object")) {
            readLabelObject(cursor, label);
        } else {
            return;
        }
    }
}

} // namespace vellant::engine
