// Moving a layer of the view map on the embedded host: the one "Order" command that gives the
// whole new order, the moves that are refused, and a failure that goes to the log.

#include "../grid/grid_host.h"
#include "base/basic_text.h"
#include "mapchanges/layer_moves.h"
#include "session/recording_mapinfo.h"

#include <string>
#include <vector>

namespace vellant::grid::testing {
namespace {

constexpr int kNameCode = 1; // LayerInfo: the layer's name

class LayerMoves : public GridHost {
protected:
    LayerMoves() { session->gMapInfo = recorder; }

    bool move(int from, int to) {
        return mapchanges::MoveLayers(*session, static_cast<std::int16_t>(from),
                                      static_cast<std::int16_t>(to));
    }
    std::vector<std::string> orders() const {
        return recorder->callsStartingWith("do Set Map Window " + Str(view) + " Order ");
    }
    std::string names() {
        std::string all;
        for (int layer = 1; layer <= kLayers; ++layer)
            all += (layer > 1 ? "," : "") + info(layer, kNameCode);
        return all;
    }

    std::shared_ptr<vellant::testing::RecordingMapInfo> recorder =
        std::make_shared<vellant::testing::RecordingMapInfo>(app);
};

TEST_F(LayerMoves, UpwardAndDownwardMovesSendTheWholeOrderAndTheHostFollows) {
    ASSERT_TRUE(move(kPoints, kRaster));
    EXPECT_EQ(names(), "qregions,points,raster,regions,lines,text,mixed,scratch");
    ASSERT_TRUE(move(kRaster, kText));
    EXPECT_EQ(names(), "qregions,raster,regions,lines,text,points,mixed,scratch");
    EXPECT_EQ(orders(), (std::vector<std::string>{
                            "do Set Map Window " + Str(view) + " Order 1,5,2,3,4,6,7,8",
                            "do Set Map Window " + Str(view) + " Order 1,3,4,5,6,2,7,8",
                        }));
    EXPECT_EQ(log(), "");
}

TEST_F(LayerMoves, AMoveOntoItselfOrFromOrToBelowOneIsRefusedWithoutAWord) {
    const std::string before = names();
    EXPECT_FALSE(move(3, 3));
    EXPECT_FALSE(move(0, 2));
    EXPECT_FALSE(move(2, 0));
    EXPECT_FALSE(move(-1, 2));
    EXPECT_TRUE(orders().empty());
    EXPECT_EQ(names(), before);
    EXPECT_EQ(log(), "");
}

TEST_F(LayerMoves, APlaceBeyondTheLastLayerIsLoggedAndNothingIsSent) {
    EXPECT_FALSE(move(kRaster, kLayers + 1));
    EXPECT_TRUE(orders().empty());
    EXPECT_TRUE(logged("Error from MoveLayers: Subscript out of range")) << log();
}

} // namespace
} // namespace vellant::grid::testing
