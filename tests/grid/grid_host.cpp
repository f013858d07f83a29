#include "grid/grid_host.h"

#include "app/sample_tables/sample_tables.h"
#include "base/basic_text.h"
#include "grid/column_catalogue.h"
#include "grid/layer_rows.h"
#include "grid/load_grid.h"
#include "grid/setpropandcell.h"
#include "hostmodel/host_predicates.h"
#include "hostmodel/mapper.h"
#include "hostmodel/mi_props.h"
#include "hostmodel/mi_props_label_props.h"
#include "platform/file_system_object.h"
#include "prefs/settings.h"
#include "styles/style_samples.h"

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

namespace vellant::grid::testing {

namespace {

// The sample tables, written once per run and removed at its end.
class TableFolder : public ::testing::Environment {
public:
    static const std::string& path() {
        static const std::string folder = [] {
            std::string templ =
                (std::filesystem::temp_directory_path() / "vellant-grid-tables-XXXXXX").string();
            if (mkdtemp(templ.data()) == nullptr) throw std::runtime_error("no temporary folder");
            samples::writeSampleTables(templ);
            return templ;
        }();
        return folder;
    }
    void TearDown() override { std::filesystem::remove_all(path()); }
};
[[maybe_unused]] ::testing::Environment* const tableFolder =
    ::testing::AddGlobalTestEnvironment(new TableFolder);

} // namespace

GridHost::GridHost() : app(std::make_shared<engine::MapInfoAutomation>(engine)) {
    for (const char* table : {"regions", "lines", "points", "text", "mixed", "raster"})
        run("Open Table \"" + folder() + "/" + table + ".tab\"");
    run("Create Table scratch (a Integer) File \"" + dir.file("scratch.tab") + "\"");
    run("Create Map For scratch CoordSys Earth Projection 1, 104");
    run("Select * From regions Where 1 = 1 Into qregions");
    run("Map From qregions, raster, regions, lines, points, text, mixed, scratch");
    userMap = std::stoi(eval("FrontWindow()"));
    app->RunMenuCommand(811); // a clone of the user's map: the view
    view = std::stoi(eval("WindowID(0)"));

    session::Session& s = *session;
    prefs::writeprefs(s);
    prefs::getotherprefs(s);
    s.gIsMapInfo = kTrue;
    s.gMapInfo = app;
    s.gMapWin = userMap;
    s.gViewWin = view;
    s.gMap = std::make_shared<hostmodel::Mapper>(s);
    s.gLyr = std::make_shared<hostmodel::MIProps>(s);
    s.gLabelProps = std::make_shared<hostmodel::MIPropsLabelProps>(s);
    s.gLayerCount = kLayers;
    s.gColCount = 38;
    grid().setCols(s.gColCount);
    setcolatts(s);
    // The scratch objects of the style samples, as Form_Load makes them; samples go to a
    // temporary folder of the test's own.
    std::filesystem::create_directories(temporaryFolder());
    s.gFSO = std::make_shared<platform::FileSystemObject>(temporaryFolder());
    styles::initstylewin(s);
}

std::string GridHost::temporaryFolder() const {
    return dir.file("temp");
}

void GridHost::run(const std::string& statement) {
    try {
        app->Do(statement);
    } catch (const RuntimeError& e) {
        ADD_FAILURE() << "Do " << statement << ": " << e.description();
    }
}

std::string GridHost::eval(const std::string& expression) {
    try {
        return app->eval(expression);
    } catch (const RuntimeError& e) {
        ADD_FAILURE() << "eval " << expression << ": " << e.description();
        return "";
    }
}

std::string GridHost::info(int layer, int code, int window) {
    return eval("LayerInfo(" + Str(window ? window : view) + "," + Str(layer) + "," + Str(code) +
                ")");
}

void GridHost::setViewLayer(int layer, const std::string& clause) {
    run("set map window " + Str(view) + " Layer " + Str(layer) + " " + clause);
}

std::string GridHost::folder() {
    return TableFolder::path();
}

void GridHost::load() {
    bool rebuild = true;
    load_grid(*session, rebuild);
}

void GridHost::onLayer(int layer) {
    session::Session& s = *session;
    s.gLayer = static_cast<std::int16_t>(layer);
    grid().setRow(row(layer));
    s.gLayerType = hostmodel::asMIProps(s.lyr()).ltype();
    s.gFeatureType = hostmodel::GetFeatureType(s, s.lyr());
}

void GridHost::set(const std::string& key, const Variant& value, bool apply, bool paint) {
    session->gApplyToLayer = toFlag(apply);
    setpropandcell(*session, key, value, paint);
}

int GridHost::col(const std::string& key) {
    return getcolnum(*session, key);
}

int GridHost::row(int layer) {
    return LayerToRow(*session, static_cast<std::uint16_t>(layer));
}

const platform::GridCell& GridHost::cell(int layer, const std::string& key) {
    return grid().cellAt(row(layer), col(key));
}

bool GridHost::gray(int layer, const std::string& key) {
    return cell(layer, key).backColor == static_cast<platform::OleColor>(kGrayCellColor);
}

bool GridHost::clickable(int layer, const std::string& key) {
    return session->gCellState(row(layer), col(key));
}

bool GridHost::logged(const std::string& line) const {
    return log().find("\"" + line + "\"\r\n") != std::string::npos;
}

} // namespace vellant::grid::testing
