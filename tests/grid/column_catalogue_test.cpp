#include "grid/column_catalogue.h"
#include "grid/fake_map.h"
#include "prefs/settings.h"
#include "support/session_fixture.h"

#include <map>

namespace vellant::grid {
namespace {

const std::string kHint = " [Double click header to expand/collapse group]";

class Catalogue : public testing::SessionFixture {
protected:
    void SetUp() override {
        prefs::writeprefs(*session); // an existing file keeps getotherprefs silent
        prefs::getotherprefs(*session);
    }
    void host(bool mapInfo, Variant unit = Variant(static_cast<std::int16_t>(1))) {
        session->gIsMapInfo = mapInfo ? -1 : 0;
        session->gColCount = mapInfo ? 38 : 39;
        session->gMap = std::make_shared<UnitOnlyMap>(std::move(unit));
    }
    std::int16_t col(const std::string& key) { return getcolnum(*session, key); }
};

TEST_F(Catalogue, KeysGiveTheMapXNumbersAndShiftLeftOfTheDatasetOnMapInfo) {
    const std::map<std::string, int> mapx = {{"layer", 0},
                                             {"order", 1},
                                             {"group", 2},
                                             {"visible", 3},
                                             {"show nodes", 4},
                                             {"show directions", 5},
                                             {"show centroids", 6},
                                             {"selectable", 7},
                                             {"editable", 8},
                                             {"fastedit", 9},
                                             {"undo", 10},
                                             {"readonly", 11},
                                             {"autolabel", 12},
                                             {"type", 13},
                                             {"style", 14},
                                             {"override", 15},
                                             {"zoom layer", 16},
                                             {"zoom min", 17},
                                             {"zoom max", 18},
                                             {"label properties", 19},
                                             {"label visible", 19},
                                             {"label dataset", 20},
                                             {"label field", 21},
                                             {"label overlap", 22},
                                             {"label duplicate", 23},
                                             {"label partial", 24},
                                             {"label count", 25},
                                             {"label orient", 26},
                                             {"label rotate", 27},
                                             {"label offset", 28},
                                             {"label line", 29},
                                             {"label line style", 30},
                                             {"label zoom", 31},
                                             {"label zoom min", 32},
                                             {"label zoom max", 33},
                                             {"info", 34},
                                             {"table path", 35},
                                             {"coordsys", 36},
                                             {"user info", 37},
                                             {"user eval", 38}};
    ASSERT_EQ(mapx.size(), 40u);
    host(false);
    for (const auto& [key, number] : mapx)
        EXPECT_EQ(col(key), number) << key;
    host(true);
    for (const auto& [key, number] : mapx) {
        const int expected = key == "label dataset" ? -1 : number >= 21 ? number - 1 : number;
        EXPECT_EQ(col(key), expected) << key;
    }
    EXPECT_EQ(log(), "");
}

TEST_F(Catalogue, KeysMatchInAnyLetterCaseAndRecordTheLastSpelling) {
    host(true);
    EXPECT_EQ(col("Table Path"), 34);
    EXPECT_EQ(col("Coordsys"), 35);
    EXPECT_EQ(col("Info"), 33);
    EXPECT_EQ(col("Type"), 13);
    EXPECT_EQ(col("Label Properties"), 19);
    EXPECT_EQ(session->gColKey[19], "label properties");
    EXPECT_EQ(col("LABEL VISIBLE"), 19);
    EXPECT_EQ(session->gColKey[19], "label visible");
    EXPECT_EQ(session->gColKey[34], "table path");

    session->gColKey[0] = "untouched";
    EXPECT_EQ(col("Layer"), 0);
    EXPECT_EQ(session->gColKey[0], "untouched");
    EXPECT_EQ(session->gColKey[20], ""); // nobody asked for "label field" yet
}

TEST_F(Catalogue, UnknownKeysGiveColumnZeroAfterOneLogLine) {
    host(false);
    session->gColKey[0] = "untouched";
    EXPECT_EQ(col("Label Colour"), 0);
    EXPECT_EQ(session->gColKey[0], "untouched");
    EXPECT_EQ(log(), "\"Unknown column name label colour\"\r\n");
}

TEST_F(Catalogue, DatasetIsSilentlyMissingOnMapInfoAndColumnsBeyondTheCountAreLogged) {
    host(true);
    EXPECT_EQ(col("label dataset"), -1);
    EXPECT_EQ(log(), "");
    session->gColCount = 20;
    EXPECT_EQ(col("user eval"), 37);
    EXPECT_EQ(session->gColKey[37], "user eval");
    EXPECT_EQ(log(), "\"Max columns exceeded\"\r\n");
}

TEST_F(Catalogue, AttributesFollowTheHost) {
    for (bool mapInfo : {false, true}) {
        host(mapInfo);
        setcolatts(*session);
        const int shift = mapInfo ? 1 : 0;
        EXPECT_EQ(session->gColType[0], 32);
        EXPECT_EQ(session->gColType[2], 1032);
        EXPECT_EQ(session->gColType[13], 1040);
        EXPECT_EQ(session->gColType[14], 2);
        EXPECT_EQ(session->gColType[15], 17);
        EXPECT_EQ(session->gColType[19], 129);
        EXPECT_EQ(session->gColType[21 - shift], 1056);
        EXPECT_EQ(session->gColType[34 - shift], 20);
        EXPECT_EQ(session->gColType[37 - shift], 32);
        EXPECT_EQ(session->gColType[38 - shift], 24);
        if (!mapInfo) {
            EXPECT_EQ(session->gColType[20], 1072);
        }

        // Heads are found by key, so they follow the host.
        EXPECT_EQ(session->gColGroup[13], 14);
        EXPECT_EQ(session->gColGroup[14], 14);
        EXPECT_EQ(session->gColGroup[21 - shift], 19);
        EXPECT_EQ(session->gColGroup[35 - shift], 34 - shift);
        EXPECT_EQ(session->gColGroup[38 - shift], 37 - shift);
        EXPECT_EQ(session->gColGroup[7], 0);
        EXPECT_EQ(session->gColGroup[12], 0);

        std::map<int, int> glyphs;
        for (int c = 0; c <= 38; ++c)
            if (session->gColGroupPic[c]) glyphs[c] = session->gColGroupPic[c];
        EXPECT_EQ(
            glyphs,
            (std::map<int, int>{
                {3, 1}, {8, 2}, {14, 3}, {16, 4}, {19, 5}, {34 - shift, 6}, {37 - shift, 7}}));
    }
}

TEST_F(Catalogue, ToolTipsCarryTheGroupHintAndTheMapUnit) {
    host(false, Variant(static_cast<std::int16_t>(1)));
    setcolatts(*session);
    EXPECT_EQ(session->gColTip[3], "Layer visibile? " + kHint);
    EXPECT_EQ(session->gColTip[8], "Editable " + kHint);
    EXPECT_EQ(session->gColTip[16], "Zoom layer?" + kHint);
    EXPECT_EQ(session->gColTip[19], "Label Style" + kHint);
    EXPECT_EQ(session->gColTip[34], "Feature count " + kHint);
    EXPECT_EQ(session->gColTip[37], "Pick from layer or table attribute");
    EXPECT_EQ(session->gColTip[17], "Minimum zoom (Kilometer)");
    EXPECT_EQ(session->gColTip[33], "Label maximum zoom (Kilometer)");
    EXPECT_EQ(session->gColTip[20], "Label data set");

    host(true, Variant("mi"));
    setcolatts(*session);
    EXPECT_EQ(session->gColTip[18], "Maximum zoom (mi)");
    EXPECT_EQ(session->gColTip[31], "Label minimum zoom (mi)");
    EXPECT_EQ(session->gColTip[20], "Label expression");
    EXPECT_EQ(session->gColTip[10], "Undo - Warning: table edits become permanent ");
}

TEST_F(Catalogue, SetcolattsClearsOneColumnPastTheLast) {
    host(true);
    session->gColGroup[38] = 5;
    session->gColGroupPic[38] = 5;
    session->gColTip[38] = "stale";
    session->gColTip[39] = "beyond";
    setcolatts(*session);
    EXPECT_EQ(session->gColGroup[38], 0);
    EXPECT_EQ(session->gColGroupPic[38], 0);
    EXPECT_EQ(session->gColTip[38], "");
    EXPECT_EQ(session->gColTip[39], "beyond");
}

TEST_F(Catalogue, WithoutAMapTheRowsBeforeTheFirstZoomTipStand) {
    host(false);
    session->gMap.reset();
    setcolatts(*session);
    EXPECT_EQ(session->gColTip[16], "Zoom layer?" + kHint);
    EXPECT_EQ(session->gColTip[17], "");
    EXPECT_EQ(session->gColType[17], 4); // the type is written before the tip fails
    EXPECT_EQ(session->gColGroup[17], 0);
    EXPECT_EQ(log(),
              "\"Error from setcolatts Object variable or With block variable not set\"\r\n");
}

TEST(UnitText, NamesUnitCodesAndPassesTextThrough) {
    EXPECT_EQ(unittext(Variant(static_cast<std::int16_t>(0))), "Mile");
    EXPECT_EQ(unittext(Variant(static_cast<std::int16_t>(7))), "Meter");
    EXPECT_EQ(unittext(Variant(static_cast<std::int16_t>(13))), "Degree");
    EXPECT_EQ(unittext(Variant(static_cast<std::int16_t>(14))), "Unknown");
    EXPECT_EQ(unittext(Variant(static_cast<std::int32_t>(30))), "Link");
    EXPECT_EQ(unittext(Variant(32.0)), "Rod");
    EXPECT_EQ(unittext(Variant(7.5)), "Unknown");
    EXPECT_EQ(unittext(Variant("m")), "m");
    EXPECT_EQ(unittext(Variant(" 9")), "NauticalMile");
}

} // namespace
} // namespace vellant::grid
