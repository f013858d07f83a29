// Reading a workspace's text: header, statements over indented lines, line numbers, and the
// file names of Open Table made to point into the workspace's folder.

#include "engine/mb_error.h"
#include "engine/workspace/workspace_loader.h"
#include "engine/workspace/workspace_text.h"

#include <gtest/gtest.h>

namespace vellant::engine {
namespace {

int errorCodeOf(std::string_view text) {
    try {
        parseWorkspaceText(text);
    } catch (const MbError& e) {
        return e.code();
    }
    return 0;
}

TEST(WorkspaceText, HeaderLinesWithAnySpacing) {
    const WorkspaceText w =
        parseWorkspaceText("!Workspace\n!Version  600\n!Charset WindowsLatin1\nStatusbar hide\n");
    EXPECT_EQ(w.version, 600);
    EXPECT_EQ(w.charset, "WindowsLatin1");
    ASSERT_EQ(w.statements.size(), 1u);
    EXPECT_EQ(w.statements[0].line, 4);
    EXPECT_EQ(parseWorkspaceText("\xEF\xBB\xBF!workspace\r\n!Version\t950\r\n").version, 950);
}

TEST(WorkspaceText, IndentedLinesContinueTheStatementAboveThem) {
    const WorkspaceText w = parseWorkspaceText("!Workspace\r\n!Version 600\r\n"
                                               "Open Table \"world\" As World Interactive\r\n"
                                               "Map From World\r\n"
                                               "  Position (0.05,0.05) Units \"in\"\r\n"
                                               "\r\n"
                                               "\tWidth 6.6 Units \"in\"\r"
                                               "Set Window FrontWindow() ScrollBars Off\n");
    ASSERT_EQ(w.statements.size(), 3u);
    EXPECT_EQ(w.statements[0].line, 3);
    EXPECT_EQ(w.statements[1].line, 4);
    EXPECT_EQ(w.statements[1].text,
              "Map From World\nPosition (0.05,0.05) Units \"in\"\nWidth 6.6 Units \"in\"");
    EXPECT_EQ(w.statements[2].line, 8);
}

TEST(WorkspaceText, MalformedHeadersAreRefused) {
    EXPECT_EQ(errorCodeOf(""), kMbInvalidFormat);
    EXPECT_EQ(errorCodeOf("Map From World\n"), kMbInvalidFormat);
    EXPECT_EQ(errorCodeOf("!Workspace\n!Version six hundred\n"), kMbInvalidFormat);
    EXPECT_EQ(errorCodeOf("!Workspace\n!Version 99999999999999\n"), kMbInvalidFormat);
    EXPECT_EQ(errorCodeOf("!Workspace\n  Position (0,0)\n"), kMbInvalidFormat);
    EXPECT_EQ(errorCodeOf("!Workspace\n!Version 600\n!Whatever\n"), 0);
}

TEST(WorkspaceText, OpenTableLooksInTheWorkspacesFolder) {
    const std::filesystem::path folder = "/maps/demo";
    EXPECT_EQ(withTableFileInFolder("Open Table \"world\" As World Interactive", folder),
              "Open Table \"/maps/demo/world\" As World Interactive");
    EXPECT_EQ(withTableFileInFolder("open table \"data\\Roads.TAB\" Interactive", folder),
              "open table \"/maps/demo/data/Roads.TAB\" Interactive");
    EXPECT_EQ(withTableFileInFolder("Open Table \"C:\\Program Files\\MapInfo\\world.tab\"", folder),
              "Open Table \"/maps/demo/world.tab\" ");
    EXPECT_EQ(withTableFileInFolder("Open Table \"/data/world.tab\" As W", folder),
              "Open Table \"/data/world.tab\" As W");
    EXPECT_EQ(withTableFileInFolder("Open Table \"say \"\"hi\"\"\"", folder),
              "Open Table \"/maps/demo/say \"\"hi\"\"\" ");
    EXPECT_EQ(withTableFileInFolder("Map From world", folder), "Map From world");
    EXPECT_EQ(withTableFileInFolder("Open Table \"unterminated", folder),
              "Open Table \"unterminated");
}

} // namespace
} // namespace vellant::engine
