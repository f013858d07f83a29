#pragma once
// The inside of setpropandcell: the cell at hand, the ways a column rule can end, and the rules
// themselves, split between the layer's own columns and the label columns.

#include "base/int16.h"
#include "base/variant.h"

#include <optional>
#include <string>

namespace vellant::platform {
class FlexGrid;
}
namespace vellant::session {
struct Session;
}

namespace vellant::grid {

using session::Session;

// The cell one call of setpropandcell works on.
struct CellAtHand {
    Session& s;
    platform::FlexGrid& grid;
    std::string key; // lower case
    const Variant& value;
    std::string text; // the value as text, for numbers and strings; a rule may change it
    int row;
    int col;
    bool& paint;
};

enum class RuleEnd {
    Paint, // on to the paint step
    Leave, // the rule has painted what it needs, or nothing is to be painted
};

// Each answers nothing when the key is not one of its columns.
std::optional<RuleEnd> layerColumnRule(CellAtHand& cell);
std::optional<RuleEnd> labelColumnRule(CellAtHand& cell);

// The endings the rules share.
RuleEnd gray(CellAtHand& cell);
RuleEnd grayBlank(CellAtHand& cell);
// Shows what the layer holds, in gray, and takes the click away; the background stays.
RuleEnd grayPicture(CellAtHand& cell, bool stored);
void white(CellAtHand& cell);

// A value as the 16-bit flag a layer property takes: a boolean as -1 or 0, a number as it is.
Flag flagOf(const Variant& value);

} // namespace vellant::grid
