#pragma once
// A loaded grid whose session is attached as Form_Load leaves it for style work: the companion
// "vellant.mbx" runs, the program's call-back and its button pad are in place, and the host is
// reached through a recorder. The companion's style dialogs are answered by the test, which is
// the user's side of a pick; the answer comes back through the companion's button, as it does
// on the desktop.

#include "../session/recording_mapinfo.h"
#include "base/bmp.h"
#include "interaction/clicking_grid.h"

#include <optional>
#include <string>

namespace vellant::engine {
class Companion;
struct StyleDialogRequest;
} // namespace vellant::engine

namespace vellant::grid::testing {

inline constexpr std::uint32_t kRed = 0xFF0000;
inline constexpr std::uint32_t kGreen = 0x00FF00;
inline constexpr std::uint32_t kBlue = 0x0000FF;
inline constexpr const char* kRedBrush = "Brush (2,16711680,16777215)";

class StyleGrid : public ClickingGrid {
protected:
    StyleGrid();

    engine::Companion& companion();
    // The dialog the last click asked for; fails the test when there is none.
    engine::StyleDialogRequest takeDialog();
    // The user closes the dialog with a style, or cancels it.
    void answerDialog(const std::optional<std::string>& clause);

    // The picture a cell shows, as a bitmap; fails the test when the cell has none.
    Bitmap bitmap(int layer, const std::string& key);
    // Pixels of that colour, give or take the smoothing of edges.
    static int pixelsNear(const Bitmap& picture, std::uint32_t rgb);
    // The BMPs left in the temporary folder.
    int samplesLeft() const;
    // The layer's display mode in the view: 1 graphic, 2 in one global style.
    int display(int layer) { return std::stoi(info(layer, 9)); }

    std::shared_ptr<vellant::testing::RecordingMapInfo> recorder;
};

} // namespace vellant::grid::testing
