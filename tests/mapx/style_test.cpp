// A Style's values, its two fonts, its pickers, and its clauses in the host's own terms.

#include "base/runtime_error.h"
#include "mapx/style.h"
#include "mapx/style_clauses.h"
#include "mapx_fixture.h"

namespace vellant::mapx::testing {
namespace {

class StyleTest : public MapXTest {
protected:
    std::shared_ptr<Style> style = std::make_shared<Style>(runtime);
};

// Every value the style and label copies walk, set to something other than its default.
void setEveryValue(hostmodel::MXStyle& s) {
    s.setLineStyle(5);
    s.setLineColor(0x123456);
    s.setLineInterleaved(true);
    s.setLineWidth(4);
    s.setLineWidthUnit(mx::miStyleUnitTenthsOfPoint);
    s.setRegionBackColor(0x0000FF);
    s.setRegionBorderColor(0x00FF00);
    s.setRegionBorderStyle(3);
    s.setRegionBorderWidth(2);
    s.setRegionBorderWidthUnit(mx::miStyleUnitTenthsOfPoint);
    s.setRegionColor(0xFF0000);
    s.setRegionPattern(8);
    s.setRegionTransparent(true);
    s.setSymbolType(mx::miSymbolTypeTrueTypeFont);
    s.setSymbolBitmapColor(0x010203);
    s.setSymbolBitmapOverrideColor(true);
    s.setSymbolBitmapSize(30);
    s.setSymbolBitmapTransparent(true);
    s.setSymbolCharacter(65);
    s.SymbolFont()->setName("Wingdings");
    s.SymbolFont()->setSize(20);
    s.SymbolFont()->setItalic(true);
    s.SymbolFont()->setCharset(2);
    s.setSymbolFontBackColor(0x0F0F0F);
    s.setSymbolFontColor(0xF0F0F0);
    s.setSymbolFontHalo(true);
    s.setSymbolFontOpaque(true);
    s.setSymbolFontRotation(45);
    s.setSymbolFontShadow(true);
    s.setSymbolVectorColor(0x00FFFF);
    s.setSymbolVectorSize(18);
    s.TextFont()->setName("Times New Roman");
    s.TextFont()->setSize(11);
    s.TextFont()->setWeight(600);
    s.TextFont()->setUnderline(true);
    s.TextFont()->setStrikethrough(true);
    s.setTextFontAllCaps(true);
    s.setTextFontBackColor(0xFFFF00);
    s.setTextFontColor(0x808080);
    s.setTextFontDblSpace(true);
    s.setTextFontHalo(true);
    s.setTextFontOpaque(true);
    s.setTextFontRotation(30);
    s.setTextFontShadow(true);
}

TEST_F(StyleTest, EveryValueRoundTripsAndACopyTakesThemAll) {
    setEveryValue(*style);
    EXPECT_EQ(style->LineStyle(), 5);
    EXPECT_EQ(style->LineColor(), 0x123456);
    EXPECT_TRUE(style->LineInterleaved());
    EXPECT_EQ(style->RegionBorderWidthUnit(), mx::miStyleUnitTenthsOfPoint);
    EXPECT_TRUE(style->RegionTransparent());
    EXPECT_EQ(style->SymbolFont()->Name(), "Wingdings");
    EXPECT_EQ(style->SymbolFont()->Charset(), 2);
    EXPECT_EQ(style->SymbolFontRotation(), 45);
    EXPECT_EQ(style->TextFont()->Weight(), 600);
    EXPECT_TRUE(style->TextFont()->Bold());
    EXPECT_EQ(style->TextFontRotation(), 30);

    auto copy = create<hostmodel::MXStyle>("MapX.Style.4");
    EXPECT_NE(dynamic_cast<Style&>(*copy).data(), style->data());
    dynamic_cast<Style&>(*copy).assign(*style);
    EXPECT_EQ(dynamic_cast<Style&>(*copy).data(), style->data());
}

TEST_F(StyleTest, BoldAndWeightAreOneValue) {
    auto font = style->TextFont();
    EXPECT_FALSE(font->Bold());
    font->setBold(true);
    EXPECT_EQ(font->Weight(), 700);
    font->setWeight(500);
    EXPECT_FALSE(font->Bold());
    EXPECT_THROW(font->setSize(0), RuntimeError);
    EXPECT_THROW(font->setWeight(1001), RuntimeError);
}

TEST_F(StyleTest, ALayersStyleIsLiveAndItsChangesAskForAPicture) {
    auto layer = add("regions.tab");
    int pictures = 0;
    ownMap().changed.add([&](MapChange change) { pictures += change == MapChange::Picture; });
    auto held = layer->Style();
    held->setRegionColor(0x0000FF);
    held->TextFont()->setBold(true);
    held->setRegionColor(0x0000FF); // the same value again changes nothing
    EXPECT_EQ(pictures, 2);
    EXPECT_EQ(layer->Style()->RegionColor(), 0x0000FF);
    EXPECT_TRUE(layer->Style()->TextFont()->Bold());
    // A font kept after its layer is gone still answers.
    auto font = held->TextFont();
    map->Layers()->RemoveAll();
    map.reset();
    font->setItalic(true);
    EXPECT_TRUE(font->Italic());
}

TEST_F(StyleTest, PickersTakeTheChosenClausesAndACancelChangesNothing) {
    picker.answer("Brush (2,255,16777215) Pen (3,2,65280)");
    EXPECT_TRUE(style->PickRegion());
    EXPECT_EQ(style->RegionColor(), 0xFF0000); // blue in OLE order
    EXPECT_EQ(style->RegionBorderColor(), 0x00FF00);
    EXPECT_EQ(style->RegionBorderWidth(), 3);

    picker.cancel();
    EXPECT_FALSE(style->PickLine());
    EXPECT_EQ(style->LineColor(), 0);

    picker.answer("Symbol (\"pin.bmp\",255,24,1)");
    EXPECT_TRUE(style->PickSymbol());
    EXPECT_EQ(style->SymbolType(), mx::miSymbolTypeBitmap);
    EXPECT_EQ(style->SymbolBitmapName(), "pin.bmp");
    EXPECT_EQ(style->SymbolBitmapSize(), 24);

    picker.answer("font (\"Courier New\",257,12,16711680,16777215)");
    EXPECT_TRUE(style->PickText());
    EXPECT_EQ(style->TextFont()->Name(), "Courier New");
    EXPECT_TRUE(style->TextFont()->Bold());
    EXPECT_TRUE(style->TextFontHalo());
    EXPECT_EQ(style->TextFontColor(), 0x0000FF);

    // Each picker opened with the style as it then stood.
    ASSERT_EQ(picker.requests().size(), 4u);
    EXPECT_EQ(picker.requests()[0].kind, PickKind::Region);
    EXPECT_EQ(picker.requests()[0].startClauses, "Brush (2,16777215,16777215) Pen (1,2,0)");
    EXPECT_EQ(picker.requests()[3].startClauses.rfind("Font (\"Arial\",0,9,0", 0), 0u);
    // Nobody left to answer: cancelled.
    EXPECT_FALSE(style->PickLine());
}

TEST_F(StyleTest, AnAnswerThatIsNoStyleIsAnErrorAndChangesNothing) {
    const StyleData before = style->data();
    picker.answer("Brush (2,255,0) Rubbish");
    EXPECT_THROW(style->PickRegion(), RuntimeError);
    EXPECT_EQ(style->data(), before);
}

TEST_F(StyleTest, APickerOfAStyleWithoutAFrontEndIsAnError) {
    MapXRuntime bare(engine, nullptr, nullptr);
    Style lonely(bare);
    try {
        lonely.PickRegion();
        FAIL();
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.number(), kErrObjectNotSet);
    }
}

TEST_F(StyleTest, ABitmapSymbolTheHostCannotFindIsRefused) {
    runtime.setSymbolFolder(folder());
    EXPECT_THROW(style->setSymbolBitmapName("nothing.bmp"), RuntimeError);
    EXPECT_EQ(style->SymbolBitmapName(), "");
    style->setSymbolBitmapName("raster.tif");
    EXPECT_EQ(style->SymbolBitmapName(), "raster.tif");
}

// Each kind's clause taken back gives the same clause: nothing is lost on the way out to a
// dialog and back.
class StyleClauseTest : public StyleTest, public ::testing::WithParamInterface<PickKind> {};

TEST_P(StyleClauseTest, AClauseTakenBackGivesTheSameClause) {
    setEveryValue(*style);
    const std::string clauses = pickerClauses(style->data(), GetParam());
    StyleData fresh;
    takePickerClauses(engine, fresh, GetParam(), clauses);
    EXPECT_EQ(pickerClauses(fresh, GetParam()), clauses);
}

INSTANTIATE_TEST_SUITE_P(Kinds, StyleClauseTest,
                         ::testing::Values(PickKind::Region, PickKind::Line, PickKind::Symbol,
                                           PickKind::Text),
                         [](const auto& param) {
                             switch (param.param) {
                             case PickKind::Region:
                                 return "Region";
                             case PickKind::Line:
                                 return "Line";
                             case PickKind::Symbol:
                                 return "Symbol";
                             case PickKind::Text:
                                 return "Text";
                             }
                             return "Unknown";
                         });

TEST_F(StyleTest, ClausesSpeakMapInfoColoursAndWidths) {
    StyleData data;
    data.lineColor = 0x0000FF; // red
    data.lineWidth = 15;
    data.lineWidthUnit = mx::miStyleUnitTenthsOfPoint;
    data.lineInterleaved = true;
    EXPECT_EQ(engine::formatPen(linePen(data)), "Pen (25,130,16711680)");
    data.regionPattern = mx::miPatternNoFill;
    data.regionTransparent = true;
    EXPECT_EQ(engine::formatBrush(regionBrush(data)), "Brush (1,16777215)");
    data.regionBorderWidth = 0;
    EXPECT_EQ(engine::formatPen(borderPen(data)), "Pen (0,1,0)");
}

} // namespace
} // namespace vellant::mapx::testing
