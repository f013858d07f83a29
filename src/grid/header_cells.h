#pragma once
// The header row: pictures and words above the columns, the fold glyphs above the header, and
// the sizes rows and columns grow to for samples.

#include "base/variant.h"

#include <cstdint>
#include <string>

namespace vellant::platform {
class Control;
}
namespace vellant::session {
struct Session;
}

namespace vellant::grid {

using session::Session;

inline constexpr int kHeaderRowHeight = 350;
inline constexpr int kPictureMargin = 50;
inline constexpr std::int32_t kHeadColumnBackColor = 0xFFFFC0;
inline constexpr int kSmallestStyleColumn = 350;

// Puts the image control's picture into row 0 of the key's column, widens the column to the
// picture and marks a group's head column. The current row is row 0 in every caller.
std::int16_t labelcolheader(Session& s, std::string& key, platform::Control& image);

// Builds the header row, shows every group's collapse glyph and sets the rows up for the load.
void labelgrid(Session& s);

// Shows a group's glyph pair in its state and places every glyph over its head column; with
// head 0 only the places are renewed.
void setcolglyph(Session& s, std::int16_t head, bool state);

// Grows a layer's row and a column for a sample when Expand_Row is checked; otherwise puts the
// row back to the default height and the column to its kept width.
void Resize_RowCol(Session& s, const Variant& layer, const Variant& column, const Variant& height,
                   const Variant& width);

} // namespace vellant::grid
