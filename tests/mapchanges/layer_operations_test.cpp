// The popup's layer operations on the embedded host: what each sends to the view map, what the
// grid shows afterwards, and the selections and maps they refuse.

#include "../grid/grid_host.h"
#include "base/basic_text.h"
#include "grid/layer_rows.h"
#include "mapchanges/layer_journal.h"
#include "mapchanges/layer_operations.h"
#include "session/recording_mapinfo.h"

#include <gmock/gmock.h>
#include <string>
#include <vector>

namespace vellant::grid::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr int kNameCode = 1; // LayerInfo: the layer's name

class LayerOperations : public GridHost {
protected:
    LayerOperations() {
        session->gMapInfo = recorder;
        load();
    }

    // Whole rows from the first layer's row to the second's, as a drag down the first column
    // leaves the grid.
    void selectLayers(int anchor, int other) {
        grid().setRow(row(anchor));
        grid().setRowSel(row(other));
    }
    std::vector<std::string> sent(const std::string& prefix) const {
        return recorder->callsStartingWith("do " + prefix);
    }
    std::string names() {
        std::string all;
        const int count = std::stoi(eval("Mapperinfo(" + Str(view) + ",9)"));
        for (int layer = 1; layer <= count; ++layer)
            all += (layer > 1 ? "," : "") + info(layer, kNameCode);
        return all;
    }
    std::string v() const { return Str(view); }
    std::vector<std::string> messages() const {
        std::vector<std::string> prompts;
        for (const auto& message : toolkit.messages())
            prompts.push_back(message.prompt);
        return prompts;
    }

    std::shared_ptr<vellant::testing::RecordingMapInfo> recorder =
        std::make_shared<vellant::testing::RecordingMapInfo>(app);
};

TEST_F(LayerOperations, OneRowOrADownwardRangeLeavesTheViewInOneStatementAndTheGridFollows) {
    session->gLayerGroup[6] = " g";
    selectLayers(kRegions, kRegions);
    mapchanges::removelayerclick(*session);
    selectLayers(kRaster, kLines); // now raster, lines and points
    mapchanges::removelayerclick(*session);

    EXPECT_THAT(sent("Remove map window"),
                ElementsAre("do Remove map window " + v() + " layer  3",
                            "do Remove map window " + v() + " layer  2, 3, 4"));
    EXPECT_EQ(names(), "qregions,text,mixed,scratch");
    EXPECT_EQ(session->gLayerCount, 4);
    EXPECT_EQ(grid().Rows(), row(4) + 1);
    EXPECT_EQ(grid().TextMatrix(row(2), 0), "text");
    // Any removal dissolves every group.
    EXPECT_EQ(session->gLayerGroup[6], "");
    // The user's map is another window and keeps all its layers.
    EXPECT_EQ(eval("Mapperinfo(" + Str(userMap) + ",9)"), "8");
    EXPECT_EQ(log(), "");
}

TEST_F(LayerOperations, TheCosmeticRowAndTheLastLayerAreNotRemoved) {
    grid().setRow(row(0));
    grid().setRowSel(row(3));
    mapchanges::removelayerclick(*session);
    EXPECT_THAT(messages(), IsEmpty());

    // A map of one layer: the user is told to close the map instead.
    session->gLayerCount = 1;
    selectLayers(1, 1);
    mapchanges::removelayerclick(*session);
    EXPECT_THAT(messages(), ElementsAre("Close map to remove last layer"));

    EXPECT_THAT(sent("Remove"), IsEmpty());
    EXPECT_EQ(eval("Mapperinfo(" + v() + ",9)"), "8");
}

// The walk's length is RowSel - Row + 1, which is the number of rows only downwards.
TEST_F(LayerOperations, AnUpwardSelectionWalksByTheFormulaNotByItsRows) {
    selectLayers(kLines, kRegions); // one row up: a length of 0
    mapchanges::removelayerclick(*session);
    EXPECT_TRUE(logged("Error from removelayerclick 1 Overflow")) << log();
    EXPECT_THAT(sent("Remove"), IsEmpty());

    selectLayers(kPoints, kRegions); // two rows up: three layers go, the count falls by one
    mapchanges::removelayerclick(*session);
    EXPECT_THAT(sent("Remove"), ElementsAre("do Remove map window " + v() + " layer  5, 4, 3"));
    EXPECT_EQ(names(), "qregions,raster,text,mixed,scratch");
    EXPECT_EQ(session->gLayerCount, 7);
}

TEST_F(LayerOperations, ViewEntireZoomsToOneLayerOrCentresOnARangesBounds) {
    selectLayers(kScratch, kScratch);
    mapchanges::viewentireclick(*session);
    // The range of points, text and mixed: x -10..10, y -5..9.
    selectLayers(kPoints, kMixed);
    mapchanges::viewentireclick(*session);

    const float degree = static_cast<float>(Val(eval("Distance(150, -33, 151, -33, \"km\")")));
    EXPECT_THAT(sent("Set map window"),
                ElementsAre("do Set map window " + v() + " zoom entire layer  8",
                            "do Set map window " + v() + " center ( 0, 2) zoom " +
                                Str(degree * 20.0F) + " units \"km\""));
    EXPECT_EQ(eval("Mapperinfo(" + v() + ",3)"), "0");
    EXPECT_EQ(eval("Mapperinfo(" + v() + ",4)"), "2");
    EXPECT_EQ(sent("Set Map Window " + v() + " redraw on").size(), 2U);
    EXPECT_EQ(log(), "");
}

TEST_F(LayerOperations, ARangeWithoutObjectsIsToldAndLeavesTheViewAlone) {
    const std::string zoom = eval("Mapperinfo(" + v() + ",1)");
    // The cosmetic row alone counts as a range of layer 0, which holds nothing here.
    selectLayers(0, 0);
    mapchanges::viewentireclick(*session);
    EXPECT_THAT(messages(), ElementsAre("No objects in layers"));
    EXPECT_THAT(sent("Set map window"), IsEmpty());
    EXPECT_EQ(eval("Mapperinfo(" + v() + ",1)"), zoom);
}

TEST_F(LayerOperations, TheJournalTakesTwoHundredEntriesAndCountsTheOneThatFails) {
    for (int i = 0; i < mapchanges::kLayerOpCapacity; ++i)
        mapchanges::journalLayerOp(*session, "move", 1, 2);
    try {
        mapchanges::journalLayerOp(*session, "add", 3, 0, "more.tab");
        ADD_FAILURE() << "the 201st entry was taken";
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.number(), kErrSubscript);
    }
    EXPECT_EQ(session->gLayerOpCount, 201);
    EXPECT_EQ(session->gLayerOpKind[199], "move");
}

} // namespace
} // namespace vellant::grid::testing
