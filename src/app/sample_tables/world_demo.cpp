#include "app/sample_tables/world_demo.h"

#include <array>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <gdal_priv.h>
#include <memory>
#include <ogr_spatialref.h>
#include <ogrsf_frmts.h>
#include <stdexcept>
#include <string_view>
#include <vector>

#ifndef VELLANT_DATA_DIR
#error "VELLANT_DATA_DIR names the project's data folder"
#endif

namespace vellant::samples {

namespace {

namespace fs = std::filesystem;

struct Region {
    const char* name;
    const char* fill;       // a soft fill, as printed atlases colour their continents
    std::vector<int> codes; // ISO 3166 numeric codes of its countries (UN M49 grouping)
};

const std::vector<Region>& regions() {
    static const std::vector<Region> all = {
        {"Africa", "#e8c07d", {12,  24,  72,  86,  108, 120, 132, 140, 148, 174, 178, 180,
                               204, 226, 231, 232, 260, 262, 266, 270, 288, 324, 384, 404,
                               426, 430, 434, 450, 454, 466, 478, 480, 504, 508, 516, 562,
                               566, 624, 646, 654, 678, 686, 690, 694, 706, 710, 716, 728,
                               729, 732, 748, 768, 788, 800, 818, 834, 854, 894}},
        {"Americas", "#a3cf9f", {28,  32,  44,  52,  60,  68,  76,  84,  92,  124, 136, 152, 170,
                                 188, 192, 212, 214, 218, 222, 238, 239, 304, 308, 320, 328, 332,
                                 340, 388, 484, 500, 531, 533, 534, 558, 591, 600, 604, 630, 652,
                                 659, 660, 662, 663, 666, 670, 740, 780, 796, 840, 850, 858, 862}},
        {"Asia", "#f0a99e", {4,   31,  48,  50,  51,  64,  96,  104, 116, 144, 156, 158, 196,
                             268, 275, 344, 356, 360, 364, 368, 376, 392, 398, 400, 408, 410,
                             414, 417, 418, 422, 446, 458, 462, 496, 512, 524, 586, 608, 626,
                             634, 682, 702, 704, 760, 762, 764, 784, 792, 795, 860, 887}},
        {"Europe", "#c6b5de", {8,   20,  40,  56,  70,  100, 112, 191, 203, 208, 233, 234, 246,
                               248, 250, 276, 300, 336, 348, 352, 372, 380, 428, 438, 440, 442,
                               470, 492, 498, 499, 528, 578, 616, 620, 642, 643, 674, 688, 703,
                               705, 724, 752, 756, 804, 807, 826, 831, 832, 833}},
        {"Oceania", "#f4e08c", {16,  36,  90,  184, 242, 258, 296, 316, 334, 520, 540, 548,
                                554, 570, 574, 580, 583, 584, 585, 598, 612, 776, 876, 882}},
        {"Antarctica", "#f2f2f2", {10}},
    };
    return all;
}

// The few outlines the atlas gives no code.
const char* regionOfUncoded(std::string_view name) {
    if (name == "Kosovo") return "Europe";
    if (name == "Somaliland") return "Africa";
    if (name == "Indian Ocean Ter.") return "Oceania";
    return "Asia"; // N. Cyprus, Siachen Glacier
}

const Region& regionNamed(std::string_view name) {
    for (const Region& region : regions())
        if (name == region.name) return region;
    return regions().front();
}

const Region* regionOfCode(int code) {
    for (const Region& region : regions())
        for (int member : region.codes)
            if (member == code) return &region;
    return nullptr;
}

struct City {
    const char* name;
    double lon, lat;
    int population; // thousands, metropolitan area
};

// The largest city of each continent's major countries, so that labels spread over the map.
constexpr std::array kCities = {
    City{"Tokyo", 139.69, 35.69, 37400},       City{"Delhi", 77.21, 28.61, 31200},
    City{"Shanghai", 121.47, 31.23, 27800},    City{"Sao Paulo", -46.63, -23.55, 22400},
    City{"Mexico City", -99.13, 19.43, 21900}, City{"Cairo", 31.24, 30.04, 21300},
    City{"Mumbai", 72.88, 19.08, 20700},       City{"Beijing", 116.41, 39.90, 20500},
    City{"Dhaka", 90.41, 23.81, 21700},        City{"New York", -74.01, 40.71, 18800},
    City{"Karachi", 67.01, 24.86, 16500},      City{"Buenos Aires", -58.38, -34.60, 15200},
    City{"Istanbul", 28.98, 41.01, 15400},     City{"Lagos", 3.38, 6.52, 14900},
    City{"Manila", 120.98, 14.60, 14200},      City{"Rio de Janeiro", -43.17, -22.91, 13500},
    City{"Moscow", 37.62, 55.76, 12600},       City{"Los Angeles", -118.24, 34.05, 12500},
    City{"Kinshasa", 15.27, -4.44, 14900},     City{"Paris", 2.35, 48.86, 11100},
    City{"Jakarta", 106.85, -6.21, 10900},     City{"Lima", -77.04, -12.05, 10900},
    City{"London", -0.13, 51.51, 9500},        City{"Bangkok", 100.50, 13.76, 10700},
    City{"Tehran", 51.39, 35.69, 9300},        City{"Bogota", -74.07, 4.71, 11000},
    City{"Johannesburg", 28.05, -26.20, 6100}, City{"Nairobi", 36.82, -1.29, 4900},
    City{"Sydney", 151.21, -33.87, 5300},      City{"Toronto", -79.38, 43.65, 6300},
    City{"Santiago", -70.67, -33.45, 6800},    City{"Madrid", -3.70, 40.42, 6700},
    City{"Riyadh", 46.68, 24.71, 7500},        City{"Berlin", 13.40, 52.52, 3600},
    City{"Anchorage", -149.90, 61.22, 290},    City{"Reykjavik", -21.94, 64.15, 230},
    City{"Perth", 115.86, -31.95, 2100},       City{"Auckland", 174.76, -36.85, 1700},
    City{"Honolulu", -157.86, 21.31, 1000},    City{"Cape Town", 18.42, -33.92, 4800},
};

std::unique_ptr<GDALDataset> createTab(const fs::path& path) {
    GDALDriver* driver = GetGDALDriverManager()->GetDriverByName("MapInfo File");
    if (driver == nullptr) throw std::runtime_error("GDAL has no MapInfo driver");
    fs::remove(path);
    for (const char* ext : {".dat", ".map", ".id", ".ind"})
        fs::remove(fs::path(path).replace_extension(ext));
    std::unique_ptr<GDALDataset> dataset(
        driver->Create(path.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    if (!dataset) throw std::runtime_error("GDAL cannot create " + path.string());
    return dataset;
}

OGRSpatialReference longLat() {
    OGRSpatialReference srs;
    srs.importFromEPSG(4326);
    srs.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    return srs;
}

OGRLayer* createLayer(GDALDataset& dataset, const char* name, OGRSpatialReference& srs,
                      const std::vector<std::pair<const char*, int>>& textColumns,
                      const char* numberColumn = nullptr) {
    OGRLayer* layer = dataset.CreateLayer(name, &srs, wkbUnknown, nullptr);
    if (layer == nullptr) throw std::runtime_error(std::string("GDAL cannot create ") + name);
    for (const auto& [column, width] : textColumns) {
        OGRFieldDefn field(column, OFTString);
        field.SetWidth(width);
        if (layer->CreateField(&field) != OGRERR_NONE)
            throw std::runtime_error(std::string("GDAL cannot add ") + column);
    }
    if (numberColumn != nullptr) {
        OGRFieldDefn field(numberColumn, OFTInteger);
        if (layer->CreateField(&field) != OGRERR_NONE)
            throw std::runtime_error(std::string("GDAL cannot add ") + numberColumn);
    }
    return layer;
}

void write(OGRLayer& layer, OGRFeature& feature, const char* table) {
    if (layer.CreateFeature(&feature) != OGRERR_NONE)
        throw std::runtime_error(std::string("GDAL cannot write a row of ") + table);
}

// The atlas cuts rings at the antimeridian but joins the two sides with an edge across the whole
// world (Russia's Chukotka, Fiji), which a planar map draws as a band around the globe. Such a
// polygon is unwrapped into continuous longitudes and cut again into its western and eastern
// pieces. Edges along a pole (Antarctica's) are true edges and stay.
bool crossesAntimeridian(const OGRLinearRing& ring) {
    for (int i = 1; i < ring.getNumPoints(); ++i) {
        if (std::abs(ring.getX(i) - ring.getX(i - 1)) > 180 && std::abs(ring.getY(i)) < 89)
            return true;
    }
    return false;
}

OGRLinearRing unwrapped(const OGRLinearRing& ring) {
    OGRLinearRing result;
    double offset = 0;
    for (int i = 0; i < ring.getNumPoints(); ++i) {
        if (i > 0) {
            const double step = ring.getX(i) - ring.getX(i - 1);
            if (step < -180) offset += 360;
            if (step > 180) offset -= 360;
        }
        result.addPoint(ring.getX(i) + offset, ring.getY(i));
    }
    return result;
}

std::unique_ptr<OGRPolygon> box(double minX, double maxX) {
    OGRLinearRing ring;
    ring.addPoint(minX, -90);
    ring.addPoint(maxX, -90);
    ring.addPoint(maxX, 90);
    ring.addPoint(minX, 90);
    ring.addPoint(minX, -90);
    auto polygon = std::make_unique<OGRPolygon>();
    polygon->addRing(&ring);
    return polygon;
}

void addPolygons(OGRMultiPolygon& into, const OGRGeometry* geometry, double shift) {
    if (geometry == nullptr || geometry->IsEmpty()) return;
    const auto type = wkbFlatten(geometry->getGeometryType());
    if (type == wkbPolygon) {
        std::unique_ptr<OGRGeometry> copy(geometry->clone());
        if (shift != 0) {
            OGRPolygon* polygon = copy->toPolygon();
            for (OGRLinearRing* ring : *polygon)
                for (int i = 0; i < ring->getNumPoints(); ++i)
                    ring->setPoint(i, ring->getX(i) + shift, ring->getY(i));
        }
        into.addGeometryDirectly(copy.release());
    } else if (type == wkbMultiPolygon || type == wkbGeometryCollection) {
        for (const OGRGeometry* part : *geometry->toGeometryCollection())
            addPolygons(into, part, shift);
    }
}

// Antarctica's coast runs right round the pole, so the atlas closes its ring with an edge
// across the world just north of the pole. That edge is sent down the antimeridian, along the
// pole and back up instead, where the map shows the continent's southern edge. Answers nullptr
// for any other polygon.
const OGRPolygon* closedAlongThePole(const OGRPolygon& polygon) {
    bool changed = false;
    auto result = std::make_unique<OGRPolygon>();
    for (const OGRLinearRing* ring : polygon) {
        OGRLinearRing detoured;
        const int last = ring->getNumPoints() - 1;
        for (int i = 0; i <= last; ++i) {
            if (i > 0 && std::abs(ring->getX(i) - ring->getX(i - 1)) > 180 && ring->getY(i) < -60 &&
                std::abs(ring->getY(i)) < 89) {
                const double side = ring->getX(i - 1) > 0 ? 180 : -180;
                detoured.addPoint(side, ring->getY(i - 1));
                detoured.addPoint(side, -90);
                detoured.addPoint(-side, -90);
                detoured.addPoint(-side, ring->getY(i));
                changed = true;
            }
            detoured.addPoint(ring->getX(i), ring->getY(i));
        }
        result->addRing(&detoured);
    }
    return changed ? result.release() : nullptr;
}

OGRMultiPolygon cutAtAntimeridian(const OGRGeometry& outline) {
    OGRMultiPolygon result;
    std::vector<const OGRPolygon*> polygons;
    if (wkbFlatten(outline.getGeometryType()) == wkbPolygon) {
        polygons.push_back(outline.toPolygon());
    } else if (wkbFlatten(outline.getGeometryType()) == wkbMultiPolygon) {
        for (const OGRPolygon* polygon : *outline.toMultiPolygon())
            polygons.push_back(polygon);
    }
    for (const OGRPolygon* polygon : polygons) {
        if (const OGRPolygon* aroundPole = closedAlongThePole(*polygon)) {
            result.addGeometryDirectly(const_cast<OGRPolygon*>(aroundPole));
            continue;
        }
        const OGRLinearRing* exterior = polygon->getExteriorRing();
        if (exterior == nullptr || !crossesAntimeridian(*exterior)) {
            addPolygons(result, polygon, 0);
            continue;
        }
        OGRPolygon whole;
        for (const OGRLinearRing* ring : *polygon) {
            OGRLinearRing continuous = unwrapped(*ring);
            whole.addRing(&continuous);
        }
        for (const double shift : {0.0, 360.0, -360.0}) {
            const auto window = box(-180 - shift, 180 - shift);
            std::unique_ptr<OGRGeometry> piece(whole.Intersection(window.get()));
            addPolygons(result, piece.get(), shift);
        }
    }
    return result;
}

std::string regionStyle(const char* fill) {
    return std::string("PEN(w:1px,c:#808080,id:\"mapinfo-pen-2,ogr-pen-0\");BRUSH(fc:") + fill +
           ",bc:#ffffff,id:\"mapinfo-brush-2,ogr-brush-0\")";
}

void writeCountries(const fs::path& dir) {
    std::unique_ptr<GDALDataset> atlas(static_cast<GDALDataset*>(GDALOpenEx(
        worldAtlasPath().c_str(), GDAL_OF_VECTOR | GDAL_OF_READONLY, nullptr, nullptr, nullptr)));
    if (!atlas) throw std::runtime_error("GDAL cannot read " + worldAtlasPath());
    OGRLayer* source = atlas->GetLayerByName("countries");
    if (source == nullptr) throw std::runtime_error(worldAtlasPath() + " has no countries");

    OGRSpatialReference srs = longLat();
    const fs::path path = dir / "countries.tab";
    auto dataset = createTab(path);
    OGRLayer* layer =
        createLayer(*dataset, "countries", srs, {{"Name", 40}, {"Iso", 3}, {"Region", 12}});
    source->ResetReading();
    for (std::unique_ptr<OGRFeature> country(source->GetNextFeature()); country;
         country.reset(source->GetNextFeature())) {
        const OGRGeometry* outline = country->GetGeometryRef();
        if (outline == nullptr) continue;
        const std::string name = country->GetFieldAsString("name");
        const std::string iso = country->GetFieldAsString("id");
        const Region* region =
            iso.empty() ? &regionNamed(regionOfUncoded(name)) : regionOfCode(std::stoi(iso));
        if (region == nullptr) region = &regionNamed("Asia");
        OGRFeature feature(layer->GetLayerDefn());
        feature.SetField("Name", name.c_str());
        feature.SetField("Iso", iso.c_str());
        feature.SetField("Region", region->name);
        OGRMultiPolygon cut = cutAtAntimeridian(*outline);
        if (cut.getNumGeometries() == 1)
            feature.SetGeometry(cut.getGeometryRef(0));
        else
            feature.SetGeometry(&cut);
        feature.GetGeometryRef()->assignSpatialReference(&srs);
        feature.SetStyleString(regionStyle(region->fill).c_str());
        write(*layer, feature, "countries");
    }
}

// A ring along the edge of the world, a degree a vertex, so that it bends with the projection.
void writeOcean(const fs::path& dir) {
    OGRSpatialReference srs = longLat();
    auto dataset = createTab(dir / "ocean.tab");
    OGRLayer* layer = createLayer(*dataset, "ocean", srs, {{"Name", 20}});
    OGRLinearRing ring;
    for (int lat = -90; lat <= 90; ++lat)
        ring.addPoint(-180, lat);
    for (int lon = -179; lon <= 180; ++lon)
        ring.addPoint(lon, 90);
    for (int lat = 89; lat >= -90; --lat)
        ring.addPoint(180, lat);
    for (int lon = 179; lon >= -180; --lon)
        ring.addPoint(lon, -90);
    OGRPolygon polygon;
    polygon.addRing(&ring);
    OGRFeature feature(layer->GetLayerDefn());
    feature.SetField("Name", "World Ocean");
    feature.SetGeometry(&polygon);
    feature.SetStyleString("PEN(w:1px,c:#8aa9c4,id:\"mapinfo-pen-2,ogr-pen-0\");"
                           "BRUSH(fc:#d4e6f4,bc:#ffffff,id:\"mapinfo-brush-2,ogr-brush-0\")");
    write(*layer, feature, "ocean");
}

void writeGraticule(const fs::path& dir) {
    OGRSpatialReference srs = longLat();
    auto dataset = createTab(dir / "graticule.tab");
    OGRLayer* layer = createLayer(*dataset, "graticule", srs, {{"Name", 12}});
    const auto add = [&](const std::string& name, OGRLineString& line) {
        OGRFeature feature(layer->GetLayerDefn());
        feature.SetField("Name", name.c_str());
        feature.SetGeometry(&line);
        feature.SetStyleString("PEN(w:1px,c:#9fb8cf,p:\"2px 2px\",id:\"mapinfo-pen-3,ogr-pen-5\")");
        write(*layer, feature, "graticule");
    };
    for (int lon = -150; lon <= 150; lon += 30) {
        OGRLineString meridian;
        for (int lat = -90; lat <= 90; ++lat)
            meridian.addPoint(lon, lat);
        add(std::to_string(std::abs(lon)) + (lon < 0 ? " W" : lon > 0 ? " E" : ""), meridian);
    }
    for (int lat = -60; lat <= 60; lat += 30) {
        OGRLineString parallel;
        for (int lon = -180; lon <= 180; ++lon)
            parallel.addPoint(lon, lat);
        add(std::to_string(std::abs(lat)) + (lat < 0 ? " S" : lat > 0 ? " N" : ""), parallel);
    }
}

void writeCities(const fs::path& dir) {
    OGRSpatialReference srs = longLat();
    auto dataset = createTab(dir / "cities.tab");
    OGRLayer* layer = createLayer(*dataset, "cities", srs, {{"Name", 24}}, "Population");
    for (const City& city : kCities) {
        OGRFeature feature(layer->GetLayerDefn());
        feature.SetField("Name", city.name);
        feature.SetField("Population", city.population);
        OGRPoint point(city.lon, city.lat);
        feature.SetGeometry(&point);
        // Larger cities get a larger dot.
        const char* size = city.population >= 15000  ? "9pt"
                           : city.population >= 5000 ? "7pt"
                                                     : "6pt";
        feature.SetStyleString(
            (std::string("SYMBOL(a:0,c:#a01818,s:") + size + ",id:\"mapinfo-sym-34,ogr-sym-3\")")
                .c_str());
        write(*layer, feature, "cities");
    }
}

} // namespace

std::string worldAtlasPath() {
    return std::string(VELLANT_DATA_DIR) + "/world-atlas/countries-50m.json";
}

std::string worldWorkspaceText() {
    return "!Workspace\n"
           "!Version 950\n"
           "!Charset Neutral\n"
           "Open Table \"ocean.tab\" As Ocean Interactive\n"
           "Open Table \"countries.tab\" As Countries Interactive\n"
           "Open Table \"graticule.tab\" As Graticule Interactive\n"
           "Open Table \"cities.tab\" As Cities Interactive\n"
           "Map From Cities, Countries, Graticule, Ocean\n"
           "  Position (0.1,0.1) Units \"in\"\n"
           "  Width 11 Units \"in\" Height 6 Units \"in\"\n"
           "Set Map\n"
           "  CoordSys Earth Projection 12, 104, \"m\", 0\n"
           "  Center (0,0)\n"
           "  Zoom 23500 Units \"mi\"\n"
           "  Preserve Zoom Display Zoom\n"
           "  Distance Units \"mi\" Area Units \"sq mi\" XY Units \"degree\"\n"
           "Set Map\n"
           "  Layer 1\n"
           "    Display Graphic\n"
           "    Label Line None Position Right Font (\"Arial\",256,8,3355443,16777215) "
           "Pen (1,2,0)\n"
           "      With Name\n"
           "      Auto On Overlap Off Duplicates On Offset 3\n"
           "      Visibility On\n"
           "  Layer 2\n"
           "    Display Graphic\n"
           "    Label Line None Position Center Font (\"Arial\",0,7,6316128) Pen (1,2,0)\n"
           "      With Name\n"
           "      Auto On Overlap Off Duplicates Off Offset 2\n"
           "      Visibility Zoom (0, 8000) Units \"mi\"\n"
           "  Layer 3\n"
           "    Display Graphic\n"
           "    Selectable Off\n"
           "  Layer 4\n"
           "    Display Graphic\n"
           "    Selectable Off\n";
}

std::string writeWorldDemo(const std::string& dir) {
    GDALAllRegister();
    const fs::path folder(dir);
    fs::create_directories(folder);
    writeOcean(folder);
    writeCountries(folder);
    writeGraticule(folder);
    writeCities(folder);
    const fs::path file = folder / kWorldWorkspace;
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out << worldWorkspaceText();
    out.close();
    if (!out) throw std::runtime_error("cannot write " + file.string());
    return file.string();
}

} // namespace vellant::samples
