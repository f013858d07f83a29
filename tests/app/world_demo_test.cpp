// The world demo the desktop opens: built from the atlas outlines, it must open in the host as a
// map a user recognises: countries in their region's colour over the ocean, and no country torn
// across the map where the atlas cuts it at the antimeridian.

#include "app/sample_tables/world_demo.h"
#include "engine/engine.h"
#include "engine/render/map_renderer.h"
#include "engine/windows/coord_transform.h"
#include "engine/windows/window_manager.h"
#include "engine/workspace/workspace_loader.h"
#include "support/session_fixture.h"

#include <cmath>
#include <gdal_priv.h>
#include <gtest/gtest.h>
#include <memory>
#include <ogrsf_frmts.h>

namespace vellant::samples {
namespace {

class WorldDemo : public ::testing::Test {
protected:
    WorldDemo() { workspace = writeWorldDemo(dir.str()); }

    vellant::testing::TempDir dir;
    std::string workspace;
};

TEST_F(WorldDemo, OpensAsOneMapOfCitiesOverCountriesOverTheGraticuleAndOcean) {
    engine::Engine host;
    engine::loadWorkspace(host, workspace);
    EXPECT_EQ(host.evaluate("NumTables()").toEvalText(), "4");
    EXPECT_EQ(host.evaluate("TableInfo(\"Countries\",8)").toEvalText(), "241");
    const std::string map = host.evaluate("FrontWindow()").toEvalText();
    EXPECT_EQ(host.evaluate("MapperInfo(" + map + ",9)").toEvalText(), "4");
    const char* order[] = {"Cities", "Countries", "Graticule", "Ocean"};
    for (int layer = 1; layer <= 4; ++layer) {
        EXPECT_EQ(
            host.evaluate("LayerInfo(" + map + "," + std::to_string(layer) + ",1)").toEvalText(),
            order[layer - 1]);
    }
}

// A ring that jumps across the whole map, except along a pole, would draw as a band round the
// globe in any planar projection.
TEST_F(WorldDemo, NoCountryRingJumpsAcrossTheAntimeridian) {
    GDALAllRegister();
    std::unique_ptr<GDALDataset> tables(static_cast<GDALDataset*>(
        GDALOpenEx(dir.file("countries.tab").c_str(), GDAL_OF_VECTOR, nullptr, nullptr, nullptr)));
    ASSERT_TRUE(tables);
    OGRLayer* countries = tables->GetLayer(0);
    int jumps = 0;
    int regions = 0;
    for (auto& country : *countries) {
        const OGRGeometry* outline = country->GetGeometryRef();
        ASSERT_NE(outline, nullptr);
        ++regions;
        std::unique_ptr<OGRGeometry> rings(outline->Boundary());
        if (!rings) continue;
        const auto check = [&](const OGRLineString& ring) {
            for (int i = 1; i < ring.getNumPoints(); ++i) {
                if (std::abs(ring.getX(i) - ring.getX(i - 1)) > 180 && std::abs(ring.getY(i)) < 89)
                    ++jumps;
            }
        };
        if (wkbFlatten(rings->getGeometryType()) == wkbLineString) {
            check(*rings->toLineString());
        } else if (wkbFlatten(rings->getGeometryType()) == wkbMultiLineString) {
            for (const OGRLineString* ring : *rings->toMultiLineString())
                check(*ring);
        }
    }
    EXPECT_EQ(regions, 241);
    EXPECT_EQ(jumps, 0);
}

TEST_F(WorldDemo, DrawsCountriesInTheirRegionsColourOverTheOcean) {
    engine::Engine host;
    engine::loadWorkspace(host, workspace);
    const engine::Window& window = host.windows().getMap(host.windows().frontWindow());
    const QSize size(1100, 600);
    const QImage picture = host.renderer().picture(window, size);
    const engine::ViewTransform view = engine::MapRenderer::transformFor(window, QSizeF(size));
    const engine::CoordTransform toMap(engine::longLatCoordSys(), window.map->coordSys);
    const auto colourAt = [&](double lon, double lat) {
        double x = lon;
        double y = lat;
        EXPECT_TRUE(toMap.apply(x, y));
        const QPointF pixel = view.toPixel(x, y);
        return picture.pixelColor(pixel.toPoint()).name().toStdString();
    };
    EXPECT_EQ(colourAt(-30, -10), "#d4e6f4") << "the South Atlantic";
    EXPECT_EQ(colourAt(-55, -10), "#a3cf9f") << "Brazil, in the Americas";
    EXPECT_EQ(colourAt(18, 15), "#e8c07d") << "Chad, in Africa";
    EXPECT_EQ(colourAt(0, -80), "#f2f2f2") << "Antarctica";
    EXPECT_EQ(colourAt(10, -62), "#d4e6f4") << "the Southern Ocean";
    EXPECT_EQ(colourAt(90, 62), "#c6b5de") << "Siberia, in Europe's Russia";
    EXPECT_EQ(colourAt(134, -25), "#f4e08c") << "Australia, in Oceania";
    EXPECT_EQ(colourAt(178, 68), "#c6b5de") << "Chukotka, east of its cut";
}

} // namespace
} // namespace vellant::samples
