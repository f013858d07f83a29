#include "grid/grid_host.h"

namespace vellant::grid::testing {
namespace {

class SetPropAndCell : public GridHost {
protected:
    void SetUp() override { load(); }
    std::string table(const char* name, int code) {
        return eval("TableInfo(\"" + std::string(name) + "\"," + std::to_string(code) + ")");
    }
};

TEST_F(SetPropAndCell, AWrittenValueReachesTheViewMapAndItsCell) {
    onLayer(kLines);
    set("Selectable", false, true);
    set("Zoom min", 25.0, true);
    EXPECT_EQ(info(kLines, 3), "F");
    EXPECT_EQ(info(kLines, 3, userMap), "T");
    EXPECT_EQ(info(kLines, 5), "25");
    EXPECT_EQ(picture(kLines, "selectable"), "Image2");
    EXPECT_EQ(text(kLines, "zoom min"), "25");
    EXPECT_EQ(grid().Col(), col("zoom min"));

    set("Autolabel", true, false); // the cell only
    EXPECT_EQ(info(kLines, 28), "F");
    EXPECT_EQ(picture(kLines, "autolabel"), "Image1");
    // The paint goes by the value's type: a boolean is a picture anywhere, a number none.
    set("table path", true, false);
    set("autolabel", 5, false);
    EXPECT_EQ(picture(kLines, "table path"), "Image1");
    EXPECT_EQ(text(kLines, "autolabel"), "");
    // Text widens its column for good.
    set("user eval", std::string(40, 'w'), false);
    set("user eval", "short", false);
    EXPECT_EQ(grid().ColWidth(col("user eval")), 40 * 85);
    EXPECT_EQ(session->gColWidth[col("user eval")], 40 * 85);
}

TEST_F(SetPropAndCell, HidingALayerGraysWhatDependsOnItAndShowingItBringsThatBack) {
    onLayer(kLines);
    set("visible", false, true);
    EXPECT_EQ(info(kLines, 9), "0");
    EXPECT_EQ(picture(kLines, "selectable"), "Image1Gray");
    EXPECT_FALSE(clickable(kLines, "editable"));
    EXPECT_TRUE(clickable(kLines, "show directions"));
    EXPECT_EQ(info(kLines, 3), "T"); // the repaint wrote nothing back
    EXPECT_EQ(session->gApplyToLayer, kTrue);
    EXPECT_EQ(grid().Col(), col("visible"));

    set("visible", true, true);
    EXPECT_EQ(picture(kLines, "selectable"), "Image1");
    EXPECT_TRUE(clickable(kLines, "selectable"));
    EXPECT_TRUE(clickable(kLines, "editable"));
}

TEST_F(SetPropAndCell, OnlyOneRowShowsAnEditableLayer) {
    onLayer(kPoints);
    set("visible", false, true);
    onLayer(kLines);
    set("editable", true, true);
    EXPECT_EQ(info(kLines, 2), "T");
    EXPECT_EQ(picture(kLines, "editable"), "Image1");
    EXPECT_EQ(picture(kRegions, "editable"), "Image2");
    EXPECT_EQ(picture(kPoints, "editable"), "Image2gray");
    EXPECT_EQ(session->gLayer, kLines);
    EXPECT_EQ(grid().Row(), row(kLines));

    onLayer(kRegions);
    set("editable", true, true, false); // without painting the other rows stay
    EXPECT_EQ(picture(kLines, "editable"), "Image1");
}

TEST_F(SetPropAndCell, TheTableStateColumnsAndTheReadOnlyCascade) {
    onLayer(kRegions);
    set("Fastedit", true, true);
    set("Undo", false, true);
    EXPECT_EQ(table("regions", 10), "T");
    EXPECT_EQ(table("regions", 11), "F");
    EXPECT_EQ(picture(kRegions, "fastedit"), "Image1");

    set("Readonly", true, true);
    EXPECT_EQ(table("regions", 6), "T");
    EXPECT_EQ(picture(kRegions, "readonly"), "Image1");
    set("Readonly", true, false); // the repaint after the change
    EXPECT_EQ(picture(kRegions, "readonly"), "Image1Gray");
    EXPECT_EQ(picture(kRegions, "editable"), "Image2gray");
    for (const char* key : {"readonly", "editable", "fastedit", "undo"})
        EXPECT_FALSE(clickable(kRegions, key)) << key;
    EXPECT_TRUE(cell(kRegions, "fastedit").picture.empty());
    EXPECT_TRUE(gray(kRegions, "undo"));
}

TEST_F(SetPropAndCell, AFailedWriteKeepsTheOldCellAndIsLogged) {
    onLayer(kLines);
    const std::string mismatch = RuntimeError(kErrTypeMismatch).description();
    set("visible", "perhaps", true);
    EXPECT_TRUE(logged("Error from setpropandcell visible " + mismatch));
    EXPECT_EQ(picture(kLines, "visible"), "Image1");

    set("label count", 2000000000, false);
    set("label count", "many", true);
    EXPECT_TRUE(logged("Error from setpropandcell label count " + mismatch));
    EXPECT_EQ(text(kLines, "label count"), "2000000000");

    set("Nonsense", "x", false);
    EXPECT_TRUE(logged("unknown cell Nonsense"));

    app->close(); // a host that refuses the switch
    set("Fastedit", true, true);
    EXPECT_EQ(picture(kLines, "fastedit"), "Image2");
    ASSERT_FALSE(toolkit.messages().empty());
    EXPECT_EQ(toolkit.messages().back().prompt.rfind("fastedit: ", 0), 0u);
}

TEST_F(SetPropAndCell, LabelCountsAndZoomsShowWhatTheUserMeans) {
    onLayer(kLines);
    set("label count", 2000000001, true); // no limit, to the user
    EXPECT_EQ(info(kLines, 32), "2000000001");
    EXPECT_EQ(text(kLines, "label count"), "");

    ASSERT_EQ(info(kLines, 25), "3"); // labels at every zoom
    set("label zoom", false, true);
    EXPECT_EQ(picture(kLines, "label zoom"), "LabelVisOnPic");
    set("label zoom", true, true);
    EXPECT_EQ(info(kLines, 25), "2");
    EXPECT_EQ(picture(kLines, "label zoom"), "LabelVisZmPic");
    // Hidden labels keep their zoom range, and the cell its picture.
    setViewLayer(kLines, "Label Visibility Off");
    set("label zoom", true, true);
    EXPECT_EQ(info(kLines, 25), "1");
    EXPECT_EQ(picture(kLines, "label zoom"), "LabelVisZmPic");
    set("label zoom", false, true);
    EXPECT_EQ(picture(kLines, "label zoom"), "Image2");
}

TEST_F(SetPropAndCell, LineLabelSettings) {
    onLayer(kRegions);
    setViewLayer(kRegions, "Label Parallel On");
    set("label rotate", true, true); // line layers only: off for the others
    EXPECT_EQ(info(kRegions, 19), "F");
    EXPECT_TRUE(gray(kRegions, "label rotate"));

    onLayer(kLines);
    set("label rotate", true, true);
    EXPECT_EQ(info(kLines, 19), "T");
    set("label line", 1, true);
    EXPECT_EQ(info(kLines, 16), "1");
    EXPECT_EQ(picture(kLines, "label line"), "Linestylelinepic");
    set("label line", 2, false);
    EXPECT_EQ(picture(kLines, "label line"), "Linestylearrowpic");
    set("label line", 0, true, false);
    EXPECT_EQ(picture(kLines, "label line"), "Linestylearrowpic");
}

} // namespace
} // namespace vellant::grid::testing
