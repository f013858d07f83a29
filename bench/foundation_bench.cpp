// The foundation's hot paths: every cell the grid paints looks its column up by key and turns
// numbers into text, so a map of 1000 layers makes tens of thousands of these calls.

#include "base/basic_text.h"
#include "base/runtime_error.h"
#include "grid/column_catalogue.h"
#include "interaction/info_cells.h"
#include "platform/scripted_toolkit.h"
#include "prefs/map_slots.h"
#include "prefs/settings.h"
#include "session/session.h"

#include <benchmark/benchmark.h>
#include <filesystem>

namespace {

using namespace vellant;

void BM_getcolnum(benchmark::State& state) {
    platform::ScriptedToolkit toolkit;
    session::Session s(toolkit, std::filesystem::temp_directory_path().string());
    s.gIsMapInfo = kTrue;
    s.gColCount = 38;
    const char* keys[] = {"visible", "Label Zoom Max", "user eval", "Table Path", "style"};
    size_t i = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(grid::getcolnum(s, keys[i++ % 5]));
}
BENCHMARK(BM_getcolnum);

void BM_StrDouble(benchmark::State& state) {
    double x = 0.125;
    for (auto _ : state) {
        benchmark::DoNotOptimize(Str(x));
        x += 1.0 / 3.0;
    }
}
BENCHMARK(BM_StrDouble);

void BM_Val(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(Val(" 12345.678 Meter"));
}
BENCHMARK(BM_Val);

// Reading back one map slot of 33 layers, as a session start does for its map.
void BM_ReadMapSlot(benchmark::State& state) {
    const auto dir = std::filesystem::temp_directory_path() / "vellant-bench-slots";
    std::filesystem::create_directories(dir);
    const std::string path = (dir / "Vellant.prf").string();
    {
        prefs::RecordFile file;
        file.open(path, prefs::RecordFile::Access::ReadWrite);
        prefs::writeSlotHeader(file, 1, "World", prefs::kMaxStoredLayers);
        for (std::int16_t i = 1; i <= prefs::kMaxStoredLayers; ++i)
            prefs::writeSlotLayer(file, 1, i, {"Layer" + std::to_string(i), " Group  1", "Obj"});
        file.close();
    }
    for (auto _ : state) {
        prefs::RecordFile file;
        file.open(path, prefs::RecordFile::Access::Read);
        for (std::int16_t i = 1; i <= prefs::kMaxStoredLayers; ++i) {
            benchmark::DoNotOptimize(prefs::readSlotLayerName(file, 1, i));
            benchmark::DoNotOptimize(prefs::readSlotLayerGroup(file, 1, i));
            benchmark::DoNotOptimize(prefs::readSlotLayerUserInfo(file, 1, i));
        }
        file.close();
    }
    std::filesystem::remove_all(dir);
}
BENCHMARK(BM_ReadMapSlot);

} // namespace

// The worst text a "user info" cell can expand: a layer name that brings its own token back
// with an unknown one, so that the text grows at every round until it is given up.
void BM_ExpandTokensOfASelfNamingLayer(benchmark::State& state) {
    const auto name = [] { return std::string("%x%%LAYERNAME%"); };
    for (auto _ : state) {
        try {
            benchmark::DoNotOptimize(vellant::interaction::expandTokens("%LAYERNAME%", name, 3, 1));
        } catch (const vellant::RuntimeError&) {
        }
    }
}
BENCHMARK(BM_ExpandTokensOfASelfNamingLayer)->Unit(benchmark::kMicrosecond);
