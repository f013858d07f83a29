#pragma once
// Style samples on the MapInfo host. The program keeps a scratch table vlStyle, mapped in a
// small window of its own under the form's hidden picture box; a sample is one object of the
// style's kind put into that table, drawn with the style as the layer's global display, and
// saved as a BMP in the temporary folder, which the grid's cells then load. The window is made
// at the first sample of a load or a click and closed at its end; the tables and the object
// variable tobj live from Form_Load to shutdown. vlBounds, the scratch table of the map
// panel's bounds rectangles, is made with them.

#include <cstdint>
#include <string>

namespace vellant::session {
struct Session;
}

namespace vellant::styles {

using session::Session;

// The scratch tables in the application directory and the variable tobj. A refusal (a table
// left open by an earlier session) is logged and the next statement runs.
void initstylewin(Session& s);

// Makes the window of samples when there is none; the MapInfo host only.
void AddStyletoMap(Session& s);

// Draws a sample of the style: kind 0 region, 1 line, 2 symbol, 5 text (a Font clause, in a
// square window `size` millimetres a side). Leaves the BMP's path in gSampleFile; an empty
// style draws nothing.
void exportfeaturesample(Session& s, std::int16_t kind, const std::string& style,
                         std::int16_t size);

// Closes the window of samples, if one is open.
void closestylewin(Session& s);

// Ends the scratch objects at shutdown: vlStyle through the companion, then tobj, then the
// window. vlBounds stays.
void dropstyletable(Session& s);

} // namespace vellant::styles
