#include "engine/windows/label_position.h"

#include <array>

namespace vellant::engine {

int labelPositionCode(LabelRow row, LabelColumn column) {
    // Rows of three: above (1..3), middle (4, 0, 5), below (6..8).
    switch (row) {
    case LabelRow::Above:
        return column == LabelColumn::Left ? 1 : column == LabelColumn::Middle ? 2 : 3;
    case LabelRow::Below:
        return column == LabelColumn::Left ? 6 : column == LabelColumn::Middle ? 7 : 8;
    case LabelRow::Middle:
        break;
    }
    return column == LabelColumn::Left ? 4 : column == LabelColumn::Middle ? 0 : 5;
}

std::string labelPositionWords(int code) {
    static constexpr std::array<const char*, 9> kWords{
        "Center", "Above Left", "Above", "Above Right", "Left",
        "Right",  "Below Left", "Below", "Below Right",
    };
    if (code < 0 || code > 8) return kWords[0];
    return kWords[static_cast<std::size_t>(code)];
}

} // namespace vellant::engine
