// The cell editor over a loaded grid on the embedded host, opened as a click opens it: what it
// hands back in gCellText for each key, which cells it refuses, where it stands, what its list
// offers, and the pick in the column "user info" that writes the expression and its value.

#include "../grid/grid_host.h"
#include "base/basic_text.h"
#include "base/runtime_error.h"
#include "grid/column_catalogue.h"
#include "interaction/edit_cell.h"
#include "platform/form.h"
#include "platform/toolkit.h"

#include <algorithm>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace vellant::grid::testing {
namespace {

constexpr int kTab = 9;
constexpr int kEnter = 13;
constexpr int kEscape = 27;

class CellEditor : public GridHost {
protected:
    CellEditor() { load(); }

    interaction::EditCell& editor() { return interaction::editCellForm(*session); }

    // The cell as the click prepares it: the row's layer and type, the column, the start text.
    void prepare(int layer, const std::string& key, const std::string& startText) {
        onLayer(layer);
        session->gRow = layer;
        session->gCol = col(key);
        grid().setCol(col(key));
        session->gCellText = startText;
    }

    // Shows the editor modally with the steps already queued, then unloads it as every caller
    // does; answers the error number of the Show, 0 when it opened.
    int show() {
        int error = 0;
        try {
            editor().Show(platform::vbModal, form.get());
        } catch (const RuntimeError& e) {
            error = e.number();
        }
        editor().Unload();
        return error;
    }
    // The same with the user's action inside.
    int open(std::function<void()> action) {
        toolkit.addStep(std::move(action));
        return show();
    }

