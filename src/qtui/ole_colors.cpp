#include "qtui/ole_colors.h"

namespace vellant::qtui {

namespace {

QColor systemColour(std::uint32_t index, const QPalette& p) {
    switch (index) {
    case 0: // scroll bar
        return p.color(QPalette::Button);
    case 1:  // desktop
    case 12: // application workspace
        return p.color(QPalette::Dark);
    case 2:  // active caption
    case 13: // highlight
        return p.color(QPalette::Highlight);
    case 3: // inactive caption
        return p.color(QPalette::Inactive, QPalette::Highlight);
    case 4:  // menu
    case 15: // button face
        return p.color(QPalette::Button);
    case 5: // window
        return p.color(QPalette::Base);
    case 6:  // window frame
    case 21: // 3D dark shadow
        return p.color(QPalette::Shadow);
    case 7: // menu text
    case 8: // window text
        return p.color(QPalette::Text);
    case 9:  // caption text
    case 14: // highlighted text
        return p.color(QPalette::HighlightedText);
    case 10: // active border
    case 11: // inactive border
    case 22: // 3D light
        return p.color(QPalette::Midlight);
    case 16: // button shadow
        return p.color(QPalette::Mid);
    case 17: // gray text
        return p.color(QPalette::Disabled, QPalette::Text);
    case 18: // button text
        return p.color(QPalette::ButtonText);
    case 20: // button highlight
        return p.color(QPalette::Light);
    case 23: // tool-tip text
        return p.color(QPalette::ToolTipText);
    case 24: // tool-tip back
        return p.color(QPalette::ToolTipBase);
    default:
        return p.color(QPalette::Window);
    }
}

} // namespace

QColor oleColour(std::uint32_t colour, const QPalette& palette) {
    if (colour & kSystemColour) return systemColour(colour & 0xFFu, palette);
    return QColor(static_cast<int>(colour & 0xFFu), static_cast<int>((colour >> 8) & 0xFFu),
                  static_cast<int>((colour >> 16) & 0xFFu));
}

} // namespace vellant::qtui
