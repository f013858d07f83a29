#include "grid/column_catalogue.h"
#include "grid/fake_map.h"
#include "grid/header_cells.h"
#include "prefs/settings.h"
#include "support/session_fixture.h"

#include <map>
#include <vector>

namespace vellant::grid {
namespace {

class HeaderCells : public testing::SessionFixture {
protected:
    void host(bool mapInfo) {
        prefs::writeprefs(*session);
        prefs::getotherprefs(*session);
        session->gIsMapInfo = mapInfo ? -1 : 0;
        session->gColCount = mapInfo ? 38 : 39;
        session->gMap = std::make_shared<UnitOnlyMap>(Variant("m"));
        form->LyrGrid.setCols(session->gColCount);
        form->LyrGrid.setRows(3);
        setcolatts(*session);
        form->LyrGrid.setRow(0);
    }
    platform::FlexGrid& grid() { return form->LyrGrid; }
};

TEST_F(HeaderCells, PictureHeadsTheColumnAndWidensItOnlyEverOutward) {
    host(true);
    std::string key = "Label Overlap";
    labelcolheader(*session, key, form->imageControl("Labeloverlappic"));
    const int c = 21;
    grid().setCol(c);
    EXPECT_EQ(grid().CellPicture().name, "Labeloverlappic");
    EXPECT_EQ(grid().CellPictureAlignment(), 4);
    EXPECT_EQ(session->gColWidth[c], 240 + 50);
    EXPECT_EQ(grid().ColWidth(c), 290);
    EXPECT_EQ(grid().CellBackColor(), 0u); // a member, not a head

    session->gColWidth[c] = 900; // grown by cell text meanwhile
    labelcolheader(*session, key, form->imageControl("Labeloverlappic"));
    EXPECT_EQ(grid().ColWidth(c), 900);
}

TEST_F(HeaderCells, HeadColumnsGetTheHeadBackground) {
    host(false);
    std::string key = "visible";
    labelcolheader(*session, key, form->imageControl("VisiblePic"));
    grid().setRow(0);
    grid().setCol(3);
    EXPECT_EQ(grid().CellBackColor(), 0xFFFFC0u);
}

TEST_F(HeaderCells, UnfoldingALabelGroupRestoresEveryMemberForTheHost) {
    for (bool mapInfo : {false, true}) {
        host(mapInfo);
        std::int16_t head = getcolnum(*session, "label visible");
        colgroup(*session, head);
        const int first = mapInfo ? 20 : 21;
        EXPECT_EQ(grid().TextMatrix(0, first), "Field");
        if (!mapInfo) {
            EXPECT_EQ(grid().TextMatrix(0, 20), "Dataset");
        }
        const char* pictures[] = {"Labeloverlappic", "LabelDuplicatepic", "Labelpartialpic",
                                  "LabelCountPic",   "Labelorientpic",    "LabelRotatePic",
                                  "Labeloffsetpic",  "Labellinepic",      "LabelLineStylePic",
                                  "LabelZoomPic",    "LabelZoomMinPic",   "LabelZoomMaxPic"};
        for (int i = 0; i < 12; ++i) {
            grid().setRow(0);
            grid().setCol(first + 1 + i);
            EXPECT_EQ(grid().CellPicture().name, pictures[i]) << mapInfo << " " << i;
            EXPECT_EQ(grid().ColWidth(first + 1 + i), 290);
        }
        // The head itself is left alone.
        grid().setCol(19);
        EXPECT_TRUE(grid().CellPicture().empty());
    }
}

TEST_F(HeaderCells, EachGroupRestoresItsOwnMembers) {
    host(true);
    const std::map<std::string, std::vector<std::pair<int, std::string>>> groups = {
        {"visible", {{4, "ShowNodesPic"}, {5, "ShowLinesPic"}, {6, "ShowCentroidsPic"}}},
        {"editable", {{9, "FasteditPic"}, {10, "UndoPic"}}},
        {"style", {{15, "StyleOridePic"}}},
        {"zoom layer", {{17, "ZoomLayerMinPic"}, {18, "ZoomLayerMaxPic"}}},
        {"info", {{34, "FileSpecPic"}, {35, "CoordsysPic"}}},
        {"user info", {{37, "UserEvalPic"}}}};
    for (const auto& [key, members] : groups) {
        std::int16_t head = getcolnum(*session, key);
        colgroup(*session, head);
        for (const auto& [column, picture] : members) {
            grid().setRow(0);
            grid().setCol(column);
            EXPECT_EQ(grid().CellPicture().name, picture) << key;
        }
    }
    EXPECT_EQ(log(), "");
}

TEST_F(HeaderCells, AColumnThatHeadsNoGroupIsLogged) {
    host(true);
    std::int16_t column = getcolnum(*session, "order");
    colgroup(*session, column);
    EXPECT_EQ(log(), "\"unknown colgroup 1\"\r\n");
}

TEST_F(HeaderCells, AMissingImageControlEndsInALogLine) {
    host(true);
    std::string key = "visible";
    form->LyrGrid.setCols(2); // column 3 no longer exists
    labelcolheader(*session, key, form->imageControl("VisiblePic"));
    EXPECT_NE(log().find("\"Error from labelcolheader "), std::string::npos);
}

} // namespace
} // namespace vellant::grid
