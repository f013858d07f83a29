#pragma once
// An engine with a map in a plan coordinate system (metres), drawn into small pictures whose
// pixels the render tests read. The default view shows x 0..100 and y 16.7..83.3 on a
// 300 by 200 picture: 3 pixels a metre.

#include "engine/engine.h"
#include "engine/render/geometry_cache.h"
#include "engine/render/gui_application.h"
#include "engine/render/map_renderer.h"
#include "engine/tables/catalog.h"
#include "engine/windows/window_manager.h"

#include <QColor>
#include <QImage>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>

namespace vellant::engine::testing {

inline constexpr const char* kPlan = "CoordSys NonEarth Units \"m\" Bounds (0, 0) (1000, 1000)";
inline constexpr int kRed = 16711680;
inline constexpr int kGreen = 65280;
inline const QSize kPicture(300, 200);

class RenderTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        ensureGuiApplication();
        folder() = (std::filesystem::temp_directory_path() /
                    ("vellant_render_" + std::to_string(::getpid())))
                       .string();
        std::filesystem::create_directories(folder());
    }
    static void TearDownTestSuite() { std::filesystem::remove_all(folder()); }
    static std::string& folder() {
        static std::string path;
        return path;
    }

    void SetUp() override { run("Dim tobj As Object"); }

    void run(const std::string& statement) { engine.run(statement); }

    // A mappable table in memory with one integer column.
    void makeTable(const std::string& name, const std::string& coordSys = kPlan) {
        run("Create Table " + name + " (n Integer)");
        run("Create Map For " + name + " " + coordSys);
    }
    // create: a Create statement into the variable tobj, e.g. "Create Point into variable tobj
    // (1,2)".
    void add(const std::string& table, int n, const std::string& create) {
        run(create);
        run("Insert Into " + table + " (n, Obj) Values (" + std::to_string(n) + ", tobj)");
    }
    // Maps the tables and shows x 0..100 around (50, 50).
    int mapFrom(const std::string& tables) {
        run("Map From " + tables);
        const int id = engine.windows().frontWindow();
        show(id, 50, 50, 100);
        return id;
    }
    MapState& map(int id) { return *engine.windows().getMap(id).map; }
    // For the plan system the zoom is the view's width in map units.
    void show(int id, double x, double y, double width) {
        map(id).centreX = x;
        map(id).centreY = y;
        map(id).zoomMetres = width;
    }

    QImage draw(int id, QSize size = kPicture) {
        QImage image(size, QImage::Format_ARGB32_Premultiplied);
        report = engine.renderer().draw(engine.windows().getMap(id), image);
        return image;
    }
    QPointF pixelOf(int id, double x, double y, QSize size = kPicture) {
        return MapRenderer::transformFor(engine.windows().getMap(id), QSizeF(size)).toPixel(x, y);
    }
    // The colour at a map point, as R * 65536 + G * 256 + B.
    int colourAt(const QImage& image, int id, double x, double y) {
        const QPointF p = pixelOf(id, x, y, image.size());
        const QColor c = image.pixelColor(static_cast<int>(p.x()), static_cast<int>(p.y()));
        return c.red() * 65536 + c.green() * 256 + c.blue();
    }
    // Pixels of exactly that colour in a box of map coordinates.
    int countColour(const QImage& image, int id, double x1, double y1, double x2, double y2,
                    int rgb) {
        const QPointF a = pixelOf(id, x1, y2, image.size());
        const QPointF b = pixelOf(id, x2, y1, image.size());
        int count = 0;
        for (int y = std::max(0, static_cast<int>(a.y()));
             y < std::min(image.height(), static_cast<int>(b.y())); ++y) {
            for (int x = std::max(0, static_cast<int>(a.x()));
                 x < std::min(image.width(), static_cast<int>(b.x())); ++x) {
                const QColor c = image.pixelColor(x, y);
                if (c.red() * 65536 + c.green() * 256 + c.blue() == rgb) ++count;
            }
        }
        return count;
    }
    // Pixels darker than mid grey in a box of map coordinates (anti-aliased marks).
    int countDark(const QImage& image, int id, double x1, double y1, double x2, double y2) {
        const QPointF a = pixelOf(id, x1, y2, image.size());
        const QPointF b = pixelOf(id, x2, y1, image.size());
        int count = 0;
        for (int y = std::max(0, static_cast<int>(a.y()));
             y < std::min(image.height(), static_cast<int>(b.y())); ++y) {
            for (int x = std::max(0, static_cast<int>(a.x()));
                 x < std::min(image.width(), static_cast<int>(b.x())); ++x) {
                if (qGray(image.pixel(x, y)) < 100) ++count;
            }
        }
        return count;
    }
    int countNotWhite(const QImage& image) {
        int count = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixel(x, y) != qRgb(255, 255, 255)) ++count;
        return count;
    }

    Engine engine;
    RenderReport report;
};

} // namespace vellant::engine::testing
