#include "engine/tables/gdal_table.h"

#include "engine/tables/column_type.h"
#include "engine/tables/map_header.h"
#include "engine/tables/ogr_object.h"
#include "engine/tables/table_errors.h"

#include <algorithm>
#include <cpl_error.h>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <ogr_geometry.h>

namespace vellant::engine {

namespace {

ColumnDef columnOf(OGRFieldDefnH field) {
    ColumnDef column;
    column.name = OGR_Fld_GetNameRef(field);
    const int width = OGR_Fld_GetWidth(field);
    switch (OGR_Fld_GetType(field)) {
    case OFTInteger:
        switch (OGR_Fld_GetSubType(field)) {
        case OFSTBoolean:
            column.type = kColLogical;
            break;
        case OFSTInt16:
            column.type = kColSmallInt;
            break;
        default:
            column.type = kColInteger;
            break;
        }
        break;
    case OFTInteger64:
        column.type = kColFloat;
        break;
    case OFTReal:
        if (width > 0 && OGR_Fld_GetPrecision(field) > 0) {
            column.type = kColDecimal;
            column.width = width;
            column.decimals = OGR_Fld_GetPrecision(field);
        } else {
            column.type = kColFloat;
        }
        break;
    case OFTDate:
        column.type = kColDate;
        break;
    case OFTTime:
        column.type = kColTime;
        break;
    case OFTDateTime:
        column.type = kColDateTime;
        break;
    default:
        column.type = kColChar;
        column.width = width > 0 ? width : 254;
        break;
    }
    return column;
}

std::string lowerExtension(const std::string& path) {
    std::string ext = std::filesystem::path(path).extension().string();
    for (char& c : ext)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return ext;
}

// What kind of TAB the text of the .tab says it is: a view joins other tables ("Create View"),
// a seamless table lists them ("\IsSeamless" = "TRUE"); GDAL reads both as plain tables.
void readTabKind(const std::string& path, bool& view, bool& seamless) {
    std::ifstream in(path, std::ios::binary);
    std::string head(4096, '\0');
    in.read(head.data(), static_cast<std::streamsize>(head.size()));
    head.resize(static_cast<std::size_t>(std::max<std::streamsize>(in.gcount(), 0)));
    for (char& c : head)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    view = head.find("create view") != std::string::npos;
    const std::size_t mark = head.find("\"\\isseamless\"");
    seamless = mark != std::string::npos && head.find("\"true\"", mark) != std::string::npos;
}

std::string digits(int value, int width) {
    char text[16];
    std::snprintf(text, sizeof text, "%0*d", width, value);
    return text;
}

} // namespace

GdalTable::~GdalTable() = default;

std::unique_ptr<GdalTable> GdalTable::open(const std::string& path, const std::string& name) {
    ensureGdalRegistered();
    GdalErrorScope quiet;
    GdalDatasetPtr dataset(
        GDALOpenEx(path.c_str(), GDAL_OF_VECTOR | GDAL_OF_READONLY, nullptr, nullptr, nullptr));
    if (!dataset) {
        const std::string reason = GdalErrorScope::lastMessage("GDAL cannot read it as a table.");
        // A damaged map header is the likeliest cause, and the clearer message.
        if (lowerExtension(path) == ".tab") readMapFileCoordSys(path);
        raiseCannotOpen(path, reason);
    }
    auto handle = static_cast<GDALDatasetH>(dataset.get());
    if (GDALDatasetGetLayerCount(handle) < 1) raiseCannotOpen(path, "the file holds no table.");
    OGRLayerH layer = GDALDatasetGetLayer(handle, 0);
    if (layer == nullptr) raiseCannotOpen(path, "the file holds no table.");

    std::unique_ptr<GdalTable> table(new GdalTable());
    table->name_ = name;
    table->path_ = path;
    table->driver_ = GDALGetDriverShortName(GDALGetDatasetDriver(handle));
    table->layer_ = layer;

    OGRFeatureDefnH definition = OGR_L_GetLayerDefn(layer);
    for (int i = 0; i < OGR_FD_GetFieldCount(definition); ++i) {
        table->columns_.push_back(columnOf(OGR_FD_GetFieldDefn(definition, i)));
        table->fieldIndexes_.push_back(i);
    }
    // A seamless TAB reports no geometry of its own but has a map all the same.
    table->mappable_ =
        (OGR_FD_GetGeomFieldCount(definition) > 0 && OGR_L_GetGeomType(layer) != wkbNone) ||
        OGR_L_GetSpatialRef(layer) != nullptr;
    if (table->mappable_) table->coordSys_ = coordSysClauseOf(OGR_L_GetSpatialRef(layer));
    // A TAB whose map holds no objects yet (a new drawing layer, a table given a map and
    // committed empty) is reported by GDAL without geometry or coordinate system; its .MAP
    // header still has both, and a .MAP beside the table makes it mappable.
    if (table->driver_ == "MapInfo File" && lowerExtension(path) == ".tab" && !table->mappable_) {
        if (std::optional<std::string> clause = readMapFileCoordSys(path)) {
            table->mappable_ = true;
            table->coordSys_ = std::move(*clause);
        }
    }

    if (table->driver_ == "MapInfo File" && lowerExtension(path) == ".tab")
        readTabKind(path, table->view_, table->seamless_);

    const bool fastCount = OGR_L_TestCapability(layer, OLCFastFeatureCount) != 0;
    const bool randomRead = OGR_L_TestCapability(layer, OLCRandomRead) != 0;
    if (fastCount && randomRead && table->driver_ == "MapInfo File" &&
        lowerExtension(path) == ".tab") {
        table->fidOffset_ = 0;
    } else if (fastCount && randomRead && table->driver_ == "ESRI Shapefile") {
        table->fidOffset_ = -1;
    }
    GIntBig count = fastCount ? OGR_L_GetFeatureCount(layer, FALSE) : -1;
    if (count < 0) count = OGR_L_GetFeatureCount(layer, TRUE);
    if (count < 0)
        raiseCannotOpen(path, GdalErrorScope::lastMessage("its rows cannot be counted."));
    table->rowCount_ = count;
    table->dataset_ = std::move(dataset);
    return table;
}

std::optional<Bounds> GdalTable::bounds() const {
    if (!bounds_) {
        std::optional<Bounds> found;
        if (mappable_ && rowCount_ > 0) {
            GdalErrorScope quiet;
            OGREnvelope envelope;
            OGRErr result = OGR_L_GetExtent(layer_, &envelope, FALSE);
            if (result != OGRERR_NONE) {
                // Formats without an extent in their header are read through once.
                result = OGR_L_GetExtent(layer_, &envelope, TRUE);
                OGR_L_ResetReading(layer_);
                nextInOrder_ = 1;
            }
            if (result == OGRERR_NONE && envelope.MinX <= envelope.MaxX) {
                found = Bounds{envelope.MinX, envelope.MinY, envelope.MaxX, envelope.MaxY};
            }
        }
        bounds_ = found;
    }
    return *bounds_;
}

std::optional<Bounds> GdalTable::coordSysBounds() const {
    if (mappable_ && driver_ == "MapInfo File" && lowerExtension(path_) == ".tab") {
        if (const std::optional<Bounds> bounds = readCoordSysBounds(path_)) return bounds;
    }
    return Table::coordSysBounds();
}

OgrFeaturePtr GdalTable::readInOrder(std::int64_t row) const {
    if (row < nextInOrder_) {
        OGR_L_ResetReading(layer_);
        nextInOrder_ = 1;
    }
    while (nextInOrder_ <= row) {
        OgrFeaturePtr feature(OGR_L_GetNextFeature(layer_));
        if (!feature) return nullptr;
        if (nextInOrder_++ == row) return feature;
    }
    return nullptr;
}

OgrFeaturePtr GdalTable::readFeature(std::int64_t row) const {
    GdalErrorScope quiet;
    OgrFeaturePtr feature(fidOffset_ ? OGR_L_GetFeature(layer_, row + *fidOffset_)
                                     : readInOrder(row).release());
    // A missing feature is a deleted record; a failure of GDAL is a damaged file.
    if (!feature && CPLGetLastErrorType() >= CE_Failure) {
        raiseMb(kMbCantAccessFile, "Unable to read row " + std::to_string(row) + " of table " +
                                       name_ + ": " +
                                       GdalErrorScope::lastMessage("the file is damaged."));
    }
    return feature;
}

MbValue GdalTable::fieldValue(OGRFeatureH feature, int field, const ColumnDef& column) const {
    if (!OGR_F_IsFieldSetAndNotNull(feature, field)) return blankValue(column);
    switch (column.type) {
    case kColInteger:
        return MbValue::integer(OGR_F_GetFieldAsInteger(feature, field));
    case kColSmallInt:
        return MbValue::smallInt(
            static_cast<std::int16_t>(OGR_F_GetFieldAsInteger(feature, field)));
    case kColLogical:
        return MbValue::logical(OGR_F_GetFieldAsInteger(feature, field) != 0);
    case kColDecimal:
    case kColFloat:
        return MbValue::number(OGR_F_GetFieldAsDouble(feature, field));
    case kColDate:
    case kColTime:
    case kColDateTime: {
        int year = 0, month = 0, day = 0, hour = 0, minute = 0, zone = 0;
        float second = 0;
        if (!OGR_F_GetFieldAsDateTimeEx(feature, field, &year, &month, &day, &hour, &minute,
                                        &second, &zone)) {
            return blankValue(column);
        }
        const std::string date = digits(year, 4) + digits(month, 2) + digits(day, 2);
        const std::string time =
            digits(hour, 2) + digits(minute, 2) + digits(static_cast<int>(second), 2) +
            digits(static_cast<int>((second - static_cast<float>(static_cast<int>(second))) * 1000),
                   3);
        if (column.type == kColDate) return MbValue::string(date);
        if (column.type == kColTime) return MbValue::string(time);
        return MbValue::string(date + time);
    }
    default:
        return MbValue::string(OGR_F_GetFieldAsString(feature, field));
    }
}

const GdalTable::LoadedRow& GdalTable::load(std::int64_t row) const {
    if (loaded_.row == row) return loaded_;
    LoadedRow next;
    next.row = row;
    if (row >= 1 && row <= rowCount_) {
        OgrFeaturePtr feature = readFeature(row);
        if (feature) {
            auto handle = static_cast<OGRFeatureH>(feature.get());
            next.exists = true;
            next.object = objectFromGeometry(OGRGeometry::FromHandle(OGR_F_GetGeometryRef(handle)),
                                             OGR_F_GetStyleString(handle));
            for (std::size_t i = 0; i < columns_.size(); ++i) {
                next.values.push_back(fieldValue(handle, fieldIndexes_[i], columns_[i]));
            }
        }
    }
    loaded_ = std::move(next);
    return loaded_;
}

std::shared_ptr<const MapObject> GdalTable::object(std::int64_t row) const {
    return load(row).object;
}

MbValue GdalTable::value(std::int64_t row, std::size_t column) const {
    if (column >= columns_.size()) raiseNoField("COL" + std::to_string(column + 1));
    const LoadedRow& loaded = load(row);
    return loaded.exists ? loaded.values[column] : blankValue(columns_[column]);
}

bool GdalTable::rowExists(std::int64_t row) const {
    if (!dataset_) return false;
    return load(row).exists;
}

void GdalTable::deleteFiles() {
    GdalErrorScope quiet;
    GDALDriverH driver = GDALGetDatasetDriver(static_cast<GDALDatasetH>(dataset_.get()));
    dataset_.reset();
    layer_ = nullptr;
    loaded_ = LoadedRow{};
    rowCount_ = 0;
    if (driver == nullptr || GDALDeleteDataset(driver, path_.c_str()) != CE_None) {
        raiseMb(kMbCantAccessFile, "Unable to delete table " + path_ + ": " +
                                       GdalErrorScope::lastMessage("GDAL cannot delete it."));
    }
}

} // namespace vellant::engine
