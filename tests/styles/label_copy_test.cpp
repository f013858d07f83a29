#include "grid/grid_host.h"
#include "hostmodel/mi_props_label_props.h"
#include "styles/label_copy.h"

namespace vellant::styles {
namespace {

class LabelCopy : public grid::testing::GridHost {
protected:
    void SetUp() override {
        load();
        for (const char* clause :
             {"Label Position Above Right", "Label Line Arrow", "Label Offset 5",
              "Label Overlap On", "Label Max 100", "Label Visibility Zoom( 10, 5000)"})
            setViewLayer(kLines, clause);
    }
    void copy(int layer, bool paint) {
        copylabelprops(*session, session->lyr(), session->labelProps(), session->lyr(),
                       session->labelProps(), static_cast<std::int16_t>(layer), paint);
    }
};

TEST_F(LabelCopy, PaintsEveryLabelCellFromTheLayer) {
    onLayer(kLines);
    session->gApplyToLayer = kFalse;
    copy(kLines, true);
    EXPECT_EQ(text(kLines, "label field"), "Name");
    EXPECT_EQ(picture(kLines, "label overlap"), "Image1");
    EXPECT_EQ(picture(kLines, "label duplicate"), "Image2");
    EXPECT_EQ(text(kLines, "label count"), "100");
    EXPECT_EQ(picture(kLines, "label zoom"), "LabelVisZmPic");
    EXPECT_EQ(text(kLines, "label zoom max"), "5000");
    EXPECT_EQ(picture(kLines, "label line"), "Linestylearrowpic");
    EXPECT_EQ(picture(kLines, "label line style"), "Image2");
    EXPECT_EQ(text(kLines, "label offset"), "5");
    EXPECT_EQ(picture(kLines, "label orient"), "LabelOrient3");
    EXPECT_EQ(session->gStyleValue, "Font(\"Arial\",0,9,0)"); // the label font, blanks out
    EXPECT_EQ(session->gTrace, "in copyl 5");
}

TEST_F(LabelCopy, LayersWithoutLabelsShowSoInTheOrientAndStyleCells) {
    setViewLayer(kRegions, "Label Visibility Off");
    onLayer(kRegions);
    copy(kRegions, true);
    EXPECT_EQ(picture(kRegions, "label properties"), "TxtStyleOffPic");
    for (int layer : {0, static_cast<int>(kRaster)}) {
        EXPECT_TRUE(gray(layer, "label orient")) << layer;
        EXPECT_FALSE(clickable(layer, "label orient")) << layer;
        EXPECT_TRUE(cell(layer, "label orient").picture.empty()) << layer;
    }
    EXPECT_TRUE(cell(kRaster, "label properties").picture.empty());
}

TEST_F(LabelCopy, WithoutPaintOnlyTheLabelFieldIsShown) {
    onLayer(kLines);
    grid().setTextMatrix(row(kLines), col("label field"), "");
    copy(kLines, false);
    EXPECT_EQ(text(kLines, "label field"), "Name");
    EXPECT_EQ(text(kLines, "label count"), "");
    EXPECT_EQ(picture(kLines, "label orient"), "LabelOrient0");
}

TEST_F(LabelCopy, AClickOnSeveralRowsCopiesTheClickedRowsLabelsToTheOthers) {
    const std::string userMax = info(kRegions, 32, userMap);
    onLayer(kRegions);
    session->gClickRow = kLines; // gets read the clicked layer, lets write gLayer
    session->gApplyToLayer = kTrue;
    copy(kRegions, true);
    EXPECT_EQ(info(kRegions, 32), "100");
    EXPECT_EQ(info(kRegions, 31), "5");
    EXPECT_EQ(info(kRegions, 29), "T");
    EXPECT_EQ(text(kRegions, "label count"), "100");
    EXPECT_EQ(picture(kRegions, "label orient"), "LabelOrient3");
    EXPECT_EQ(info(kRegions, 32, userMap), userMax);
}

TEST_F(LabelCopy, AFailureEndsTheCopyWithItsMarkInTheLog) {
    onLayer(kLines);
    hostmodel::MIPropsLabelProps source(*session);
    session->gLabelProps = nullptr;
    copylabelprops(*session, session->lyr(), source, session->lyr(), source, kLines, true);
    EXPECT_TRUE(logged("Error from copylabelprops in copyl 5 " +
                       RuntimeError(kErrObjectNotSet).description()));
}

} // namespace
} // namespace vellant::styles
