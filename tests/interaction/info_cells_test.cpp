// The user expressions: token expansion on its own, and runfunction over a loaded grid on the
// embedded host, which reads a layer's expression from its cell and asks MapInfo for the value.

#include "../grid/grid_host.h"
#include "base/basic_text.h"
#include "base/runtime_error.h"
#include "interaction/info_cells.h"
#include "platform/combo_box.h"

#include <algorithm>
#include <string>
#include <utility>

namespace vellant::grid::testing {
namespace {

TEST(InfoKeywords, EachPositionBuildsTheExpressionOfItsCode) {
    const auto keywords = interaction::infoKeywords();
    ASSERT_EQ(keywords.size(), 86u);
    // The constant's value in MapBasic is the code the position gives.
    const std::pair<std::string_view, std::string> cases[] = {
        {"TAB_INFO_NAME", "TableInfo(%LAYERNAME%, 1)"},
        {"TAB_INFO_TABFILE", "TableInfo(%LAYERNAME%, 19)"},
        {"TAB_INFO_NREFS", "TableInfo(%LAYERNAME%, 31)"},
        {"LAYER_INFO_NAME", "LayerInfo(%MAPID%,%LAYERNUM%, 1)"},
        {"LAYER_INFO_LBL_POS", "LayerInfo(%MAPID%,%LAYERNUM%, 20)"},
        {"LAYER_INFO_LBL_PARTIALSEGS", "LayerInfo(%MAPID%,%LAYERNUM%, 33)"},
        {"MAPPER_INFO_ZOOM", "MapperInfo(%MAPID%, 1)"},
        {"MAPPER_INFO_DISTUNITS", "MapperInfo(%MAPID%, 12)"},
        {"MAPPER_INFO_COORDSYS_CLAUSE_WITH_BOUNDS", "MapperInfo(%MAPID%, 22)"},
    };
    for (const auto& [keyword, expression] : cases) {
        const auto at = std::find(keywords.begin(), keywords.end(), keyword);
        ASSERT_NE(at, keywords.end()) << keyword;
        EXPECT_EQ(interaction::infoExpression(static_cast<int>(at - keywords.begin()) + 1),
                  expression);
    }

    platform::ComboBox list{"EditList"};
    list.AddItem("before");
    interaction::fillInfoKeywords(list);
    ASSERT_EQ(list.ListCount(), 87);
    EXPECT_EQ(list.List(1), "TAB_INFO_NAME");
    EXPECT_EQ(list.List(86), "MAPPER_INFO_COORDSYS_CLAUSE_WITH_BOUNDS");
}

TEST(ExpandTokens, ReplacesEachTokenAndCutsWhatStandsFarBehindIt) {
    int nameAsked = 0;
    const auto name = [&] {
        ++nameAsked;
        return std::string("Roads");
    };
    EXPECT_EQ(interaction::expandTokens("LayerInfo(%MAPID%,%LAYERNUM%, 1)", name, 4, 17),
              "LayerInfo( 17, 4, 1)");
    EXPECT_EQ(nameAsked, 0);
    EXPECT_EQ(interaction::expandTokens("%LAYERNAME%+%layernum%+%%", name, 4, 17),
              "\"Roads\"+unknown_token+unknown_token");
    EXPECT_EQ(nameAsked, 1);

    // 555 characters survive behind each token, counted anew at every token.
    const std::string tail(600, 'x');
    EXPECT_EQ(interaction::expandTokens("%LAYERNUM%" + tail, name, 4, 17),
              " 4" + tail.substr(0, 555));
    EXPECT_EQ(interaction::expandTokens("%LAYERNUM%ab%MAPID%" + tail, name, 4, 17),
              " 4ab 17" + tail.substr(0, 555 - 9));
}

TEST(ExpandTokens, APercentSignInTheNameStartsATokenAndAnUnpairedOneIsError5) {
    EXPECT_EQ(interaction::expandTokens(
                  "%LAYERNAME%", [] { return std::string("50%LAYERNUM%"); }, 3, 1),
              "\"50 3\"");
    int error = 0;
    try {
        interaction::expandTokens(
            "1 + %LAYERNUM", [] { return std::string(); }, 3, 1);
    } catch (const RuntimeError& e) {
        error = e.number();
    }
    EXPECT_EQ(error, kErrInvalidCall);
    // A name holding the token that asks for it would never end.
    error = 0;
    try {
        interaction::expandTokens(
            "%LAYERNAME%", [] { return std::string("%LAYERNAME%"); }, 3, 1);
    } catch (const RuntimeError& e) {
        error = e.number();
    }
    EXPECT_EQ(error, kErrInvalidCall);
    // One that also holds an unknown token grows the text at every round, and is given up as
    // soon as it is longer than any expression MapBasic takes, well before the round limit.
    error = 0;
    int asked = 0;
    try {
        interaction::expandTokens(
            "%LAYERNAME%",
            [&] {
                ++asked;
                return std::string("%x%%LAYERNAME%");
            },
            3, 1);
    } catch (const RuntimeError& e) {
        error = e.number();
    }
    EXPECT_EQ(error, kErrInvalidCall);
    EXPECT_LT(asked, 4000);
}

class Runfunction : public GridHost {
protected:
    Runfunction() { load(); }

