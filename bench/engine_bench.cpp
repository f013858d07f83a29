// The round trips a grid load makes most, through the automation object as the program makes
// them: a layer's display mode by eval, and a visibility change by Do, on a map of 50 layers.

#include "app/sample_tables/sample_tables.h"
#include "base/basic_text.h"
#include "engine/engine.h"
#include "engine/host/mapinfo_automation.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr int kLayers = 50;

struct FiftyLayerMap {
    FiftyLayerMap() {
        std::string folder =
            (std::filesystem::temp_directory_path() / "vellant-bench-XXXXXX").string();
        if (mkdtemp(folder.data()) == nullptr) std::abort();
        vellant::samples::writeSampleTables(folder);
        std::string mapFrom = "Map From ";
        for (int i = 1; i <= kLayers; ++i) {
            const std::string alias = "points" + std::to_string(i);
            app->Do("Open Table \"" + folder + "/points.tab\" As " + alias);
            mapFrom += (i > 1 ? "," : "") + alias;
        }
        app->Do(mapFrom);
        const std::string window = vellant::Str(std::stoi(app->eval("FrontWindow()")));
        for (int i = 1; i <= kLayers; ++i) {
            layerInfo.push_back("LayerInfo(" + window + "," + vellant::Str(i) + ",9)");
            displayOff.push_back("set map window " + window + " Layer " + vellant::Str(i) +
                                 " Display Off");
        }
        std::filesystem::remove_all(folder);
    }

    std::shared_ptr<vellant::engine::MapInfoAutomation> app =
        std::make_shared<vellant::engine::MapInfoAutomation>(
            std::make_shared<vellant::engine::Engine>());
    std::vector<std::string> layerInfo;  // "LayerInfo( 40001, 7,9)"
    std::vector<std::string> displayOff; // "set map window  40001 Layer  7 Display Off"
};

FiftyLayerMap& fiftyLayerMap() {
    static FiftyLayerMap map;
    return map;
}

void EvalLayerDisplay(benchmark::State& state) {
    FiftyLayerMap& map = fiftyLayerMap();
    std::size_t layer = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(map.app->eval(map.layerInfo[layer]));
        layer = (layer + 1) % map.layerInfo.size();
    }
}
BENCHMARK(EvalLayerDisplay);

void DoLayerDisplayOff(benchmark::State& state) {
    FiftyLayerMap& map = fiftyLayerMap();
    std::size_t layer = 0;
    for (auto _ : state) {
        map.app->Do(map.displayOff[layer]);
        layer = (layer + 1) % map.displayOff.size();
    }
}
BENCHMARK(DoLayerDisplayOff);

} // namespace
