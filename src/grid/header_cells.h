#pragma once
// The header row: pictures and words above the columns.

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

// Puts the image control's picture into row 0 of the key's column, widens the column to the
// picture and marks a group's head column. The current row is row 0 in every caller.
std::int16_t labelcolheader(Session& s, std::string& key, platform::Control& image);

} // namespace vellant::grid
