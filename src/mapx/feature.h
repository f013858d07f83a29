#pragma once
// Features: objects with their attribute values, as a layer's AllFeatures hands them out and
// a LayerInfo's "Features" carries them into a new layer. A feature's coordinates are in the
// coordinate system it came with (its table's, or its map's once attached).

#include "engine/map_object.h"
#include "engine/mb_value.h"
#include "engine/tables/table.h"
#include "hostmodel/mapx_data.h"

#include <memory>
#include <string>
#include <vector>

namespace vellant::mapx {

class Map;
class MapXRuntime;

struct FeatureRecord {
    std::shared_ptr<const engine::MapObject> object;
    std::vector<engine::MbValue> values; // by the column of the collection it came in
};

class Feature : public hostmodel::MXFeature {
public:
    static constexpr const char* kClassName = "MapX.Feature.4";

    Feature() = default;
    Feature(FeatureRecord record, std::string coordSys)
        : record_(std::move(record)), coordSys_(std::move(coordSys)) {}

    // A feature type (mapx_constants.h); 6 for a feature without an object.
    std::int16_t Type() override;
    void Attach(hostmodel::MXMap& map) override;

    const FeatureRecord& record() const { return record_; }
    const std::string& coordSys() const { return coordSys_; }

private:
    FeatureRecord record_;
    std::string coordSys_;
};

class Features : public hostmodel::MXFeatures {
public:
    Features(std::vector<engine::ColumnDef> columns, std::string coordSys,
             std::vector<FeatureRecord> records)
        : columns_(std::move(columns)), coordSys_(std::move(coordSys)),
          records_(std::move(records)) {}

    std::int32_t Count() override { return static_cast<std::int32_t>(records_.size()); }
    std::shared_ptr<hostmodel::MXFeature> Item(std::int32_t index) override;

    const std::vector<engine::ColumnDef>& columns() const { return columns_; }
    const std::string& coordSys() const { return coordSys_; }
    const std::vector<FeatureRecord>& records() const { return records_; }

private:
    std::vector<engine::ColumnDef> columns_;
    std::string coordSys_;
    std::vector<FeatureRecord> records_;
};

// Every row of a table that has an object, with its values.
std::shared_ptr<Features> featuresOf(const engine::Table& table);
// None, but with the table's columns and coordinate system.
std::shared_ptr<Features> noFeaturesOf(const engine::Table& table);

// The feature type an object kind counts as.
std::int16_t featureTypeOf(engine::ObjectKind kind);

// The object's coordinates taken from one coordinate system into another; the object itself
// when both are the same. Raises a run-time error for a point the target cannot take.
std::shared_ptr<const engine::MapObject>
objectInCoordSys(MapXRuntime& runtime, std::shared_ptr<const engine::MapObject> object,
                 const std::string& from, const std::string& to);

} // namespace vellant::mapx
