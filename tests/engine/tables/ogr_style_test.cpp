#include "engine/tables/ogr_style.h"

#include <gtest/gtest.h>

namespace vellant::engine {
namespace {

std::string pen(std::string_view ogr) {
    const OgrStyle style = readOgrStyle(ogr);
    return style.pen ? formatPen(*style.pen) : "none";
}
std::string brush(std::string_view ogr) {
    const OgrStyle style = readOgrStyle(ogr);
    return style.brush ? formatBrush(*style.brush) : "none";
}
std::string symbol(std::string_view ogr) {
    const OgrStyle style = readOgrStyle(ogr);
    return style.symbol ? formatSymbol(*style.symbol) : "none";
}

TEST(OgrStyle, ReadsTheMapInfoNumbersGdalPutsInItsIds) {
    EXPECT_EQ(pen("PEN(w:1px,c:#000003,id:\"mapinfo-pen-2,ogr-pen-0\",cap:r,j:r)"), "Pen (1,2,3)");
    EXPECT_EQ(pen("PEN(w:2pt,c:#ff0000,id:\"mapinfo-pen-59,ogr-pen-2\")"), "Pen (30,59,16711680)");
    EXPECT_EQ(brush("BRUSH(fc:#000002,bc:#000003,id:\"mapinfo-brush-1,ogr-brush-1\")"),
              "Brush (1,2,3)");
    EXPECT_EQ(brush("BRUSH(fc:#00ff00,id:\"mapinfo-brush-5,ogr-brush-5\")"), "Brush (5,65280)");
    EXPECT_EQ(symbol("SYMBOL(a:0,c:#ff0000,s:12pt,id:\"mapinfo-sym-34,ogr-sym-3\")"),
              "Symbol (34,16711680,12)");
    EXPECT_EQ(symbol("SYMBOL(a:30,c:#000001,s:2pt,id:\"font-sym-99,ogr-sym-9\",o:#ffffff,"
                     "f:\"foo\")"),
              "Symbol (99,1,2,\"foo\",256,30)");
    EXPECT_EQ(symbol("SYMBOL(a:0,c:#000000,s:1pt,id:\"mapinfo-custom-sym-2-bla,-bla,ogr-sym-9\")"),
              "Symbol (\"bla\",0,1,2)");
}

TEST(OgrStyle, StylesOfOtherFormatsMapThroughTheOgrIds) {
    EXPECT_EQ(pen("PEN(c:#0000FF,w:0.5mm,id:\"ogr-pen-1\")"), "Pen (24,1,255)");
    EXPECT_EQ(brush("BRUSH(fc:#808080,id:\"ogr-brush-6\")"), "Brush (7,8421504)");
    EXPECT_EQ(symbol("SYMBOL(id:\"ogr-sym-1\",c:#00FF00,s:3mm)"), "Symbol (50,65280,9)");
}

TEST(OgrStyle, ALabelIsATextWithItsFontAndBoxHeight) {
    const OgrStyle style = readOgrStyle(
        "LABEL(t:\"say \\\"hi\\\"\",a:15,s:0.69g,c:#0000ff,o:#ffff00,bo:1,un:1,p:1,f:\"Times\")");
    ASSERT_TRUE(style.label.has_value());
    EXPECT_EQ(style.label->text, "say \"hi\"");
    EXPECT_DOUBLE_EQ(style.label->angle, 15);
    EXPECT_NEAR(style.label->height, 1.0, 1e-12);
    EXPECT_EQ(formatFont(style.label->font), "Font (\"Times\",261,0,255,16776960)");
}

TEST(OgrStyle, WhatItWritesReadsBackTheSame) {
    const PenStyle widePen{35, 118, 123456};
    EXPECT_EQ(readOgrStyle(ogrPenString(widePen)).pen, widePen);
    const BrushStyle hatch{8, 255, std::nullopt};
    EXPECT_EQ(readOgrStyle(ogrBrushString(hatch)).brush, hatch);
    SymbolStyle font;
    font.kind = SymbolKind::TrueType;
    font.shape = 64;
    font.fontName = "Map\"Symbols";
    font.fontStyle = 256;
    EXPECT_EQ(readOgrStyle(ogrSymbolString(font)).symbol, font);
    OgrLabel label;
    label.text = "a,b;c)";
    label.height = 2;
    label.font = FontStyle{"Arial", 7, 0, 255, 65535};
    const OgrStyle back = readOgrStyle(ogrLabelString(label));
    ASSERT_TRUE(back.label.has_value());
    EXPECT_EQ(back.label->text, label.text);
    EXPECT_EQ(back.label->font, label.font);
}

TEST(OgrStyle, BrokenStyleStringsLeaveTheStyleOutAndNeverFail) {
    for (const char* text :
         {"", "PEN(", "PEN(w:,c:#zz)", "BRUSH(fc:#12)", "SYMBOL(id:\"mapinfo-sym-\")",
          "SYMBOL(id:\"mapinfo-sym-99999999999999999999\")", "LABEL(t:\"unterminated)",
          "PEN(w:1e999px)", "PEN(w:-5px,id:\"mapinfo-pen-0\")", ";;;", "@styletable",
          "SYMBOL(s:nan,a:inf)", "SYMBOL(id:\"mapinfo-custom-sym-x\")"}) {
        SCOPED_TRACE(text);
        const OgrStyle style = readOgrStyle(text);
        // Whatever was read is a clause that reads back.
        if (style.pen) {
            EXPECT_NO_THROW(parsePen(formatPen(*style.pen)));
        }
        if (style.brush) {
            EXPECT_NO_THROW(parseBrush(formatBrush(*style.brush)));
        }
        if (style.symbol) {
            EXPECT_NO_THROW(parseSymbol(formatSymbol(*style.symbol)));
        }
    }
}

} // namespace
} // namespace vellant::engine
