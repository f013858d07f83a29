// The table work a session does most: opening a large TAB (its row count must come from the
// header, not a scan), reading every object of it as a map draws it, the first-row kind query
// of the layer facade, and the insert/delete cycle of the style samples.

#include "engine/engine.h"
#include "engine/tables/catalog.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <filesystem>
#include <gdal.h>
#include <ogr_api.h>
#include <ogr_srs_api.h>
#include <string>

namespace {

constexpr int kRows = 20000;

// A TAB of kRows points, written once by GDAL into a folder that lives as long as the run.
const std::string& largeTab() {
    static const std::string path = [] {
        std::string folder =
            (std::filesystem::temp_directory_path() / "vellant-tables-bench-XXXXXX").string();
        if (mkdtemp(folder.data()) == nullptr) std::abort();
        const std::string file = folder + "/large.tab";
        GDALAllRegister();
        GDALDatasetH dataset = GDALCreate(GDALGetDriverByName("MapInfo File"), file.c_str(), 0, 0,
                                          0, GDT_Unknown, nullptr);
        if (dataset == nullptr) std::abort();
        OGRSpatialReferenceH srs = OSRNewSpatialReference(nullptr);
        OSRImportFromEPSG(srs, 4326);
        OSRSetAxisMappingStrategy(srs, OAMS_TRADITIONAL_GIS_ORDER);
        OGRLayerH layer = GDALDatasetCreateLayer(dataset, "large", srs, wkbPoint, nullptr);
        OSRDestroySpatialReference(srs);
        OGRFieldDefnH field = OGR_Fld_Create("n", OFTInteger);
        if (OGR_L_CreateField(layer, field, TRUE) != OGRERR_NONE) std::abort();
        OGR_Fld_Destroy(field);
        for (int i = 0; i < kRows; ++i) {
            OGRFeatureH feature = OGR_F_Create(OGR_L_GetLayerDefn(layer));
            OGR_F_SetFieldInteger(feature, 0, i);
            OGRGeometryH point = OGR_G_CreateGeometry(wkbPoint);
            OGR_G_SetPoint_2D(point, 0, -170 + (i % 340), -80 + (i / 340) % 160);
            OGR_F_SetGeometryDirectly(feature, point);
            OGR_F_SetStyleString(feature, "SYMBOL(c:#ff0000,s:12pt,id:\"mapinfo-sym-34\")");
            if (OGR_L_CreateFeature(layer, feature) != OGRERR_NONE) std::abort();
            OGR_F_Destroy(feature);
        }
        GDALClose(dataset);
        return file;
    }();
    return path;
}

void OpenLargeTabAndCountRows(benchmark::State& state) {
    vellant::engine::Engine engine;
    const std::string open = "Open Table \"" + largeTab() + "\" As Large";
    for (auto _ : state) {
        engine.run(open);
        benchmark::DoNotOptimize(engine.evaluate("TableInfo(\"Large\",8)"));
        engine.run("Close Table Large");
    }
}
BENCHMARK(OpenLargeTabAndCountRows);

void ReadEveryObject(benchmark::State& state) {
    vellant::engine::Engine engine;
    engine.run("Open Table \"" + largeTab() + "\" As Large");
    const vellant::engine::Table& table = engine.catalog().get("Large");
    for (auto _ : state) {
        for (std::int64_t row = 1; row <= table.rowCount(); ++row) {
            benchmark::DoNotOptimize(table.object(row));
        }
    }
    state.SetItemsProcessed(state.iterations() * table.rowCount());
}
BENCHMARK(ReadEveryObject)->Unit(benchmark::kMillisecond);

void FetchFirstObjectKind(benchmark::State& state) {
    vellant::engine::Engine engine;
    engine.run("Open Table \"" + largeTab() + "\" As Large");
    for (auto _ : state) {
        engine.run("Fetch first from Large");
        benchmark::DoNotOptimize(engine.evaluate("ObjectInfo(Large.obj,1)"));
    }
}
BENCHMARK(FetchFirstObjectKind);

void StyleSampleInsertAndDelete(benchmark::State& state) {
    vellant::engine::Engine engine;
    engine.run("create table vlStyle (stylex integer)");
    engine.run("create map for vlstyle");
    engine.run("Dim tobj as object");
    engine.run("Create Region into variable tobj 1 4 (1,0) (2,0) (2.5,1) (1, 0.5)");
    for (auto _ : state) {
        engine.run("insert into vlStyle (obj) Values (tobj)");
        engine.run("Delete from vlstyle");
    }
}
BENCHMARK(StyleSampleInsertAndDelete);

} // namespace