    int openAndList(std::vector<std::string>& items) {
        return open([&] {
            items = editor().EditList.items();
            editor().EditList_KeyDown(kEscape);
        });
    }
};

TEST_F(CellEditor, TabAndEnterHandBackTheTypedTextAndEscTheStartingText) {
    for (int key : {kTab, kEnter}) {
        prepare(kRegions, "zoom max", "7500");
        ASSERT_EQ(open([&] {
                      EXPECT_TRUE(editor().ecell.Visible());
                      EXPECT_FALSE(editor().EditList.Visible());
                      EXPECT_EQ(editor().ecell.Text(), "7500");
                      EXPECT_EQ(editor().ecellSelStart(), 1);
                      editor().ecell.setText("1234");
                      editor().ecell_KeyDown(key);
                  }),
                  0);
        EXPECT_EQ(session->gCellText, "1234") << "key " << key;
    }

    prepare(kRegions, "group", "xOld");
    open([&] {
        editor().ecell.setText("something else");
        editor().ecell_KeyDown(kEscape);
    });
    EXPECT_EQ(session->gCellText, "xOld");

    prepare(kRegions, "group", "Old");
    open([&] {
        editor().ecell.setText("");
        editor().ecell_KeyDown(kEnter);
    });
    EXPECT_EQ(session->gCellText, "");
}

TEST_F(CellEditor, OtherKeysLeaveTheEditorOpen) {
    prepare(kLines, "label count", "5");
    toolkit.addStep([&] { editor().ecell_KeyDown('7'); });
    toolkit.addStep([&] {
        editor().ecell.setText("57");
        editor().ecell_KeyDown(kEnter);
    });
    ASSERT_EQ(show(), 0);
    EXPECT_EQ(toolkit.modalShows().back().stepsRun, 2u);
    EXPECT_FALSE(toolkit.modalShows().back().endedByToolkit);
    EXPECT_EQ(session->gCellText, "57");
}

TEST_F(CellEditor, ARasterLayerOpensOnlyItsZoomRangeAndUserExpression) {
    onLayer(kRaster);
    ASSERT_NE(session->gLayerType, 0);
    for (const char* key : {"group", "label count", "label field"}) {
        prepare(kRaster, key, "as it was");
        EXPECT_EQ(show(), platform::kErrObjectUnloaded) << key;
        EXPECT_EQ(session->gCellText, "as it was") << key;
    }
    EXPECT_TRUE(toolkit.modalShows().empty());

    for (const char* key : {"zoom min", "zoom max", "user info"}) {
        prepare(kRaster, key, "");
        EXPECT_EQ(open([&] { editor().ecell_KeyDown(kEscape); }), 0) << key;
    }
    EXPECT_EQ(toolkit.modalShows().size(), 3u);
}

TEST_F(CellEditor, AColumnOutsideTheGridIsRefused) {
    prepare(kRegions, "zoom max", "9");
    session->gCol = grid().Cols();
    EXPECT_EQ(show(), platform::kErrObjectUnloaded);
    session->gCol = -1;
    EXPECT_EQ(show(), platform::kErrObjectUnloaded);
    EXPECT_EQ(session->gCellText, "9");
}

TEST_F(CellEditor, StandsTopmostOverTheCellInGreenWithTheCellsSize) {
    form->setLeft(1000);
    form->setTop(2000);
    grid().setLeft(60);
    grid().setTop(420);
    grid().setRowHeight(row(kPoints), 151);
    prepare(kPoints, "zoom min", "");
    open([&] {
        EXPECT_TRUE(toolkit.isTopmost(editor().hWnd()));
        editor().ecell_KeyDown(kEscape);
    });
    EXPECT_EQ(editor().Left(), 1000 + 60 + grid().ColPos(col("zoom min")) + 100);
    // Half of the odd row height rounds to the even twip.
    EXPECT_EQ(editor().Top(), 2000 + 420 + grid().RowPos(row(kPoints)) + 76);
    EXPECT_EQ(editor().Width(), grid().ColWidth(col("zoom min")));
    EXPECT_EQ(editor().Height(), 200);
    EXPECT_EQ(editor().ecell.Width(), editor().Width());
    EXPECT_EQ(editor().ecell.Height(), 200);
    EXPECT_EQ(editor().ecell.BackColor(), 0xC0FFC0u);

    grid().setRowHeight(row(kPoints), 400);
    prepare(kPoints, "label field", "Name");
    open([&] { editor().EditList_KeyDown(kEscape); });
    EXPECT_EQ(editor().Height(), 400);
    EXPECT_EQ(editor().EditList.Width(), editor().Width());
    EXPECT_EQ(editor().EditList.Height(), 315);
    EXPECT_EQ(editor().EditList.BackColor(), 0xC0FFC0u);
}

TEST_F(CellEditor, LabelFieldOffersTheFieldsAndKeepsAnExpressionLast) {
    std::vector<std::string> items;
    prepare(kLines, "label field", " NAME");
    session->gLayer = kRegions;
    ASSERT_EQ(openAndList(items), 0);
    EXPECT_EQ(items, (std::vector<std::string>{"Name", "Value"}));
    EXPECT_EQ(session->gLayer, kLines);

    prepare(kLines, "label field", "Name + \" m\"");
    openAndList(items);
    EXPECT_EQ(items, (std::vector<std::string>{"Name", "Value", "Name + \" m\""}));

    // A pick and a typed value both come back.
    open([&] { editor().EditList.pick(1); });
    EXPECT_EQ(session->gCellText, "Value");
    open([&] {
        EXPECT_TRUE(editor().EditList.Visible());
        editor().EditList.type("Value * 2");
        editor().EditList_KeyDown(kEnter);
    });
    EXPECT_EQ(session->gCellText, "Value * 2");
}

TEST_F(CellEditor, TheLayerListOffersTheMappableTables) {
    run("Create Table plain (a Integer) File \"" + dir.file("plain.tab") + "\"");
    std::vector<std::string> items;
    prepare(kRegions, "layer", "");
    ASSERT_EQ(openAndList(items), 0);
    // The form's own scratch tables are mappable open tables like any other.
    EXPECT_EQ(items,
              (std::vector<std::string>{"regions", "lines", "points", "text", "mixed", "raster",
                                        "scratch", "qregions", "vlStyle", "vlBounds"}));

    open([&] { editor().EditList.pick(2); });
    EXPECT_EQ(session->gCellText, "points");
}

TEST_F(CellEditor, UserInfoOffersTheKeywordsAfreshAtEveryOpening) {
    std::vector<std::string> items;
    prepare(kText, "user info", "");
    ASSERT_EQ(openAndList(items), 0);
    openAndList(items);
    ASSERT_EQ(items.size(), 86u);
    EXPECT_EQ(items.front(), "TAB_INFO_NAME");
    EXPECT_EQ(items[31], "LAYER_INFO_NAME");
    EXPECT_EQ(items[64], "MAPPER_INFO_ZOOM");
    EXPECT_EQ(items.back(), "MAPPER_INFO_COORDSYS_CLAUSE_WITH_BOUNDS");
}

class UserInfoPick : public CellEditor {
protected:
    // Picks a keyword by name in the column "user info" of a layer.
    void pick(int layer, const std::string& keyword) {
        prepare(layer, "user info", "");
        ASSERT_EQ(open([&] {
                      const auto& items = editor().EditList.items();
                      const auto at = std::find(items.begin(), items.end(), keyword);
                      ASSERT_NE(at, items.end());
                      editor().EditList.pick(static_cast<int>(at - items.begin()));
                  }),
                  0);
        EXPECT_FALSE(editor().Visible());
    }
    std::string expression(int layer) { return text(layer, "user info"); }
    std::string value(int layer) { return grid().TextMatrix(row(layer), col("user info") + 1); }
};

TEST_F(UserInfoPick, ATableKeywordWritesTheExpressionAndItsValue) {
    ASSERT_EQ(col("user eval"), col("user info") + 1);
    pick(kLines, "TAB_INFO_NAME");
    EXPECT_EQ(session->gCellText, "TableInfo(%LAYERNAME%, 1)");
    EXPECT_EQ(expression(kLines), "TableInfo(%LAYERNAME%, 1)");
    EXPECT_EQ(value(kLines), "lines");
    EXPECT_EQ(expression(kPoints), "");

    pick(kPoints, "TAB_INFO_NCOLS");
    EXPECT_EQ(expression(kPoints), "TableInfo(%LAYERNAME%, 4)");
    EXPECT_EQ(value(kPoints), "2");
}

TEST_F(UserInfoPick, LayerAndMapperKeywordsAskTheMatchingCodeOfTheView) {
    pick(kLines, "LAYER_INFO_LBL_POS");
    EXPECT_EQ(expression(kLines), "LayerInfo(%MAPID%,%LAYERNUM%, 20)");
    EXPECT_EQ(value(kLines), info(kLines, 20));

    pick(kRaster, "LAYER_INFO_TYPE");
    EXPECT_EQ(expression(kRaster), "LayerInfo(%MAPID%,%LAYERNUM%, 24)");
    EXPECT_EQ(value(kRaster), info(kRaster, 24));
    EXPECT_NE(value(kRaster), info(kLines, 24));

    pick(kRegions, "MAPPER_INFO_DISTUNITS");
    EXPECT_EQ(expression(kRegions), "MapperInfo(%MAPID%, 12)");
    EXPECT_EQ(value(kRegions), eval("MapperInfo(" + Str(view) + ",12)"));
    EXPECT_EQ(log().find("From runfunction"), std::string::npos) << log();
}

TEST_F(CellEditor, TheSelfTestPutsTwentyThreeInATextCellAndLeavesAListCell) {
    session->gSelfTest = kTrue;
    prepare(kRegions, "zoom max", "100");
    EXPECT_EQ(show(), platform::kErrObjectUnloaded);
    EXPECT_EQ(session->gCellText, "23");

    prepare(kRegions, "label field", "Name");
    session->gLayer = kLines;
    EXPECT_EQ(show(), platform::kErrObjectUnloaded);
    EXPECT_EQ(session->gCellText, "Name");
    EXPECT_EQ(session->gLayer, kRegions);
    EXPECT_TRUE(toolkit.modalShows().empty());
}

TEST_F(CellEditor, OnMapXTheUserExpressionLayerAndDatasetColumnsAreRefused) {
    session->gIsMapInfo = kFalse;
    session->gColCount = 39;
    grid().setCols(39);
    setcolatts(*session);
    for (const char* key : {"user info", "layer", "label dataset"}) {
        session->gRow = kRegions;
        session->gLayerType = 0;
        session->gCol = col(key);
        grid().setCol(col(key));
        session->gCellText = "kept";
        EXPECT_EQ(show(), platform::kErrObjectUnloaded) << key;
        EXPECT_EQ(session->gCellText, "kept");
    }
}

TEST_F(CellEditor, AFailingLoadIsLoggedAndTheEditorShowsAsFarAsItGot) {
    prepare(kRegions, "zoom max", "1");
    session->gLayerForm = nullptr;
    EXPECT_EQ(open([&] {
                  EXPECT_FALSE(editor().ecell.Visible());
                  editor().ecell_KeyDown(kEscape);
              }),
              0);
    session->gLayerForm = form.get();
    EXPECT_TRUE(logged("Error from load editcell Object variable or With block variable not set"))
        << log();
}

} // namespace
} // namespace vellant::grid::testing
