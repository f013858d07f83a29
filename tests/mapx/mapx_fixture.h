#pragma once
// A MapX client over a fresh engine: the sample tables written with GDAL into a folder of the
// test suite's own, the MapX classes registered, a scripted desktop for the clipboard and a
// queued picker, and a map made by class name.

#include "app/sample_tables/sample_tables.h"
#include "engine/engine.h"
#include "engine/render/geometry_cache.h"
#include "engine/tables/catalog.h"
#include "hostmodel/mapx_map.h"
#include "mapx/map.h"
#include "mapx/mapx_classes.h"
#include "mapx/mapx_runtime.h"
#include "mapx/style_picker.h"
#include "platform/automation.h"
#include "platform/scripted_toolkit.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <unistd.h>

namespace vellant::mapx::testing {

namespace mx = hostmodel::mapx;

class MapXTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        folder() =
            std::filesystem::temp_directory_path() / ("vellant_mapx_" + std::to_string(::getpid()));
        std::filesystem::create_directories(folder());
        samples::writeSampleTables(folder().string());
    }
    static void TearDownTestSuite() {
        std::error_code ignored;
        std::filesystem::remove_all(folder(), ignored);
    }
    static std::filesystem::path& folder() {
        static std::filesystem::path path;
        return path;
    }
    static std::string table(const std::string& file) { return (folder() / file).string(); }

    void SetUp() override {
        registerMapXClasses(registry, runtime);
        map = std::dynamic_pointer_cast<hostmodel::MXMap>(registry.CreateObject("MapX.Map.4"));
        ASSERT_TRUE(map);
    }

    Map& ownMap() { return dynamic_cast<Map&>(*map); }
    std::shared_ptr<hostmodel::MXLayer> add(const std::string& file, int position = 1) {
        return map->Layers()->Add(Variant(table(file)), position);
    }
    // The layer names, top first.
    std::vector<std::string> names() {
        std::vector<std::string> out;
        auto layers = map->Layers();
        for (int i = 1; i <= layers->Count(); ++i)
            out.push_back(layers->Item(Variant(i))->Name());
        return out;
    }
    template <class T> std::shared_ptr<T> create(const std::string& className) {
        return std::dynamic_pointer_cast<T>(registry.CreateObject(className));
    }

    engine::Engine engine;
    platform::ScriptedToolkit toolkit;
    QueuedStylePicker picker;
    MapXRuntime runtime{engine, &toolkit, &picker};
    platform::AutomationRegistry registry;
    std::shared_ptr<hostmodel::MXMap> map;
};

} // namespace vellant::mapx::testing
