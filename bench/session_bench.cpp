// Loading the layer grid against the embedded host, on maps of 10, 100 and 1000 layers: the
// session is set up as its form's load leaves it (facades made, view clone, catalogue and
// header done), and each iteration is one load_grid. The time is per load; "time_per_layer" is
// that time over the layers (in seconds), and "calls_per_layer" the host calls (Do, eval, menu
// commands) one load makes per layer, counted by a recording host object on a load of its own.
//
// The same loads on maps whose every layer carries an override style: each row then makes a
// sample of it (a Save Window of the scratch window to a BMP, loaded into the cell), besides the
// sample of its label font.
//
// One toggle click on the column "visible" over a row set of every layer of the map: the walk
// reads and writes each layer through the facades and repaints the cells that depend on its
// visibility. The time is per click; "calls_per_row" counts the host calls of one click per row.

#include "app/replay/recording_host.h"
#include "app/replay/transcript.h"
#include "engine/engine.h"
#include "engine/host/mapinfo_automation.h"
#include "grid/column_catalogue.h"
#include "grid/header_cells.h"
#include "grid/layer_rows.h"
#include "grid/load_grid.h"
#include "hostmodel/facade_classes.h"
#include "interaction/grid_click.h"
#include "interaction/toggle_cycle.h"
#include "layered_session.h"
#include "platform/scripted_toolkit.h"
#include "prefs/settings.h"
#include "session/layer_form.h"
#include "session/session.h"
#include "styles/style_samples.h"

#include <benchmark/benchmark.h>
#include <filesystem>
#include <map>
#include <memory>
#include <sstream>
#include <string>

namespace {

using namespace vellant;
using namespace vellant::bench;

struct HostCalls {
    double calls = 0;
    double errors = 0;
};

// What an action asks of the host, counted by a recording host object that takes the host's
// place while it runs.
template <class Action>
HostCalls countHostCalls(LayeredHost& host, LoadedSession& loaded, const Action& action) {
    std::ostringstream ignored;
    replay::Transcript transcript(ignored);
    const auto own = loaded.s->gMapInfo;
    loaded.s->gMapInfo = std::make_shared<replay::RecordingHost>(host.app, transcript);
    action();
    loaded.s->gMapInfo = own;
    return {static_cast<double>(transcript.count("do") + transcript.count("eval") +
                                transcript.count("menu")),
            static_cast<double>(transcript.count("error"))};
}

void loadGrid(benchmark::State& state, bool overridden) {
    const int layers = static_cast<int>(state.range(0));
    LayeredHost& host = hostOf(layers, overridden);
    LoadedSession loaded(host, layers);
    for (auto _ : state)
        loaded.load();

    // One more load, to count what a load asks of the host.
    const HostCalls asked = countHostCalls(host, loaded, [&] { loaded.load(); });
    state.counters["calls_per_layer"] = asked.calls / layers;
    state.counters["errors"] = asked.errors;
    // An inverted rate is seconds per (iteration x value): the time of one layer's row.
    state.counters["time_per_layer"] = benchmark::Counter(
        layers, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void BM_load_grid(benchmark::State& state) {
    loadGrid(state, false);
}
BENCHMARK(BM_load_grid)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);

void BM_load_grid_with_samples(benchmark::State& state) {
    loadGrid(state, true);
}
BENCHMARK(BM_load_grid_with_samples)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);

// The rows of all layers selected, and the mouse down in the cell "visible" of the first.
struct ToggleClick {
    explicit ToggleClick(LoadedSession& loaded) : s(*loaded.s), grid(loaded.form.LyrGrid) {
        grid.setRow(row(1));
        grid.setCol(1);
        grid.setRowSel(row(s.gLayerCount));
        grid.setColSel(grid.Cols() - 1);
        interaction::startToggleCycle(s);
        s.gMouseX = static_cast<float>(grid.ColPos(visible) + 10);
        s.gMouseY = static_cast<float>(grid.RowPos(row(1)) + 10);
    }
    int row(int layer) const { return grid::LayerToRow(s, static_cast<std::uint16_t>(layer)); }

    void click() {
        grid.setRow(row(1));
        grid.setCol(visible);
        interaction::Layergridclick(s);
    }

    session::Session& s;
    platform::FlexGrid& grid;
    const int visible = grid::getcolnum(s, "visible");
};

void BM_toggle_click(benchmark::State& state) {
    const int layers = static_cast<int>(state.range(0));
    LayeredHost& host = hostOf(layers);
    LoadedSession loaded(host, layers);
    loaded.load();
    ToggleClick toggle(loaded);
    for (auto _ : state)
        toggle.click();

    const HostCalls asked = countHostCalls(host, loaded, [&] { toggle.click(); });
    state.counters["calls_per_row"] = asked.calls / layers;
    state.counters["errors"] = asked.errors;
    // The fourth step gives every layer its own setting back: the host is left as it was found
    // for the benchmarks that share it.
    while (loaded.s->gToggleStep != 0)
        toggle.click();
}
BENCHMARK(BM_toggle_click)->Arg(1000)->Unit(benchmark::kMillisecond);

} // namespace
