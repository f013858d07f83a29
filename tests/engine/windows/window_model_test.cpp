// Window ids, window numbers, the front window and titles, through the statements and
// functions a client uses.

#include "engine/windows/window_errors.h"
#include "window_test_support.h"

namespace vellant::engine::testing {
namespace {

class WindowModel : public WindowTest {
protected:
    void SetUp() override {
        open("regions");
        open("points");
        open("lines");
    }
};

TEST_F(WindowModel, IdsNeverCollideWithWindowNumbersAndAreNeverReused) {
    const int a = mapFrom("regions");
    const int b = mapFrom("points");
    const int c = mapFrom("lines");
    EXPECT_EQ(eval("NumWindows()"), "3");
    for (int window : {a, b, c}) {
        EXPECT_GT(window, 32767) << "an id must not be readable as a window number";
        EXPECT_FALSE(window >= 1001 && window <= 1013);
    }
    EXPECT_EQ(eval("WindowID(1)"), id(a));
    EXPECT_EQ(eval("WindowID(2)"), id(b));
    EXPECT_EQ(eval("WindowID(3)"), id(c));
    EXPECT_EQ(eval("WindowID(" + id(b) + ")"), id(b)) << "an id names its own window";
    EXPECT_EQ(eval("WindowInfo(2, 13)"), id(b)) << "a number names the n-th window";

    run("Close Window " + id(b));
    EXPECT_EQ(eval("WindowID(2)"), id(c)) << "numbers close up after a window closes";
    const int d = mapFrom("points");
    EXPECT_NE(d, b);
    EXPECT_GT(d, c) << "ids only grow";
    EXPECT_EQ(evalError("WindowInfo(" + id(b) + ", 13)").code(), kMbBadWindow);
}

TEST_F(WindowModel, WindowIdZeroIsTheMostRecentlyOpenedWindowNotTheFrontOne) {
    EXPECT_EQ(eval("WindowID(0)"), "0");
    EXPECT_EQ(eval("FrontWindow()"), "0");
    const int a = mapFrom("regions");
    const int b = mapFrom("points");
    EXPECT_EQ(eval("FrontWindow()"), id(b));
    run("Set Window " + id(a) + " Front");
    EXPECT_EQ(eval("FrontWindow()"), id(a));
    EXPECT_EQ(eval("WindowInfo(" + id(a) + ", 8)"), "T");
    EXPECT_EQ(eval("WindowInfo(" + id(b) + ", 8)"), "F");
    EXPECT_EQ(eval("WindowID(0)"), id(b));
    EXPECT_EQ(eval("WindowInfo(0, 13)"), id(b));

    run("Close Window " + id(a));
    EXPECT_EQ(eval("FrontWindow()"), id(b)) << "the next window in the stack comes to the front";
    run("Close Window " + id(b));
    EXPECT_EQ(eval("FrontWindow()"), "0");
    EXPECT_EQ(eval("WindowID(0)"), "0");
    const MbError noWindow = evalError("WIndowInfo(Frontwindow(),3)");
    EXPECT_EQ(noWindow.code(), kMbBadWindow);
    EXPECT_STREQ(noWindow.what(), "Invalid window ID: 0");
}

TEST_F(WindowModel, BadWindowSpecsAndNumbersAreErrors) {
    mapFrom("regions");
    EXPECT_EQ(evalError("WindowID(2)").code(), kMbBadWindowNum);
    EXPECT_STREQ(evalError("WindowID(2)").what(), "Invalid window number: 2");
    EXPECT_EQ(evalError("WindowInfo(5, 1)").code(), kMbBadWindow);
    EXPECT_STREQ(evalError("WindowInfo(5, 1)").what(), "Invalid window ID: 5");
    EXPECT_EQ(evalError("WindowInfo(1.5, 1)").code(), kMbBadWindow);
    EXPECT_EQ(evalError("WindowInfo(1, 2)").code(), kMbArgRange);
    EXPECT_STREQ(evalError("WindowInfo(1, 99)").what(), "Argument 2 of WindowInfo out of range.");
    EXPECT_EQ(runError("Set Window 12 Front").code(), kMbBadWindow);
    EXPECT_EQ(runError("Close Window 12").code(), kMbBadWindow);
}

TEST_F(WindowModel, MadeTitlesNameTheLayersAndNumberRepeats) {
    const int a = mapFrom("regions, points");
    EXPECT_EQ(eval("WindowInfo(" + id(a) + ", 1)"), "regions,points Map");
    const int b = mapFrom("regions,points");
    EXPECT_EQ(eval("WindowInfo(" + id(b) + ", 1)"), "regions,points Map:2");
    const int c = mapFrom("regions,points");
    EXPECT_EQ(eval("WindowInfo(" + id(c) + ", 1)"), "regions,points Map:3");

    run("Close Window " + id(a));
    const int d = mapFrom("regions, points");
    EXPECT_EQ(eval("WindowInfo(" + id(d) + ", 1)"), "regions,points Map")
        << "the lowest free number is taken";

    run("Add Map Window " + id(b) + " Layer lines");
    EXPECT_EQ(eval("WindowInfo(" + id(b) + ", 1)"), "lines,regions,points Map");
    run("Set Window " + id(b) + " Title \"Roads\"");
    EXPECT_EQ(eval("WindowInfo(" + id(b) + ", 1)"), "Roads");
    run("Remove Map Window " + id(b) + " Layer lines");
    EXPECT_EQ(eval("WindowInfo(" + id(b) + ", 1)"), "Roads") << "a title given stays";
    run("Set Window " + id(b) + " Title Default");
    EXPECT_EQ(eval("WindowInfo(" + id(b) + ", 1)"), "regions,points Map:2");

    run("Browse * From regions");
    EXPECT_EQ(eval("WindowInfo(FrontWindow(), 1)"), "regions Browser");
}

TEST_F(WindowModel, WindowInfoReportsTypePlacementAndHandles) {
    const int map = mapFrom("regions Position (1, 0.5) Units \"in\" Width 12 Units \"cm\" "
                            "Height 3 Max");
    run("Browse * From points Position (2,3) Width 4 Height 2");
    const int browser = engine.windows().frontWindow();
    EXPECT_EQ(eval("WindowInfo(" + id(map) + ", 3)"), "1");
    EXPECT_EQ(eval("WindowInfo(" + id(browser) + ", 3)"), "2");
    EXPECT_EQ(eval("WindowInfo(" + id(browser) + ", 10)"), "points");
    EXPECT_EQ(evalError("WindowInfo(" + id(map) + ", 10)").code(), kMbArgRange);
    EXPECT_EQ(eval("WindowInfo(" + id(map) + ", 6)"), "1");
    EXPECT_EQ(eval("WindowInfo(" + id(map) + ", 7)"), "0.5");
    EXPECT_NEAR(number("WindowInfo(" + id(map) + ", 4)"), 12 / 2.54, 1e-12);
    EXPECT_EQ(eval("WindowInfo(" + id(map) + ", 5)"), "3");
    EXPECT_EQ(eval("WindowInfo(" + id(map) + ", 9)"), "2");
    EXPECT_EQ(eval("WindowInfo(" + id(browser) + ", 9)"), "0");
    EXPECT_EQ(eval("WindowInfo(" + id(map) + ", 11)"), "T");

    engine.settings().paperUnits = "cm";
    EXPECT_EQ(eval("WindowInfo(" + id(map) + ", 4)"), "12") << "sizes come in paper units";

    const double mapHandle = number("WindowInfo(" + id(map) + ", 12)");
    const double browserHandle = number("WindowInfo(" + id(browser) + ", 12)");
    EXPECT_NE(mapHandle, browserHandle);
    EXPECT_NE(mapHandle, map);
    EXPECT_EQ(mapHandle, engine.windows().get(map).frame().hWnd());
}

TEST_F(WindowModel, BrowseOfATableNotOpenIsAnError) {
    EXPECT_EQ(runError("Browse * From nowhere").code(), kMbTableNotFound);
    EXPECT_EQ(runError("Map From regions, nowhere").code(), kMbTableNotFound);
    EXPECT_EQ(eval("NumWindows()"), "0") << "a failed Map From opens no window";
}

TEST_F(WindowModel, ClosingATableTakesItsLayersAndEmptiedWindowsAway) {
    const int both = mapFrom("regions, points");
    const int alone = mapFrom("points");
    run("Browse * From points");
    run("Close Table points");
    EXPECT_EQ(eval("NumWindows()"), "1");
    EXPECT_EQ(eval("WindowID(1)"), id(both));
    EXPECT_EQ(eval("MapperInfo(" + id(both) + ", 9)"), "1");
    EXPECT_EQ(eval("LayerInfo(" + id(both) + ", 1, 1)"), "regions");
    EXPECT_EQ(evalError("WindowInfo(" + id(alone) + ", 1)").code(), kMbBadWindow);
}

TEST_F(WindowModel, ObserversHearOfEveryChange) {
    std::vector<std::pair<WindowEvent, int>> heard;
    engine.windows().changed.add([&](WindowEvent e, int window) { heard.emplace_back(e, window); });
    const int a = mapFrom("regions");
    run("Set Map Window " + id(a) + " Layer 1 Nodes On");
    run("Set Window " + id(a) + " Width 3");
    run("Close Window " + id(a));
    const std::vector<std::pair<WindowEvent, int>> expected{
        {WindowEvent::Opened, a},    {WindowEvent::Front, a},  {WindowEvent::Contents, a},
        {WindowEvent::Placement, a}, {WindowEvent::Closed, a},
    };
    EXPECT_EQ(heard, expected);
    EXPECT_EQ(engine.windows().find(a), nullptr);
}

} // namespace
} // namespace vellant::engine::testing
