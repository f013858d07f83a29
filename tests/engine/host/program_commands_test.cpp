// Every MapBasic string the program sends, exactly as it sends it, each checked for its effect
// on the host, or for the error the program relies on. The strings are written with the
// program's placeholders; ProgramSession fills them the way the program does (numbers through
// Str, with their leading blank).

#include "base/basic_text.h"
#include "engine/host/companion.h"
#include "engine/host/host_services.h"
#include "engine/lang/variables.h"
#include "engine/windows/window_manager.h"
#include "program_session.h"

#include <cctype>
#include <cmath>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <tuple>

namespace vellant::engine::testing {
namespace {

using Check = std::function<void(ProgramSession&, const Answer&)>;
using Setup = std::function<void(ProgramSession&)>;

struct Row {
    const char* sender; // the procedure of the program that sends the string
    Via via;
    std::string text; // as the program writes it, placeholders in angle brackets
    Fills fills = {};
    Setup before = {};
    Check check = {};
    const char* awaiting = nullptr; // the part of the host the row waits for
};

void expectAccepted(const Answer& a) {
    EXPECT_EQ(a.error, 0) << a.message;
}

// eval answered exactly this.
Check answers(std::string expected) {
    return [expected](ProgramSession&, const Answer& a) {
        expectAccepted(a);
        EXPECT_EQ(a.text, expected);
    };
}

// eval answered a number this close to the expected one.
Check answersAbout(std::function<double(ProgramSession&)> expected, double tolerance = 1e-9) {
    return [expected, tolerance](ProgramSession& s, const Answer& a) {
        expectAccepted(a);
        const double want = expected(s);
        EXPECT_NEAR(Val(a.text), want, tolerance * std::max(1.0, std::fabs(want))) << a.text;
    };
}

// The call succeeded and the expressions answer so afterwards. Both sides are filled as
// commands are; an expected window id loses the blank Str gave it, as eval prints none.
Check then(std::vector<std::pair<std::string, std::string>> expectations) {
    return [expectations](ProgramSession& s, const Answer& a) {
        expectAccepted(a);
        for (const auto& [expression, expected] : expectations)
            EXPECT_EQ(s.eval(s.fill(expression, {})), LTrim(s.fill(expected, {}))) << expression;
    };
}

Check thenModel(std::function<void(ProgramSession&)> inspect) {
    return [inspect](ProgramSession& s, const Answer& a) {
        expectAccepted(a);
        inspect(s);
    };
}

Check refused(int code) {
    return [code](ProgramSession&, const Answer& a) { EXPECT_EQ(a.error, code) << a.message; };
}

Setup doFirst(std::vector<std::string> statements) {
    return [statements](ProgramSession& s) {
        for (const std::string& statement : statements)
            s.run(s.fill(statement, {}));
    };
}

Setup makeStyleMap() {
    return [](ProgramSession& s) {
        s.run(s.fill("create table vlStyle (stylex integer) File \"<path>\\vlstyle\"", {}));
        s.run("create map for vlstyle");
        s.run("map from vlStyle min");
        s.styleWin = std::stoi(s.eval("WindowID(frontwindow())"));
    };
}

std::string str(double value) {
    return Str(static_cast<float>(value));
}

const std::string kOnePoint = "Create Point into variable tobj (1,1)";

std::vector<Row> sessionStrings() {
    return {
        {"mapinfo_init",
         Via::Eval,
         "systeminfo(9)",
         {},
         {},
         [](ProgramSession& s, const Answer& a) {
             expectAccepted(a);
             EXPECT_EQ(a.text, std::to_string(s.engine->host().mainWindow().hWnd()));
         }},
        {"mapinfo_init", Via::Eval, "WIndowInfo(Frontwindow(),3)", {}, {}, answers("1")},
        {"mapinfo_init",
         Via::Eval,
         "WindowID(frontwindow())",
         {},
         {},
         [](ProgramSession& s, const Answer& a) {
             expectAccepted(a);
             EXPECT_EQ(a.text, std::to_string(s.engine->windows().frontWindow()));
         }},
        {"mapinfo_init",
         Via::Do,
         "Set Map Window <gMapWin> redraw off",
         {},
         {},
         thenModel([](ProgramSession& s) {
             EXPECT_FALSE(s.engine->windows().get(s.mapWin).map->redraw);
         })},
        {"mapinfo_init", Via::Do, "statusbar hide", {}, {}, thenModel([](ProgramSession& s) {
             EXPECT_FALSE(s.engine->host().statusBarVisible());
         })},
        {"mapinfo_init",
         Via::Eval,
         "WIndowInfo(<gMapWin>,6)",
         {},
         {},
         answersAbout(
             [](ProgramSession& s) { return s.engine->windows().get(s.mapWin).placement.x; })},
        {"mapinfo_init",
         Via::Eval,
         "WIndowInfo(<gMapWin>,7)",
         {},
         {},
         answersAbout(
             [](ProgramSession& s) { return s.engine->windows().get(s.mapWin).placement.y; })},
        {"mapinfo_init",
         Via::Eval,
         "WIndowInfo(<gMapWin>,5)",
         {},
         {},
         answersAbout(
             [](ProgramSession& s) { return s.engine->windows().get(s.mapWin).placement.height; })},
        {"mapinfo_init",
         Via::Eval,
         "WIndowInfo(<gMapWin>,4)",
         {},
         {},
         answersAbout(
             [](ProgramSession& s) { return s.engine->windows().get(s.mapWin).placement.width; })},
        {"mapinfo_init",
         Via::Do,
         "Set Next Document Parent <hwnd> Style 1",
         {},
         {},
         thenModel([](ProgramSession& s) {
             const NextDocument& next = s.engine->windows().nextDocument();
             EXPECT_EQ(next.parent, std::optional<std::int64_t>(s.frame.hWnd()));
             EXPECT_EQ(next.style, std::optional<int>(1));
         })},
        {"mapinfo_init",
         Via::Menu,
         "811",
         {},
         {},
         then({{"NumWindows()", "3"},
               {"WindowInfo(WindowID(0),3)", "1"},
               {"MapperInfo(WindowID(0),9)", "4"}})},
        {"mapinfo_init",
         Via::Eval,
         "WindowID(0)",
         {},
         {},
         [](ProgramSession& s, const Answer& a) {
             expectAccepted(a);
             EXPECT_EQ(a.text, std::to_string(s.viewWin));
         }},
        {"mapinfo_init",
         Via::Do,
         "Set Map Window <gViewWin> redraw off",
         {},
         {},
         thenModel([](ProgramSession& s) {
             EXPECT_FALSE(s.engine->windows().get(s.viewWin).map->redraw);
         })},
        {"mapinfo_init",
         Via::Do,
         "Set Next Document Style 0",
         {},
         doFirst({"Set Next Document Parent <hwnd> Style 1"}),
         thenModel([](ProgramSession& s) {
             EXPECT_EQ(s.engine->windows().nextDocument().style, std::optional<int>(0));
         })},
        {"mapinfo_init",
         Via::Do,
         "set distance units Mapperinfo(<gViewWin>,12)",
         {},
         doFirst({"Set Map Window <gViewWin> Distance Units \"km\""}),
         thenModel([](ProgramSession& s) { EXPECT_EQ(s.engine->settings().distanceUnits, "km"); })},
        {"IsWindowOpen", Via::Eval, "NumWindows()", {}, {}, answers("2")},
        {"IsWindowOpen",
         Via::Eval,
         "windowinfo(<n>,13)",
         {{"<n>", Str(std::int64_t{1})}},
         {},
         [](ProgramSession& s, const Answer& a) {
             expectAccepted(a);
             EXPECT_EQ(a.text, std::to_string(s.mapWin));
         }},
        {"Form_Load", Via::Eval, "Mapperinfo(<gViewWin>,9)", {}, {}, answers("4")},
        {"Form_Load", Via::Do, "set event processing off", {}, {}, thenModel([](ProgramSession& s) {
             EXPECT_FALSE(s.engine->host().eventProcessing());
         })},
        {"Form_Load", Via::Do, "set progressbars off", {}, {}, thenModel([](ProgramSession& s) {
             EXPECT_FALSE(s.engine->host().progressBars());
         })},
        // The map opens on all its layers: x -10..30, y -5..12.
        {"Form_Load",
         Via::Eval,
         "Mapperinfo(<gMapWin>,3)",
         {},
         {},
         answersAbout([](ProgramSession&) { return 10.0; }, 1e-6)},
        {"Form_Load",
         Via::Eval,
         "Mapperinfo(<gMapWin>,4)",
         {},
         {},
         answersAbout([](ProgramSession&) { return 3.5; }, 1e-6)},
        {"Form_Load",
         Via::Eval,
         "windowinfo(<gMapWin>,4)",
         {},
         {},
         answersAbout(
             [](ProgramSession& s) { return s.engine->windows().get(s.mapWin).placement.width; })},
        {"Form_Load",
         Via::Eval,
         "windowinfo(<gViewWin>,4)",
         {},
         {},
         answersAbout(
             [](ProgramSession& s) { return s.engine->windows().get(s.viewWin).placement.width; })},
        {"Form_Load",
         Via::Eval,
         "mapperinfo(<gViewWin>,1)",
         {},
         {},
         answersAbout([](ProgramSession& s) {
             return s.engine->windows().get(s.viewWin).map->zoomMetres / 1609.344;
         })},
        {"Form_Load",
         Via::Do,
         "Set Map Window <gViewWin> zoom <gScaleZoom>",
         {{"<gScaleZoom>", str(1234.5)}},
         {},
         then({{"mapperinfo(<gViewWin>,1)", "1234.5"}})},
        {"Form_Load", Via::Eval, "mapperinfo(<gViewWin>,12)", {}, {}, answers("mi")},
        {"Form_Load",
         Via::Eval,
         "mapperinfo(<gViewWin>,2)",
         {},
         {},
         [](ProgramSession&, const Answer& a) {
             expectAccepted(a);
             EXPECT_GT(Val(a.text), 0);
         }},
        {"Form_Load",
         Via::Do,
         "Set Map Window <gViewWin> redraw on",
         {},
         doFirst({"Set Map Window <gViewWin> redraw off"}),
         thenModel([](ProgramSession& s) {
             EXPECT_TRUE(s.engine->windows().get(s.viewWin).map->redraw);
         })},
        {"Form_Load",
         Via::Do,
         "Set Map Window <gMapWin> redraw on",
         {},
         doFirst({"Set Map Window <gMapWin> redraw off"}),
         thenModel([](ProgramSession& s) {
             EXPECT_TRUE(s.engine->windows().get(s.mapWin).map->redraw);
         })},
        {"Form_Load",
         Via::Do,
         "Create Buttonpad \"Callback\" As Pushbutton ID 2001 Calling OLE \"RunCommand\" hide ",
         {},
         {},
         thenModel([](ProgramSession& s) {
             EXPECT_FALSE(s.engine->host().buttonPad("Callback").visible);
             s.engine->host().pressButton("Callback", 2001);
             ASSERT_EQ(s.callback->commands.size(), 1u);
             EXPECT_NE(s.callback->commands[0].find("2001"), std::string::npos);
         })},
        {"Form_Load",
         Via::Do,
         "Create Buttonpad \"Callback\" As Pushbutton ID 2001 Calling OLE \"RunCommand\" "
         "Pushbutton ID 2002 Calling OLE \"RunCommand\" hide ",
         {},
         {},
         thenModel([](ProgramSession& s) {
             s.engine->host().pressButton("Callback", 2002);
             ASSERT_EQ(s.callback->commands.size(), 1u);
             EXPECT_NE(s.callback->commands[0].find("2002"), std::string::npos);
         })},
        {"RunCommand",
         Via::Do,
         "Set Application Window 0",
         {},
         doFirst({"Set Application Window <hwnd of MapInfoFrame>"}),
         then({{"SystemInfo(7)", "0"}})},
        {"Form_Load",
         Via::Companion,
         "Dialog <n> <style text>",
         {{"<n>", "1"}, {"<style text>", "Pen (1,2,0)"}},
         {},
         thenModel([](ProgramSession& s) {
             const auto request = s.engine->host().companion()->takeStyleDialogRequest();
             ASSERT_TRUE(request.has_value());
             EXPECT_EQ(request->kind, StyleDialogKind::Line);
             EXPECT_EQ(request->startClause, "Pen (1,2,0)");
         })},
        {"shutdown",
         Via::Companion,
         "drop table vlStyle",
         {},
         doFirst({"create table vlStyle (stylex integer) File \"<path>\\vlstyle\""}),
         [](ProgramSession& s, const Answer& a) {
             expectAccepted(a);
             EXPECT_EQ(s.send(Via::Eval, "TableInfo(\"vlStyle\",1)").error, 405);
             EXPECT_FALSE(std::filesystem::exists(s.appDir / "vlstyle.tab"));
         }},
        {"shutdown",
         Via::Do,
         "UnDim tobj",
         {},
         doFirst({"Dim tobj as object"}),
         thenModel(
             [](ProgramSession& s) { EXPECT_EQ(s.engine->variables().find("tobj"), nullptr); })},
        {"shutdown",
         Via::Do,
         "statusbar Show",
         {},
         doFirst({"statusbar hide"}),
         thenModel([](ProgramSession& s) { EXPECT_TRUE(s.engine->host().statusBarVisible()); })},
        {"shutdown",
         Via::Do,
         "Alter Buttonpad \"Callback\" Destroy",
         {},
         doFirst({"Create Buttonpad \"Callback\" As Pushbutton ID 2001 Calling OLE "
                  "\"RunCommand\" hide "}),
         thenModel([](ProgramSession& s) {
             EXPECT_EQ(s.engine->host().findButtonPad("Callback"), nullptr);
         })},
        {"shutdown",
         Via::Do,
         "Set progressbars on",
         {},
         doFirst({"set progressbars off"}),
         thenModel([](ProgramSession& s) { EXPECT_TRUE(s.engine->host().progressBars()); })},
        {"load_grid",
         Via::Do,
         "set event processing on",
         {},
         doFirst({"set event processing off"}),
         thenModel([](ProgramSession& s) { EXPECT_TRUE(s.engine->host().eventProcessing()); })},
        {"load_grid",
         Via::Do,
         "set progressbars on",
         {},
         doFirst({"set progressbars off"}),
         thenModel([](ProgramSession& s) { EXPECT_TRUE(s.engine->host().progressBars()); })},
        {"show_MI_statusbar_click",
         Via::Do,
         "Statusbar hide",
         {},
         {},
         thenModel([](ProgramSession& s) { EXPECT_FALSE(s.engine->host().statusBarVisible()); })},
        {"show_MI_statusbar_click",
         Via::Do,
         "Statusbar show",
         {},
         doFirst({"statusbar hide"}),
         thenModel([](ProgramSession& s) { EXPECT_TRUE(s.engine->host().statusBarVisible()); })},
        {"okclick",
         Via::Do,
         "Set window <gViewWin> front",
         {},
         doFirst({"Set Window <gMapWin> Front"}),
         thenModel(
             [](ProgramSession& s) { EXPECT_EQ(s.engine->windows().frontWindow(), s.viewWin); })},
        {"okclick",
         Via::Do,
         "Set window <gViewWin> Position (<gMapLeft>,<gMapTop>)",
         {{"<gMapLeft>", str(1.25)}, {"<gMapTop>", str(0.5)}},
         {},
         then({{"WindowInfo(<gViewWin>,6)", "1.25"}, {"WindowInfo(<gViewWin>,7)", "0.5"}})},
        {"okclick",
         Via::Do,
         "Set window <gViewWin> width <gMapWidthSaved>",
         {{"<gMapWidthSaved>", str(5.5)}},
         {},
         then({{"WindowInfo(<gViewWin>,4)", "5.5"}})},
        {"okclick",
         Via::Do,
         "Set window <gViewWin> height <gMapHeightSaved>",
         {{"<gMapHeightSaved>", str(3.25)}},
         {},
         then({{"WindowInfo(<gViewWin>,5)", "3.25"}})},
        {"okclick",
         Via::Do,
         "Set Map Window <gViewWin> center ( <gCenterX>,<gCenterY>) zoom <gViewZoom>",
         {{"<gCenterX>", str(10.5)}, {"<gCenterY>", str(-3.25)}, {"<gViewZoom>", str(250)}},
         {},
         then({{"MapperInfo(<gViewWin>,3)", "10.5"},
               {"MapperInfo(<gViewWin>,4)", "-3.25"},
               {"MapperInfo(<gViewWin>,1)", "250"}})},
        {"okclick",
         Via::Do,
         "Close window <gViewWin>",
         {},
         {},
         then({{"NumWindows()", "1"}, {"WindowID(1)", "<gMapWin>"}})},
        {"okclick",
         Via::Do,
         "Close window <gMapWin>",
         {},
         {},
         then({{"NumWindows()", "1"}, {"WindowID(1)", "<gViewWin>"}})},
        {"okclick",
         Via::Do,
         "Close window <gSpareWin>",
         {},
         [](ProgramSession& s) {
             s.app->RunMenuCommand(811);
             s.spareWin = std::stoi(s.eval("WindowID(0)"));
         },
         then({{"NumWindows()", "2"}})},
    };
}

std::vector<Row> facadeStrings() {
    std::vector<Row> rows = {
        {"wintype", Via::Eval, "WIndowInfo(<id>,3)", {}, {}, answers("1")},
        {"titletext",
         Via::Eval,
         "WindowInfo(<gViewWin>,1)",
         {},
         {},
         [](ProgramSession& s, const Answer& a) {
             expectAccepted(a);
             EXPECT_EQ(a.text, s.engine->windows().get(s.viewWin).title());
         }},
        {"TableName",
         Via::Eval,
         "tableinfo(<n>,1)",
         {{"<n>", Str(std::int64_t{2})}},
         {},
         answers("regions")},
        {"TableMappable",
         Via::Eval,
         "tableinfo(<n>,5)",
         {{"<n>", Str(std::int64_t{2})}},
         {},
         answers("T")},
        // The setter leaves the closing quotation mark out; the host refuses the command.
        {"let mapunit",
         Via::Do,
         "set map window <gViewWin> distance units \"<unit>",
         {{"<unit>", "km"}},
         {},
         [](ProgramSession& s, const Answer& a) {
             EXPECT_EQ(a.error, 1) << a.message;
             EXPECT_EQ(s.eval(s.fill("mapperinfo(<gViewWin>,12)", {})), "mi");
         }},
        {"MapRedraw",
         Via::Do,
         "Set Map Window <gViewWin> redraw <onoff>",
         {{"<onoff>", "off"}},
         {},
         thenModel([](ProgramSession& s) {
             EXPECT_FALSE(s.engine->windows().get(s.viewWin).map->redraw);
         })},
        {"MapRedraw",
         Via::Do,
         "Set Map Window <gViewWin> redraw <onoff>",
         {{"<onoff>", "ON"}},
         doFirst({"Set Map Window <gViewWin> redraw off"}),
         thenModel([](ProgramSession& s) {
             EXPECT_TRUE(s.engine->windows().get(s.viewWin).map->redraw);
         })},
        {"RefreshMap", Via::Eval, "numtables()", {}, {}, answers("6")},
        {"MinX", Via::Eval, "TableInfo(\"<t>\",20)", {}, {}, answers("0")},
        {"MinY", Via::Eval, "TableInfo(\"<t>\",21)", {}, {}, answers("0")},
        {"MaxX", Via::Eval, "TableInfo(\"<t>\",22)", {}, {}, answers("30")},
        {"MaxY", Via::Eval, "TableInfo(\"<t>\",23)", {}, {}, answers("12")},
        {"Degtokm",
         Via::Eval,
         "Distance(150, -33, 151, -33, \"km\")",
         {},
         {},
         [](ProgramSession&, const Answer& a) {
             expectAccepted(a);
             EXPECT_GT(Val(a.text), 93.0);
             EXPECT_LT(Val(a.text), 94.0);
         }},
        {"Frontwindow",
         Via::Eval,
         "Frontwindow()",
         {},
         {},
         [](ProgramSession& s, const Answer& a) {
             expectAccepted(a);
             EXPECT_EQ(a.text, std::to_string(s.engine->windows().frontWindow()));
         }},
        {"Edited", Via::Eval, "TableInfo(\"<t>\",9)", {}, {}, answers("F")},
        {"FieldCount", Via::Eval, "TableInfo(\"<t>\",4)", {}, {}, answers("2")},
        {"FieldName",
         Via::Eval,
         "ColumnInfo(\"<t>\",\"Col<n>\",1)",
         {{"<n>", "1"}},
         {},
         answers("Name")},
        {"coordsys",
         Via::Eval,
         "TableInfo(\"<t>\",29)",
         {},
         {},
         [](ProgramSession&, const Answer& a) {
             expectAccepted(a);
             EXPECT_EQ(a.text.rfind("CoordSys Earth Projection 1, 104", 0), 0u) << a.text;
         }},
        {"Fastedit", Via::Eval, "TableInfo(\"<t>\",10)", {}, {}, answers("F")},
        {"Fastedit",
         Via::Do,
         "set table \"<t>\" Fastedit on",
         {},
         {},
         then({{"TableInfo(\"<t>\",10)", "T"}})},
        {"Fastedit",
         Via::Do,
         "set table \"<t>\" Fastedit Off",
         {},
         doFirst({"set table \"<t>\" Fastedit on"}),
         then({{"TableInfo(\"<t>\",10)", "F"}})},
        {"Undo", Via::Eval, "TableInfo(\"<t>\",11)", {}, {}, answers("T")},
        {"Undo",
         Via::Do,
         "set table \"<t>\" Undo Off",
         {},
         {},
         then({{"TableInfo(\"<t>\",11)", "F"}})},
        {"Undo",
         Via::Do,
         "set table \"<t>\" Undo on",
         {},
         doFirst({"set table \"<t>\" Undo Off"}),
         then({{"TableInfo(\"<t>\",11)", "T"}})},
        {"Readonly", Via::Eval, "TableInfo(\"<t>\",6)", {}, {}, answers("F")},
        {"Readonly",
         Via::Do,
         "set table \"<t>\" Readonly",
         {},
         {},
         then({{"TableInfo(\"<t>\",6)", "T"}})},
        {"count", Via::Eval, "TableInfo(\"<t>\",8)", {}, {}, answers("3")},
        {"Name", Via::Eval, "LayerInfo(<w>,<i>,1)", {}, {}, answers("regions")},
        {"TableName", Via::Eval, "TableInfo(\"<t>\",1)", {}, {}, answers("regions")},
        {"Visible", Via::Eval, "LayerInfo(<w>,<i>,9)", {}, {}, answers("1")},
        {"Visible",
         Via::Do,
         "set map window <w> Layer <gLayer> Display Off",
         {},
         {},
         then({{"LayerInfo(<w>,<i>,9)", "0"}})},
        {"Visible",
         Via::Do,
         "set map window <w> Layer <gLayer> Display Graphic",
         {},
         doFirst({"set map window <w> Layer <gLayer> Display Off"}),
         then({{"LayerInfo(<w>,<i>,9)", "1"}})},
        {"ZoomLayer", Via::Eval, "LayerInfo(<w>,<i>,4)", {}, {}, answers("F")},
        {"ZoomMin", Via::Eval, "LayerInfo(<w>,<i>,5)", {}, {}, answers("0")},
        {"ZoomMax", Via::Eval, "LayerInfo(<w>,<i>,6)", {}, {}, answers("10000")},
        {"ZoomLayer",
         Via::Do,
         "set map window <w> Layer <gLayer> Zoom (<ZoomMin>,<ZoomMax>) On",
         {{"<ZoomMin>", Str(10.0)}, {"<ZoomMax>", Str(500.0)}},
         {},
         then({{"LayerInfo(<w>,<i>,4)", "T"},
               {"LayerInfo(<w>,<i>,5)", "10"},
               {"LayerInfo(<w>,<i>,6)", "500"}})},
        {"ZoomLayer",
         Via::Do,
         "set map window <w> Layer <gLayer> Zoom (<ZoomMin>,<ZoomMax>) Off",
         {{"<ZoomMin>", Str(10.0)}, {"<ZoomMax>", Str(500.0)}},
         doFirst({"set map window <w> Layer <gLayer> Zoom (1,2) On"}),
         then({{"LayerInfo(<w>,<i>,4)", "F"},
               {"LayerInfo(<w>,<i>,5)", "10"},
               {"LayerInfo(<w>,<i>,6)", "500"}})},
        {"ZoomMin",
         Via::Do,
         "set map window <w> Layer <gLayer> Zoom (<value>,<ZoomMax>) On",
         {{"<value>", Str(20.5)}, {"<ZoomMax>", Str(10000.0)}},
         {},
         then({{"LayerInfo(<w>,<i>,5)", "20.5"}, {"LayerInfo(<w>,<i>,4)", "T"}})},
        {"ZoomMax",
         Via::Do,
         "set map window <w> Layer <gLayer> Zoom (<ZoomMin>,<value>) On",
         {{"<ZoomMin>", Str(0.0)}, {"<value>", Str(750.25)}},
         {},
         then({{"LayerInfo(<w>,<i>,6)", "750.25"}, {"LayerInfo(<w>,<i>,5)", "0"}})},
        {"FileSpec",
         Via::Eval,
         "LayerInfo(<w>,<i>,8)",
         {},
         {},
         [](ProgramSession&, const Answer& a) {
             expectAccepted(a);
             EXPECT_EQ(std::filesystem::path(a.text),
                       ProgramSession::tableFolder() / "regions.tab");
         }},
        {"overridestyle",
         Via::Do,
         "set map window <w> Layer <gLayer> Display Global Global <style>",
         {{"<style>", "Brush (2,255,0)"}},
         {},
         then({{"LayerInfo(<w>,<i>,9)", "2"}, {"LayerInfo(<w>,<i>,12)", "Brush (2,255,0)"}})},
        {"overridestyle",
         Via::Do,
         "set map window <w> Layer <gLayer> Display Global ",
         {},
         {},
         then({{"LayerInfo(<w>,<i>,9)", "2"}})},
        {"ttype", Via::Eval, "TableInfo(\"<t>\",3)", {}, {}, answers("1")},
        {"ltype", Via::Eval, "LayerInfo(<w>,<i>,24)", {}, {}, answers("0")},
        {"PredominantFeatureType",
         Via::Do,
         "Fetch first from <t>",
         {},
         {},
         then({{"ObjectInfo(<t>.obj,1)", "7"}})},
        {"PredominantFeatureType",
         Via::Eval,
         "ObjectInfo(<t>.obj,1)",
         {},
         doFirst({"Fetch first from <t>"}),
         answers("7")},
        // A first row without an object: the failure is the one the program expects.
        {"PredominantFeatureType",
         Via::Eval,
         "ObjectInfo(<t>.obj,1)",
         {{"<t>", "nobj"}},
         doFirst({"Create Table nobj (Name Char(10)) File \"<path>/nobj\"",
                  "Create Map For nobj CoordSys Earth Projection 1, 104",
                  "Insert Into nobj (Name) Values (\"first\")", "Fetch first from nobj"}),
         [](ProgramSession&, const Answer& a) {
             EXPECT_NE(a.error, 0);
             EXPECT_EQ(LCase(a.message).rfind("objectinfo: could not fetch", 0), 0u) << a.message;
         }},
        {"Style", Via::Eval, "LayerInfo(<w>,<i>,11)", {}, {}, answers("Pen (1,2,0)")},
        {"Style",
         Via::Eval,
         "LayerInfo(<w>,<i>,<attribute>)",
         {{"<attribute>", "12"}},
         {},
         answers("Brush (2,16777215,16777215)")},
        {"Style",
         Via::Eval,
         "LayerInfo(<w>,<i>,<attribute>)",
         {{"<attribute>", "10"}},
         {},
         answers("Pen (1,2,0)")},
        {"Style",
         Via::Eval,
         "LayerInfo(<w>,<i>,<attribute>)",
         {{"<attribute>", "13"}},
         {},
         answers("Symbol (35,0,12)")},
        {"Style",
         Via::Eval,
         "LayerInfo(<w>,<i>,<attribute>)",
         {{"<attribute>", "14"}},
         {},
         answers("Font (\"Arial\",0,9,0)")},
        {"LineStyle", Via::Eval, "Styleattr(LayerInfo(<w>,<gLayer>,10),2)", {}, {}, answers("2")},
        {"Style", Via::Eval, "LayerInfo(<w>,<i>,18)", {}, {}, answers("Font (\"Arial\",0,9,0)")},
        // The label style comes back from the facade with its blanks taken out.
        {"Style",
         Via::Do,
         "set map window <w> Layer <gLayer> Label <style>",
         {{"<style>", "Font(\"Arial\",1,10,255)"}},
         {},
         then({{"LayerInfo(<w>,<i>,18)", "Font (\"Arial\",1,10,255)"}})},
        {"Datafield", Via::Eval, "LayerInfo(<w>,<i>,15)", {}, {}, answers("Name")},
        {"Datafield",
         Via::Do,
         "set map window <w> Layer <gLayer> Label with <expression>",
         {{"<expression>", "Value"}},
         {},
         then({{"LayerInfo(<w>,<i>,15)", "Value"}})},
        {"Duplicate", Via::Eval, "LayerInfo(<w>,<i>,30)", {}, {}, answers("F")},
        {"LabelMax", Via::Eval, "LayerInfo(<w>,<i>,32)", {}, {}, answers("2147483647")},
        {"LabelMax",
         Via::Do,
         "set map window <w> Layer <gLayer> Label Max <n>",
         {{"<n>", Str(std::int64_t{50})}},
         {},
         then({{"LayerInfo(<w>,<i>,32)", "50"}})},
        {"LabelZoom", Via::Eval, "LayerInfo(<w>,<i>,25)", {}, {}, answers("3")},
        {"LabelZoomMax", Via::Eval, "LayerInfo(<w>,<i>,27)", {}, {}, answers("10000")},
        {"LabelZoomMin", Via::Eval, "LayerInfo(<w>,<i>,26)", {}, {}, answers("0")},
        {"LabelZoomMax",
         Via::Do,
         "set map window <w> Layer <gLayer> Label Visibility Zoom( <LabelZoomMin>,<value>)",
         {{"<LabelZoomMin>", Str(5.0)}, {"<value>", Str(300.0)}},
         {},
         then({{"LayerInfo(<w>,<i>,25)", "2"},
               {"LayerInfo(<w>,<i>,26)", "5"},
               {"LayerInfo(<w>,<i>,27)", "300"}})},
        {"LabelZoomMin",
         Via::Do,
         "set map window <w> Layer <gLayer> Label Visibility Zoom( <value>,<LabelZoomMax>)",
         {{"<value>", Str(7.5)}, {"<LabelZoomMax>", Str(400.0)}},
         {},
         then({{"LayerInfo(<w>,<i>,26)", "7.5"}, {"LayerInfo(<w>,<i>,27)", "400"}})},
        {"LabelZoom",
         Via::Do,
         "set map window <w> Layer <gLayer> Label Visibility <clause>",
         {{"<clause>", "Zoom( " + Str(1.0) + "," + Str(2.0) + ")"}},
         {},
         then({{"LayerInfo(<w>,<i>,25)", "2"}})},
        {"LabelZoom",
         Via::Do,
         "set map window <w> Layer <gLayer> Label Visibility <clause>",
         {{"<clause>", "On"}},
         doFirst({"set map window <w> Layer <gLayer> Label Visibility Off"}),
         then({{"LayerInfo(<w>,<i>,25)", "3"}})},
        {"LabelZoom",
         Via::Do,
         "set map window <w> Layer <gLayer> Label Visibility <clause>",
         {{"<clause>", "Off"}},
         {},
         then({{"LayerInfo(<w>,<i>,25)", "1"}})},
        {"Visible",
         Via::Do,
         "set map window <w> Layer <gLayer> Label Visibility On",
         {},
         doFirst({"set map window <w> Layer <gLayer> Label Visibility Off"}),
         then({{"LayerInfo(<w>,<i>,25)", "3"}})},
        {"Linetype", Via::Eval, "LayerInfo(<w>,<i>,16)", {}, {}, answers("0")},
        {"Linetype",
         Via::Do,
         "set map window <w> Layer <gLayer> Label Line Simple",
         {},
         {},
         then({{"LayerInfo(<w>,<i>,16)", "1"}})},
        {"Linetype",
         Via::Do,
         "set map window <w> Layer <gLayer> Label Line Arrow",
         {},
         {},
         then({{"LayerInfo(<w>,<i>,16)", "2"}})},
        {"Linetype",
         Via::Do,
         "set map window <w> Layer <gLayer> Label Line None",
         {},
         doFirst({"set map window <w> Layer <gLayer> Label Line Arrow"}),
         then({{"LayerInfo(<w>,<i>,16)", "0"}})},
        // A code the let does not know leaves the word out; the host refuses the command.
        {"Linetype", Via::Do, "set map window <w> Layer <gLayer> Label Line ", {}, {}, refused(1)},
        {"Selectable",
         Via::Do,
         "set map window <w> Layer <gLayer> Selectable ",
         {},
         {},
         refused(1)},
        {"Offset", Via::Eval, "LayerInfo(<w>,<i>,31)", {}, {}, answers("2")},
        {"Offset",
         Via::Do,
         "set map window <w> Layer <gLayer> Label Offset <n>",
         {{"<n>", Str(std::int64_t{4})}},
         {},
         then({{"LayerInfo(<w>,<i>,31)", "4"}})},
        {"Position", Via::Eval, "LayerInfo(<w>,<i>,20)", {}, {}, answers("0")},
    };

    // On and Off of each flag, read back by its LayerInfo code.
    const std::vector<std::tuple<const char*, const char*, const char*>> flags = {
        {"Selectable", "Selectable", "3"},       {"Shownodes", "Nodes", "22"},
        {"Showlinedirection", "Arrows", "21"},   {"ShowCentroids", "Centroids", "23"},
        {"Autolabel", "Label Auto", "28"},       {"Editable", "Editable", "2"},
        {"Duplicate", "Label Duplicates", "30"}, {"Overlap", "Label Overlap", "29"},
        {"Parallel", "Label Parallel", "19"},    {"PartialSegments", "Label PartialSegments", "33"},
    };
    for (const auto& [sender, clause, code] : flags) {
        const std::string command = std::string("set map window <w> Layer <gLayer> ") + clause;
        const std::string read = std::string("LayerInfo(<w>,<i>,") + code + ")";
        rows.push_back({sender, Via::Eval, read, {}, {}, [](ProgramSession&, const Answer& a) {
                            expectAccepted(a);
                            EXPECT_TRUE(a.text == "T" || a.text == "F") << a.text;
                        }});
        rows.push_back({sender, Via::Do, command + " On", {}, {}, then({{read, "T"}})});
        rows.push_back({sender,
                        Via::Do,
                        command + " Off",
                        {},
                        doFirst({command + " On"}),
                        then({{read, "F"}})});
    }

    const std::vector<std::pair<const char*, const char*>> positions = {
        {"Center", "0"},      {"Above Left", "1"},   {"Center Above", "2"}, {"Above Right", "3"},
        {"Center Left", "4"}, {"Center Right", "5"}, {"Below Left", "6"},   {"Center Below", "7"},
    };
    for (const auto& [word, code] : positions)
        rows.push_back({"Position",
                        Via::Do,
                        "set map window <w> Layer <gLayer> Label Position <word>",
                        {{"<word>", word}},
                        {},
                        then({{"LayerInfo(<w>,<i>,20)", code}})});
    return rows;
}

std::vector<Row> mapChangeStrings() {
    return {
        {"MoveLayers",
         Via::Do,
         "Set Map Window <view map id> Order <list>",
         {{"<list>", "1,3,4,2"}},
         {},
         then({{"LayerInfo(<w>,4,1)", "regions"}, {"LayerInfo(<w>,2,1)", "text"}})},
        {"removelayerclick",
         Via::Do,
         "Remove map window <view map id> layer <list>",
         {{"<list>", "2,3"}},
         {},
         then({{"Mapperinfo(<gViewWin>,9)", "2"}, {"LayerInfo(<w>,2,1)", "mixed"}})},
        {"addlayer",
         Via::Do,
         "Add map window <view map id> layer <gCellText>",
         {{"<gCellText>", "lines"}},
         {},
         then({{"Mapperinfo(<gViewWin>,9)", "5"}, {"LayerInfo(<w>,1,1)", "lines"}})},
        {"viewentireclick",
         Via::Do,
         "Set map window <view map id> zoom entire layer <layer>",
         {},
         {},
         then({{"MapperInfo(<w>,3)", "15"}, {"MapperInfo(<w>,4)", "6"}})},
        {"viewentireclick",
         Via::Do,
         "Set map window <view map id> center (<centreX>,<centreY>) zoom <z> units \"km\"",
         {{"<centreX>", str(5)}, {"<centreY>", str(2.5)}, {"<z>", str(100)}},
         {},
         [](ProgramSession& s, const Answer& a) {
             expectAccepted(a);
             EXPECT_EQ(s.eval(s.fill("MapperInfo(<w>,3)", {})), "5");
             EXPECT_EQ(s.eval(s.fill("MapperInfo(<w>,4)", {})), "2.5");
             EXPECT_NEAR(Val(s.eval(s.fill("MapperInfo(<w>,1)", {}))), 100 / 1.609344, 1e-9);
         }},
        {"Map_SameScale_Click",
         Via::Do,
         "Set Map Window <gViewWin> center (<gCenterX>,<gCenterY>) zoom <gScaleZoom>",
         {{"<gCenterX>", str(-1.5)}, {"<gCenterY>", str(0.25)}, {"<gScaleZoom>", str(800)}},
         {},
         then({{"MapperInfo(<w>,3)", "-1.5"},
               {"MapperInfo(<w>,4)", "0.25"},
               {"MapperInfo(<w>,1)", "800"}})},
        {"showbounds",
         Via::Eval,
         "TableInfo(\"<name>\" ,<n>)",
         {{"<n>", Str(std::int64_t{22})}},
         {},
         answers("30")},
        {"showbounds",
         Via::Do,
         "Create Region into variable tobj 1 4 (<minx>,<miny>) (<maxx>,<miny>) (<maxx>,<maxy>) "
         "(<minx>,<maxy>)  pen (1, 2, <colour> )   brush (01, 0, 0) ",
         {{"<minx>", "0"},
          {"<miny>", "0"},
          {"<maxx>", "30"},
          {"<maxy>", "12"},
          {"<colour>", Str(std::int64_t{255})}},
         doFirst({"Dim tobj as object"}),
         then({{"ObjectInfo(tobj,1)", "7"},
               {"ObjectInfo(tobj,2)", "Pen (1,2,255)"},
               {"ObjectInfo(tobj,3)", "Brush (1,0,0)"}})},
        {"showbounds",
         Via::Do,
         "insert into vlBounds (obj,name) Values (tobj,\"<name>\")",
         {},
         doFirst({"create table vlBounds (Name char(30)) File \"<path>\\vlbounds\"",
                  "create map for vlBounds", "Dim tobj as object", kOnePoint}),
         then({{"TableInfo(\"vlBounds\",8)", "1"}})},
        {"showbounds",
         Via::Do,
         "add Map Window <gViewWin> layer \"vlbounds\"",
         {},
         doFirst({"create table vlBounds (Name char(30)) File \"<path>\\vlbounds\"",
                  "create map for vlBounds"}),
         then({{"LCase$(LayerInfo(<w>,1,1))", "vlbounds"}, {"MapperInfo(<w>,9)", "5"}})},
        {"mapboundsclick",
         Via::Do,
         "remove map window <gViewWin> layer vlbounds",
         {},
         doFirst({"create table vlBounds (Name char(30)) File \"<path>\\vlbounds\"",
                  "create map for vlBounds", "add Map Window <gViewWin> layer \"vlbounds\""}),
         then({{"MapperInfo(<w>,9)", "4"}, {"LayerInfo(<w>,1,1)", "points"}})},
        {"showbounds",
         Via::Do,
         "Set Map Window <gViewWin> Zoom Entire",
         {},
         doFirst({"Set Map Window <gViewWin> Center (100,40)"}),
         then({{"MapperInfo(<w>,3)", "10"}, {"MapperInfo(<w>,4)", "3.5"}})},
    };
}

std::vector<Row> styleStrings() {
    return {
        {"initstylewin",
         Via::Do,
         "create table vlStyle (stylex integer) File \"<path>\\vlstyle\"",
         {},
         {},
         [](ProgramSession& s, const Answer& a) {
             expectAccepted(a);
             EXPECT_EQ(s.eval("TableInfo(\"vlStyle\",1)"), "vlStyle");
             EXPECT_TRUE(std::filesystem::exists(s.appDir / "vlstyle.tab"));
         }},
        {"initstylewin",
         Via::Do,
         "create map for vlstyle",
         {},
         doFirst({"create table vlStyle (stylex integer) File \"<path>\\vlstyle\""}),
         then({{"TableInfo(\"vlStyle\",5)", "T"}})},
        {"initstylewin",
         Via::Do,
         "set table vlStyle fastedit on undo off usermap off userbrowse off useredit off "
         "userdisplaymap off userremovemap off",
         {},
         doFirst({"create table vlStyle (stylex integer) File \"<path>\\vlstyle\""}),
         then({{"TableInfo(\"vlStyle\",10)", "T"},
               {"TableInfo(\"vlStyle\",11)", "F"},
               {"TableInfo(\"vlStyle\",13)", "F"},
               {"TableInfo(\"vlStyle\",14)", "F"},
               {"TableInfo(\"vlStyle\",16)", "F"},
               {"TableInfo(\"vlStyle\",17)", "F"},
               {"TableInfo(\"vlStyle\",18)", "F"}})},
        {"initstylewin", Via::Do, "Dim tobj as object", {}, {}, thenModel([](ProgramSession& s) {
             EXPECT_NE(s.engine->variables().find("tobj"), nullptr);
         })},
        {"initstylewin",
         Via::Do,
         "create table vlBounds (Name char(30)) File \"<path>\\vlbounds\"",
         {},
         {},
         then({{"TableInfo(\"vlBounds\",4)", "1"}, {"ColumnInfo(\"vlBounds\",\"Col1\",4)", "30"}})},
        {"initstylewin",
         Via::Do,
         "create map for vlBounds",
         {},
         doFirst({"create table vlBounds (Name char(30)) File \"<path>\\vlbounds\""}),
         then({{"TableInfo(\"vlBounds\",5)", "T"}})},
        {"initstylewin",
         Via::Do,
         "set table vlBounds fastedit on undo off usermap off userbrowse off useredit off "
         "userdisplaymap off userremovemap off",
         {},
         doFirst({"create table vlBounds (Name char(30)) File \"<path>\\vlbounds\""}),
         then({{"TableInfo(\"vlBounds\",10)", "T"}, {"TableInfo(\"vlBounds\",17)", "F"}})},
        {"AddStyletoMap",
         Via::Do,
         "Set Next Document Parent <hwnd of MapInfoframe2> Style 1",
         {},
         {},
         thenModel([](ProgramSession& s) {
             EXPECT_EQ(s.engine->windows().nextDocument().parent,
                       std::optional<std::int64_t>(s.frame2.hWnd()));
         })},
        {"AddStyletoMap",
         Via::Do,
         "map from vlStyle min",
         {},
         doFirst({"create table vlStyle (stylex integer) File \"<path>\\vlstyle\"",
                  "create map for vlstyle"}),
         then({{"NumWindows()", "3"}, {"WindowInfo(WindowID(0),9)", "1"}})},
        {"AddStyletoMap",
         Via::Do,
         "set window <gStyleWin> width 8 units \"mm\" height 4 units \"mm\" title \" \" "
         "sysmenuclose on",
         {},
         makeStyleMap(),
         [](ProgramSession& s, const Answer& a) {
             expectAccepted(a);
             EXPECT_EQ(s.eval(s.fill("WindowInfo(<gStyleWin>,1)", {})), " ");
             EXPECT_NEAR(Val(s.eval(s.fill("WindowInfo(<gStyleWin>,4)", {}))), 8 / 25.4, 1e-9);
             EXPECT_NEAR(Val(s.eval(s.fill("WindowInfo(<gStyleWin>,5)", {}))), 4 / 25.4, 1e-9);
         }},
        {"exportfeaturesample",
         Via::Do,
         "Set Application Window <hwnd of MapInfoFrame>",
         {},
         {},
         [](ProgramSession& s, const Answer& a) {
             expectAccepted(a);
             EXPECT_EQ(s.eval("SystemInfo(7)"), std::to_string(s.frame.hWnd()));
         }},
        {"exportfeaturesample",
         Via::Do,
         "Create Region into variable tobj 1 4 (1,0) (2,0) (2.5,1) (1, 0.5)",
         {},
         doFirst({"Dim tobj as object"}),
         then({{"ObjectInfo(tobj,1)", "7"}})},
        {"exportfeaturesample",
         Via::Do,
         "Create Line into variable tobj (1,1) (2,1)",
         {},
         doFirst({"Dim tobj as object"}),
         then({{"ObjectInfo(tobj,1)", "3"}})},
        {"exportfeaturesample",
         Via::Do,
         "Create Point into variable tobj (1,1)",
         {},
         doFirst({"Dim tobj as object"}),
         then({{"ObjectInfo(tobj,1)", "5"}})},
        {"exportfeaturesample",
         Via::Do,
         "Create Text into variable tobj \"Ab\" (1,1) (2,2) <style>",
         {{"<style>", "Font (\"Arial\",0,9,0)"}},
         doFirst({"Dim tobj as object"}),
         then({{"ObjectInfo(tobj,1)", "10"}, {"ObjectInfo(tobj,3)", "Ab"}})},
        {"exportfeaturesample",
         Via::Do,
         "insert into vlStyle (obj) Values (tobj)",
         {},
         doFirst({"create table vlStyle (stylex integer) File \"<path>\\vlstyle\"",
                  "create map for vlstyle", "Dim tobj as object", kOnePoint}),
         then({{"TableInfo(\"vlStyle\",8)", "1"}})},
        {"exportfeaturesample",
         Via::Do,
         "Set Map Layer 1 Display Global Global <style>",
         {{"<style>", "Brush (2,255,0)"}},
         makeStyleMap(),
         then({{"LayerInfo(<gStyleWin>,1,9)", "2"},
               {"LayerInfo(<gStyleWin>,1,12)", "Brush (2,255,0)"}})},
        {"exportfeaturesample",
         Via::Do,
         "Set Map Layer 1 Display Graphic",
         {},
         [](ProgramSession& s) {
             makeStyleMap()(s);
             s.run("Set Map Layer 1 Display Global Global Brush (2,255,0)");
         },
         then({{"LayerInfo(<gStyleWin>,1,9)", "1"}})},
        {"exportfeaturesample",
         Via::Do,
         "set Window <gStyleWin>Width  8 Units \"mm\" Height 4 Units \"mm\"",
         {},
         makeStyleMap(),
         [](ProgramSession& s, const Answer& a) {
             expectAccepted(a);
             EXPECT_NEAR(Val(s.eval(s.fill("WindowInfo(<gStyleWin>,4)", {}))), 8 / 25.4, 1e-9);
         }},
        {"exportfeaturesample",
         Via::Do,
         "Set Map Window <gStyleWin> Zoom Entire",
         {},
         [](ProgramSession& s) {
             makeStyleMap()(s);
             doFirst({"Dim tobj as object", kOnePoint, "insert into vlStyle (obj) Values (tobj)"})(
                 s);
         },
         then({{"MapperInfo(<gStyleWin>,3)", "1"}, {"MapperInfo(<gStyleWin>,4)", "1"}})},
        {"exportfeaturesample",
         Via::Do,
         "Save Window <gStyleWin> As \"<gSampleFile>\" Type \"BMP\"Width  8 Units \"mm\" Height "
         "4 Units \"mm\"",
         {{"<gSampleFile>", "<path>/sample.bmp"}},
         makeStyleMap(),
         [](ProgramSession& s, const Answer& a) {
             expectAccepted(a);
             std::ifstream file(s.appDir / "sample.bmp", std::ios::binary);
             char magic[2] = {};
             file.read(magic, 2);
             EXPECT_EQ(std::string(magic, 2), "BM");
         }},
        {"exportfeaturesample",
         Via::Do,
         "Delete from vlstyle",
         {},
         doFirst({"create table vlStyle (stylex integer) File \"<path>\\vlstyle\"",
                  "create map for vlstyle", "Dim tobj as object", kOnePoint,
                  "insert into vlStyle (obj) Values (tobj)"}),
         [](ProgramSession& s, const Answer& a) {
             expectAccepted(a);
             s.run("Fetch First From vlstyle");
             EXPECT_EQ(s.eval("EOT(\"vlstyle\")"), "T");
         }},
        {"closestylewin",
         Via::Do,
         "Close window <gStyleWin>",
         {},
         makeStyleMap(),
         then({{"NumWindows()", "2"}})},
        {"setoridestylecell",
         Via::Companion,
         "Dialog <kind> <gStyleValue>",
         {{"<kind>", "0"}, {"<gStyleValue>", "Brush (2,16777215,16777215)"}},
         {},
         thenModel([](ProgramSession& s) {
             const auto request = s.engine->host().companion()->takeStyleDialogRequest();
             ASSERT_TRUE(request.has_value());
             EXPECT_EQ(request->kind, StyleDialogKind::Region);
             EXPECT_EQ(request->startClause, "Brush (2,16777215,16777215)");
         })},
        {"setlabelprops",
         Via::Companion,
         "Dialog <kind> <style>",
         {{"<kind>", "5"}, {"<style>", "Font(\"Arial\",0,9,0)"}},
         {},
         thenModel([](ProgramSession& s) {
             const auto request = s.engine->host().companion()->takeStyleDialogRequest();
             ASSERT_TRUE(request.has_value());
             EXPECT_EQ(request->kind, StyleDialogKind::Text);
         })},
    };
}

// The information expressions of the column "user info", with their tokens expanded as
// runfunction expands them: the layer's name in quotes, the layer and map as Str gives them.
std::vector<Row> informationStrings() {
    std::vector<Row> rows;
    const auto add = [&](std::string text) {
        rows.push_back({"runfunction",
                        Via::Eval,
                        std::move(text),
                        {{"%LAYERNAME%", "\"regions\""}, {"%LAYERNUM%", "<i>"}, {"%MAPID%", "<w>"}},
                        {},
                        [](ProgramSession&, const Answer& a) { expectAccepted(a); }});
    };
    for (int code = 1; code <= 31; ++code)
        add("TableInfo(%LAYERNAME%," + Str(std::int64_t{code}) + ")");
    for (int code = 1; code <= 33; ++code)
        add("LayerInfo(%MAPID%,%LAYERNUM%," + Str(std::int64_t{code}) + ")");
    for (int code = 1; code <= 22; ++code)
        add("MapperInfo(%MAPID%," + Str(std::int64_t{code}) + ")");
    return rows;
}

const std::vector<Row>& programStrings() {
    static const std::vector<Row> rows = [] {
        std::vector<Row> all;
        for (auto part : {sessionStrings(), facadeStrings(), mapChangeStrings(), styleStrings(),
                          informationStrings()})
            all.insert(all.end(), part.begin(), part.end());
        return all;
    }();
    return rows;
}

class ProgramCommands : public ::testing::TestWithParam<std::size_t> {};

TEST_P(ProgramCommands, AreAcceptedWithTheirEffect) {
    const Row& row = programStrings()[GetParam()];
    if (row.awaiting) GTEST_SKIP() << "awaits " << row.awaiting;
    ProgramSession session;
    if (row.before) row.before(session);
    const std::string text = session.fill(row.text, row.fills);
    SCOPED_TRACE(std::string(row.sender) + " sends \"" + text + "\"");
    const Answer answer = session.send(row.via, text);
    ASSERT_TRUE(row.check) << "a row without a check";
    row.check(session, answer);
}

std::string rowName(const ::testing::TestParamInfo<std::size_t>& info) {
    const Row& row = programStrings()[info.param];
    std::string name = std::to_string(info.param) + "_" + row.sender;
    for (char& c : name)
        if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
    return name;
}

INSTANTIATE_TEST_SUITE_P(Program, ProgramCommands,
                         ::testing::Range<std::size_t>(0, programStrings().size()), rowName);

} // namespace
} // namespace vellant::engine::testing
