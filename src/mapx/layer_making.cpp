#include "mapx/layer_making.h"

#include "base/runtime_error.h"
#include "engine/engine.h"
#include "engine/tables/memory_table.h"
#include "engine/tables/table_opener.h"
#include "engine/tables/table_path.h"
#include "mapx/feature.h"
#include "mapx/map.h"
#include "mapx/mapx_errors.h"

namespace vellant::mapx {

namespace {

namespace mx = hostmodel::mapx;

std::int16_t layerTypeOf(const engine::Table& table) {
    if (table.isRaster()) return mx::miLayerTypeRaster;
    if (table.isSeamless()) return mx::miLayerTypeSeamless;
    return mx::miLayerTypeNormal;
}

std::shared_ptr<Layer> openFileLayer(Map& map, const std::string& fileSpec,
                                     const std::optional<std::string>& name) {
    MapXRuntime& runtime = map.runtime();
    std::unique_ptr<engine::Table> table =
        engineCall([&] { return engine::openTableFile(fileSpec, runtime.newTableName()); });
    if (!table->isMappable())
        raiseError(engine::kMbCmdNotSupported, "Table " + fileSpec + " is not mappable.");
    const std::string path = table->path();
    const std::string layerName = name ? *name : engine::defaultTableName(path);
    const std::int16_t type = layerTypeOf(*table);
    return std::make_shared<Layer>(map, layerName, path, type, std::move(table));
}

// A table in memory, in the coordinate system given, written to file when one is named.
std::unique_ptr<engine::MemoryTable> newTable(MapXRuntime& runtime,
                                              std::vector<engine::ColumnDef> columns,
                                              const std::string& coordSys,
                                              const std::string& file) {
    return engineCall([&] {
        auto table = std::make_unique<engine::MemoryTable>(
            runtime.newTableName(), std::move(columns),
            file.empty() ? std::filesystem::path() : engine::tablePathFromText(file));
        table->makeMappable(coordSys);
        return table;
    });
}

std::shared_ptr<Layer> temporaryLayer(Map& map, const std::string& name, const Features* features) {
    MapXRuntime& runtime = map.runtime();
    const std::string coordSys = features != nullptr && !features->coordSys().empty()
                                     ? features->coordSys()
                                     : map.coordSysClause();
    std::unique_ptr<engine::MemoryTable> table = newTable(
        runtime, features != nullptr ? features->columns() : std::vector<engine::ColumnDef>{},
        coordSys, {});
    if (features != nullptr) {
        engineCall([&] {
            for (const FeatureRecord& record : features->records())
                table->insertRow(record.values, record.object);
        });
    }
    table->edited = false;
    return std::make_shared<Layer>(map, name, runtime.newTemporaryFileSpec(), mx::miLayerTypeNormal,
                                   std::move(table));
}

} // namespace

std::shared_ptr<Layer> layerFromFile(Map& map, const std::string& fileSpec) {
    return openFileLayer(map, fileSpec, std::nullopt);
}

std::shared_ptr<Layer> layerFromInfo(Map& map, const LayerInfo& info) {
    switch (info.type()) {
    case mx::miLayerInfoTypeTab:
    case mx::miLayerInfoTypeRaster:
    case mx::miLayerInfoTypeShape: {
        const std::optional<std::string> fileSpec = info.text("filespec");
        if (!fileSpec) raiseError(kErrInvalidCall, "The LayerInfo has no FileSpec.");
        return openFileLayer(map, *fileSpec, info.text("name"));
    }
    case mx::miLayerInfoTypeTemp: {
        const Features* features = nullptr;
        if (const Variant* given = info.parameter("features")) {
            features = dynamic_cast<const Features*>(given->toObject().get());
            if (features == nullptr) raiseError(kErrTypeMismatch);
        }
        return temporaryLayer(map, info.text("name").value_or(std::string()), features);
    }
    default:
        raiseError(kErrInvalidProperty,
                   "LayerInfo type " + std::to_string(info.type()) + " is not supported.");
    }
}

std::shared_ptr<Layer> emptyLayer(Map& map, const std::string& name, const std::string& fileSpec) {
    if (fileSpec.empty()) return temporaryLayer(map, name, nullptr);
    std::unique_ptr<engine::MemoryTable> table =
        newTable(map.runtime(), {}, map.coordSysClause(), fileSpec);
    const std::string path = table->path();
    return std::make_shared<Layer>(map, name, path, mx::miLayerTypeNormal, std::move(table));
}

} // namespace vellant::mapx
