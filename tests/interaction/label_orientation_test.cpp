// The orientation picker over a loaded grid on the embedded host: the double click applies a
// code to the current layer's labels and paints its cell, Esc changes nothing, the self test
// picks its button without showing, and the kept form opens again where it first stood.

#include "../grid/grid_host.h"
#include "base/runtime_error.h"
#include "interaction/label_orientation.h"
#include "platform/form.h"
#include "platform/toolkit.h"

namespace vellant::grid::testing {
namespace {

constexpr int kPositionCode = 20; // LayerInfo: the label position

class LabelOrientationPicker : public GridHost {
protected:
    LabelOrientationPicker() {
        load();
        onLayer(kLines);
        grid().setCol(col("label orient"));
    }

    interaction::Label_Orientation& picker() { return interaction::labelOrientationForm(*session); }

    // Opens the picker modally as the toggle walk does, with the user's action inside.
    void open(std::function<void()> action) {
        toolkit.addStep(std::move(action));
        picker().Show(platform::vbModal);
    }
};

TEST_F(LabelOrientationPicker, ADoubleClickAppliesTheCodePaintsTheCellAndCloses) {
    open([&] { picker().LabOrient_DblClick(3); });
    EXPECT_FALSE(picker().Visible());
    EXPECT_EQ(session->gLabelOrientPos, 3);
    EXPECT_EQ(info(kLines, kPositionCode), "3");
    EXPECT_EQ(picture(kLines, "label orient"), "LabelOrient3");
    EXPECT_EQ(log().find("Error"), std::string::npos) << log();
}

TEST_F(LabelOrientationPicker, BottomRightPlacesTheLabelCentreRightAndTheCellShowsTheChosenCode) {
    open([&] { picker().LabOrient_DblClick(8); });
    EXPECT_EQ(info(kLines, kPositionCode), "5");
    EXPECT_EQ(picture(kLines, "label orient"), "LabelOrient8");
}

TEST_F(LabelOrientationPicker, EscapeAndAClickWhileHiddenChangeNothing) {
    const std::string before = info(kLines, kPositionCode);
    const std::string cellBefore = picture(kLines, "label orient");
    open([&] {
        int key = 27;
        picker().Form_KeyPress(key);
    });
    EXPECT_FALSE(picker().Visible());
    picker().LabOrient_DblClick(6);
    EXPECT_EQ(info(kLines, kPositionCode), before);
    EXPECT_EQ(picture(kLines, "label orient"), cellBefore);
}

TEST_F(LabelOrientationPicker, TheSelfTestPicksAboveWithoutShowingAndTheShowFails) {
    session->gSelfTest = kTrue;
    const int unloaded = [&] {
        try {
            picker().Show(platform::vbModal);
        } catch (const RuntimeError& e) {
            return e.number();
        }
        return 0;
    }();
    EXPECT_EQ(unloaded, platform::kErrObjectUnloaded);
    EXPECT_EQ(info(kLines, kPositionCode), "2");
    EXPECT_EQ(picture(kLines, "label orient"), "LabelOrient2");
}

TEST_F(LabelOrientationPicker, OpensBesideTheCellOnceAndThenWhereItFirstStood) {
    form->setLeft(1000);
    form->setTop(2000);
    grid().setMousePosition(static_cast<float>(grid().ColPos(col("label orient")) + 10),
                            static_cast<float>(grid().RowPos(row(kLines)) + 10));
    session->gLabelOrientPos = 4;
    open([&] { picker().LabOrient_DblClick(1); });
    const int left = picker().Left();
    const int top = picker().Top();
    EXPECT_EQ(left, 1000 + grid().ColPos(col("label orient")) + 300);
    EXPECT_EQ(top, 2000 + grid().RowPos(row(kLines)) - 300);
    EXPECT_TRUE(toolkit.isTopmost(picker().hWnd()));

    onLayer(kPoints);
    grid().setMousePosition(0, 0);
    session->gLabelOrientPos = 7;
    open([&] {
        // The button chosen last time is still the selected one.
        EXPECT_NE(picker().LabOrient(1).Value(), 0);
        picker().LabOrient_DblClick(7);
    });
    EXPECT_EQ(picker().Left(), left);
    EXPECT_EQ(picker().Top(), top);
    EXPECT_EQ(info(kPoints, kPositionCode), "7");
}

} // namespace
} // namespace vellant::grid::testing
