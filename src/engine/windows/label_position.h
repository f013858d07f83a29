#pragma once
// Label anchor positions: the codes of LayerInfo(..., 20) and the Set Map words for them.
// "Position" takes Center, one of Above/Below and one of Left/Right in any order and
// combination ("Center Right" is Right, "Above Left" is code 1).

#include <string>

namespace vellant::engine {

enum class LabelRow { Middle, Above, Below };
enum class LabelColumn { Middle, Left, Right };

// 0 centre, 1 above left, 2 above, 3 above right, 4 left, 5 right, 6 below left, 7 below,
// 8 below right.
int labelPositionCode(LabelRow row, LabelColumn column);

// The words the host writes for a code ("Center", "Above Left", "Below"); "Center" for a code
// outside 0..8.
std::string labelPositionWords(int code);

} // namespace vellant::engine
