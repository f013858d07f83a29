// The script reader against the runner's own verb table: what a good script reads as, and the
// first faulty line of a bad one, refused with its number before anything runs.

#include "app/replay/replay_verbs.h"
#include "app/replay/script.h"

#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

namespace vellant::replay {
namespace {

std::vector<ScriptLine> read(const std::string& text) {
    std::istringstream in(text);
    return readScript(in, replayVerbs());
}

TEST(ReplayScript, ReadsVerbsInAnyCaseWithTheirArguments) {
    const auto script = read("# the demo\r\n"
                             "\r\n"
                             "  SNAPSHOT  \r\n"
                             "press\tOK\n"
                             "advice   exit vl\n"
                             "Answer YES\n"
                             "button 2001\n"
                             "host Set Map Window FrontWindow() Zoom 10 Units \"km\"\n"
                             "press ToggleStatusPic(2)");
    ASSERT_EQ(script.size(), 7u);
    const std::vector<std::string> texts = {
        "snapshot",
        "press OK",
        "advice exit vl",
        "answer yes",
        "button 2001",
        "host Set Map Window FrontWindow() Zoom 10 Units \"km\"",
        "press ToggleStatusPic(2)"};
    for (std::size_t i = 0; i < texts.size(); ++i)
        EXPECT_EQ(script[i].text(), texts[i]);
    EXPECT_EQ(script[0].number, 3);
    EXPECT_EQ(script[6].number, 9);
    EXPECT_TRUE(script[3].verb->aheadOfSession);
    EXPECT_FALSE(script[1].verb->aheadOfSession);
}

TEST(ReplayScript, AnEmptyScriptIsNoFault) {
    EXPECT_TRUE(read("").empty());
    EXPECT_TRUE(read("# nothing to do\n\n   \n").empty());
}

struct Faulty {
    std::string text;
    int line;
    std::string says;
};

// The number of comment lines of 60000 bytes that makes a script too long as a whole.
constexpr int kLinesTooMany = static_cast<int>(kMaxScriptBytes / 60001) + 1;

// count comment lines of the given length.
std::string manyLines(int count, std::size_t length) {
    std::string text;
    for (int i = 0; i < count; ++i)
        text += std::string(length, '#') + "\n";
    return text;
}

class ReplayScriptFault : public ::testing::TestWithParam<Faulty> {};

TEST_P(ReplayScriptFault, IsRefusedWithItsLine) {
    try {
        read(GetParam().text);
        FAIL() << "accepted: " << GetParam().text;
    } catch (const ScriptError& e) {
        EXPECT_EQ(e.line(), GetParam().line);
        EXPECT_NE(std::string(e.what()).find(GetParam().says), std::string::npos) << e.what();
    }
}

INSTANTIATE_TEST_SUITE_P(
    Lines, ReplayScriptFault,
    ::testing::Values(
        Faulty{"snapshot\nwiggle 1 2\n", 2, "unknown verb 'wiggle' (the verbs are press, advice"},
        Faulty{"press\n", 1, "press needs a name (write: press <control>)"},
        Faulty{"press OK Cancel\n", 1, "one name without blanks"},
        Faulty{"snapshot now\n", 1, "snapshot takes no argument"},
        Faulty{"advice\n", 1, "advice needs an argument"},
        Faulty{"button 20x1\n", 1, "whole number, not '20x1'"},
        Faulty{"button 99999999999\n", 1, "whole number"}, Faulty{"button -\n", 1, "whole number"},
        Faulty{"answer maybe\n", 1, "'maybe' is not one of the choices"},
        Faulty{"# fine\nhost Close Window\x01 1\n", 2, "control character"},
        Faulty{std::string("press O\0K\n", 10), 1, "control character"},
        Faulty{"snapshot\n" + std::string(kMaxLineBytes + 1, 'x') + "\n", 2, "longer than"},
        Faulty{manyLines(kLinesTooMany, 60000), kLinesTooMany, "script is longer than"}));

TEST(ReplayScript, AnOverlongLineIsRefusedWithoutReadingItAll) {
    std::stringstream in;
    in << "press " << std::string(kMaxLineBytes * 4, 'x') << "\nsnapshot\n";
    EXPECT_THROW(readScript(in, replayVerbs()), ScriptError);
    EXPECT_LT(static_cast<std::size_t>(in.tellg()), kMaxLineBytes * 2);
}

} // namespace
} // namespace vellant::replay
