#pragma once
// Sessions on large maps for the benchmarks: a host with a map window of n layers (each an
// in-memory table of a few points) and a view clone, and a session as the floating form's load
// leaves it just before load_grid.

#include "engine/engine.h"
#include "engine/host/mapinfo_automation.h"
#include "grid/column_catalogue.h"
#include "grid/header_cells.h"
#include "grid/load_grid.h"
#include "hostmodel/facade_classes.h"
#include "platform/file_system_object.h"
#include "platform/scripted_toolkit.h"
#include "prefs/settings.h"
#include "session/layer_form.h"
#include "session/session.h"
#include "styles/style_samples.h"

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <utility>

namespace vellant::bench {

constexpr int kRowsPerTable = 3;

// A host with one map window of n layers, each an in-memory table of a few points, and a clone
// of it as the view map; the layers are drawn in one style of their own when overridden.
struct LayeredHost {
    LayeredHost(int layers, bool overridden) {
        app->Do("Dim o As Object");
        std::string mapFrom = "Map From ";
        for (int t = 1; t <= layers; ++t) {
            const std::string table = "t" + std::to_string(t);
            app->Do("Create Table " + table + " (Name Char(10))");
            app->Do("Create Map For " + table + " CoordSys Earth Projection 1, 104");
            for (int row = 1; row <= kRowsPerTable; ++row) {
                app->Do("Create Point Into Variable o (" + std::to_string(t % 90) + "," +
                        std::to_string(row) + ")");
                app->Do("Insert Into " + table + " (Name, Obj) Values (\"p" + std::to_string(row) +
                        "\", o)");
            }
            mapFrom += (t > 1 ? "," : "") + table;
        }
        app->Do(mapFrom);
        mapWin = std::stoi(app->eval("FrontWindow()"));
        for (int t = 1; overridden && t <= layers; ++t)
            app->Do("Set Map Window " + std::to_string(mapWin) + " Layer " + std::to_string(t) +
                    " Display Global Global Symbol (35,16711680," + std::to_string(8 + t % 12) +
                    ")");
        app->RunMenuCommand(811);
        viewWin = std::stoi(app->eval("WindowID(0)"));
    }

    std::shared_ptr<engine::Engine> engine = std::make_shared<engine::Engine>();
    std::shared_ptr<engine::MapInfoAutomation> app =
        std::make_shared<engine::MapInfoAutomation>(engine);
    int mapWin = 0;
    int viewWin = 0;
};

// A session as the floating form's load leaves it just before load_grid.
struct LoadedSession {
    LoadedSession(LayeredHost& host, int layers)
        : appDir(std::filesystem::temp_directory_path() /
                 ("vellant-session-bench-" + std::to_string(layers))),
          form(toolkit) {
        std::filesystem::create_directories(appDir);
        s = std::make_unique<session::Session>(toolkit, appDir.string(), &registry);
        hostmodel::registerFacadeClasses(registry, *s);
        s->gIsMapInfo = kTrue;
        s->gLayerForm = &form;
        prefs::getotherprefs(*s);
        s->gMapInfo = host.app;
        s->gMapWin = host.mapWin;
        s->gViewWin = host.viewWin;
        s->gLayerCount = static_cast<std::int16_t>(layers);
        s->gMap = platform::AutomationRegistry::as<hostmodel::IMap>(
            registry.CreateObject("Vellant.Mapper"));
        s->gLyr = platform::AutomationRegistry::as<hostmodel::ILayer>(
            registry.CreateObject("Vellant.MIProps"));
        s->gStyle = platform::AutomationRegistry::as<hostmodel::IStyle>(
            registry.CreateObject("Vellant.MIPropsStyle"));
        s->gLabelProps = platform::AutomationRegistry::as<hostmodel::ILabelProps>(
            registry.CreateObject("Vellant.MIPropsLabelProps"));
        s->gLabelStyle = registry.CreateObject("Vellant.MIPropsLabelStyle");
        s->gColCount = 38;
        form.LyrGrid.setCols(s->gColCount);
        grid::setcolatts(*s);
        // The view starts with the user's overrides, as Form_Load gives them to it.
        grid::labelgrid(*s);
        // Samples go to the system's temporary folder, as on the desktop.
        s->gFSO = std::make_shared<platform::FileSystemObject>();
        styles::initstylewin(*s);
    }
    ~LoadedSession() {
        prefs::closelog(*s);
        s.reset();
        std::error_code ignored;
        std::filesystem::remove_all(appDir, ignored);
    }

    void load() {
        bool rebuild = true;
        grid::load_grid(*s, rebuild);
    }

    std::filesystem::path appDir;
    platform::ScriptedToolkit toolkit;
    platform::AutomationRegistry registry;
    session::vlLayerControl form;
    std::unique_ptr<session::Session> s;
};

// Building a map of 1000 layers takes a while; each kind of map is built once for the whole run.
inline LayeredHost& hostOf(int layers, bool overridden = false) {
    static std::map<std::pair<int, bool>, std::unique_ptr<LayeredHost>> hosts;
    auto& host = hosts[{layers, overridden}];
    if (!host) host = std::make_unique<LayeredHost>(layers, overridden);
    return *host;
}

} // namespace vellant::bench
