// Create Point / Line / Pline / Region / Rect / Ellipse / Text. The object goes into a
// variable (Into Variable v) or, through the windows part, into a map's cosmetic layer
// (Into Window n, or no Into clause: the front map).

#include "engine/engine.h"
#include "engine/lang/core_parts.h"
#include "engine/lang/cursor.h"
#include "engine/lang/registry.h"
#include "engine/lang/style_clause.h"
#include "engine/lang/variables.h"
#include "engine/map_object.h"
#include "engine/mb_error.h"
#include "engine/windows/window_manager.h"

#include <memory>

namespace vellant::engine {

namespace {

struct Target {
    std::string variable; // empty: a window
    int windowId = 0;     // 0: the front map window
};

Target readTarget(Cursor& cursor) {
    Target target;
    if (!cursor.acceptWord("into")) return target;
    if (cursor.acceptWord("variable")) {
        target.variable = cursor.identifier();
        const Variable* variable = cursor.engine().variables().find(target.variable);
        if (variable == nullptr) {
            raiseMb(kMbUnknownVariable, "Variable or Field " + target.variable + " not defined.");
        }
        if (variable->type != VariableType::Object) {
            raiseMb(kMbTypeMismatch,
                    "Type mismatch: variable " + target.variable + " is not of type Object.");
        }
        return target;
    }
    cursor.expectWord("window");
    const std::int64_t id = cursor.expression().asInteger();
    if (id <= 0 || id > 0x7fffffff) {
        raiseMb(kMbBadWindow, "Invalid window ID: " + std::to_string(id));
    }
    target.windowId = static_cast<int>(id);
    return target;
}

MapPoint readPoint(Cursor& cursor) {
    cursor.expectSymbol("(");
    MapPoint point;
    point.x = cursor.numberExpression();
    cursor.expectSymbol(",");
    point.y = cursor.numberExpression();
    cursor.expectSymbol(")");
    return point;
}

// A count of sections, polygons or points. Hostile counts cost nothing: points are read one
// by one and the statement fails at the first one missing.
std::int64_t readCount(Cursor& cursor, const char* what, std::int64_t minimum) {
    const std::int64_t count = cursor.expression().asInteger();
    if (count < minimum) {
        raiseMb(kMbSyntax,
                std::string("Invalid number of ") + what + ": " + std::to_string(count) + ".");
    }
    return count;
}

std::vector<MapPoint> readPoints(Cursor& cursor, std::int64_t count) {
    std::vector<MapPoint> points;
    for (std::int64_t i = 0; i < count; ++i)
        points.push_back(readPoint(cursor));
    return points;
}

// Style clauses may come in any order; a kind takes only the styles it draws with, and a
// clause it does not take is left for the end-of-statement check to report.
void readStyles(Cursor& cursor, MapObject& object, bool pen, bool brush, bool symbol, bool font) {
    while (true) {
        const bool next = (pen && cursor.peekWord("pen")) || (brush && cursor.peekWord("brush")) ||
                          (symbol && cursor.peekWord("symbol")) ||
                          (font && cursor.peekWord("font"));
        if (!next) return;
        const MbValue style = *acceptStyleClause(cursor);
        std::string& slot = style.type() == MbType::Pen      ? object.pen
                            : style.type() == MbType::Brush  ? object.brush
                            : style.type() == MbType::Symbol ? object.symbol
                                                             : object.font;
        slot = style.styleClause();
    }
}

// Hands the object to the windows part once it takes cosmetic objects.
template <typename Windows>
void addToWindow(Windows& windows, Engine& engine, int windowId,
                 const std::shared_ptr<const MapObject>& object) {
    if constexpr (requires { windows.addCosmeticObject(engine, windowId, object); }) {
        windows.addCosmeticObject(engine, windowId, object);
    } else {
        (void)windows;
        (void)engine;
        (void)object;
        raiseMb(kMbCmdNotSupported,
                windowId == 0
                    ? std::string("Create without Into Variable is not supported.")
                    : "Create Into Window " + std::to_string(windowId) + " is not supported.");
    }
}

void store(Engine& engine, Cursor& cursor, const Target& target, MapObject object) {
    cursor.expectEnd();
    auto shared = std::make_shared<const MapObject>(std::move(object));
    if (!target.variable.empty()) {
        engine.variables().assign(target.variable, MbValue::object(std::move(shared)));
    } else {
        addToWindow(engine.windows(), engine, target.windowId, shared);
    }
}

void createPoint(Engine& engine, Cursor& cursor) {
    const Target target = readTarget(cursor);
    MapObject object;
    object.kind = ObjectKind::Point;
    object.symbol = kInitialSymbol;
    object.parts.push_back({readPoint(cursor)});
    readStyles(cursor, object, false, false, true, false);
    store(engine, cursor, target, std::move(object));
}

void createLine(Engine& engine, Cursor& cursor) {
    const Target target = readTarget(cursor);
    MapObject object;
    object.kind = ObjectKind::Line;
    object.pen = kInitialPen;
    object.parts.push_back(readPoints(cursor, 2));
    readStyles(cursor, object, true, false, false, false);
    store(engine, cursor, target, std::move(object));
}

// Create Pline [Multiple sections] points (x,y)... [points (x,y)...] [Pen] [Smooth]
void createPline(Engine& engine, Cursor& cursor) {
    const Target target = readTarget(cursor);
    MapObject object;
    object.kind = ObjectKind::Polyline;
    object.pen = kInitialPen;
    std::int64_t sections = 1;
    if (cursor.acceptWord("multiple")) sections = readCount(cursor, "sections", 1);
    for (std::int64_t s = 0; s < sections; ++s) {
        object.parts.push_back(readPoints(cursor, readCount(cursor, "points", 2)));
    }
    readStyles(cursor, object, true, false, false, false);
    cursor.acceptWord("smooth");
    store(engine, cursor, target, std::move(object));
}

// Create Region polygons [points (x,y)...]... [Pen] [Brush] [Center (x,y)]
void createRegion(Engine& engine, Cursor& cursor) {
    const Target target = readTarget(cursor);
    MapObject object;
    object.kind = ObjectKind::Region;
    object.pen = kInitialPen;
    object.brush = kInitialBrush;
    const std::int64_t polygons = readCount(cursor, "polygons", 0);
    for (std::int64_t p = 0; p < polygons; ++p) {
        object.parts.push_back(readPoints(cursor, readCount(cursor, "points", 3)));
    }
    while (true) {
        readStyles(cursor, object, true, true, false, false);
        if (!cursor.acceptWord("center")) break;
        readPoint(cursor); // the host derives the centroid itself when it draws
    }
    store(engine, cursor, target, std::move(object));
}

void createBox(Engine& engine, Cursor& cursor, ObjectKind kind) {
    const Target target = readTarget(cursor);
    MapObject object;
    object.kind = kind;
    object.pen = kInitialPen;
    object.brush = kInitialBrush;
    object.parts.push_back(readPoints(cursor, 2));
    readStyles(cursor, object, true, true, false, false);
    store(engine, cursor, target, std::move(object));
}

// Create Text "text" (x1,y1) (x2,y2) [Font] [Label Line {Simple|Arrow} (x,y) [Pen]]
//   [Spacing n] [Justify {Left|Center|Right}] [Angle a]
// The label line, spacing and justification are read for their syntax; a MapObject keeps the
// text, its box, its font and its angle.
void createText(Engine& engine, Cursor& cursor) {
    const Target target = readTarget(cursor);
    MapObject object;
    object.kind = ObjectKind::Text;
    object.font = kInitialFont;
    object.text = cursor.stringExpression();
    object.parts.push_back(readPoints(cursor, 2));
    while (true) {
        readStyles(cursor, object, false, false, false, true);
        if (cursor.acceptWord("label")) {
            cursor.expectWord("line");
            if (!cursor.acceptWord("simple")) cursor.expectWord("arrow");
            readPoint(cursor);
            MapObject lineStyle;
            readStyles(cursor, lineStyle, true, false, false, false);
        } else if (cursor.acceptWord("spacing")) {
            cursor.numberExpression();
        } else if (cursor.acceptWord("justify")) {
            if (!cursor.acceptWord("left") && !cursor.acceptWord("center")) {
                cursor.expectWord("right");
            }
        } else if (cursor.acceptWord("angle")) {
            object.angle = cursor.numberExpression();
        } else {
            break;
        }
    }
    store(engine, cursor, target, std::move(object));
}

} // namespace

void registerCreateStatements(Registry& registry) {
    registry.addStatement({"create", "point"}, createPoint);
    registry.addStatement({"create", "line"}, createLine);
    registry.addStatement({"create", "pline"}, createPline);
    registry.addStatement({"create", "region"}, createRegion);
    registry.addStatement({"create", "rect"},
                          [](Engine& e, Cursor& c) { createBox(e, c, ObjectKind::Rect); });
    registry.addStatement({"create", "ellipse"},
                          [](Engine& e, Cursor& c) { createBox(e, c, ObjectKind::Ellipse); });
    registry.addStatement({"create", "text"}, createText);
}

} // namespace vellant::engine
