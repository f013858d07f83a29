#include "facade_host.h"

#include "app/sample_tables/sample_tables.h"
#include "hostmodel/facade_classes.h"

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

namespace vellant::hostmodel::testing {

namespace {

const std::filesystem::path& tableFolder() {
    static const std::filesystem::path folder = [] {
        std::string templ =
            (std::filesystem::temp_directory_path() / "vellant-facade-tables-XXXXXX").string();
        if (mkdtemp(templ.data()) == nullptr) throw std::runtime_error("no temporary folder");
        samples::writeSampleTables(templ);
        return std::filesystem::path(templ);
    }();
    return folder;
}

class TableFolderCleanup : public ::testing::Environment {
public:
    void TearDown() override { std::filesystem::remove_all(tableFolder()); }
};
[[maybe_unused]] ::testing::Environment* const cleanup =
    ::testing::AddGlobalTestEnvironment(new TableFolderCleanup);

} // namespace

void RecordingApp::Do(const std::string& command) {
    sent.push_back(command);
    if (!refusePrefix.empty() && command.rfind(refusePrefix, 0) == 0) raiseError(1000, "refused");
    host_->Do(command);
}

IMap& TestContext::mapObject() {
    if (!map) raiseError(kErrObjectNotSet);
    return *map;
}

ILayer& TestContext::layerObject() {
    if (!lyr) raiseError(kErrObjectNotSet);
    return *lyr;
}

FacadeHost::FacadeHost()
    : host(std::make_shared<engine::MapInfoAutomation>(engine)),
      app(std::make_shared<RecordingApp>(host)) {
    for (const char* name : {"regions", "lines", "points", "text", "mixed", "raster"})
        run("Open Table \"" + (tableFolder() / name).string() + ".tab\"");
    run("Select * From points Where RowID < 3 Into pq");
    // The empty sample table has no objects file and cannot be mapped; this one can.
    run("Create Table vacant (Name Char(10))");
    run("Create Map For vacant");
    run("Map From regions, lines, points, text, mixed, vacant, raster, pq");
    context.mapWin = std::stoi(ask("FrontWindow()"));
    host->RunMenuCommand(811); // the view: a clone of the user's map
    context.view = std::stoi(ask("WindowID(0)"));
    context.app = app;

    registerFacadeClasses(registry, context);
    using platform::AutomationRegistry;
    map = AutomationRegistry::as<Mapper>(registry.CreateObject("Vellant.Mapper"));
    lyr = AutomationRegistry::as<MIProps>(registry.CreateObject("Vellant.MIProps"));
    labels = AutomationRegistry::as<MIPropsLabelProps>(
        registry.CreateObject("Vellant.MIPropsLabelProps"));
    style = AutomationRegistry::as<MIPropsStyle>(registry.CreateObject("Vellant.MIPropsStyle"));
    context.map = map;
    context.lyr = lyr;
}

void FacadeHost::onLayer(const std::string& name) {
    const int layers = std::stoi(ask("MapperInfo(" + Str(context.view) + ",9)"));
    for (std::int16_t n = 0; n <= layers; ++n) {
        context.layer = n;
        if (ask(fill("LayerInfo(<w>,<i>,1)")) != name) continue;
        const int kind = std::stoi(ask(fill("LayerInfo(<w>,<i>,24)")));
        context.layerType = static_cast<std::int16_t>(kind == 4 ? 2 : kind);
        table = name;
        clear();
        return;
    }
    ADD_FAILURE() << "no layer " << name;
}

std::string FacadeHost::fill(std::string text) const {
    const std::pair<std::string, std::string> fills[] = {{"<w>", Str(context.view)},
                                                         {"<m>", Str(context.mapWin)},
                                                         {"<i>", Str(context.layer)},
                                                         {"<t>", table}};
    for (const auto& [key, value] : fills) {
        for (auto at = text.find(key); at != std::string::npos; at = text.find(key, at))
            text.replace(at, key.size(), value);
    }
    return text;
}

std::string FacadeHost::ask(const std::string& expression) {
    try {
        return host->eval(expression);
    } catch (const RuntimeError& e) {
        ADD_FAILURE() << "eval " << expression << ": " << e.description();
        return {};
    }
}

void FacadeHost::run(const std::string& statement) {
    try {
        host->Do(statement);
    } catch (const RuntimeError& e) {
        ADD_FAILURE() << "Do " << statement << ": " << e.description();
    }
}

std::string FacadeHost::closeHost() {
    host->close();
    clear();
    try {
        host->eval("1");
    } catch (const RuntimeError& e) {
        return e.description();
    }
    return {};
}

} // namespace vellant::hostmodel::testing
