#include "engine/mb_error.h"
#include "engine/tables/style_clause.h"
#include "engine/tables/table_fixture.h"

#include <gtest/gtest.h>

namespace vellant::engine {
namespace {

using testing::raisedBy;

TEST(StyleClause, ReadsFreeSpacingLeadingZerosAndAnyCaseIntoCanonicalText) {
    EXPECT_EQ(formatBrush(parseBrush("brush (01, 0, 0)")), "Brush (1,0,0)");
    EXPECT_EQ(formatPen(parsePen(" pen (1, 2, 255 ) ")), "Pen (1,2,255)");
    EXPECT_EQ(formatPen(parsePen("LINE(3,2,16711680)")), "Pen (3,2,16711680)");
    EXPECT_EQ(formatSymbol(parseSymbol("Symbol ( 35 , 0 , 12 )")), "Symbol (35,0,12)");
    EXPECT_EQ(formatFont(parseFont("font(\"Arial\",0,9,0)")), "Font (\"Arial\",0,9,0)");
}

TEST(StyleClause, KeepsTheOptionalPartsOfEachKind) {
    EXPECT_EQ(formatBrush(parseBrush("Brush (2,255)")), "Brush (2,255)");
    EXPECT_FALSE(parseBrush("Brush (2,255)").backColor.has_value());
    EXPECT_EQ(formatFont(parseFont("Font (\"Times New Roman\",256,10,0,16777215)")),
              "Font (\"Times New Roman\",256,10,0,16777215)");

    const SymbolStyle trueType =
        parseSymbol("Symbol (58,16711680,12,\"MapInfo Cartographic\",256,0)");
    EXPECT_EQ(trueType.kind, SymbolKind::TrueType);
    EXPECT_EQ(formatSymbol(trueType), "Symbol (58,16711680,12,\"MapInfo Cartographic\",256,0)");
    EXPECT_EQ(formatSymbol(parseSymbol("Symbol (64,0,10,\"Wingdings\",0,45.5)")),
              "Symbol (64,0,10,\"Wingdings\",0,45.5)");

    const SymbolStyle bitmap = parseSymbol("symbol (\"pin.bmp\", 255, 24, 3)");
    EXPECT_EQ(bitmap.kind, SymbolKind::Bitmap);
    EXPECT_EQ(formatSymbol(bitmap), "Symbol (\"pin.bmp\",255,24,3)");
}

TEST(StyleClause, DoubledQuotesInNamesSurviveTheRoundTrip) {
    const FontStyle font = parseFont("Font (\"My \"\"Odd\"\" Font\",1,8,0)");
    EXPECT_EQ(font.name, "My \"Odd\" Font");
    EXPECT_EQ(formatFont(font), "Font (\"My \"\"Odd\"\" Font\",1,8,0)");
}

TEST(StyleClause, MalformedClausesRaiseTheInvalidClauseError) {
    for (const char* text : {"Pen (1,2)",
                             "Pen (1,2,0",
                             "Pen 1,2,0",
                             "Pen (1,2,0) extra",
                             "Pen (1,,0)",
                             "Pen (1,2,-5)",
                             "Pen (1,2,16777216)",
                             "Pen (1,0,0)",
                             "Brush (2)",
                             "Brush (x,1,2)",
                             "Symbol (35,0)",
                             "Symbol (35,0,12,\"Font\")",
                             "Font (\"Arial\",0,9)",
                             "Font (Arial,0,9,0)",
                             "Symbol (\"pin.bmp\",0,12)",
                             "Pen (\"1\",2,0)",
                             "",
                             "Pen",
                             "Pen (1e400,2,0)",
                             "Font (\"unterminated,0,9,0)"}) {
        const std::string clause = text;
        const MbError error = raisedBy([&] {
            switch (styleClauseType(clause).value_or(MbType::Pen)) {
            case MbType::Brush:
                parseBrush(clause);
                break;
            case MbType::Symbol:
                parseSymbol(clause);
                break;
            case MbType::Font:
                parseFont(clause);
                break;
            default:
                parsePen(clause);
                break;
            }
        });
        EXPECT_EQ(error.code(), kMbSyntax) << text;
    }
}

TEST(StyleClause, StyleAttrAnswersEachCodeOfEachKind) {
    const MbValue pen = styleValue("Pen (2,130,255)");
    EXPECT_EQ(styleAttribute(pen, 1).toEvalText(), "2");
    EXPECT_EQ(styleAttribute(pen, 2).toEvalText(), "2");
    EXPECT_EQ(styleAttribute(pen, 4).toEvalText(), "255");
    EXPECT_EQ(styleAttribute(pen, 5).toEvalText(), "130");
    EXPECT_EQ(styleAttribute(pen, 6).toEvalText(), "T");
    EXPECT_EQ(styleAttribute(styleValue("Pen (1,2,0)"), 6).toEvalText(), "F");

    const MbValue brush = styleValue("Brush (5,65280)");
    EXPECT_EQ(styleAttribute(brush, 1).toEvalText(), "5");
    EXPECT_EQ(styleAttribute(brush, 2).toEvalText(), "65280");
    EXPECT_EQ(styleAttribute(brush, 3).toEvalText(), "-1");

    const MbValue font = styleValue("Font (\"Arial\",3,12,255,65535)");
    EXPECT_EQ(styleAttribute(font, 1).toEvalText(), "Arial");
    EXPECT_EQ(styleAttribute(font, 2).toEvalText(), "3");
    EXPECT_EQ(styleAttribute(font, 3).toEvalText(), "12");
    EXPECT_EQ(styleAttribute(font, 4).toEvalText(), "255");
    EXPECT_EQ(styleAttribute(font, 5).toEvalText(), "65535");

    const MbValue symbol = styleValue("Symbol (58,16711680,14,\"MapInfo Cartographic\",256,30)");
    EXPECT_EQ(styleAttribute(symbol, 1).toEvalText(), "58");
    EXPECT_EQ(styleAttribute(symbol, 2).toEvalText(), "16711680");
    EXPECT_EQ(styleAttribute(symbol, 3).toEvalText(), "14");
    EXPECT_EQ(styleAttribute(symbol, 4).toEvalText(), "30");
    EXPECT_EQ(styleAttribute(symbol, 5).toEvalText(), "MapInfo Cartographic");
    EXPECT_EQ(styleAttribute(symbol, 6).toEvalText(), "256");
    EXPECT_EQ(styleAttribute(symbol, 7).toEvalText(), "2");
    EXPECT_EQ(styleAttribute(styleValue("Symbol (\"pin.bmp\",0,12,1)"), 8).toEvalText(), "pin.bmp");
    EXPECT_EQ(styleAttribute(styleValue("Symbol (\"pin.bmp\",0,12,1)"), 9).toEvalText(), "1");
    EXPECT_EQ(styleAttribute(styleValue("Symbol (35,0,12)"), 7).toEvalText(), "1");
}

TEST(StyleClause, StyleAttrRejectsCodesAKindLacksAndValuesThatAreNoStyle) {
    EXPECT_EQ(raisedBy([] { styleAttribute(styleValue("Pen (1,2,0)"), 3); }).code(), kMbArgRange);
    EXPECT_EQ(raisedBy([] { styleAttribute(styleValue("Brush (1,0)"), 4); }).code(), kMbArgRange);
    EXPECT_EQ(raisedBy([] { styleAttribute(styleValue("Symbol (35,0,12)"), 10); }).code(),
              kMbArgRange);
    EXPECT_EQ(raisedBy([] { styleAttribute(MbValue::integer(3), 1); }).code(), kMbTypeMismatch);
}

} // namespace
} // namespace vellant::engine
