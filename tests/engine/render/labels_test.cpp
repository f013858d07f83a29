// Labels drawn by LabelPainter alone, over geometry read straight from a table in the map's
// own coordinate system: where the text lands, in which colour, and what is left out.

#include "engine/engine.h"
#include "engine/mb_error.h"
#include "engine/render/gui_application.h"
#include "engine/render/label_painter.h"
#include "engine/tables/catalog.h"
#include "engine/windows/window_manager.h"

#include <QImage>
#include <QPainter>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <ostream>
#include <string>

namespace vellant::engine::testing {
namespace {

constexpr QRgb kRed = 0xFF0000;
constexpr QRgb kBlue = 0x0000FF;
constexpr QRgb kGreen = 0x00FF00;
constexpr QRgb kYellow = 0xFFFF00;

// Pixels of the area within a small distance of a colour (antialiased edges aside, glyph
// strokes of a large font are drawn in the colour itself).
int pixelsOf(const QImage& image, QRect area, QRgb colour, int tolerance = 40) {
    area = area.intersected(image.rect());
    int count = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            const QRgb p = image.pixel(x, y);
            if (std::abs(qRed(p) - qRed(colour)) <= tolerance &&
                std::abs(qGreen(p) - qGreen(colour)) <= tolerance &&
                std::abs(qBlue(p) - qBlue(colour)) <= tolerance) {
                ++count;
            }
        }
    }
    return count;
}

QRect around(QPointF centre, int halfWidth, int halfHeight) {
    return QRect(static_cast<int>(centre.x()) - halfWidth,
                 static_cast<int>(centre.y()) - halfHeight, 2 * halfWidth + 1, 2 * halfHeight + 1);
}

class Labels : public ::testing::Test {
protected:
    static constexpr QSize kPicture{240, 240};

    void SetUp() override {
        ensureGuiApplication();
        run("Create Table Towns (Name Char(20), Pop Integer)");
        run("Create Map For Towns");
        run("Dim tobj as Object");
    }

    void run(const std::string& statement) { engine.run(statement); }

    void addObject(const std::string& create, const std::string& name, int pop) {
        run(create);
        run("Insert Into Towns (Name, Pop, Obj) Values (\"" + name + "\", " + std::to_string(pop) +
            ", tobj)");
    }
    void addPoint(const std::string& name, int pop, double x, double y) {
        addObject("Create Point Into Variable tobj (" + std::to_string(x) + ", " +
                      std::to_string(y) + ")",
                  name, pop);
    }

    // The map of Towns, centred on (0, 0) 40 degrees wide, labels in large red letters.
    void mapTowns() {
        run("Map From Towns");
        window = engine.windows().frontWindow();
        setMap("Center (0, 0) Zoom 2760 Units \"mi\"");
        setLayer("Label Auto On Font (\"Arial\",0,24,16711680) With Name");
    }
    void setMap(const std::string& clauses) {
        run("Set Map Window " + std::to_string(window) + " " + clauses);
    }
    void setLayer(const std::string& clauses) { setMap("Layer 1 " + clauses); }

    const Window& mapWindow() { return *engine.windows().find(window); }
    ViewTransform view() { return MapRenderer::transformFor(mapWindow(), QSizeF(kPicture)); }
    QPointF pixel(double x, double y) { return view().toPixel(x, y); }

    // The table's objects as the map's geometry (the map has the table's coordinate system).
    LayerGeometry geometry() {
        const Table& table = *engine.catalog().find("Towns");
        LayerGeometry layer;
        for (std::int64_t row = 1; row <= table.rowCount(); ++row) {
            auto object = table.object(row);
            if (!object) continue;
            layer.objects.push_back(MapGeometry{row, object, object->parts, Bounds{}});
        }
        return layer;
    }

