#pragma once
// Making the MapX style of one layer equal to another's, property by property, and the label
// text style's share of it. The style objects themselves are never assigned: only their values.

namespace vellant::hostmodel {
class MXLayer;
class MXStyle;
} // namespace vellant::hostmodel
namespace vellant::session {
struct Session;
}

namespace vellant::styles {

using session::Session;

// Every property of the layer style, in a fixed order; an error ends the copy where it stands
// and is logged.
void copystyle(Session& s, hostmodel::MXLayer& source, hostmodel::MXLayer& target);

// The text font and its settings of a label style; an error goes to the caller.
void copyLabelTextStyle(hostmodel::MXStyle& source, hostmodel::MXStyle& target);

} // namespace vellant::styles
