// The map view's mouse: wheel and zoom tools, the grabber, select and info, and Redraw.

#include "engine/tables/catalog.h"
#include "host_window_fixture.h"
#include "qtui/host/host_status_bar.h"
#include "qtui/host/info_panel.h"
#include "qtui/host/map_tool_icons.h"

#include <QTableWidget>
#include <QWheelEvent>
#include <cmath>
#include <ostream>

namespace vellant::qtui::testing {
namespace {

using engine::kToolGrabber;
using engine::kToolSelect;
using engine::kToolZoomIn;
using engine::kToolZoomOut;

class MapViewTest : public HostWindowTest {
protected:
    void SetUp() override {
        HostWindowTest::SetUp();
        load(kRegionsMap);
        id_ = engine_->windows().frontWindow();
        view_ = &frontMap();
    }

    std::string mapperInfo(int what) const {
        return "MapperInfo(" + std::to_string(id_) + ", " + std::to_string(what) + ")";
    }

    void wheel(QPointF at, int delta) {
        QWheelEvent event(at, view_->mapToGlobal(at), QPoint(), QPoint(0, delta), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(view_, &event);
    }

    void click(QPoint at, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mouseClick(view_, Qt::LeftButton, modifiers, at);
    }

    int id_ = 0;
    MapWindowView* view_ = nullptr;
};

// A zoom gesture: how it is made, what it does to MapperInfo's zoom, and which pixel the map
// point under the mouse ends on (the mouse itself, or the middle of the view).
struct ZoomGesture {
    const char* name;
    int tool;  // 0: the wheel
    int notch; // wheel delta
    double zoomFactor;
    bool centres;
};

std::ostream& operator<<(std::ostream& out, const ZoomGesture& gesture) {
    return out << gesture.name;
}

class ZoomGestureTest : public MapViewTest, public ::testing::WithParamInterface<ZoomGesture> {};

TEST_P(ZoomGestureTest, ZoomsByItsFactorAboutTheMouse) {
    const ZoomGesture& gesture = GetParam();
    const QPoint at(view_->width() * 3 / 10, view_->height() * 6 / 10);
    const engine::MapPoint under = *view_->mapPointAt(at);
    const double zoom = number(mapperInfo(1));

    if (gesture.tool == 0) {
        wheel(at, gesture.notch);
    } else {
        engine_->runMenuCommand(gesture.tool);
        click(at);
    }

    EXPECT_NEAR(number(mapperInfo(1)), zoom * gesture.zoomFactor, zoom * 1e-9);
    const QPointF lands =
        gesture.centres ? QPointF(view_->width() / 2.0, view_->height() / 2.0) : QPointF(at);
    const engine::MapPoint now = *view_->mapPointAt(lands);
    EXPECT_NEAR(now.x, under.x, 1e-4);
    EXPECT_NEAR(now.y, under.y, 1e-4);
}

INSTANTIATE_TEST_SUITE_P(
    Gestures, ZoomGestureTest,
    ::testing::Values(ZoomGesture{"WheelForward", 0, 120, 1 / 1.25, false},
                      ZoomGesture{"WheelBackTwoNotches", 0, -240, 1.25 * 1.25, false},
                      ZoomGesture{"ZoomInClick", kToolZoomIn, 0, 0.5, true},
                      ZoomGesture{"ZoomOutClick", kToolZoomOut, 0, 2.0, true}),
    [](const ::testing::TestParamInfo<ZoomGesture>& gesture) { return gesture.param.name; });

TEST_F(MapViewTest, ZoomInBoxFillsTheWindowWithTheBox) {
    engine_->runMenuCommand(kToolZoomIn);
    const QPoint from = pixelOf(*view_, 2, 8);
    const QPoint to = pixelOf(*view_, 8, 2);
    const double zoom = number(mapperInfo(1));
    QTest::mousePress(view_, Qt::LeftButton, {}, from);
    QTest::mouseMove(view_, (from + to) / 2);
    QTest::mouseMove(view_, to);
    QTest::mouseRelease(view_, Qt::LeftButton, {}, to);

    EXPECT_NEAR(number(mapperInfo(3)), 5, 0.05);
    EXPECT_NEAR(number(mapperInfo(4)), 5, 0.05);
    EXPECT_LT(number(mapperInfo(1)), zoom / 2);
    // The box's corners are now in view, near its edges.
    const QPoint corner = pixelOf(*view_, 2, 8);
    EXPECT_TRUE(view_->rect().contains(corner));
}

TEST_F(MapViewTest, GrabberDragMovesTheCentreLiveAndKeepsThePointHeld) {
    engine_->runMenuCommand(kToolGrabber);
    EXPECT_EQ(view_->cursor().shape(), Qt::OpenHandCursor);
    const QPoint from(view_->width() / 2, view_->height() / 2);
    const QPoint middle = from + QPoint(30, -10);
    const QPoint to = from + QPoint(60, -20);
    const engine::MapPoint held = *view_->mapPointAt(from);
    const double x = number(mapperInfo(3));
    const double y = number(mapperInfo(4));
    const double zoom = number(mapperInfo(1));

    QTest::mousePress(view_, Qt::LeftButton, {}, from);
    QTest::mouseMove(view_, middle);
    EXPECT_EQ(view_->cursor().shape(), Qt::ClosedHandCursor);
    EXPECT_LT(number(mapperInfo(3)), x) << "the map follows the mouse during the drag";
    QTest::mouseMove(view_, to);
    QTest::mouseRelease(view_, Qt::LeftButton, {}, to);

    // Dragged right and up: the view moves west and south by what the drag covered.
    EXPECT_LT(number(mapperInfo(3)), x);
    EXPECT_LT(number(mapperInfo(4)), y);
    EXPECT_NEAR(number(mapperInfo(1)), zoom, zoom * 1e-9);
    const engine::MapPoint now = *view_->mapPointAt(to);
    EXPECT_NEAR(now.x, held.x, 1e-4);
    EXPECT_NEAR(now.y, held.y, 1e-4);
    EXPECT_EQ(view_->cursor().shape(), Qt::OpenHandCursor);
}

TEST_F(MapViewTest, SelectPicksTheBaseRowAndShiftTogglesAndNothingClears) {
    ASSERT_EQ(engine_->windows().mapTool(), kToolSelect);
    const engine::Selection& selection = engine_->catalog().selection();
    const int paintsBefore = view_->renderCount();

    // Beta is row 1 of Query1, the top layer: the selection is regions' row 2.
    click(pixelOf(*view_, 18, 2));
    EXPECT_EQ(selection.table, "regions");
    EXPECT_EQ(selection.rows, (std::vector<std::int64_t>{2}));
    view_->repaint();
    EXPECT_GT(view_->renderCount(), paintsBefore) << "the map shows the new selection";

    click(pixelOf(*view_, 5, 5), Qt::ShiftModifier);
    EXPECT_EQ(selection.rows, (std::vector<std::int64_t>{1, 2}));
    click(pixelOf(*view_, 18, 2), Qt::ShiftModifier);
    EXPECT_EQ(selection.rows, (std::vector<std::int64_t>{1}));

    click(pixelOf(*view_, 5, 5));
    EXPECT_EQ(selection.rows, (std::vector<std::int64_t>{1}));
    click(pixelOf(*view_, 16, 11)); // between the regions
    EXPECT_TRUE(selection.empty());
}

TEST_F(MapViewTest, InfoToolShowsTheRecordUnderTheClick) {
    engine_->runMenuCommand(kToolInfo);
    click(pixelOf(*view_, 5, 5));
    const QTableWidget& grid = window_->infoPanel().grid();
    ASSERT_GE(grid.rowCount(), 2);
    QStringList cells;
    for (int row = 0; row < grid.rowCount(); ++row)
        cells << grid.item(row, 0)->text() + "=" + grid.item(row, 1)->text();
    EXPECT_TRUE(cells.contains("Name=Alpha")) << cells.join(", ").toStdString();
    EXPECT_TRUE(window_->infoPanel().isVisible());
}

TEST_F(MapViewTest, RedrawOffKeepsThePictureAndOnDrawsTheChange) {
    const QImage before = view_->picture();
    const int renders = view_->renderCount();
    const std::string window = std::to_string(id_);
    engine_->run("Set Map Window " + window + " Redraw Off");
    engine_->run("Set Map Window " + window + " Zoom 200 Units \"mi\"");
    view_->repaint();
    EXPECT_EQ(view_->renderCount(), renders);
    EXPECT_EQ(view_->picture(), before);

    engine_->run("Set Map Window " + window + " Redraw On");
    view_->repaint();
    EXPECT_GT(view_->renderCount(), renders);
    EXPECT_NE(view_->picture(), before);
}

TEST_F(MapViewTest, StatusBarShowsZoomScaleAndCursor) {
    const HostStatusBar& status = window_->hostStatusBar();
    EXPECT_TRUE(status.zoomText().startsWith("Zoom: ")) << status.zoomText().toStdString();
    EXPECT_TRUE(status.zoomText().endsWith(" mi"));
    EXPECT_TRUE(status.scaleText().startsWith("Scale: 1:"));
    QTest::mouseMove(view_, pixelOf(*view_, 5, 5));
    EXPECT_TRUE(status.cursorText().contains("X: 5.0")) << status.cursorText().toStdString();

    const QString zoomBefore = status.zoomText();
    wheel(QPointF(view_->width() / 2.0, view_->height() / 2.0), 120);
    EXPECT_NE(status.zoomText(), zoomBefore);
}

} // namespace
} // namespace vellant::qtui::testing