    QImage draw(double dpi = 96) {
        QImage image(kPicture, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        QPainter painter(&image);
        const ViewTransform transform = view();
        RenderOptions options;
        options.dpi = dpi;
        LabelPainter labels(engine, painter, transform, options, mapWindow().map->zoomMetres);
        report = RenderReport{};
        labels.drawLayer(mapWindow().map->layers.at(0), *engine.catalog().find("Towns"), geometry(),
                         report);
        placed = labels.placed();
        return image;
    }

    Engine engine;
    int window = 0;
    RenderReport report;
    std::vector<PlacedLabel> placed;
};

TEST_F(Labels, TextAppearsAroundThePointInTheLabelColourAndNowhereElse) {
    addPoint("Alpha", 5, 0, 0);
    mapTowns();
    const QImage image = draw();
    const QPointF anchor = pixel(0, 0);
    EXPECT_GT(pixelsOf(image, around(anchor, 50, 20), kRed), 20);
    EXPECT_EQ(pixelsOf(image, QRect(0, 0, 240, 80), kRed), 0);
    EXPECT_EQ(pixelsOf(image, QRect(0, 160, 240, 80), kRed), 0);
    ASSERT_EQ(placed.size(), 1U);
    EXPECT_EQ(placed[0].text, "Alpha");
}

TEST_F(Labels, PositionAndOffsetPutTheTextBesideTheAnchor) {
    addPoint("Alpha", 5, 0, 0);
    mapTowns();
    setLayer("Label Position Right Offset 10");
    const QImage right = draw();
    const QPointF anchor = pixel(0, 0);
    const QRect leftSide(0, 0, static_cast<int>(anchor.x()) + 10, 240);
    EXPECT_EQ(pixelsOf(right, leftSide, kRed), 0);
    EXPECT_GT(pixelsOf(right, QRect(static_cast<int>(anchor.x()) + 12, 0, 120, 240), kRed), 20);

    setLayer("Label Position Above Left");
    const QImage aboveLeft = draw();
    EXPECT_EQ(pixelsOf(aboveLeft, QRect(static_cast<int>(anchor.x()) - 5, 0, 200, 240), kRed), 0);
    EXPECT_EQ(pixelsOf(aboveLeft, QRect(0, static_cast<int>(anchor.y()) - 5, 240, 200), kRed), 0);
    EXPECT_GT(pixelsOf(aboveLeft,
                       QRect(0, 0, static_cast<int>(anchor.x()), static_cast<int>(anchor.y())),
                       kRed),
              20);
}

TEST_F(Labels, ALabelOverlappingAnEarlierOneIsLeftOutUnlessOverlapIsOn) {
    addPoint("Alpha", 5, 0, 0);
    addPoint("Omega", 6, 1, 0);
    mapTowns();
    setLayer("Label Object 2 Font (\"Arial\",0,24,255)");
    const QRect place = around(pixel(0, 0), 70, 25);
    const QImage crowded = draw();
    EXPECT_EQ(placed.size(), 1U);
    EXPECT_GT(pixelsOf(crowded, place, kRed), 20);
    EXPECT_EQ(pixelsOf(crowded, place, kBlue), 0);

    setLayer("Label Overlap On");
    const QImage both = draw();
    EXPECT_EQ(placed.size(), 2U);
    EXPECT_GT(pixelsOf(both, place, kBlue), 20);
}

TEST_F(Labels, AutoRetryFindsAnotherPositionForACrowdedLabel) {
    addPoint("Alpha", 5, 0, 0);
    addPoint("Omega", 6, 0, 4);
    mapTowns();
    draw();
    EXPECT_EQ(placed.size(), 1U);
    setLayer("Label Auto Retry On");
    draw();
    ASSERT_EQ(placed.size(), 2U);
    EXPECT_FALSE(placed[0].outline.intersects(placed[1].outline));
}

TEST_F(Labels, ZoomVisibilityDrawsOnlyWithinItsRange) {
    addPoint("Alpha", 5, 0, 0);
    mapTowns();
    setLayer("Label Visibility Zoom (10, 1000) Units \"mi\"");
    EXPECT_EQ(pixelsOf(draw(), QRect(0, 0, 240, 240), kRed), 0);
    EXPECT_TRUE(placed.empty());

    setLayer("Label Visibility Zoom (1000, 5000) Units \"mi\"");
    EXPECT_GT(pixelsOf(draw(), QRect(0, 0, 240, 240), kRed), 20);

    setLayer("Label Visibility Off");
    EXPECT_EQ(pixelsOf(draw(), QRect(0, 0, 240, 240), kRed), 0);
}

TEST_F(Labels, EditsHideShowAndRewriteSingleLabels) {
    addPoint("Alpha", 5, -10, 0);
    addPoint("Beta", 6, 10, 0);
    mapTowns();
    setLayer("Label Object 1 Visibility Off Label Object 2 Text \"Bravo\"");
    draw();
    ASSERT_EQ(placed.size(), 1U);
    EXPECT_EQ(placed[0].row, 2);
    EXPECT_EQ(placed[0].text, "Bravo");

    // Without automatic labels only the labels turned on one by one show.
    setLayer("Label Auto Off Label Object 1 Visibility On");
    draw();
    ASSERT_EQ(placed.size(), 1U);
    EXPECT_EQ(placed[0].row, 1);
}

TEST_F(Labels, TheExpressionIsEvaluatedForEachRow) {
    addPoint("Alpha", 5, -10, 10);
    addPoint("Beta", 16, 10, -10);
    mapTowns();
    setLayer("Label With Name + \" \" + Str$(Pop * 2)");
    draw();
    ASSERT_EQ(placed.size(), 2U);
    EXPECT_EQ(placed[0].text, "Alpha 10");
    EXPECT_EQ(placed[1].text, "Beta 32");

    setLayer("Label With Towns.Pop");
    const std::int64_t fetched = engine.catalog().find("Towns")->currentRow;
    draw();
    ASSERT_EQ(placed.size(), 2U);
    EXPECT_EQ(placed[1].text, "16");
    EXPECT_EQ(engine.catalog().find("Towns")->currentRow, fetched) << "the fetch position is kept";
}

TEST_F(Labels, AFailingExpressionIsReportedOnceAndDrawsNoLabel) {
    addPoint("Alpha", 1, -10, 10);
    addPoint("Beta", 0, 10, -10);
    addPoint("Gamma", 0, 10, 10);
    mapTowns();
    setLayer("Label With Str$(10 / Pop)");
    const QImage image = draw();
    ASSERT_EQ(report.problems.size(), 1U);
    EXPECT_EQ(report.problems[0].code(), kMbFloatDomain);
    EXPECT_TRUE(placed.empty());
    EXPECT_EQ(pixelsOf(image, QRect(0, 0, 240, 240), kRed), 0);
}

TEST_F(Labels, DuplicatesOffShowsRepeatedTextOnceAndMaxLimitsTheCount) {
    addPoint("Same", 1, -10, 10);
    addPoint("Same", 2, 10, -10);
    addPoint("Other", 3, -10, -10);
    mapTowns();
    draw();
    EXPECT_EQ(placed.size(), 2U);
    setLayer("Label Duplicates On");
    draw();
    EXPECT_EQ(placed.size(), 3U);
    setLayer("Label Max 1");
    draw();
    EXPECT_EQ(placed.size(), 1U);
}

TEST_F(Labels, ParallelLabelsFollowTheLineAndStayUpright) {
    // Going right to left and down: the text still reads left to right.
    addObject("Create Line Into Variable tobj (10, 5) (-10, -5)", "Road", 1);
    mapTowns();
    setLayer("Label Parallel On");
    draw();
    ASSERT_EQ(placed.size(), 1U);
    const QPolygonF& box = placed[0].outline;
    const QPointF along = box[1] - box[0];
    EXPECT_GT(along.x(), 0);
    const double angle = std::atan2(-along.y(), along.x()) * 180 / M_PI;
    EXPECT_NEAR(angle, std::atan2(10.0, 20.0) * 180 / M_PI, 0.5);
    const QPointF middle = pixel(0, 0);
    EXPECT_NEAR(box.boundingRect().center().x(), middle.x(), 1);
    EXPECT_NEAR(box.boundingRect().center().y(), middle.y(), 1);
}

TEST_F(Labels, HaloOutlinesTheTextAndABackColourWithoutHaloFillsABox) {
    addPoint("Alpha", 5, 0, 0);
    mapTowns();
    setLayer("Label Font (\"Arial\",256,24,16711680,65280)");
    const QRect place = around(pixel(0, 0), 60, 25);
    const QImage halo = draw();
    EXPECT_GT(pixelsOf(halo, place, kGreen), 20);
    EXPECT_GT(pixelsOf(halo, place, kRed), 20);

    setLayer("Label Font (\"Arial\",0,24,16711680,16776960)");
    const QImage boxed = draw();
    const int yellow = pixelsOf(boxed, place, kYellow, 0);
    // A box around "Alpha" at 24 points: most of the text's own rectangle.
    EXPECT_GT(yellow, 600);
    EXPECT_EQ(pixelsOf(boxed, QRect(0, 0, 240, 60), kYellow, 0), 0);
}

TEST_F(Labels, ACallOutLineJoinsAMovedLabelToItsObject) {
    addPoint("Alpha", 5, 0, 0);
    mapTowns();
    setLayer("Label Line Simple Pen (2,2,255)");
    const QPointF from = pixel(0, 0);
    const QPointF to = pixel(0, 12);
    const QRect between = around((from + to) / 2, 3, 6);
    EXPECT_EQ(pixelsOf(draw(), between, kBlue), 0) << "a label in its place has no call-out";

    setLayer("Label Object 1 Anchor (0, 12)");
    const QImage moved = draw();
    EXPECT_GT(pixelsOf(moved, between, kBlue), 3);
    EXPECT_GT(pixelsOf(moved, around(to, 50, 20), kRed), 20);
    EXPECT_EQ(pixelsOf(moved, around(from, 40, 5), kRed), 0);
}

TEST_F(Labels, TextObjectsAndUnusableCoordinatesGetNoLabel) {
    addObject("Create Text Into Variable tobj \"Words\" (0, 0) (5, 5)", "Text", 1);
    addPoint("Far", 2, 1e300, 1e300);
    mapTowns();
    EXPECT_NO_THROW(draw());
    EXPECT_TRUE(placed.empty());
    EXPECT_TRUE(report.problems.empty());
}

// Anchors of single objects, from geometry built by hand.
struct AnchorCase {
    const char* name;
    ObjectKind kind;
    std::vector<std::vector<MapPoint>> parts;
    std::optional<MapPoint> expected;
};

// Failures name the case.
std::ostream& operator<<(std::ostream& out, const AnchorCase& c) {
    return out << c.name;
}

class Anchors : public ::testing::TestWithParam<AnchorCase> {};

TEST_P(Anchors, FallWhereTheHostPutsThem) {
    const AnchorCase& c = GetParam();
    auto object = std::make_shared<MapObject>();
    object->kind = c.kind;
    object->parts = c.parts;
    const MapGeometry geometry{1, object, c.parts, Bounds{}};
    const auto anchor = LabelPainter::anchorOf(geometry);
    ASSERT_EQ(anchor.has_value(), c.expected.has_value());
    if (!anchor) return;
    EXPECT_NEAR(anchor->point.x, c.expected->x, 1e-9);
    EXPECT_NEAR(anchor->point.y, c.expected->y, 1e-9);
}

const double kNaN = std::numeric_limits<double>::quiet_NaN();

INSTANTIATE_TEST_SUITE_P(
    Objects, Anchors,
    ::testing::Values(
        AnchorCase{"SquareCentroid",
                   ObjectKind::Region,
                   {{{0, 0}, {4, 0}, {4, 4}, {0, 4}}},
                   MapPoint{2, 2}},
        // A U shape: its centroid (x 3) falls in the gap, so the widest inside span on that
        // level is used instead.
        AnchorCase{"ConcaveRegionStaysInside",
                   ObjectKind::Region,
                   {{{0, 0}, {6, 0}, {6, 6}, {5, 6}, {5, 1}, {1, 1}, {1, 6}, {0, 6}}},
                   MapPoint{0.5, 2.375}},
        AnchorCase{"LargestRingOfTwo",
                   ObjectKind::Region,
                   {{{0, 0}, {1, 0}, {1, 1}, {0, 1}}, {{10, 10}, {14, 10}, {14, 14}, {10, 14}}},
                   MapPoint{12, 12}},
        AnchorCase{"MiddleOfLongestSection",
                   ObjectKind::Polyline,
                   {{{0, 0}, {1, 0}}, {{0, 5}, {4, 5}, {4, 9}}},
                   MapPoint{4, 5}},
        AnchorCase{"MiddleOfALine", ObjectKind::Line, {{{0, 0}, {10, 20}}}, MapPoint{5, 10}},
        AnchorCase{"PointItself", ObjectKind::Point, {{{3, 7}}}, MapPoint{3, 7}},
        AnchorCase{"TextHasNone", ObjectKind::Text, {{{0, 0}, {1, 1}}}, std::nullopt},
        AnchorCase{"NoPointsNone", ObjectKind::Region, {}, std::nullopt},
        AnchorCase{"NaNNone", ObjectKind::Point, {{{kNaN, 1}}}, std::nullopt}),
    [](const ::testing::TestParamInfo<AnchorCase>& row) { return std::string(row.param.name); });

} // namespace
} // namespace vellant::engine::testing
