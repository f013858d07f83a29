// Whole sessions of the program on the Qt toolkit, the user's actions delivered as real mouse
// and key events to the real widgets: the grid, its menu, the cell editor, the view map in the
// form, the docked form on the host's window, and a host that goes away.

#include "app/replay/qt/qt_desk.h"
#include "app/sample_tables/demo_data.h"
#include "engine/engine.h"
#include "engine/host/mapinfo_automation.h"
#include "engine/workspace/workspace_loader.h"
#include "grid/layer_rows.h"
#include "interaction/edit_cell.h"
#include "qtui/forms/form_view.h"
#include "qtui/host/host_main_window.h"
#include "qtui/host/map_window_view.h"
#include "session/session.h"
#include "session/vl_layer.h"
#include "support/session_fixture.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace vellant::replay {
namespace {

constexpr int kTwips = 15; // the offscreen screen's 96 dpi

class LayerFormOnQt : public ::testing::Test {
protected:
    LayerFormOnQt() {
        workspace = samples::writeDemoData(dir.file("data"));
        engine = std::make_shared<engine::Engine>();
        engine::loadWorkspace(*engine, workspace);
        engine->run("Run Application \"vellant.mbx\"");
        host = std::make_shared<engine::MapInfoAutomation>(engine);
        host->registerRunning(registry);
        desk = std::make_unique<QtDesk>(*engine, std::filesystem::path());
        std::filesystem::create_directories(dir.file("app"));
        layer = std::make_unique<session::vlLayer>(desk->toolkit(), registry, dir.file("app"));
    }
    ~LayerFormOnQt() override {
        layer.reset();
        desk.reset();
        host->close();
    }

    session::Session& s() { return *layer->currentSession(); }
    session::LayerForm& form() { return *s().gLayerForm; }
    platform::FlexGrid& grid() { return form().LyrGrid; }
    QWidget* widget(const platform::Control& control) { return desk->qt().widgetOf(control); }

    int column(const std::string& key) {
        for (int col = 1; col < grid().Cols(); ++col)
            if (s().gColKey[col] == key) return col;
        ADD_FAILURE() << "no column " << key;
        return 0;
    }
    int rowOf(int layerNumber) {
        return grid::LayerToRow(s(), static_cast<std::uint16_t>(layerNumber));
    }
    float midX(int col) {
        return static_cast<float>(grid().ColPos(col) + grid().ColWidth(col) / 2);
    }
    float midY(int row) {
        return static_cast<float>(grid().RowPos(row) + grid().RowHeight(row) / 2);
    }
    std::string view() { return std::to_string(s().gViewWin); }
    std::string eval(const std::string& expression) {
        return engine->evaluate(expression).toEvalText();
    }

    void step(std::function<void()> action) { desk->addStep(std::move(action)); }
    std::string run() { return layer->RunMapInfoLayer(); }

    // A first session that sets the docked setting and leaves by OK, so that the next one
    // opens the docked form.
    void dock() {
        step([this] { desk->hands().press(form().Docked); });
        step([this] { desk->hands().press(form().OK); });
        run();
    }

    // The form's outer rectangle on the screen, in twips.
    QRect formTwips() {
        const QRect frame = desk->qt().viewOf(form())->frameGeometry();
        return {frame.x() * kTwips, frame.y() * kTwips, frame.width() * kTwips,
                frame.height() * kTwips};
    }

