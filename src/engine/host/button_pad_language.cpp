// Create ButtonPad, Alter ButtonPad and Alter Button. A statement takes effect whole or not at
// all: the pad is rebuilt from a copy and put in place once the statement has been read.
//
// Errors besides the parser's syntax errors:
//   642 "ButtonPad <name> not found."                  (Alter of a pad that does not exist, or
//                                                        any pad named by ID: the embedded host
//                                                        has no standard pads)
//   642 "Buttons of the embedded host call OLE methods only." (Calling DDE, a menu code or a
//                                                        procedure)
//   642 "Button <id> not found."                       (Alter Button, Alter ButtonPad Remove)
//   644 "Button ID out of range."                      (an ID, icon or width outside 32 bits)

#include "engine/engine.h"
#include "engine/host/host_language.h"
#include "engine/host/host_services.h"
#include "engine/lang/cursor.h"
#include "engine/lang/registry.h"
#include "engine/mb_error.h"

#include <cstdint>
#include <limits>
#include <string>

namespace vellant::engine {

namespace {

// Enable, Disable, Check or Uncheck: the state words a button definition and Alter Button share.
bool readButtonState(Cursor& cursor, PadButton& button) {
    if (cursor.acceptWord("enable"))
        button.enabled = true;
    else if (cursor.acceptWord("disable"))
        button.enabled = false;
    else if (cursor.acceptWord("check"))
        button.checked = true;
    else if (cursor.acceptWord("uncheck"))
        button.checked = false;
    else
        return false;
    return true;
}

int readInt(Cursor& cursor) {
    const std::int64_t value = cursor.expression().asInteger();
    if (value < std::numeric_limits<int>::min() || value > std::numeric_limits<int>::max())
        raiseMb(kMbArgRange, "Button ID out of range.");
    return static_cast<int>(value);
}

std::string readPadName(Cursor& cursor) {
    if (cursor.acceptWord("id")) {
        const int id = readInt(cursor);
        raiseMb(kMbCmdNotSupported, "ButtonPad " + std::to_string(id) + " not found.");
    }
    return cursor.stringExpression();
}

void readCalling(Cursor& cursor, PadButton& button) {
    if (!cursor.acceptWord("ole"))
        raiseMb(kMbCmdNotSupported, "Buttons of the embedded host call OLE methods only.");
    button.oleMethod = cursor.stringExpression();
    if (button.oleMethod.empty()) cursor.syntaxError("a method name");
}

std::optional<PadButton::Kind> buttonKind(Cursor& cursor) {
    if (cursor.acceptWord("pushbutton")) return PadButton::Kind::PushButton;
    if (cursor.acceptWord("togglebutton")) return PadButton::Kind::ToggleButton;
    if (cursor.acceptWord("toolbutton")) return PadButton::Kind::ToolButton;
    if (cursor.acceptWord("separator")) return PadButton::Kind::Separator;
    return std::nullopt;
}

// The clauses of one button definition, after its kind, in any order.
PadButton readButton(Cursor& cursor, PadButton::Kind kind) {
    PadButton button;
    button.kind = kind;
    if (kind == PadButton::Kind::Separator) return button;
    while (true) {
        if (cursor.acceptWord("calling")) {
            readCalling(cursor, button);
        } else if (cursor.acceptWord("id")) {
            button.id = readInt(cursor);
        } else if (cursor.acceptWord("icon")) {
            button.icon = readInt(cursor);
            if (cursor.acceptWord("file")) button.iconFile = cursor.stringExpression();
        } else if (cursor.acceptWord("cursor")) {
            button.cursor = readInt(cursor);
            if (cursor.acceptWord("file")) button.cursorFile = cursor.stringExpression();
        } else if (cursor.acceptWord("drawmode")) {
            button.drawMode = readInt(cursor);
        } else if (cursor.acceptWord("helpmsg")) {
            button.helpMessage = cursor.stringExpression();
        } else if (cursor.acceptWord("modifierkeys")) {
            button.modifierKeys = cursor.onOff();
        } else if (!readButtonState(cursor, button)) {
            break;
        }
    }
    if (button.oleMethod.empty()) cursor.syntaxError("Calling");
    return button;
}

// A clause that describes the pad as a whole; false when the next words are none of them.
bool readPadClause(Cursor& cursor, ButtonPad& pad) {
    if (cursor.acceptWord("title")) {
        pad.title = cursor.stringExpression();
    } else if (cursor.acceptWord("width")) {
        pad.width = readInt(cursor);
    } else if (cursor.acceptWord("position")) {
        PadPosition position;
        cursor.expectSymbol("(");
        position.x = cursor.numberExpression();
        cursor.expectSymbol(",");
        position.y = cursor.numberExpression();
        cursor.expectSymbol(")");
        if (cursor.acceptWord("units")) position.units = cursor.nameOrString();
        pad.position = position;
    } else if (cursor.acceptWord("toolbarposition")) {
        cursor.expectSymbol("(");
        const int row = readInt(cursor);
        cursor.expectSymbol(",");
        const int column = readInt(cursor);
        cursor.expectSymbol(")");
        pad.toolbarPosition = std::make_pair(row, column);
    } else if (cursor.acceptWord("show")) {
        pad.visible = true;
    } else if (cursor.acceptWord("hide")) {
        pad.visible = false;
    } else if (cursor.acceptWord("fixed")) {
        pad.fixed = true;
    } else if (cursor.acceptWord("float")) {
        pad.fixed = false;
    } else {
        return false;
    }
    return true;
}

void createButtonPad(Engine& engine, Cursor& cursor) {
    ButtonPad pad;
    pad.name = readPadName(cursor);
    pad.title = pad.name;
    cursor.expectWord("as");
    bool anyButton = false;
    while (!cursor.atEnd()) {
        if (const auto kind = buttonKind(cursor)) {
            pad.buttons.push_back(readButton(cursor, *kind));
            anyButton = true;
        } else if (!readPadClause(cursor, pad)) {
            cursor.syntaxError(anyButton ? "a clause" : "PushButton");
        }
    }
    if (!anyButton) cursor.syntaxError("PushButton");
    engine.host().createButtonPad(std::move(pad));
}

void removeButton(Cursor& cursor, ButtonPad& pad) {
    cursor.expectWord("id");
    const int id = readInt(cursor);
    const PadButton* button = pad.button(id);
    if (!button) raiseMb(kMbCmdNotSupported, "Button " + std::to_string(id) + " not found.");
    pad.buttons.erase(pad.buttons.begin() + (button - pad.buttons.data()));
}

void alterButtonPad(Engine& engine, Cursor& cursor) {
    HostServices& host = engine.host();
    ButtonPad pad = host.buttonPad(readPadName(cursor));
    bool destroy = false;
    bool anyClause = false;
    while (!cursor.atEnd()) {
        if (cursor.acceptWord("add")) {
            auto kind = buttonKind(cursor);
            if (!kind) cursor.syntaxError("PushButton");
            for (; kind; kind = buttonKind(cursor))
                pad.buttons.push_back(readButton(cursor, *kind));
        } else if (cursor.acceptWord("remove")) {
            do {
                removeButton(cursor, pad);
            } while (cursor.acceptSymbol(","));
        } else if (cursor.acceptWord("destroy")) {
            destroy = true;
        } else if (!readPadClause(cursor, pad)) {
            cursor.syntaxError("a clause");
        }
        anyClause = true;
    }
    if (!anyClause) cursor.syntaxError("a clause");
    if (destroy)
        host.destroyButtonPad(pad.name);
    else
        host.createButtonPad(std::move(pad));
}

void alterButton(Engine& engine, Cursor& cursor) {
    cursor.expectWord("id");
    const int id = readInt(cursor);
    HostServices& host = engine.host();
    const ButtonPad* owner = nullptr;
    for (const ButtonPad& pad : host.buttonPads())
        if (pad.button(id)) owner = &pad;
    if (!owner) raiseMb(kMbCmdNotSupported, "Button " + std::to_string(id) + " not found.");
    ButtonPad pad = *owner;
    PadButton& button = *pad.button(id);
    bool any = false;
    while (!cursor.atEnd()) {
        if (!readButtonState(cursor, button))
            cursor.syntaxError("Enable, Disable, Check or Uncheck");
        any = true;
    }
    if (!any) cursor.syntaxError("Enable, Disable, Check or Uncheck");
    host.createButtonPad(std::move(pad));
}

} // namespace

void registerButtonPadLanguage(Registry& registry) {
    registry.addStatement({"create", "buttonpad"}, createButtonPad);
    registry.addStatement({"alter", "buttonpad"}, alterButtonPad);
    registry.addStatement({"alter", "button"}, alterButton);
}

} // namespace vellant::engine
