// Set Window, Close Window, Browse and Set Next Document, with the shapes the client sends.

#include "engine/windows/window_errors.h"
#include "window_test_support.h"

namespace vellant::engine::testing {
namespace {

class WindowStatements : public WindowTest {
protected:
    void SetUp() override {
        open("regions");
        open("points");
        window = mapFrom("regions");
    }
    std::string info(int code) {
        return eval("WindowInfo(" + id(window) + ", " + std::to_string(code) + ")");
    }
    int window = 0;
};

TEST_F(WindowStatements, PlacementAsTheClientMovesItsView) {
    run("Set window " + id(window) + " Position ( 1.25, 0.5)");
    run("Set window " + id(window) + " width  7.5");
    run("Set window " + id(window) + " height 3");
    EXPECT_EQ(info(6), "1.25");
    EXPECT_EQ(info(7), "0.5");
    EXPECT_EQ(info(4), "7.5");
    EXPECT_EQ(info(5), "3");
    run("set window " + id(window) +
        " width 8 units \"mm\" height 4 units \"mm\" title \" \" "
        "sysmenuclose on");
    EXPECT_DOUBLE_EQ(number("WindowInfo(" + id(window) + ", 4)"), 8 / 25.4);
    EXPECT_EQ(info(1), " ");
    EXPECT_EQ(info(16), "T");
    // The client glues the number to the next word here; the host reads it all the same.
    run("set Window  " + id(window) + "Width  8 Units \"mm\" Height 4 Units \"mm\"");
    EXPECT_DOUBLE_EQ(number("WindowInfo(" + id(window) + ", 5)"), 4 / 25.4);
    run("Set Window " + id(window) + " Position (2, 1) Units \"cm\"");
    EXPECT_DOUBLE_EQ(number("WindowInfo(" + id(window) + ", 6)"), 2 / 2.54);
    const platform::Control& frame = engine.windows().get(window).frame();
    EXPECT_EQ(frame.Left(), 1134) << "the frame mirrors the placement in twips";
    EXPECT_EQ(frame.Caption(), " ");
    EXPECT_EQ(runError("Set Window " + id(window) + " Width 0").code(), kMbArgRange);
    EXPECT_EQ(runError("Set Window " + id(window) + " Width 1e300").code(), kMbArgRange);
    EXPECT_EQ(runError("Set Window " + id(window) + " Position (-1e300, 0)").code(), kMbArgRange);
    EXPECT_EQ(runError("Set Window " + id(window) + " Printer Left Margin -1").code(), kMbArgRange);
    EXPECT_EQ(runError("Set Window " + id(window) + " Height 2 Units \"parsec\"").code(),
              kMbSyntax);
}

TEST_F(WindowStatements, StateVisibilityAndOptions) {
    run("Dim WorkspaceMaximizedWindow As Integer");
    run("WorkspaceMaximizedWindow = Frontwindow()");
    run("Set Window WorkspaceMaximizedWindow Max");
    EXPECT_EQ(info(9), "2");
    run("Set Window " + id(window) + " Min");
    EXPECT_EQ(info(9), "1");
    run("Set Window " + id(window) + " Restore Hide");
    EXPECT_EQ(info(9), "0");
    EXPECT_EQ(info(11), "F");
    EXPECT_FALSE(engine.windows().get(window).frame().Visible());
    run("Set Window " + id(window) + " Show");
    EXPECT_EQ(info(11), "T");

    run("Set Window FrontWindow() ScrollBars On Autoscroll Off Smart Pan On Snap Mode On "
        "Snap Tolerance 9");
    EXPECT_EQ(eval("MapperInfo(" + id(window) + ", 14)"), "T");
    EXPECT_EQ(info(17), "F");
    EXPECT_EQ(info(18), "T");
    EXPECT_EQ(info(19), "T");
    EXPECT_EQ(info(20), "9");
    run("Set Window FrontWindow() ScrollBars Off Autoscroll On Enhanced On Smooth Text Antialias "
        "Image High");
    EXPECT_EQ(info(45), "T");
    EXPECT_EQ(info(46), "Antialias");
    EXPECT_EQ(info(47), "High");
    run("Set Window FrontWindow() Printer\n Name \"Office\" Orientation Landscape Copies 3\n "
        "Papersize 8 Left Margin 1 Units \"cm\"");
    EXPECT_EQ(info(21), "Office");
    EXPECT_EQ(info(22), "2");
    EXPECT_EQ(info(23), "3");
    EXPECT_EQ(info(24), "8");
    EXPECT_DOUBLE_EQ(number("WindowInfo(" + id(window) + ", 25)"), 1 / 2.54);
    run("Set Window " + id(window) + " Parent 777");
    EXPECT_EQ(engine.windows().get(window).settings.parent, 777);
}

TEST_F(WindowStatements, AFailedSetWindowChangesNothing) {
    EXPECT_EQ(runError("Set Window " + id(window) + " Width 2 Title \"x\" Sideways").code(),
              kMbSyntax);
    EXPECT_EQ(info(4), "6");
    EXPECT_EQ(info(1), "regions Map");
}

TEST_F(WindowStatements, CloseWindowTakesIdsAndSystemWindowNames) {
    run("Close Window Legend");
    run("close window Info Interactive");
    run("Close Window 1009");
    EXPECT_EQ(eval("NumWindows()"), "1");
    run("Close window " + id(window));
    EXPECT_EQ(eval("NumWindows()"), "0");
    EXPECT_EQ(runError("Close window " + id(window)).code(), kMbBadWindow);
    EXPECT_EQ(runError("Close window").code(), kMbSyntax);
}

TEST_F(WindowStatements, BrowseOpensABrowserOfTheTable) {
    run("Browse Name, Value * 2 From points Width 3 Max");
    const int browser = engine.windows().frontWindow();
    EXPECT_EQ(eval("WindowInfo(" + id(browser) + ", 3)"), "2");
    EXPECT_EQ(eval("WindowInfo(" + id(browser) + ", 10)"), "points");
    EXPECT_EQ(eval("WindowInfo(" + id(browser) + ", 9)"), "2");
    EXPECT_EQ(engine.windows().get(browser).browseColumns,
              (std::vector<std::string>{"Name", "Value * 2"}));
    EXPECT_EQ(evalError("MapperInfo(" + id(browser) + ", 1)").code(), kMbWantMapperWindow);
}

TEST_F(WindowStatements, NextDocumentGoesToTheNextWindowOnly) {
    run("Set Next Document Parent 1234 Style 1");
    EXPECT_EQ(engine.windows().get(window).settings.parent, 0) << "not the window already open";
    const int child = mapFrom("points");
    EXPECT_EQ(engine.windows().get(child).settings.parent, 1234);
    EXPECT_EQ(engine.windows().get(child).settings.documentStyle, 1);
    const int after = mapFrom("points");
    EXPECT_EQ(engine.windows().get(after).settings.parent, 0);
    EXPECT_EQ(engine.windows().get(after).settings.documentStyle, 0);

    run("Set Next Document Style 2");
    run("Set Next Document Parent 99");
    run("Browse * From points");
    const Window& browser = engine.windows().get(engine.windows().frontWindow());
    EXPECT_EQ(browser.settings.documentStyle, 2) << "one statement adds to another";
    EXPECT_EQ(browser.settings.parent, 99);

    EXPECT_EQ(runError("Set Next Document Style 4").code(), kMbArgRange);
    EXPECT_EQ(runError("Set Next Document").code(), kMbSyntax);
    EXPECT_EQ(runError("Set Next Document Parent").code(), kMbSyntax);
}

} // namespace
} // namespace vellant::engine::testing
