#pragma once
// The three looks inside a MapBasic style clause the program ever takes: a Pen renamed Line for
// the global line of a layer, and the size of a font or a symbol, which decides how large a
// sample's cell grows. Sizes are read by position, comma by comma, not by syntax: a clause
// that lacks fields gives a size of 0 or one read from the wrong place, and no error.

#include <cstdint>
#include <string>

namespace vellant::session {
struct Session;
}

namespace vellant::styles {

using session::Session;

// "Pen (1,2,0)" becomes "Line (1,2,0)"; anything not starting with "Pen", in that letter case,
// stays. The rest keeps at most 100 characters.
void pentoline(std::string& style);

// The point size of a Font clause of four or five fields; 7 for an empty text or one without
// "(". A failure logs "Error parsefont ..." with the positions reached and answers 0.
std::int16_t parsefont(Session& s, const std::string& style);

// The size, the third field, of a Symbol clause of three, four or six fields; 12 for an empty
// text. A failure logs "Error from parsesymbol ..." and answers 12.
std::int16_t parsesymbol(Session& s, std::string& style);

} // namespace vellant::styles
