// The developer's self test over a ten-layer map on the embedded host: it reaches every cell
// without leaving lines in the log, and a second run puts every on/off setting back.

#include "../grid/grid_host.h"
#include "base/basic_text.h"
#include "grid/load_grid.h"
#include "interaction/self_test.h"

#include <gmock/gmock.h>
#include <map>
#include <string>
#include <vector>

namespace vellant::grid::testing {
namespace {

class SelfTest : public GridHost {
protected:
    static constexpr int kTenLayers = kLayers + 2;

    SelfTest() {
        for (const char* table : {"points", "lines"}) {
            run(std::string("Select * From ") + table + " Where 1 = 1 Into q" + table);
            run("Add Map Window " + Str(view) + " Layer q" + table);
        }
        // New layers come in on top; below the others they keep the fixture's numbering.
        run("Set Map Window " + Str(view) + " Order 3,4,5,6,7,8,9,10,1,2");
        session->gLayerCount = kTenLayers;
        // The typed keys reach the grid through the form's own handlers.
        form->session = session.get();
        load();
    }

    void runSelfTest() {
        interaction::selftestclick(*session);
        // The keys the test queued arrive once the event loop runs again.
        toolkit.DoEvents();
    }

    // The on/off columns as a fresh load reads them from the host: picture by row and column.
    // Label line and label zoom step through more than two states. Editable and selectable are
    // not independent: the host lets one layer of a map be editable, and an editable layer is
    // selectable, so clicking them row after row leaves the last row editable whatever came
    // before.
    std::map<std::pair<int, int>, std::string> toggles() {
        load();
        std::map<std::pair<int, int>, std::string> pictures;
        for (int c = 1; c < grid().Cols(); ++c) {
            if (session->gColType[c] != 1) continue;
            if (c == col("label line") || c == col("label zoom") || c == col("editable") ||
                c == col("selectable"))
                continue;
            for (int r = 1; r < grid().Rows(); ++r)
                pictures[{r, c}] = grid().cellAt(r, c).picture.name;
        }
        return pictures;
    }
};

TEST_F(SelfTest, ClicksEveryCellWithoutALogLineAndASecondRunRestoresEveryToggle) {
    ASSERT_EQ(info(kTenLayers, 1), "qpoints");
    ASSERT_EQ(info(kRegions, 1), "regions");
    const auto before = toggles();
    const std::string zoomBefore = info(kRegions, 5);

    runSelfTest();

    EXPECT_EQ(log(), "");
    EXPECT_EQ(session->gSelfTest, kFalse);
    const auto between = toggles();
    EXPECT_NE(between, before);
    // The zoom cells took the editor's canned text.
    EXPECT_NE(info(kRegions, 5), zoomBefore);

    runSelfTest();

    EXPECT_EQ(log(), "");
    const auto after = toggles();
    for (const auto& [cell, picture] : before)
        EXPECT_EQ(after.at(cell), picture) << "row " << cell.first << " column " << cell.second;
}

} // namespace
} // namespace vellant::grid::testing
