#pragma once
// A host main window over a fresh engine, shown on the offscreen platform, and workspaces
// written over the GDAL sample tables. Errors the window would show in a message box are
// recorded instead.

#include "app/sample_tables/sample_tables.h"
#include "engine/engine.h"
#include "engine/mb_error.h"
#include "engine/render/map_renderer.h"
#include "engine/windows/window_manager.h"
#include "qtui/host/host_main_window.h"
#include "qtui/host/map_window_view.h"

#include <QApplication>
#include <QTest>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <unistd.h>
#include <vector>

namespace vellant::qtui::testing {

// The sample tables, written once for the test run.
inline const std::filesystem::path& sampleFolder() {
    static const std::filesystem::path folder = [] {
        const auto dir =
            std::filesystem::temp_directory_path() / ("vellant_qtui_" + std::to_string(::getpid()));
        samples::writeSampleTables(dir.string());
        return dir;
    }();
    return folder;
}

// regions (0,0)-(30,12) in longitude/latitude: row 1 "Alpha" the square (0,0)-(10,10), row 2
// "Beta" the triangle (12,0) (20,0) (20,8), row 3 "Gamma" (22,2)-(30,12). Query1 holds rows 2
// and 3 (Value > 1) and lies over regions in the map.
inline constexpr const char* kRegionsMap =
    "Open Table \"regions.tab\" As regions Interactive\n"
    "Select * From regions Where Value > 1 Into Query1\n"
    "Map From Query1, regions Position (0.5,0.5) Units \"in\" Width 6 Units \"in\" Height 4 "
    "Units \"in\"\n";

struct RecordedError {
    int code;
    std::string text;
};

class HostWindowTest : public ::testing::Test {
protected:
    void SetUp() override {
        engine_ = std::make_unique<engine::Engine>();
        window_ = std::make_unique<HostMainWindow>(*engine_);
        window_->setErrorReporter([this](int code, const QString& text) {
            errors_.push_back({code, text.toStdString()});
        });
        window_->resize(1100, 760);
        window_->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window_.get()));
    }

    void TearDown() override {
        window_.reset();
        engine_.reset();
        settle();
    }

    // Opens a workspace of these statements through the window, as File > Open Workspace does.
    void load(const std::string& statements) {
        static int count = 0;
        const auto file = sampleFolder() / ("qtui_" + std::to_string(++count) + ".wor");
        std::ofstream(file) << "!Workspace\n!Version 950\n!Charset Neutral\n" << statements;
        ASSERT_TRUE(window_->openWorkspace(file)) << (errors_.empty() ? "" : errors_.back().text);
        settle();
    }

    // The map window the last statement opened and its view, drawn once.
    MapWindowView& frontMap() {
        const int id = engine_->windows().frontWindow();
        MapWindowView* view = window_->mapView(id);
        EXPECT_NE(view, nullptr) << "no map view for window " << id;
        if (view == nullptr) throw std::runtime_error("no map view");
        view->repaint();
        return *view;
    }

    double number(const std::string& expression) {
        return engine_->evaluate(expression).asNumber();
    }

    QPoint pixelOf(const MapWindowView& view, double x, double y) const {
        const engine::Window& w = *engine_->windows().find(view.windowId());
        return engine::MapRenderer::transformFor(w, QSizeF(view.size())).toPixel(x, y).toPoint();
    }

    static void settle() {
        for (int i = 0; i < 3; ++i) {
            QCoreApplication::processEvents();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    }

    std::unique_ptr<engine::Engine> engine_;
    std::unique_ptr<HostMainWindow> window_;
    std::vector<RecordedError> errors_;
};

} // namespace vellant::qtui::testing
