#include "prefs/settings.h"
#include "styles/style_strings.h"
#include "support/session_fixture.h"

#include <gtest/gtest.h>
#include <string>

namespace vellant::styles {
namespace {

TEST(Pentoline, APenBecomesALineAndEverythingElseStays) {
    const struct {
        std::string in;
        std::string out;
    } cases[] = {
        {"Pen (1,2,0)", "Line (1,2,0)"},
        {"Pen(3,2,255)", "Line(3,2,255)"},
        {"Line (1,2,0)", "Line (1,2,0)"},
        {"pen (1,2,0)", "pen (1,2,0)"}, // the keyword counts in its own letter case
        {"PEN (1,2,0)", "PEN (1,2,0)"},
        {"Brush (2,255,0)", "Brush (2,255,0)"},
        {"", ""},
        {"Pen", "Line"},
    };
    for (const auto& c : cases) {
        std::string style = c.in;
        pentoline(style);
        EXPECT_EQ(style, c.out) << c.in;
    }
}

TEST(Pentoline, AVeryLongPenKeepsAHundredCharactersAfterItsKeyword) {
    std::string style = "Pen " + std::string(200, '1');
    pentoline(style);
    EXPECT_EQ(style, "Line " + std::string(99, '1'));
}

struct SizeCase {
    const char* name;
    const char* clause;
    int size;
};

class StyleSizes : public testing::SessionFixture {
protected:
    StyleSizes() { prefs::getotherprefs(*session); }
    bool logged(const std::string& start) const {
        return log().find("\"" + start) != std::string::npos;
    }
};

class FontSizes : public StyleSizes, public ::testing::WithParamInterface<SizeCase> {};

TEST_P(FontSizes, ReadTheThirdFieldByPosition) {
    EXPECT_EQ(parsefont(*session, GetParam().clause), GetParam().size);
    EXPECT_FALSE(logged("Error parsefont"));
}

INSTANTIATE_TEST_SUITE_P(
    Clauses, FontSizes,
    ::testing::Values(SizeCase{"FourFields", "Font (\"Arial\",0,12,255)", 12},
                      SizeCase{"FiveFields", "Font (\"Arial\",1,12,255,16777215)", 12},
                      SizeCase{"NoBlanks", "Font(\"Arial\",0,9,0)", 9},
                      SizeCase{"TrailingBlanks", "Font (\"Arial\",0,24,0)   ", 24},
                      SizeCase{"HalfRoundsToEven", "Font (\"Arial\",0,12.5,0)", 12},
                      SizeCase{"HalfRoundsUpToEven", "Font (\"Arial\",0,13.5,0)", 14},
                      SizeCase{"Empty", "", 7}, SizeCase{"OnlyBlanks", "   ", 7},
                      SizeCase{"NoBracket", "Arial,0,12,0", 7},
                      // A comma in the name moves every field on by one: the style is read.
                      SizeCase{"CommaInTheName", "Font (\"Arial, Narrow\",0,12,0)", 0}),
    [](const ::testing::TestParamInfo<SizeCase>& tested) {
        return std::string(tested.param.name);
    });

class SymbolSizes : public StyleSizes, public ::testing::WithParamInterface<SizeCase> {};

TEST_P(SymbolSizes, ReadTheThirdFieldOfEveryForm) {
    std::string clause = GetParam().clause;
    EXPECT_EQ(parsesymbol(*session, clause), GetParam().size);
    EXPECT_EQ(clause, GetParam().clause);
    EXPECT_FALSE(logged("Error from parsesymbol"));
}

INSTANTIATE_TEST_SUITE_P(
    Clauses, SymbolSizes,
    ::testing::Values(SizeCase{"MapInfoSymbol", "Symbol (35,255,12)", 12},
                      SizeCase{"Bitmap", "Symbol (\"pin.bmp\",255,18,0)", 18},
                      SizeCase{"FontSymbol",
                               "Symbol (58,16711680,24,\"MapInfo Cartographic\",256,0)", 24},
                      SizeCase{"Empty", "", 12},
                      // Without a bracket the third comma-separated piece is read all the same.
                      SizeCase{"NoBracket", "a,b,12,d", 12},
                      SizeCase{"NoBracketNoNumber", "a,b,c,d", 0},
                      SizeCase{"HalfRoundsToEven", "Symbol (35,255,12.5)", 12}),
    [](const ::testing::TestParamInfo<SizeCase>& tested) {
        return std::string(tested.param.name);
    });

TEST_F(StyleSizes, AFontClauseThatCannotBeCutLogsItsPositionsAndAnswersNothing) {
    // The back colour's field ends before it begins: ")" stands before the fourth comma.
    EXPECT_EQ(parsefont(*session, "Font (\"A\",0,12,1) x,"), 0);
    EXPECT_TRUE(logged("Error parsefont Invalid procedure call or argument \r\n"));
}

TEST_F(StyleSizes, AClauseWithoutItsFieldsHasNoSize) {
    // A symbol reads from the wrong place without complaint; a font cannot cut its name.
    std::string symbol = "Symbol (35)";
    EXPECT_EQ(parsesymbol(*session, symbol), 0);
    EXPECT_FALSE(logged("Error from parsesymbol"));
    EXPECT_EQ(parsefont(*session, "Font (\"Arial\")"), 0);
    EXPECT_TRUE(logged("Error parsefont"));
}

TEST_F(StyleSizes, ASymbolClauseThatCannotBeCutLogsAndAnswersTheDefault) {
    std::string clause = "Symbol (1,2,3,,5,6)"; // an empty font name has no quotes to cut
    EXPECT_EQ(parsesymbol(*session, clause), 12);
    EXPECT_TRUE(logged("Error from parsesymbol Invalid procedure call or argument\""));
}

TEST_F(StyleSizes, ASizeTooLargeForSixteenBitsIsAFailure) {
    EXPECT_EQ(parsefont(*session, "Font (\"Arial\",0,40000,0)"), 0);
    EXPECT_TRUE(logged("Error parsefont Overflow"));
    std::string symbol = "Symbol (35,0,99999)";
    EXPECT_EQ(parsesymbol(*session, symbol), 12);
    EXPECT_TRUE(logged("Error from parsesymbol Overflow\""));
}

} // namespace
} // namespace vellant::styles
