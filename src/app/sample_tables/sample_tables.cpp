#include "app/sample_tables/sample_tables.h"

#include <cpl_conv.h>
#include <filesystem>
#include <fstream>
#include <gdal_priv.h>
#include <memory>
#include <ogr_spatialref.h>
#include <ogrsf_frmts.h>
#include <stdexcept>

namespace vellant::samples {
namespace {

using engine::ObjectKind;

// One row to write: geometry in WKT, its OGR style string and its attribute values.
struct Row {
    std::string wkt;
    std::string style;
    std::string name;
    int value = 0;
};

struct TablePlan {
    SampleTable facts;
    int epsg = 0;
    bool asMif = false;
    std::vector<Row> rows;
};

const char* const kRegionStyle = "BRUSH(fc:#ff0000,bc:#ffffff,id:\"mapinfo-brush-2,ogr-brush-0\");"
                                 "PEN(w:1px,c:#000000,id:\"mapinfo-pen-2,ogr-pen-0\")";
const char* const kHatchStyle = "BRUSH(fc:#00ff00,id:\"mapinfo-brush-5,ogr-brush-5\");"
                                "PEN(w:2px,c:#0000ff,id:\"mapinfo-pen-2,ogr-pen-0\")";
const char* const kLineStyle = "PEN(w:2px,c:#0000ff,id:\"mapinfo-pen-2,ogr-pen-0\")";
const char* const kSymbolStyle = "SYMBOL(a:0,c:#ff0000,s:12pt,id:\"mapinfo-sym-34,ogr-sym-3\")";

std::vector<TablePlan> plans() {
    const std::string latLong = "CoordSys Earth Projection 1, 104";
    std::vector<TablePlan> all;
    all.push_back({{"regions.tab", "regions", 3, ObjectKind::Region, 0, 0, 30, 12, latLong},
                   4326,
                   false,
                   {{"POLYGON((0 0,10 0,10 10,0 10,0 0))", kRegionStyle, "Alpha", 1},
                    {"POLYGON((12 0,20 0,20 8,12 0))", kHatchStyle, "Beta", 2},
                    {"POLYGON((22 2,30 2,30 12,22 12,22 2),(24 4,26 4,26 6,24 4))", kRegionStyle,
                     "Gamma", 3}}});
    all.push_back(
        {{"lines.tab", "lines", 4, ObjectKind::Polyline, 500000, 5000000, 503000, 5002500,
          "CoordSys Earth Projection 8, 104, \"m\", 3, 0, 0.9996, 500000, 0"},
         32631,
         false,
         {{"LINESTRING(500000 5000000,501000 5001000,502000 5000500)", kLineStyle, "Road A", 10},
          {"LINESTRING(500500 5000100,501500 5002500,503000 5002000)", kLineStyle, "Road B", 20},
          {"MULTILINESTRING((500000 5002000,500500 5002100,501000 5002200),"
           "(502000 5001000,502500 5001100,503000 5001200))",
           kLineStyle, "River", 30},
          {"LINESTRING(501000 5000000,501100 5000200,501200 5000100,501300 5000400)", kLineStyle,
           "Track", 40}}});
    all.push_back({{"points.tab", "points", 5, ObjectKind::Point, -10, -5, 10, 5, latLong},
                   4326,
                   false,
                   {{"POINT(-10 -5)", kSymbolStyle, "P1", 1},
                    {"POINT(-5 0)", kSymbolStyle, "P2", 2},
                    {"POINT(0 5)", kSymbolStyle, "P3", 3},
                    {"POINT(5 1)", kSymbolStyle, "P4", 4},
                    {"POINT(10 2)", kSymbolStyle, "P5", 5}}});
    all.push_back(
        {{"text.tab", "text", 2, ObjectKind::Text, 0, 0, 0, 0, latLong},
         4326,
         false,
         {{"POINT(2 3)", "LABEL(t:\"Alpha\",a:0,s:0.5g,c:#0000ff,p:1,f:\"Arial\")", "T1", 1},
          {"POINT(4 6)", "LABEL(t:\"Beta\",a:15,s:0.5g,c:#000000,p:1,f:\"Arial\")", "T2", 2}}});
    all.push_back({{"mixed.tab", "mixed", 3, ObjectKind::Region, -2, -2, 8, 9, latLong},
                   4326,
                   false,
                   {{"POLYGON((-2 -2,2 -2,2 2,-2 -2))", kRegionStyle, "Area", 1},
                    {"LINESTRING(3 3,8 9)", kLineStyle, "Link", 2},
                    {"POINT(5 5)", kSymbolStyle, "Spot", 3}}});
    all.push_back(
        {{"empty.tab", "empty", 0, ObjectKind::Point, 0, 0, 0, 0, latLong}, 4326, false, {}});
    all.push_back({{"regions.mif", "regions", 2, ObjectKind::Region, 100, 40, 106, 45,
                    "CoordSys Earth Projection 1, 74"},
                   4269,
                   true,
                   {{"POLYGON((100 40,103 40,103 43,100 40))", kRegionStyle, "North", 1},
                    {"POLYGON((104 41,106 41,106 45,104 45,104 41))", kHatchStyle, "South", 2}}});
    return all;
}

void writeVector(const std::filesystem::path& dir, const TablePlan& plan) {
    GDALDriver* driver = GetGDALDriverManager()->GetDriverByName("MapInfo File");
    if (driver == nullptr) throw std::runtime_error("GDAL has no MapInfo driver");
    const std::filesystem::path path = dir / plan.facts.file;
    std::filesystem::remove(path);
    if (!plan.asMif) {
        for (const char* ext : {".dat", ".map", ".id", ".ind"}) {
            std::filesystem::remove(std::filesystem::path(path).replace_extension(ext));
        }
    } else {
        std::filesystem::remove(std::filesystem::path(path).replace_extension(".mid"));
    }
    char** options = nullptr;
    if (plan.asMif) options = CSLSetNameValue(options, "FORMAT", "MIF");
    std::unique_ptr<GDALDataset> dataset(
        driver->Create(path.c_str(), 0, 0, 0, GDT_Unknown, options));
    CSLDestroy(options);
    if (!dataset) throw std::runtime_error("GDAL cannot create " + path.string());

    OGRSpatialReference srs;
    srs.importFromEPSG(plan.epsg);
    srs.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    OGRLayer* layer = dataset->CreateLayer(plan.facts.name.c_str(), &srs, wkbUnknown, nullptr);
    if (layer == nullptr)
        throw std::runtime_error("GDAL cannot create a layer in " + path.string());
    OGRFieldDefn name("Name", OFTString);
    name.SetWidth(20);
    OGRFieldDefn value("Value", OFTInteger);
    if (layer->CreateField(&name) != OGRERR_NONE || layer->CreateField(&value) != OGRERR_NONE) {
        throw std::runtime_error("GDAL cannot add columns to " + path.string());
    }
    for (const Row& row : plan.rows) {
        OGRFeature feature(layer->GetLayerDefn());
        feature.SetField("Name", row.name.c_str());
        feature.SetField("Value", row.value);
        OGRGeometry* geometry = nullptr;
        if (OGRGeometryFactory::createFromWkt(row.wkt.c_str(), &srs, &geometry) != OGRERR_NONE) {
            throw std::runtime_error("bad test geometry " + row.wkt);
        }
        feature.SetGeometryDirectly(geometry);
        feature.SetStyleString(row.style.c_str());
        if (layer->CreateFeature(&feature) != OGRERR_NONE) {
            throw std::runtime_error("GDAL cannot write a row of " + path.string());
        }
    }
}

// GDAL's MapInfo support for rasters is read-only (it reads a .tab beside an image for its
// georeferencing), so the raster TAB header is written here as MapInfo writes it: the image
// file, three control points (world, then pixel) and the coordinate system.
void writeRaster(const std::filesystem::path& dir, const SampleTable& facts) {
    GDALDriver* driver = GetGDALDriverManager()->GetDriverByName("GTiff");
    if (driver == nullptr) throw std::runtime_error("GDAL has no GTiff driver");
    const std::filesystem::path image = dir / "raster.tif";
    std::filesystem::remove(image);
    std::unique_ptr<GDALDataset> dataset(driver->Create(image.c_str(), 4, 2, 1, GDT_Byte, nullptr));
    if (!dataset) throw std::runtime_error("GDAL cannot create " + image.string());
    std::vector<unsigned char> pixels{0, 60, 120, 180, 240, 200, 100, 10};
    if (dataset->GetRasterBand(1)->RasterIO(GF_Write, 0, 0, 4, 2, pixels.data(), 4, 2, GDT_Byte, 0,
                                            0) != CE_None) {
        throw std::runtime_error("GDAL cannot write " + image.string());
    }
    dataset.reset();

    std::ofstream tab(dir / facts.file, std::ios::binary | std::ios::trunc);
    tab << "!table\r\n!version 300\r\n!charset WindowsLatin1\r\n\r\n"
        << "Definition Table\r\n"
        << "  File \"raster.tif\"\r\n"
        << "  Type \"RASTER\"\r\n"
        << "  (10,50) (0,0) Label \"Pt 1\",\r\n"
        << "  (14,50) (4,0) Label \"Pt 2\",\r\n"
        << "  (10,48) (0,2) Label \"Pt 3\"\r\n"
        << "  " << facts.coordSys << "\r\n"
        << "  Units \"degree\"\r\n";
    if (!tab) throw std::runtime_error("cannot write " + (dir / facts.file).string());
}

} // namespace

const std::vector<SampleTable>& vectorSampleTables() {
    static const std::vector<SampleTable> tables = [] {
        std::vector<SampleTable> facts;
        for (const TablePlan& plan : plans())
            facts.push_back(plan.facts);
        return facts;
    }();
    return tables;
}

const SampleTable& rasterSampleTable() {
    static const SampleTable raster{"raster.tab",
                                    "raster",
                                    0,
                                    ObjectKind::Point,
                                    10,
                                    48,
                                    14,
                                    50,
                                    "CoordSys Earth Projection 1, 104"};
    return raster;
}

void writeSampleTables(const std::string& dir) {
    GDALAllRegister();
    const std::filesystem::path folder(dir);
    std::filesystem::create_directories(folder);
    for (const TablePlan& plan : plans())
        writeVector(folder, plan);
    writeRaster(folder, rasterSampleTable());
}

} // namespace vellant::samples
