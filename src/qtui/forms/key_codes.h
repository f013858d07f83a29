#pragma once
// Keys as the program's controls receive them: KeyDown's key codes (the desktop's virtual-key
// numbers: 13 Enter, 27 Esc, 65 for A...) and KeyPress's characters (one byte; Enter 13,
// Esc 27, Backspace 8).

#include <QKeyEvent>

namespace vellant::qtui {

// 0 for a key the program has no code for.
int keyCodeOf(const QKeyEvent& event);
// 0 for a key that types no character.
int keyAsciiOf(const QKeyEvent& event);
// The shift state of a key or mouse event: 1 Shift, 2 Ctrl, 4 Alt.
int shiftStateOf(Qt::KeyboardModifiers modifiers);

} // namespace vellant::qtui