    vellant::testing::TempDir dir;
    std::string workspace;
    std::shared_ptr<engine::Engine> engine;
    std::shared_ptr<engine::MapInfoAutomation> host;
    platform::AutomationRegistry registry;
    std::unique_ptr<QtDesk> desk;
    std::unique_ptr<session::vlLayer> layer;
};

TEST_F(LayerFormOnQt, AClickOnAVisibleCellTurnsTheLayerOffOnTheViewMapInTheForm) {
    std::string before, after;
    qtui::MapWindowView* map = nullptr;
    int drawn = 0;
    step([&] {
        map = desk->hostWindow().mapView(s().gViewWin);
        ASSERT_NE(map, nullptr);
        // The view map lives inside the form's frame, not among the host's windows.
        EXPECT_EQ(map->parentWidget(), widget(form().MapInfoFrame));
        EXPECT_EQ(desk->hostWindow().subWindowFor(s().gViewWin), nullptr);
        map->grab();
        drawn = map->renderCount();
        before = eval("LayerInfo(" + view() + ",2,9)");
        desk->hands().click(grid(), midX(column("visible")), midY(rowOf(2)));
        after = eval("LayerInfo(" + view() + ",2,9)");
        // The map is drawn anew, without the layer.
        map->grab();
        EXPECT_GT(map->renderCount(), drawn);
        EXPECT_EQ(grid().cellAt(rowOf(2), column("visible")).picture.name, "Image2");
    });
    step([&] { desk->hands().press(form().Cancel); });
    run();
    EXPECT_NE(before, "0");
    EXPECT_EQ(after, "0");
}

TEST_F(LayerFormOnQt, ADragDownTheFirstColumnSelectsRowsAndShowsTheToggleStatus) {
    bool statusShown = false;
    QImage status;
    step([&] {
        EXPECT_FALSE(widget(form().ToggleStatusPic(0))->isVisible());
        desk->hands().drag(grid(), midX(0), midY(rowOf(2)), midX(0), midY(rowOf(4)));
        EXPECT_EQ(grid().Row(), rowOf(2));
        EXPECT_EQ(grid().RowSel(), rowOf(4));
        EXPECT_EQ(grid().ColSel(), grid().Cols() - 1);
        QWidget* picture = widget(form().ToggleStatusPic(0));
        statusShown = picture->isVisible();
        status = picture->grab().toImage();
    });
    step([&] { desk->hands().press(form().Cancel); });
    run();
    EXPECT_TRUE(statusShown);
    // The first step's picture, in its blue, 32 pixels square.
    ASSERT_EQ(status.size(), QSize(32, 32));
    const QColor blue = status.pixelColor(16, 4);
    EXPECT_GT(blue.blue(), 150);
    EXPECT_LT(blue.red(), 80);
}

TEST_F(LayerFormOnQt, ARightClickOpensThePopupWithTheDocumentedItems) {
    QStringList items;
    step([&] {
        // Looked at while the menu is up, before the user closes it.
        QTimer::singleShot(0, [&] {
            if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget()))
                for (QAction* action : menu->actions())
                    items << (action->isSeparator()
                                  ? QStringLiteral("-")
                                  : action->text() + (action->isChecked() ? " [x]" : ""));
        });
        desk->hands().rightClick(grid(), midX(column("visible")), midY(rowOf(3)));
    });
    step([&] { desk->hands().press(form().Cancel); });
    run();
    EXPECT_EQ(items, QStringList({"Expand row height to fit [x]", "Show tool tips [x]", "-",
                                  "View Entire Selected", "-", "Insert Layer", "Remove layer", "-",
                                  "Group selected layers", "Ungroup layers",
                                  "Remove saved map group details", "-", "Keep Vellant on top",
                                  "Show MapInfo status bar", "Save user position", "Self test"}));
}

// Opened column groups make the grid wider than its window: the glyphs of heads scrolled out
// of it keep their places in the model but do not stand beside the grid on screen.
TEST_F(LayerFormOnQt, ColumnGlyphsShowOnlyAboveTheGrid) {
    int beside = 0;
    int above = 0;
    step([&] { desk->hands().doubleClick(grid(), midX(column("zoom layer")), midY(0)); });
    step([&] { desk->hands().doubleClick(grid(), midX(column("label visible")), midY(0)); });
    step([&] {
        const QRect under = widget(grid())->geometry();
        for (auto* glyphs : {&form().CollapseColsPic, &form().ExpandColsPic}) {
            for (int i = glyphs->LBound(); i <= glyphs->UBound(); ++i) {
                const platform::Control& glyph = (*glyphs)(i);
                if (!glyph.Visible()) continue;
                const QWidget* shown = widget(glyph);
                ASSERT_NE(shown, nullptr);
                if (shown->geometry().right() > under.right()) {
                    ++beside;
                    EXPECT_FALSE(shown->isVisible()) << glyph.Name() << i;
                } else {
                    ++above;
                    EXPECT_TRUE(shown->isVisible()) << glyph.Name() << i;
                }
            }
        }
    });
    step([&] { desk->hands().press(form().Cancel); });
    run();
    EXPECT_GT(beside, 0);
    EXPECT_GT(above, 0);
}

