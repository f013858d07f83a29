#include "engine/tables/tab_writer.h"

#include "engine/tables/charset.h"
#include "engine/tables/column_type.h"
#include "engine/tables/gdal_support.h"
#include "engine/tables/ogr_object.h"
#include "engine/tables/table.h"
#include "engine/tables/table_errors.h"

#include <algorithm>
#include <cctype>
#include <cpl_string.h>
#include <gdal.h>
#include <ogr_geometry.h>
#include <ogr_srs_api.h>
#include <system_error>

namespace vellant::engine {

namespace {

struct SrsDestroyer {
    void operator()(void* srs) const {
        if (srs != nullptr) OSRDestroySpatialReference(static_cast<OGRSpatialReferenceH>(srs));
    }
};
using SrsPtr = std::unique_ptr<void, SrsDestroyer>;

std::string lowered(std::string text) {
    for (char& c : text)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text;
}

SrsPtr srsFromClause(const std::filesystem::path& path, const std::string& clause) {
    SrsPtr srs(OSRNewSpatialReference(nullptr));
    if (OSRImportFromMICoordSys(static_cast<OGRSpatialReferenceH>(srs.get()), clause.c_str()) !=
        OGRERR_NONE) {
        raiseCannotWrite(path.string(), "GDAL cannot write the coordinate system " + clause + ".");
    }
    OSRSetAxisMappingStrategy(static_cast<OGRSpatialReferenceH>(srs.get()),
                              OAMS_TRADITIONAL_GIS_ORDER);
    return srs;
}

OGRFieldDefnH fieldFor(const ColumnDef& column) {
    OGRFieldDefnH field = nullptr;
    switch (column.type) {
    case kColInteger:
        field = OGR_Fld_Create(column.name.c_str(), OFTInteger);
        break;
    case kColSmallInt:
        field = OGR_Fld_Create(column.name.c_str(), OFTInteger);
        OGR_Fld_SetSubType(field, OFSTInt16);
        break;
    case kColLogical:
        field = OGR_Fld_Create(column.name.c_str(), OFTInteger);
        OGR_Fld_SetSubType(field, OFSTBoolean);
        break;
    case kColDecimal:
        field = OGR_Fld_Create(column.name.c_str(), OFTReal);
        OGR_Fld_SetWidth(field, column.width);
        OGR_Fld_SetPrecision(field, column.decimals);
        break;
    case kColFloat:
        field = OGR_Fld_Create(column.name.c_str(), OFTReal);
        break;
    case kColDate:
        field = OGR_Fld_Create(column.name.c_str(), OFTDate);
        break;
    case kColTime:
        field = OGR_Fld_Create(column.name.c_str(), OFTTime);
        break;
    case kColDateTime:
        field = OGR_Fld_Create(column.name.c_str(), OFTDateTime);
        break;
    default:
        field = OGR_Fld_Create(column.name.c_str(), OFTString);
        OGR_Fld_SetWidth(field, column.width > 0 ? column.width : 254);
        break;
    }
    return field;
}

void setField(OGRFeatureH feature, int field, const ColumnDef& column, const MbValue& value) {
    switch (column.type) {
    case kColInteger:
    case kColSmallInt:
        OGR_F_SetFieldInteger(feature, field, static_cast<int>(value.asInteger()));
        break;
    case kColLogical:
        OGR_F_SetFieldInteger(feature, field, value.asLogical() ? 1 : 0);
        break;
    case kColDecimal:
    case kColFloat:
        OGR_F_SetFieldDouble(feature, field, value.asNumber());
        break;
    default: {
        const std::string text = value.asString();
        // Dates are kept as text "YYYYMMDD"; an empty one stays unset.
        if (!text.empty()) OGR_F_SetFieldString(feature, field, text.c_str());
        break;
    }
    }
}

// GDAL needs the extent of a non-earth table before it writes it; earth tables have defaults.
// The clause's own Bounds go to the .MAP header, where MapInfo keeps them (GDAL's reading of
// the clause drops them).
std::string nonEarthBounds(const Table& table) {
    const std::string clause = lowered(table.coordSysClause());
    if (clause.find("nonearth") == std::string::npos) return {};
    Bounds b{-1000000, -1000000, 1000000, 1000000};
    if (const std::optional<Bounds> given = boundsInClause(table.coordSysClause())) {
        b = *given;
    } else if (const std::optional<Bounds> data = table.bounds()) {
        const double marginX = (data->maxX - data->minX) + 1,
                     marginY = (data->maxY - data->minY) + 1;
        b = {data->minX - marginX, data->minY - marginY, data->maxX + marginX,
             data->maxY + marginY};
    }
    return std::to_string(b.minX) + "," + std::to_string(b.minY) + "," + std::to_string(b.maxX) +
           "," + std::to_string(b.maxY);
}

// The iconv name GDAL recodes the table's text to; "" for none.
std::string encodingFor(const std::filesystem::path& path, const Table& table,
                        const std::string& charset) {
    if (!charset.empty()) {
        const std::optional<std::string> named = iconvCharsetName(charset);
        if (!named) raiseCannotWrite(path.string(), "unknown charset " + charset + ".");
        return *named == "UTF-8" ? std::string() : *named;
    }
    std::string text;
    for (const ColumnDef& column : table.columns())
        text += column.name;
    for (std::int64_t row = 1; row <= table.rowCount(); ++row) {
        if (!table.rowExists(row)) continue;
        for (std::size_t i = 0; i < table.columns().size(); ++i)
            if (table.columns()[i].type == kColChar) text += table.value(row, i).asString();
    }
    const bool ascii = std::all_of(text.begin(), text.end(),
                                   [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    if (ascii) return {};
    for (const std::string& page : windowsCodePages())
        if (fitsCodePage(text, page)) return page;
    raiseCannotWrite(path.string(), "its text fits no charset a MapInfo table can hold.");
}

} // namespace

void removeTabFiles(const std::filesystem::path& path) {
    std::error_code error;
    for (const char* extension : {".tab", ".dat", ".map", ".id", ".ind"}) {
        std::filesystem::remove(std::filesystem::path(path).replace_extension(extension), error);
    }
}

void writeTabFile(const std::filesystem::path& path, const Table& table,
                  const std::string& charset) {
    ensureGdalRegistered();
    GdalErrorScope quiet;
    GDALDriverH driver = GDALGetDriverByName("MapInfo File");
    if (driver == nullptr) raiseCannotWrite(path.string(), "GDAL has no MapInfo driver.");
    const std::string encoding = encodingFor(path, table, charset);
    removeTabFiles(path);
    GdalDatasetPtr dataset(GDALCreate(driver, path.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    if (!dataset) {
        raiseCannotWrite(path.string(), GdalErrorScope::lastMessage("GDAL cannot create it."));
    }
    SrsPtr srs;
    if (table.isMappable() && !table.coordSysClause().empty()) {
        srs = srsFromClause(path, table.coordSysClause());
    }
    char** options = nullptr;
    const std::string bounds = table.isMappable() ? nonEarthBounds(table) : std::string();
    if (!bounds.empty()) options = CSLSetNameValue(options, "BOUNDS", bounds.c_str());
    if (!encoding.empty()) options = CSLSetNameValue(options, "ENCODING", encoding.c_str());
    OGRLayerH layer =
        GDALDatasetCreateLayer(static_cast<GDALDatasetH>(dataset.get()), path.stem().c_str(),
                               static_cast<OGRSpatialReferenceH>(srs.get()),
                               table.isMappable() ? wkbUnknown : wkbNone, options);
    CSLDestroy(options);
    if (layer == nullptr) {
        raiseCannotWrite(path.string(), GdalErrorScope::lastMessage("GDAL cannot create it."));
    }
    const std::vector<ColumnDef>& columns = table.columns();
    for (const ColumnDef& column : columns) {
        OGRFieldDefnH field = fieldFor(column);
        const OGRErr result = OGR_L_CreateField(layer, field, TRUE);
        OGR_Fld_Destroy(field);
        if (result != OGRERR_NONE) {
            raiseCannotWrite(path.string(),
                             GdalErrorScope::lastMessage("GDAL cannot add column " + column.name));
        }
    }
    for (std::int64_t row = 1; row <= table.rowCount(); ++row) {
        if (!table.rowExists(row)) continue;
        OgrFeaturePtr feature(OGR_F_Create(OGR_L_GetLayerDefn(layer)));
        auto handle = static_cast<OGRFeatureH>(feature.get());
        for (std::size_t i = 0; i < columns.size(); ++i) {
            setField(handle, static_cast<int>(i), columns[i], table.value(row, i));
        }
        if (table.isMappable()) {
            if (const auto object = table.object(row)) {
                OgrShape shape = shapeFromObject(*object);
                OGR_F_SetGeometryDirectly(handle, OGRGeometry::ToHandle(shape.geometry.release()));
                if (!shape.style.empty()) OGR_F_SetStyleString(handle, shape.style.c_str());
            }
        }
        if (OGR_L_CreateFeature(layer, handle) != OGRERR_NONE) {
            raiseCannotWrite(path.string(), GdalErrorScope::lastMessage("GDAL cannot write row " +
                                                                        std::to_string(row)));
        }
    }
    dataset.reset();
    if (CPLGetLastErrorType() >= CE_Failure) {
        raiseCannotWrite(path.string(), GdalErrorScope::lastMessage("GDAL cannot finish it."));
    }
    // GDAL writes a map file for a table without objects too; a .MAP makes a table mappable
    // when it is read back, and MapInfo writes none for such a table.
    if (!table.isMappable()) {
        std::error_code ignored;
        for (const char* extension : {".map", ".id"})
            std::filesystem::remove(std::filesystem::path(path).replace_extension(extension),
                                    ignored);
    }
}

} // namespace vellant::engine
