#pragma once
// The label style cell: a click shows or hides a layer's labels and, when it shows them, lets
// the user pick their font in the host's text style dialog; the sample follows with the pick.

#include <cstdint>

namespace vellant::hostmodel {
class ILabelProps;
}
namespace vellant::session {
struct Session;
}

namespace vellant::styles {

using session::Session;

// Works in the column "label properties" of the current row. With toggle, turns the labels'
// visibility over; hidden labels show the off picture, and labels just shown ask the companion
// for the text style dialog (the MapInfo host), whose pick draws the cell later.
void setlabelprops(Session& s, hostmodel::ILabelProps& labelProps, std::int16_t& row, bool& toggle);

} // namespace vellant::styles