TEST_F(LayerFormOnQt, EnterInTheEditorWritesTheCellAndTheLayer) {
    std::string text;
    step([&] { desk->hands().doubleClick(grid(), midX(column("zoom layer")), midY(0)); });
    step([&] { desk->hands().click(grid(), midX(column("zoom max")), midY(rowOf(3))); });
    step([&] {
        ASSERT_NE(s().gEditCell, nullptr);
        ASSERT_TRUE(s().gEditCell->Visible());
        // The editor lies over the clicked cell, in its green.
        auto* box = qobject_cast<QLineEdit*>(widget(s().gEditCell->ecell));
        ASSERT_NE(box, nullptr);
        EXPECT_TRUE(box->isVisible());
        EXPECT_EQ(box->palette().color(QPalette::Base), QColor(0xC0, 0xFF, 0xC0));
        QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(box, "5000");
        QTest::keyClick(box, Qt::Key_Return);
    });
    step([&] { text = grid().TextMatrix(rowOf(3), column("zoom max")); });
    step([&] { desk->hands().press(form().Cancel); });
    run();
    EXPECT_EQ(text, "5000");
}

TEST_F(LayerFormOnQt, TheDockedFormFollowsTheHostWindowThroughAMoveAResizeAndAMaximise) {
    dock();
    qtui::HostMainWindow& hostWindow = desk->hostWindow();
    // Here the host's window tells the companion of its moves, as on the desktop.
    hostWindow.setAdvisesCompanion(true);
    hostWindow.showNormal();
    hostWindow.setGeometry(40, 30, 620, 500);
    QRect moved, resized, maximised;
    QRect hostMoved, hostResized;
    const auto settle = [] {
        for (int i = 0; i < 4; ++i)
            QCoreApplication::processEvents();
    };
    step([&] {
        EXPECT_EQ(form().Name(), "vlLayerDocked");
        hostWindow.move(100, 60);
        settle();
        moved = formTwips();
        hostMoved = hostWindow.frameGeometry();
        hostWindow.resize(700, 560);
        settle();
        resized = formTwips();
        hostResized = hostWindow.frameGeometry();
        hostWindow.showMaximized();
        settle();
        maximised = formTwips();
    });
    step([&] { desk->hands().press(form().Cancel); });
    run();
    // The form's left and width are the host window's outer ones, its bottom edge on the
    // host's (the host's status bar is hidden while the program runs, so nothing is kept free
    // below the form).
    const int reserve = 0;
    EXPECT_EQ(moved.left(), hostMoved.left() * kTwips);
    EXPECT_EQ(moved.width(), hostMoved.width() * kTwips);
    EXPECT_NEAR(moved.top() + moved.height(), (hostMoved.bottom() + 1) * kTwips - reserve, kTwips);
    EXPECT_EQ(resized.width(), hostResized.width() * kTwips);
    EXPECT_NEAR(resized.top() + resized.height(), (hostResized.bottom() + 1) * kTwips - reserve,
                kTwips);
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    EXPECT_EQ(maximised.left(), 0);
    EXPECT_EQ(maximised.width(), screen.width() * kTwips);
    EXPECT_NEAR(maximised.top() + maximised.height(), screen.height() * kTwips - reserve, kTwips);
}

TEST_F(LayerFormOnQt, TheHostWindowClosingUnderTheFormEndsTheSessionQuietly) {
    desk->hostWindow().setAdvisesCompanion(true);
    step([&] { desk->hostWindow().close(); });
    // Should the session not end, the desk closes the form when it runs out of steps.
    step([&] { ADD_FAILURE() << "the session went on after its host's window closed"; });
    EXPECT_EQ(run(), "ok");
    EXPECT_EQ(layer->currentSession(), nullptr);
    EXPECT_TRUE(desk->qt().formViews().empty() ||
                std::none_of(desk->qt().formViews().begin(), desk->qt().formViews().end(),
                             [](qtui::FormView* v) { return v->isVisible(); }));
}

TEST_F(LayerFormOnQt, AHostWindowMovedOffTheScreenTakesTheDockedFormAlong) {
    dock();
    desk->hostWindow().setAdvisesCompanion(true);
    QRect away, hostAway;
    step([&] {
        desk->hostWindow().move(-3000, 5000);
        for (int i = 0; i < 4; ++i)
            QCoreApplication::processEvents();
        desk->tickTimers();
        away = formTwips();
        hostAway = desk->hostWindow().frameGeometry();
    });
    step([&] { desk->hands().press(form().Cancel); });
    run();
    EXPECT_EQ(away.left(), hostAway.left() * kTwips);
    EXPECT_GT(away.top(), 5000 * kTwips);
}

} // namespace
} // namespace vellant::replay