    // The value of a layer's expression as the caller asks for it: gLayer on the layer.
    std::string valueOf(int layer, const std::string& expression) {
        grid().setTextMatrix(row(layer), col("user info"), expression);
        session->gLayer = static_cast<std::int16_t>(layer);
        std::int16_t n = session->gLayer;
        return interaction::runfunction(*session, n);
    }
};

TEST_F(Runfunction, TokensGiveTheLayerTheMapAndTheQuotedName) {
    EXPECT_EQ(valueOf(kLines, "%LAYERNUM%+0"), "4");
    EXPECT_EQ(valueOf(kPoints, "%MAPID%"), std::to_string(view));
    EXPECT_EQ(valueOf(kPoints, "TableInfo(%LAYERNAME%, 1)"), "points");
    EXPECT_EQ(valueOf(kRegions, "LayerInfo(%MAPID%, %LAYERNUM%, 1) + \"!\""), "regions!");
    // The cosmetic layer counts as any other.
    EXPECT_EQ(valueOf(0, "%LAYERNAME%"), info(0, 1));
    EXPECT_EQ(log().find("From runfunction"), std::string::npos) << log();
}

TEST_F(Runfunction, AnExpressionWithoutATokenIsNeverEvaluated) {
    EXPECT_EQ(valueOf(kLines, "1+1"), "");
    // MapInfo would refuse this one; nothing is logged since it is not sent.
    EXPECT_EQ(valueOf(kLines, "1 +"), "");
    EXPECT_EQ(valueOf(kLines, ""), "");
    EXPECT_EQ(log().find("From runfunction"), std::string::npos) << log();
}

TEST_F(Runfunction, FailuresAnswerNothingAndAreLogged) {
    EXPECT_EQ(valueOf(kLines, "50% of it"), "");
    EXPECT_TRUE(logged("From runfunction Invalid procedure call or argument")) << log();

    const std::size_t before = log().size();
    EXPECT_EQ(valueOf(kLines, "%LayerNum%+0"), "");
    const std::string line = log().substr(before);
    EXPECT_EQ(line.rfind("\"From runfunction ", 0), 0u) << line;
    EXPECT_NE(line.find("unknown_token"), std::string::npos) << line;
}

TEST_F(Runfunction, TextMoreThan555CharactersBehindATokenIsLost) {
    const std::string blanks553(553, ' ');
    EXPECT_EQ(valueOf(kLines, "%LAYERNUM%" + blanks553 + "+1"), "5");
    // One blank more pushes the last digit out, and what is left does not parse.
    EXPECT_EQ(valueOf(kLines, "%LAYERNUM% " + blanks553 + "+1"), "");
    EXPECT_TRUE(log().find("From runfunction") != std::string::npos) << log();
}

} // namespace
} // namespace vellant::grid::testing
