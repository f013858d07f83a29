// The grid view of a 1000-layer map, scrolled and repainted as a user scrolls it: each
// iteration moves the grid (down a wheel notch of three rows, or right by a column) and paints
// the window at once, on the offscreen platform at 96 dpi. The time is per frame; the goal is
// under 16 ms. "cells_per_frame" is what one frame paints.

#include "layered_session.h"
#include "qtui/grid/grid_view.h"

#include <QApplication>
#include <QScrollBar>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <memory>

namespace {

using namespace vellant;
using namespace vellant::bench;

constexpr int kLayers = 1000;

// The loaded grid with every column group unfolded, shown in a window of a desktop's size.
struct GridOnScreen {
    GridOnScreen() : loaded(hostOf(kLayers), kLayers) {
        loaded.load();
        platform::FlexGrid& grid = loaded.form.LyrGrid;
        for (int col = 1; col < grid.Cols(); ++col)
            grid.setColWidth(col, std::max<int>(loaded.s->gColWidth[col], 290));
        view = std::make_unique<qtui::GridView>(grid);
        view->setScale(qtui::TwipScale(15));
        view->resize(1280, 720);
        view->show();
        QCoreApplication::processEvents();
    }

    LoadedSession loaded;
    std::unique_ptr<qtui::GridView> view;
};

GridOnScreen& screen() {
    static GridOnScreen shown;
    return shown;
}

void scrollAndPaint(benchmark::State& state, QScrollBar& bar, int step) {
    GridOnScreen& on = screen();
    bar.setValue(0);
    long long cells = 0;
    for (auto _ : state) {
        bar.setValue(bar.value() + step > bar.maximum() ? 0 : bar.value() + step);
        on.view->viewport()->repaint();
        cells += on.view->lastPaintedCells();
    }
    state.counters["cells_per_frame"] =
        benchmark::Counter(static_cast<double>(cells), benchmark::Counter::kAvgIterations);
}

void BM_grid_scroll_down(benchmark::State& state) {
    scrollAndPaint(state, *screen().view->verticalScrollBar(), 3);
}
BENCHMARK(BM_grid_scroll_down)->Unit(benchmark::kMillisecond);

void BM_grid_scroll_right(benchmark::State& state) {
    scrollAndPaint(state, *screen().view->horizontalScrollBar(), 1);
}
BENCHMARK(BM_grid_scroll_right)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
