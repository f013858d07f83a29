// The layer facade: every get's expressions and converted answer, every let's command and its
// effect on the host, and how each member reports a failure.

#include "facade_host.h"

#include <functional>

namespace vellant::hostmodel::testing {
namespace {

using MIPropsTest = FacadeHost;
using Call = std::function<std::string(MIProps&)>;
using Let = std::function<void(MIProps&)>;

// How a get turns eval's text into its answer; "" gives the empty answer.
enum class As { Text, Single, Double, Number, Logical, Displayed, Global, Query };

std::string converted(As as, const std::string& answer) {
    switch (as) {
    case As::Single:
        return Str(static_cast<float>(Val(answer)));
    case As::Double:
        return Str(Val(answer));
    case As::Number:
        return Str(static_cast<std::int64_t>(Val(answer)));
    case As::Logical:
        return text(answer == "T");
    case As::Displayed:
        return text(answer == "1" || answer == "2" || answer == "3");
    case As::Global:
        return text(answer == "2");
    case As::Query:
        return text(answer == "2");
    default:
        return answer;
    }
}

const std::string kName = "LayerInfo(<w>,<i>,1)";
constexpr const char* kRaises = nullptr;

// The get, what it asks (the last answer is converted), and its log label on failure: empty
// for a silent get, none for a get that lets the error through.
struct Get {
    Call call;
    Strings asked;
    As as;
    const char* log;
};

Strings tab(const char* code) {
    return {kName, std::string("TableInfo(\"<t>\",") + code + ")"};
}
Strings lay(const char* code) {
    return {std::string("LayerInfo(<w>,<i>,") + code + ")"};
}

std::vector<Get> layerGets() {
    return {
        {read<&MIProps::MinX>(), tab("20"), As::Single, "Error from get Minx '' "},
        {read<&MIProps::MinY>(), tab("21"), As::Single, "Error from get MinY '' "},
        {read<&MIProps::MaxX>(), tab("22"), As::Single, "Error from get maxx '' "},
        {read<&MIProps::MaxY>(), tab("23"), As::Single, "Error from get maxy '' "},
        {read<&MIProps::Degtokm>(),
         {"Distance(150, -33, 151, -33, \"km\")"},
         As::Single,
         "Error from get degtokm "},
        {read<&MIProps::Frontwindow>(),
         {"Frontwindow()"},
         As::Number,
         "Error from get Frontwindow "},
        {read<&MIProps::Edited>(), tab("9"), As::Logical, "Error from get Edited "},
        {read<&MIProps::FieldCount>(), tab("4"), As::Number, "Error from get fieldcount "},
        {[](MIProps& p) { return p.FieldName(2); },
         {"LayerInfo(<w>,<i>,24)", kName, "ColumnInfo(\"<t>\",\"Col2\",1)"},
         As::Text,
         "Error from get fieldname "},
        {read<&MIProps::coordsys>(), tab("29"), As::Text, ""},
        {read<&MIProps::Fastedit>(), tab("10"), As::Logical, ""},
        {read<&MIProps::Undo>(), tab("11"), As::Logical, "Error from get undo "},
        {read<&MIProps::Readonly>(), tab("6"), As::Logical, ""},
        {read<&MIProps::count>(), tab("8"), As::Number, ""},
        {read<&MIProps::Name>(), {kName}, As::Text, kRaises},
        {[](MIProps& p) { return p.TableName(); }, tab("1"), As::Text, ""},
        {read<&MIProps::Visible>(), lay("9"), As::Displayed, kRaises},
        {read<&MIProps::Selectable>(), lay("3"), As::Logical, kRaises},
        {read<&MIProps::Shownodes>(), lay("22"), As::Logical, "Error from let Shownodes "},
        {read<&MIProps::Showlinedirection>(), lay("21"), As::Logical,
         "Error from let Showlinedirection "},
        {read<&MIProps::ShowCentroids>(), lay("23"), As::Logical, "Error from let ShowCentroids "},
        {read<&MIProps::Autolabel>(), lay("28"), As::Logical, kRaises},
        {read<&MIProps::Editable>(), lay("2"), As::Logical, kRaises},
        {read<&MIProps::ZoomLayer>(), lay("4"), As::Logical, kRaises},
        {read<&MIProps::ZoomMin>(), lay("5"), As::Double, kRaises},
        {read<&MIProps::ZoomMax>(), lay("6"), As::Double, kRaises},
        {read<&MIProps::FileSpec>(), lay("8"), As::Text, kRaises},
        {read<&MIProps::overridestyle>(), lay("9"), As::Global,
         "Error from get overridestyle prop "},
        {read<&MIProps::ttype>(), tab("3"), As::Number, "get table type:"},
        {read<&MIProps::QueryTab>(), tab("3"), As::Query, "get table type:"},
        {read<&MIProps::ltype>(), lay("24"), As::Number, kRaises},
    };
}

TEST_F(MIPropsTest, EachGetAsksItsExpressionsAndConvertsTheAnswer) {
    onLayer("regions");
    // State apart from the defaults, so that a wrong attribute shows.
    run(fill("Set Map Window <w> Layer <i> Nodes On Zoom (5, 500) Off Display Global"));
    run("Set Table regions FastEdit On");
    for (const Get& get : layerGets()) {
        clear();
        const std::string answer = get.call(*lyr);
        Strings expected;
        for (const std::string& expression : get.asked)
            expected.push_back(fill(expression));
        EXPECT_EQ(app->asked, expected);
        EXPECT_EQ(answer, converted(get.as, ask(expected.back()))) << expected.back();
    }
    EXPECT_TRUE(context.logged.empty());
}

// The let, gStyleValue, the command sent, an expression that shows the change, the answer,
// and the message label of a failure.
struct LetRow {
    Let call;
    const char* style;
    std::string sent, check;
    const char* after;
    std::string shown;
};

std::vector<LetRow> layerLets() {
    const std::string set = "set map window <w> Layer <i> ";
    const std::string tab = "set table \"<t>\" ";
    const std::string li = "LayerInfo(<w>,<i>,";
    return {
        {write<&MIProps::setVisible>(kFalse), "", set + "Display Off", li + "9)", "0", "Visible: "},
        {write<&MIProps::setVisible>(kTrue), "", set + "Display Graphic", li + "9)", "1",
         "Visible: "},
        {write<&MIProps::setSelectable>(kFalse), "", set + "Selectable Off", li + "3)", "F",
         "Selectable: "},
        {write<&MIProps::setShownodes>(kTrue), "", set + "Nodes On", li + "22)", "T",
         "Shownodes: "},
        {write<&MIProps::setShowlinedirection>(kTrue), "", set + "Arrows On", li + "21)", "T",
         "Showlinedirection: "},
        {write<&MIProps::setShowCentroids>(kTrue), "", set + "Centroids On", li + "23)", "T",
         "ShowCentroids: "},
        {write<&MIProps::setAutolabel>(kTrue), "", set + "Label Auto On", li + "28)", "T",
         "Autolabel: "},
        {write<&MIProps::setEditable>(kTrue), "", set + "Editable On", li + "2)", "T",
         "Editable: "},
        // A limit's change keeps zoom layering off.
        {write<&MIProps::setZoomMin>(10.0), "", set + "Zoom ( 10, 500) Off", li + "4)", "F",
         "Zoommin: "},
        {write<&MIProps::setZoomMax>(800.0), "", set + "Zoom ( 10, 800) Off", li + "6)", "800",
         "Zoommax: "},
        {write<&MIProps::setZoomLayer>(kTrue), "", set + "Zoom ( 10, 800) On", li + "4)", "T",
         "Zoomlayer: "},
        {write<&MIProps::setoverridestyle>(kTrue), "Brush (2,255,0)",
         set + "Display Global Global Brush (2,255,0)", li + "12)", "Brush (2,255,0)",
         "overridestyle:"},
        {write<&MIProps::setoverridestyle>(kFalse), "", set + "Display Graphic", li + "9)", "1",
         "overridestyle:"},
        {write<&MIProps::setoverridestyle>(kTrue), "", set + "Display Global ", li + "9)", "2",
         "overridestyle:"},
        {write<&MIProps::setFastedit>(kTrue), "", tab + "Fastedit on", "TableInfo(<t>,10)", "T",
         "fastedit: "},
        {write<&MIProps::setUndo>(kFalse), "", tab + "Undo Off", "TableInfo(<t>,11)", "F",
         "undo: "},
        // A table is never made writable: false sends nothing.
        {write<&MIProps::setReadonly>(kFalse), "", "", "TableInfo(<t>,6)", "F", ""},
        {write<&MIProps::setReadonly>(kTrue), "", tab + "Readonly", "TableInfo(<t>,6)", "T",
         "readonly: "},
    };
}

TEST_F(MIPropsTest, EachLetSendsItsCommandAndChangesTheLayer) {
    onLayer("regions");
    run(fill("Set Map Window <w> Layer <i> Zoom (5, 500) Off"));
    for (const LetRow& let : layerLets()) {
        clear();
        context.style = let.style;
        let.call(*lyr);
        EXPECT_EQ(app->sent, let.sent.empty() ? Strings{} : Strings{fill(let.sent)});
        EXPECT_EQ(ask(fill(let.check)), let.after) << let.sent;
    }
    EXPECT_TRUE(context.shown.empty());
}

TEST_F(MIPropsTest, RefusedLetsShowTheirLabelAndTheHostsText) {
    onLayer("regions");
    app->refusePrefix = "set table";
    lyr->setFastedit(kTrue);
    lyr->setUndo(kTrue);
    lyr->setReadonly(kTrue);
    // A flag neither true nor false sends no word, and the host refuses the command.
    lyr->setSelectable(5);
    EXPECT_EQ(app->sent.back(), fill("set map window <w> Layer <i> Selectable "));
    EXPECT_EQ(context.shown,
              (Strings{"fastedit: refused", "undo: refused\r\nregions",
                       "readonly: refused\r\nregions", "Selectable: " + host->LastErrorMessage()}));
}

TEST_F(MIPropsTest, AGoneHostIsReportedAsEachMemberDocuments) {
    onLayer("regions");
    const std::string gone = closeHost();
    for (const Get& get : layerGets()) {
        context.logged.clear();
        if (get.log == kRaises) {
            EXPECT_THROW(get.call(*lyr), RuntimeError) << get.asked.back();
            continue;
        }
        EXPECT_EQ(get.call(*lyr), converted(get.as, "")) << get.asked.back();
        EXPECT_EQ(context.logged, *get.log ? Strings{get.log + gone} : Strings{});
    }
    // The table's name is part of the message of two lets, and it is empty now.
    for (const LetRow& let : layerLets()) {
        context.shown.clear();
        let.call(*lyr);
        const bool named = let.shown == "undo: " || let.shown == "readonly: ";
        EXPECT_EQ(context.shown, let.shown.empty()
                                     ? Strings{}
                                     : Strings{let.shown + gone + (named ? "\r\n" : "")});
    }
    context.logged.clear();
    EXPECT_EQ(lyr->Style(), "");
    EXPECT_EQ(context.logged, Strings{"Error from predominantfeaturetype property, 462 " + gone});
}

TEST_F(MIPropsTest, PredominantFeatureTypeByTheFirstObject) {
    const std::pair<const char*, std::int16_t> codes[] = {
        {"regions", 0}, {"lines", 1},  {"points", 2}, {"text", 5},
        {"mixed", 0},   {"vacant", 4}, {"raster", 0}};
    for (const auto& [name, code] : codes) {
        onLayer(name);
        EXPECT_EQ(lyr->PredominantFeatureType(), code) << name;
        // Neither the empty table nor the raster is fetched from.
        EXPECT_TRUE(app->sent.empty() || (code != 4 && table != "raster")) << name;
    }
    onLayer("text");
    lyr->PredominantFeatureType();
    EXPECT_EQ(app->sent, Strings{"Fetch first from text"});
    EXPECT_EQ(app->asked.back(), "ObjectInfo(text.obj,1)");

    // A first row without an object is an expected failure: 4, and nothing in the log.
    run("Create Table bare (Name Char(10))");
    run("Create Map For bare");
    run("Insert Into bare (Name) Values (\"x\")");
    run(fill("Add Map Window <w> Layer bare"));
    onLayer("bare");
    EXPECT_EQ(lyr->PredominantFeatureType(), 4);
    EXPECT_TRUE(context.logged.empty());
    EXPECT_EQ(LCase(host->LastErrorMessage()).rfind("objectinfo: could not fetch", 0), 0U);
}

TEST_F(MIPropsTest, StylesAndDisplayModes) {
    for (const auto& [name, code] : {std::pair{"regions", "12"}, std::pair{"lines", "10"},
                                     std::pair{"points", "13"}, std::pair{"text", "14"}}) {
        onLayer(name);
        EXPECT_EQ(lyr->Style(), ask(fill("LayerInfo(<w>,<i>,") + code + ")")) << name;
    }
    onLayer("vacant");
    EXPECT_EQ(lyr->Style(), "");
    onLayer("regions");
    run(fill("Set Map Window <m> Layer <i> Global Brush (5,1,0) Pen (3,2,255)"));
    EXPECT_EQ(lyr->StyleOrig(), "Brush (5,1,0)");
    EXPECT_EQ(context.borderPen, "Pen (3,2,255)");

    run(fill("Set Map Window <w> Layer <i> Display Global"));
    EXPECT_TRUE(lyr->Visible() && lyr->overridestyle());
    // Drawn by value on the user's map: no override, and the view's override is taken off.
    run(fill("Set Map Window <m> Layer <i> Display Value"));
    clear();
    EXPECT_FALSE(lyr->overridestyleOrig());
    EXPECT_EQ(app->sent, Strings{fill("set map window <w> Layer <i> Display Graphic")});

    onLayer("pq");
    EXPECT_TRUE(lyr->QueryTab());
    onLayer("raster");
    EXPECT_EQ(lyr->FieldName(1), "");
    EXPECT_EQ(app->asked, Strings{fill("LayerInfo(<w>,<i>,24)")});
    EXPECT_EQ(lyr->ltype(), 2);
}

} // namespace
} // namespace vellant::hostmodel::testing
