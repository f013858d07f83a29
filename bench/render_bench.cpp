// Drawing a map of 100 regions and 75,000 vertices (a MapInfo TAB GDAL writes) at 800 by 600:
// a cold start (open the table, map it, draw, save a PNG) and a warm redraw, which reads the
// geometry kept from the first draw.

#include "engine/engine.h"
#include "engine/render/gui_application.h"
#include "engine/render/map_renderer.h"
#include "engine/tables/ogr_style.h"
#include "engine/windows/window_manager.h"

#include <benchmark/benchmark.h>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <gdal_priv.h>
#include <ogr_spatialref.h>
#include <ogrsf_frmts.h>
#include <string>

namespace {

constexpr int kRegions = 100;
constexpr int kVerticesEach = 750;

// Wobbly discs on a 10 by 10 grid of long/lat, each in a colour of its own.
std::string writeRegions(const std::string& folder) {
    GDALAllRegister();
    const std::string path = folder + "/regions.tab";
    GDALDriver* driver = GetGDALDriverManager()->GetDriverByName("MapInfo File");
    std::unique_ptr<GDALDataset> dataset(
        driver->Create(path.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    if (!dataset) std::abort();
    OGRSpatialReference wgs84;
    wgs84.SetWellKnownGeogCS("WGS84");
    OGRLayer* layer = dataset->CreateLayer("regions", &wgs84, wkbPolygon, nullptr);
    OGRFieldDefn field("n", OFTInteger);
    if (layer == nullptr || layer->CreateField(&field) != OGRERR_NONE) std::abort();
    for (int i = 0; i < kRegions; ++i) {
        const double cx = 5 + (i % 10) * 10.0, cy = 5 + (i / 10) * 7.5;
        auto* ring = new OGRLinearRing();
        for (int k = 0; k < kVerticesEach; ++k) {
            const double angle = 2 * M_PI * k / kVerticesEach;
            const double r = 3.5 + 0.6 * std::sin(angle * 17) + 0.2 * std::cos(angle * 53);
            ring->addPoint(cx + r * std::cos(angle), cy + r * 0.8 * std::sin(angle));
        }
        ring->closeRings();
        OGRPolygon polygon;
        polygon.addRingDirectly(ring);
        OGRFeature feature(layer->GetLayerDefn());
        feature.SetField("n", i + 1);
        feature.SetGeometry(&polygon);
        using namespace vellant::engine;
        const std::string style =
            ogrPenString(PenStyle{1, 2, 0}) + ";" +
            ogrBrushString(BrushStyle{i % 3 == 0 ? 5 : 2, (i * 2654435) & 0xFFFFFF, 16777215});
        feature.SetStyleString(style.c_str());
        if (layer->CreateFeature(&feature) != OGRERR_NONE) std::abort();
    }
    return path;
}

struct Folder {
    Folder() {
        path = (std::filesystem::temp_directory_path() / "vellant-render-bench-XXXXXX").string();
        if (mkdtemp(path.data()) == nullptr) std::abort();
        table = writeRegions(path);
    }
    ~Folder() { std::filesystem::remove_all(path); }
    std::string path;
    std::string table;
};

Folder& folder() {
    static Folder made;
    return made;
}

const vellant::engine::Window& openMap(vellant::engine::Engine& engine) {
    engine.run("Open Table \"" + folder().table + "\" As regions");
    engine.run("Map From regions");
    return engine.windows().getMap(engine.windows().frontWindow());
}

void BM_OpenDrawSavePng(benchmark::State& state) {
    vellant::engine::ensureGuiApplication();
    const QString png = QString::fromStdString(folder().path + "/map.png");
    for (auto _ : state) {
        vellant::engine::Engine engine;
        const auto& window = openMap(engine);
        const QImage image = engine.renderer().picture(window, QSize(800, 600));
        if (!image.save(png, "PNG")) state.SkipWithError("the PNG was not written");
    }
}
BENCHMARK(BM_OpenDrawSavePng)->Unit(benchmark::kMillisecond);

void BM_WarmRedraw(benchmark::State& state) {
    vellant::engine::ensureGuiApplication();
    vellant::engine::Engine engine;
    const auto& window = openMap(engine);
    QImage image(800, 600, QImage::Format_ARGB32_Premultiplied);
    engine.renderer().draw(window, image);
    for (auto _ : state) {
        engine.renderer().draw(window, image);
        benchmark::DoNotOptimize(image.constBits());
    }
}
BENCHMARK(BM_WarmRedraw)->Unit(benchmark::kMillisecond);

} // namespace
