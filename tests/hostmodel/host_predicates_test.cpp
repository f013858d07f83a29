// The small questions the grid asks of the host model, and the facade classes by name.

#include "base/runtime_error.h"
#include "facade_host.h"
#include "hostmodel/facade_classes.h"
#include "hostmodel/host_predicates.h"

namespace vellant::hostmodel::testing {
namespace {

using HostPredicatesTest = FacadeHost;

TEST_F(HostPredicatesTest, GetsReadTheClickedRowUnlessAToggleWalkIsOn) {
    for (const auto& [click, toggle, expected] :
         {std::tuple{0, 0, 3}, std::tuple{5, 0, 5}, std::tuple{5, 2, 3}, std::tuple{0, 2, 3}}) {
        context.click = click;
        context.toggle = toggle;
        context.layer = 3;
        EXPECT_EQ(CurrentLayerIndex(context), expected) << click << " " << toggle;
    }
    // A get reads the clicked layer while a let writes gLayer.
    onLayer("regions");
    context.toggle = 0;
    context.click = context.layer + 1;
    lyr->Name();
    lyr->setSelectable(kFalse);
    EXPECT_EQ(app->asked, Strings{fill("LayerInfo(<w>,") + Str(context.click) + ",1)"});
    EXPECT_EQ(app->sent, Strings{fill("set map window <w> Layer <i> Selectable Off")});
}

TEST_F(HostPredicatesTest, OpenWindowsAndMapWindows) {
    EXPECT_FALSE(IsWindowOpen(context, 0) || isMapper(context, 0));
    EXPECT_TRUE(app->asked.empty());
    EXPECT_TRUE(IsWindowOpen(context, context.mapWin));
    EXPECT_EQ(app->asked, (Strings{"NumWindows()", "windowinfo( 1,13)"}));
    EXPECT_TRUE(isMapper(context, context.view));
    run("Browse * From regions");
    EXPECT_FALSE(isMapper(context, std::stoi(ask("FrontWindow()"))));
    run("Close Window " + Str(context.view));
    clear();
    EXPECT_FALSE(IsWindowOpen(context, context.view));
    EXPECT_EQ(app->asked.size(), std::stoul(ask("NumWindows()")) + 1);
    // The MapX host has no map windows, and its map object is not touched.
    context.isMapInfo = false;
    context.map.reset();
    EXPECT_FALSE(isMapper(context, context.mapWin));
}

TEST_F(HostPredicatesTest, GrayCells) {
    // capable, gLayer, gLayerType, key, gray
    const std::tuple<bool, std::int16_t, std::int16_t, const char*, bool> rows[] = {
        {true, 2, 0, "visible", false},  {false, 2, 0, "visible", true},
        {true, 2, 2, "visible", true},   {true, 2, 3, "editable", true},
        {true, 2, 1, "visible", false},  {true, 0, 1, "visible", true},
        {true, 0, 1, "Editable", false}, {true, 0, 1, "SELECTABLE", false},
        {true, 0, 2, "editable", true},
    };
    for (const auto& [capable, layer, layerType, key, gray] : rows) {
        context.layer = layer;
        context.layerType = layerType;
        EXPECT_EQ(isgraycell(context, capable, key), gray) << key << layer << layerType;
    }
}

TEST_F(HostPredicatesTest, FeatureTypeAndReadOnlyLayers) {
    onLayer("text");
    EXPECT_EQ(GetFeatureType(context, *lyr), 5);
    onLayer("raster");
    EXPECT_EQ(GetFeatureType(context, *lyr), 4);
    EXPECT_TRUE(app->asked.empty());

    onLayer("points");
    EXPECT_FALSE(IsLayerReadonly(context));
    run("Set Table points ReadOnly");
    EXPECT_TRUE(IsLayerReadonly(context));
    context.isMapInfo = false;
    context.lyr.reset();
    EXPECT_FALSE(IsLayerReadonly(context));
}

TEST_F(HostPredicatesTest, RedrawAndTheClassesByName) {
    MapRedraw(context, "off");
    MapRedraw(context, "ON");
    EXPECT_EQ(app->sent, (Strings{fill("Set Map Window <w> redraw off"),
                                  fill("Set Map Window <w> redraw ON")}));
    // On the MapX host the switch is the view control's (this context has none), and a word
    // other than "on" or "off" does not reach it; MapInfo hears nothing.
    context.isMapInfo = false;
    MapRedraw(context, "ON");
    EXPECT_THROW(MapRedraw(context, "off"), RuntimeError);
    EXPECT_EQ(app->sent.size(), 2U);

    EXPECT_NE(registry.CreateObject("vellant.mipropslabelstyle"), nullptr);
    unregisterFacadeClasses(registry);
    for (const char* name : {"Vellant.Mapper", "Vellant.MIProps", "Vellant.MIPropsStyle",
                             "Vellant.MIPropsLabelProps", "Vellant.MIPropsLabelStyle"})
        EXPECT_FALSE(registry.isRegistered(name)) << name;
}

} // namespace
} // namespace vellant::hostmodel::testing
