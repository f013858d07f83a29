#pragma once
// Colours as the program's controls take them: 0x00BBGGRR, or a system colour 0x800000nn named
// by the desktop's colour index (5 the window, 8 its text, 15 a button's face, 17 gray text...),
// which is the palette's colour of that role.

#include <QColor>
#include <QPalette>
#include <cstdint>

namespace vellant::qtui {

inline constexpr std::uint32_t kSystemColour = 0x80000000u;

QColor oleColour(std::uint32_t colour, const QPalette& palette);

} // namespace vellant::qtui
