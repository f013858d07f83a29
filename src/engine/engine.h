#pragma once
// The embedded map host: a MapBasic interpreter over a catalog of tables and a set of windows.
// One Engine is one running host. It is single-threaded; call-backs to the client run
// synchronously from inside run() and runMenuCommand(), as the real host calls back during an
// automation call.

#include "engine/mb_value.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace vellant::engine {

class Registry;
class Variables;
class Catalog;
class WindowManager;
class HostServices;
class MapRenderer;

// Settings of the MapBasic session that statements and functions share.
struct SessionSettings {
    std::string distanceUnits = "mi"; // Set Distance Units; zoom values of LayerInfo/MapperInfo
    std::string areaUnits = "sq mi";
    std::string paperUnits = "in";
    // Set CoordSys: the coordinate system of x/y in statements and functions.
    std::string coordSys = "CoordSys Earth Projection 1, 0";
    // Workspace statements of windows the engine does not show (layouts, legends, graphs), one
    // block per window as the workspace had it, so that Save Workspace writes them back.
    std::vector<std::string> keptWorkspaceText;
};

class Engine {
public:
    Engine();
    ~Engine();
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    // One statement (a whole workspace statement may span lines). Raises MbError: 1
    // "Unrecognized command: <first word>." when no statement begins so, 1 "Found [<token>]
    // while searching for [end of statement]." for words left over. "name = expression"
    // assigns a Dim'd variable. An empty statement does nothing.
    void run(std::string_view statement);
    // One expression, all of it (lang/expression.h lists its errors). Raises MbError.
    MbValue evaluate(std::string_view expression);
    // A menu command by number (811 clones the front map window; 1701, 1702, 1705, 1706 pick
    // the map tool). Raises MbError for a command the host does not offer.
    void runMenuCommand(int id);

    Registry& registry() { return *registry_; }
    Variables& variables() { return *variables_; }
    Catalog& catalog() { return *catalog_; }
    WindowManager& windows() { return *windows_; }
    HostServices& host() { return *host_; }
    // Draws map windows, for the screen and for Save Window; keeps their geometry.
    MapRenderer& renderer() { return *renderer_; }
    SessionSettings& settings() { return settings_; }

    // A statement changed what a window shows; the host passes it on to the client's
    // call-back unless event processing is off.
    void windowContentsChanged(int windowId);

private:
    std::unique_ptr<Registry> registry_;
    std::unique_ptr<Variables> variables_;
    std::unique_ptr<Catalog> catalog_;
    std::unique_ptr<WindowManager> windows_;
    std::unique_ptr<HostServices> host_;
    std::unique_ptr<MapRenderer> renderer_;
    SessionSettings settings_;
    int runDepth_ = 0; // Run Command nesting, bounded so a self-running command cannot recurse
};

// Each part of the engine registers its statements and functions here; Engine() calls them.
void registerCoreLanguage(Registry& registry);   // lang/: Dim, UnDim, assignment, Run Command,
                                                 // Create Point/Line/Region/Text, general functions
void registerTableLanguage(Registry& registry);  // tables/
void registerWindowLanguage(Registry& registry); // windows/
void registerHostLanguage(Registry& registry);   // host/: button pads, status bar, settings
void registerRenderLanguage(Registry& registry); // render/: Save Window
// workspace/: Run Application of a workspace, Save Workspace; after the host, whose
// Run Application it extends
void registerWorkspaceLanguage(Registry& registry);

} // namespace vellant::engine
