#include "app/sample_tables/demo_data.h"

#include "app/sample_tables/sample_tables.h"

#include <filesystem>
#include <fstream>
#include <gdal_priv.h>
#include <memory>
#include <ogr_spatialref.h>
#include <ogrsf_frmts.h>
#include <stdexcept>

namespace vellant::samples {

namespace {

constexpr const char* kEmptyLayer = "nothing.shp";

// A map layer without objects. A TAB without objects reads back as a table without a map (the
// driver cannot tell them apart), so the empty layer is a shapefile, whose header keeps its
// kind of object and its coordinate system whatever it holds.
void writeEmptyLayer(const std::filesystem::path& dir) {
    GDALAllRegister();
    GDALDriver* driver = GetGDALDriverManager()->GetDriverByName("ESRI Shapefile");
    if (driver == nullptr) throw std::runtime_error("GDAL has no shapefile driver");
    const std::filesystem::path path = dir / kEmptyLayer;
    for (const char* ext : {".shp", ".shx", ".dbf", ".prj", ".cpg"})
        std::filesystem::remove(std::filesystem::path(path).replace_extension(ext));
    std::unique_ptr<GDALDataset> dataset(
        driver->Create(path.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    if (!dataset) throw std::runtime_error("GDAL cannot create " + path.string());
    OGRSpatialReference srs;
    srs.importFromEPSG(4326);
    srs.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    OGRLayer* layer = dataset->CreateLayer("nothing", &srs, wkbPoint, nullptr);
    OGRFieldDefn name("Name", OFTString);
    name.SetWidth(20);
    if (layer == nullptr || layer->CreateField(&name) != OGRERR_NONE)
        throw std::runtime_error("GDAL cannot write " + path.string());
}

} // namespace

std::string demoWorkspaceText() {
    // Top layer first: text over points over lines, the query over the regions it came from,
    // the image at the bottom.
    return "!Workspace\n"
           "!Version 950\n"
           "!Charset Neutral\n"
           "Open Table \"regions.tab\" As regions Interactive\n"
           "Open Table \"lines.tab\" As lines Interactive\n"
           "Open Table \"points.tab\" As points Interactive\n"
           "Open Table \"text.tab\" As text Interactive\n"
           "Open Table \"mixed.tab\" As mixed Interactive\n"
           "Open Table \"nothing.shp\" As empty Interactive\n"
           "Open Table \"raster.tab\" As raster Interactive\n"
           "Select * From regions Where Value > 1 Into Query1\n"
           "Map From text, points, lines, mixed, Query1, regions, empty, raster\n"
           "  Position (0.5,0.5) Units \"in\"\n"
           "  Width 6 Units \"in\" Height 4 Units \"in\"\n";
}

std::string writeDemoData(const std::string& dir) {
    writeSampleTables(dir);
    writeEmptyLayer(dir);
    const std::filesystem::path file = std::filesystem::path(dir) / kDemoWorkspace;
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out << demoWorkspaceText();
    out.close();
    if (!out) throw std::runtime_error("cannot write " + file.string());
    return file.string();
}

} // namespace vellant::samples
