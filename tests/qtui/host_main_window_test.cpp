// The main window mirrors the engine's windows and host services, and the user's changes to
// the sub-windows go back to the engine.

#include "engine/host/host_services.h"
#include "engine/tables/catalog.h"
#include "host_window_fixture.h"
#include "qtui/host/browser_model.h"
#include "qtui/host/browser_view.h"
#include "qtui/host/host_status_bar.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QStatusBar>
#include <cmath>

namespace vellant::qtui::testing {
namespace {

class MainWindowTest : public HostWindowTest {
protected:
    std::vector<QMdiSubWindow*> shownSubWindows() const {
        std::vector<QMdiSubWindow*> shown;
        for (QMdiSubWindow* sub : window_->mdiArea().subWindowList())
            if (sub->isVisible()) shown.push_back(sub);
        return shown;
    }
    double dpi() const { return window_->logicalDpiX(); }
};

TEST_F(MainWindowTest, WorkspaceOpensOneSubWindowPerEngineWindowWithItsTitleAndPlace) {
    load(std::string(kRegionsMap) + "Browse * From regions Position (1,2) Units \"in\" "
                                    "Width 5 Units \"in\" Height 2.5 Units \"in\"\n");
    ASSERT_EQ(engine_->windows().count(), 2);
    EXPECT_EQ(shownSubWindows().size(), 2u);
    for (int id : engine_->windows().ids()) {
        const engine::Window& engineWindow = *engine_->windows().find(id);
        QMdiSubWindow* sub = window_->subWindowFor(id);
        ASSERT_NE(sub, nullptr);
        EXPECT_EQ(sub->windowTitle().toStdString(), engineWindow.title());
        const QRect expected(static_cast<int>(std::lround(engineWindow.placement.x * dpi())),
                             static_cast<int>(std::lround(engineWindow.placement.y * dpi())),
                             static_cast<int>(std::lround(engineWindow.placement.width * dpi())),
                             static_cast<int>(std::lround(engineWindow.placement.height * dpi())));
        EXPECT_EQ(sub->geometry(), expected) << engineWindow.title();
    }
    const int browser = engine_->windows().frontWindow();
    ASSERT_NE(window_->browserView(browser), nullptr);
    EXPECT_EQ(window_->mdiArea().activeSubWindow(), window_->subWindowFor(browser));
}

TEST_F(MainWindowTest, BrowserReadsTheTablesRowsAndColumns) {
    load("Open Table \"regions.tab\" As regions Interactive\nBrowse Value, Name From regions\n");
    BrowserView* browser = window_->browserView(engine_->windows().frontWindow());
    ASSERT_NE(browser, nullptr);
    const BrowserModel& model = browser->model();
    ASSERT_EQ(model.rowCount(), 3);
    ASSERT_EQ(model.columnCount(), 2);
    EXPECT_EQ(model.headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(), "Name");
    EXPECT_EQ(model.data(model.index(1, 1), Qt::DisplayRole).toString(), "Beta");
    EXPECT_EQ(model.data(model.index(2, 0), Qt::DisplayRole).toString(), "3");
}

TEST_F(MainWindowTest, EngineStackingAndPlacementReachTheSubWindows) {
    load(std::string(kRegionsMap) + "Browse * From regions\n");
    const std::vector<int> ids = engine_->windows().ids();
    const std::string map = std::to_string(ids[0]);
    engine_->run("Set Window " + map + " Front");
    EXPECT_EQ(window_->mdiArea().activeSubWindow(), window_->subWindowFor(ids[0]));

    engine_->run("Set Window " + map + " Position (2, 1) Units \"in\" Width 3 Units \"in\"");
    const QRect geometry = window_->subWindowFor(ids[0])->geometry();
    EXPECT_EQ(geometry.topLeft(), QPoint(static_cast<int>(std::lround(2 * dpi())),
                                         static_cast<int>(std::lround(1 * dpi()))));
    EXPECT_EQ(geometry.width(), static_cast<int>(std::lround(3 * dpi())));

    engine_->run("Set Window " + map + " Max");
    EXPECT_TRUE(window_->subWindowFor(ids[0])->isMaximized());
    engine_->run("Set Window " + map + " Title \"Regions at work\"");
    EXPECT_EQ(window_->subWindowFor(ids[0])->windowTitle(), "Regions at work");
}

TEST_F(MainWindowTest, UserMovesAndActivationsGoBackToTheEngine) {
    load(std::string(kRegionsMap) + "Browse * From regions\n");
    const std::vector<int> ids = engine_->windows().ids();
    QMdiSubWindow* map = window_->subWindowFor(ids[0]);
    int placementEvents = 0;
    const int token = engine_->windows().changed.add([&](engine::WindowEvent event, int) {
        if (event == engine::WindowEvent::Placement) ++placementEvents;
    });

    window_->mdiArea().setActiveSubWindow(map);
    EXPECT_EQ(engine_->windows().frontWindow(), ids[0]);

    map->setGeometry(QRect(QPoint(96, 48), QSize(480, 288)));
    settle();
    const engine::WindowPlacement& placement = engine_->windows().find(ids[0])->placement;
    EXPECT_NEAR(placement.x, 96 / dpi(), 1e-9);
    EXPECT_NEAR(placement.y, 48 / dpi(), 1e-9);
    EXPECT_NEAR(placement.width, 480 / dpi(), 1e-9);
    EXPECT_NEAR(placement.height, 288 / dpi(), 1e-9);
    EXPECT_NEAR(number("WindowInfo(" + std::to_string(ids[0]) + ", 4)"), 480 / dpi(), 1e-6);
    EXPECT_GE(placementEvents, 1);
    // The engine's echo of the move is not applied back (it would round and move again).
    EXPECT_EQ(map->geometry(), QRect(QPoint(96, 48), QSize(480, 288)));
    engine_->windows().changed.remove(token);
}

TEST_F(MainWindowTest, CloseWindowStatementAndUserCloseBothEndTheSubWindow) {
    load(std::string(kRegionsMap) + "Browse * From regions\n");
    const std::vector<int> ids = engine_->windows().ids();
    int clientHeard = 0;
    const int token = engine_->windows().changed.add([&](engine::WindowEvent event, int) {
        if (event == engine::WindowEvent::Closed) ++clientHeard;
    });

    engine_->run("Close Window " + std::to_string(ids[1]));
    settle();
    EXPECT_EQ(window_->subWindowFor(ids[1]), nullptr);
    EXPECT_EQ(window_->mdiArea().subWindowList().size(), 1);

    window_->subWindowFor(ids[0])->close(); // the user's close box
    settle();
    EXPECT_EQ(engine_->windows().count(), 0);
    EXPECT_TRUE(window_->mdiArea().subWindowList().isEmpty());
    EXPECT_EQ(clientHeard, 2);
    EXPECT_TRUE(errors_.empty());
    engine_->windows().changed.remove(token);
}

TEST_F(MainWindowTest, StatusBarFollowsStatusBarStatements) {
    engine_->run("StatusBar Message \"Reading the atlas\"");
    EXPECT_EQ(window_->hostStatusBar().hostMessage(), "Reading the atlas");
    engine_->run("StatusBar Hide");
    EXPECT_FALSE(window_->statusBar()->isVisible());
    engine_->run("StatusBar Show");
    EXPECT_TRUE(window_->statusBar()->isVisible());
}

TEST_F(MainWindowTest, NextDocumentParentPutsTheMapInsideTheRegisteredWidget) {
    QWidget holder;
    holder.resize(420, 260);
    holder.show();
    const std::int64_t handle = window_->nativeWindows().addNew(&holder);
    load("Open Table \"regions.tab\" As regions Interactive\n");
    engine_->run("Set Next Document Parent " + std::to_string(handle) + " Style 1");
    engine_->run("Map From regions");
    const int id = engine_->windows().frontWindow();
    MapWindowView* view = window_->mapView(id);
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(window_->subWindowFor(id), nullptr);
    EXPECT_EQ(view->parentWidget(), &holder);
    EXPECT_FALSE(view->isWindow());
    settle();
    EXPECT_EQ(view->geometry(), holder.rect());

    // The next map goes back to the main window: Set Next Document is used up.
    engine_->run("Map From regions");
    EXPECT_NE(window_->subWindowFor(engine_->windows().frontWindow()), nullptr);

    engine_->run("Close Window " + std::to_string(id));
    settle();
    EXPECT_TRUE(holder.findChildren<MapWindowView*>().isEmpty());
}

TEST_F(MainWindowTest, NativeHandlesNameTheMainWindowAndTheApplicationWindow) {
    const auto mainHandle = static_cast<std::int64_t>(number("SystemInfo(9)"));
    EXPECT_EQ(window_->nativeWindows().find(mainHandle), window_.get());
    EXPECT_EQ(window_->dialogParent(), window_.get());

    QWidget owner;
    const std::int64_t handle = window_->nativeWindows().addNew(&owner);
    engine_->run("Set Application Window " + std::to_string(handle));
    EXPECT_EQ(window_->dialogParent(), &owner);
    engine_->run("Set Application Window 0");
    EXPECT_EQ(window_->dialogParent(), window_.get());
}

TEST_F(MainWindowTest, MainWindowGeometryAndTheHostsTwipsStayInStep) {
    const platform::Control& control = engine_->host().mainWindow();
    window_->resize(900, 640);
    settle();
    const double twips = 1440 / dpi();
    EXPECT_EQ(control.Width(), static_cast<int>(std::lround(900 * twips)));
    EXPECT_EQ(control.Height(), static_cast<int>(std::lround(640 * twips)));
    EXPECT_TRUE(control.Visible());

    engine_->host().mainWindow().setWidth(static_cast<int>(std::lround(1000 * twips)));
    EXPECT_EQ(window_->width(), 1000);
}

TEST_F(MainWindowTest, StatementErrorsAreReportedWithTheirMapBasicNumber) {
    EXPECT_FALSE(window_->runStatement("Set Map Window 12345 Zoom 3"));
    EXPECT_FALSE(window_->openWorkspace(sampleFolder() / "no such.wor"));
    EXPECT_FALSE(window_->openTable(sampleFolder() / "missing.tab"));
    ASSERT_EQ(errors_.size(), 3u);
    EXPECT_EQ(errors_[0].code, 590);
    EXPECT_EQ(errors_[1].code, 825);
    EXPECT_NE(errors_[1].text.find("no such.wor"), std::string::npos);
    EXPECT_NE(errors_[2].code, 0);
}

TEST_F(MainWindowTest, OpenTableMapsAMappableTableAndBrowsesAnother) {
    EXPECT_TRUE(window_->openTable(sampleFolder() / "points.tab"));
    const int map = engine_->windows().frontWindow();
    EXPECT_NE(window_->mapView(map), nullptr);

    const auto plain = sampleFolder() / "plain.csv";
    std::ofstream(plain) << "Name,Count\nOne,1\nTwo,2\n";
    EXPECT_TRUE(window_->openTable(plain));
    const int browser = engine_->windows().frontWindow();
    ASSERT_NE(window_->browserView(browser), nullptr);
    EXPECT_EQ(window_->browserView(browser)->model().rowCount(), 2);
    EXPECT_TRUE(errors_.empty()) << errors_.front().text;
}

TEST_F(MainWindowTest, ToolActionsAndTheEnginesToolAgree) {
    engine_->runMenuCommand(engine::kToolGrabber);
    QList<QAction*> checked;
    for (QAction* action : window_->findChildren<QAction*>())
        if (action->data().toInt() > 0 && action->isChecked()) checked << action;
    ASSERT_EQ(checked.size(), 1);
    EXPECT_EQ(checked.front()->data().toInt(), engine::kToolGrabber);

    for (QAction* action : window_->findChildren<QAction*>())
        if (action->data().toInt() == engine::kToolZoomOut) action->trigger();
    EXPECT_EQ(engine_->windows().mapTool(), engine::kToolZoomOut);
}

} // namespace
} // namespace vellant::qtui::testing
