// Whole sessions of a MapX client: its map handed to RunLayer, the view map built in the form
// layer by layer, the user's clicks, and what OK or Cancel leave in the client's map.

#include "app/sample_tables/sample_tables.h"
#include "engine/engine.h"
#include "hostmodel/host_predicates.h"
#include "hostmodel/mapx_constants.h"
#include "hostmodel/mapx_map.h"
#include "interaction/edit_cell.h"
#include "mapx/mapx_classes.h"
#include "mapx/mapx_runtime.h"
#include "mapx/style_clauses.h"
#include "mapx/style_picker.h"
#include "platform/scripted_toolkit.h"
#include "session/layer_form.h"
#include "session/session.h"
#include "session/vl_layer.h"
#include "support/session_fixture.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vellant::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

class MapXSession : public ::testing::Test {
protected:
    MapXSession() {
        samples::writeSampleTables(dir.file("tables"));
        mapx::registerMapXClasses(registry, runtime);
        client = std::dynamic_pointer_cast<hostmodel::MXMap>(registry.CreateObject("MapX.Map.4"));
        client->Title()->setCaption("Client map");
        client->Title()->setVisible(false);
        for (const char* file : {"points.tab", "regions.tab", "lines.tab", "text.tab"})
            clientLayers()->Add(Variant(table(file)), clientLayers()->Count() + 1);
        layer.onSessionStart = [this](session::Session& s) { live = &s; };
    }
    ~MapXSession() override { mapx::unregisterMapXClasses(registry); }

    std::string table(const std::string& file) const { return dir.file("tables/" + file); }
    std::shared_ptr<hostmodel::MXLayers> clientLayers() { return client->Layers(); }
    std::shared_ptr<hostmodel::MXLayer> clientLayer(int n) {
        return clientLayers()->Item(Variant(n));
    }
    static hostmodel::MXMap& view(session::Session& s) { return s.layerForm().MapDisplay.map(); }
    static std::vector<std::string> names(hostmodel::MXMap& map) {
        std::vector<std::string> out;
        for (int i = 1; i <= map.Layers()->Count(); ++i)
            out.push_back(map.Layers()->Item(Variant(i))->Name());
        return out;
    }
    std::vector<bool> clientVisibility() {
        std::vector<bool> out;
        for (int i = 1; i <= clientLayers()->Count(); ++i)
            out.push_back(clientLayer(i)->Visible());
        return out;
    }

    void step(std::function<void(session::Session&)> action) {
        toolkit.addStep([this, action = std::move(action)] {
            ASSERT_NE(live, nullptr);
            action(*live);
        });
    }
    // The user drags over the first column from one layer's row to another's, then clicks the
    // cell of a column in the first of them.
    static void clickRowSet(session::Session& s, int first, int last, const std::string& key) {
        platform::FlexGrid& g = s.layerForm().LyrGrid;
        const auto yIn = [&](int row) {
            return static_cast<float>(g.RowPos(row) + g.RowHeight(row) / 2);
        };
        const float firstColumn = static_cast<float>(g.ColWidth(0) / 2);
        g.mouseDown(platform::vbLeftButton, 0, firstColumn, yIn(first));
        g.mouseMove(platform::vbLeftButton, 0, firstColumn, yIn(last));
        g.mouseUp(platform::vbLeftButton, 0, firstColumn, yIn(last));
        int col = 0;
        while (col < g.Cols() && s.gColKey[col] != key)
            ++col;
        const float x = static_cast<float>(g.ColPos(col) + g.ColWidth(col) / 2);
        g.mouseDown(platform::vbLeftButton, 0, x, yIn(first));
        g.mouseUp(platform::vbLeftButton, 0, x, yIn(first));
    }
    // A double click on a column's header unfolds (or folds) its group.
    static void doubleClickHeader(session::Session& s, const std::string& key) {
        platform::FlexGrid& g = s.layerForm().LyrGrid;
        int col = 0;
        while (col < g.Cols() && s.gColKey[col] != key)
            ++col;
        g.doubleClick(static_cast<float>(g.ColPos(col) + g.ColWidth(col) / 2),
                      static_cast<float>(g.RowHeight(0) / 2));
    }
    void pressOK() {
        step([](session::Session& s) { s.layerForm().OK.Click(); });
    }
    void pressCancel() {
        step([](session::Session& s) { s.layerForm().Cancel.Click(); });
    }
    std::string log() const { return readText(dir.file("Vellant.log")); }
    // The log's lines but those of a first session, which finds no settings file.
    std::vector<std::string> problems() const {
        std::vector<std::string> lines;
        const std::string text = log();
        std::size_t at = 0;
        while (at < text.size()) {
            const std::size_t end = text.find("\r\n", at);
            std::string line = text.substr(at, end - at);
            if (line.find("File not found") == std::string::npos) lines.push_back(line);
            if (end == std::string::npos) break;
            at = end + 2;
        }
        return lines;
    }

    TempDir dir;
    engine::Engine engine;
    platform::ScriptedToolkit toolkit;
    mapx::QueuedStylePicker picker;
    mapx::MapXRuntime runtime{engine, &toolkit, &picker};
    platform::AutomationRegistry registry;
    std::shared_ptr<hostmodel::MXMap> client;
    session::vlLayer layer{toolkit, registry, dir.str()};
    session::Session* live = nullptr;
};

TEST_F(MapXSession, TheViewMapIsBuiltFromTheClientsLayersWithLayerNInRowN) {
    clientLayers()->CreateLayer("Sketch", "", 5);
    step([&](session::Session& s) {
        session::LayerForm& form = s.layerForm();
        EXPECT_EQ(names(view(s)), names(*client));
        EXPECT_EQ(view(s).Layers()->Item(Variant(2))->FileSpec(), table("regions.tab"));
        // No cosmetic row: the header, then one row per layer.
        ASSERT_EQ(form.LyrGrid.Rows(), 6);
        for (int n = 1; n <= 5; ++n)
            EXPECT_EQ(form.LyrGrid.TextMatrix(n, 0), clientLayer(n)->Name()) << "row " << n;
        EXPECT_TRUE(form.MapDisplay.Visible());
        EXPECT_FALSE(form.MapInfoFrame.Visible());
        EXPECT_FALSE(form.Docked.Enabled());
        EXPECT_FALSE(form.MapImmediate.Enabled());
        EXPECT_EQ(s.gImmediate, 0);
        EXPECT_TRUE(view(s).AutoRedraw());
        // The switch of the view's drawing takes the two words in lower case only.
        hostmodel::MapRedraw(s, "off");
        EXPECT_FALSE(view(s).AutoRedraw());
        hostmodel::MapRedraw(s, "ON");
        EXPECT_FALSE(view(s).AutoRedraw());
        hostmodel::MapRedraw(s, "on");
        EXPECT_TRUE(view(s).AutoRedraw());
    });
    pressCancel();

    EXPECT_EQ(layer.RunLayer(client), "cancel");
    EXPECT_THAT(problems(), IsEmpty());
}

TEST_F(MapXSession, OneClickTurnsLayersOffInTheViewAndOkCarriesThemToTheClientsMap) {
    step([&](session::Session& s) {
        clickRowSet(s, 2, 4, "visible");
        for (int n = 1; n <= 4; ++n)
            EXPECT_EQ(view(s).Layers()->Item(Variant(n))->Visible(), n == 1) << "layer " << n;
        EXPECT_THAT(clientVisibility(), ElementsAre(true, true, true, true));
    });
    pressOK();

    EXPECT_EQ(layer.RunLayer(client), "ok");
    EXPECT_THAT(clientVisibility(), ElementsAre(true, false, false, false));
    EXPECT_TRUE(client->AutoRedraw());
    EXPECT_THAT(toolkit.messages(), IsEmpty());
    EXPECT_THAT(problems(), IsEmpty());
}

TEST_F(MapXSession, CancelLeavesTheClientsMapAsItWas) {
    step([&](session::Session& s) { clickRowSet(s, 2, 4, "visible"); });
    pressCancel();

    EXPECT_EQ(layer.RunLayer(client), "cancel");
    EXPECT_THAT(clientVisibility(), ElementsAre(true, true, true, true));
}

// The view takes the style, the label settings and the label dataset of each layer, and OK
// brings them back, with one new dataset in the client's map per labelled layer.
TEST_F(MapXSession, StylesAndLabelsGoIntoTheViewAndComeBackAtOk) {
    auto regions = clientLayer(2);
    regions->Style()->setRegionColor(0x00FF00);
    regions->Style()->setRegionPattern(2);
    auto labels = regions->LabelProperties();
    labels->setVisible(kTrue);
    labels->setLabelMax(50);
    labels->setPosition(3);
    labels->Style()->TextFont()->setSize(14);
    auto dataset = client->Datasets()->Add(hostmodel::mapx::miDataSetLayer, *regions);
    labels->setDataset(dataset);
    labels->setDataField(dataset->Fields()->Item(Variant(1)));
    const std::string field = labels->DataField()->Name();
    const int datasetsBefore = client->Datasets()->Count();

    step([&](session::Session& s) {
        auto copy = view(s).Layers()->Item(Variant(2));
        EXPECT_EQ(copy->Style()->RegionColor(), 0x00FF00);
        EXPECT_EQ(copy->Style()->RegionPattern(), 2);
        auto copied = copy->LabelProperties();
        EXPECT_TRUE(copied->Visible());
        EXPECT_EQ(copied->LabelMax(), 50);
        EXPECT_EQ(copied->Position(), 3);
        EXPECT_EQ(copied->Style()->TextFont()->Size(), 14);
        EXPECT_EQ(copied->DataField()->Name(), field);
        EXPECT_EQ(copy->Datasets()->Count(), 1);
        // The user moves the labels and allows more of them.
        copied->setPosition(7);
        copied->setLabelMax(80);
        copy->Style()->setRegionColor(0x0000FF);
    });
    pressOK();

    EXPECT_EQ(layer.RunLayer(client), "ok");
    EXPECT_EQ(regions->Style()->RegionColor(), 0x0000FF);
    EXPECT_EQ(labels->Position(), 7);
    EXPECT_EQ(labels->LabelMax(), 80);
    EXPECT_EQ(labels->DataField()->Name(), field);
    EXPECT_EQ(client->Datasets()->Count(), datasetsBefore + 1);
    EXPECT_THAT(problems(), IsEmpty());
}

// MapX's own picker answers a click on the style cell at once; the sample is the style's own
// export through the clipboard, and the override and its style reach the client at OK. A
// cancelled picker still turns the override on, with the style as it was.
TEST_F(MapXSession, AStylePickedForALayerReachesTheClientsLayerAtOk) {
    picker.answer("Brush (2,255,16777215)");
    picker.cancel();
    const std::int32_t pointsColour = clientLayer(1)->Style()->SymbolFontColor();
    step([&](session::Session& s) {
        doubleClickHeader(s, "style");
        clickRowSet(s, 2, 2, "style");
        clickRowSet(s, 1, 1, "style");
        platform::FlexGrid& g = s.layerForm().LyrGrid;
        int override = 0;
        while (s.gColKey[override] != "override")
            ++override;
        g.setRow(2);
        g.setCol(override);
        EXPECT_NE(g.CellPicture().bitmap, nullptr);
    });
    pressOK();

    EXPECT_EQ(layer.RunLayer(client), "ok");
    ASSERT_EQ(picker.requests().size(), 2U);
    EXPECT_EQ(picker.requests()[0].kind, mapx::PickKind::Region);
    EXPECT_EQ(picker.requests()[1].kind, mapx::PickKind::Symbol);
    EXPECT_TRUE(clientLayer(2)->overridestyle());
    // MapBasic's colour 255 is blue; MapX counts its colours red first.
    EXPECT_EQ(clientLayer(2)->Style()->RegionColor(), 0xFF0000);
    EXPECT_TRUE(clientLayer(1)->overridestyle());
    EXPECT_EQ(clientLayer(1)->Style()->SymbolFontColor(), pointsColour);
    EXPECT_THAT(problems(), IsEmpty());
}

// The cell editor of "label field" offers the fields of the label dataset, and the pick is the
// field the client's labels show after OK.
TEST_F(MapXSession, TheLabelFieldIsPickedFromTheDatasetsFields) {
    auto regions = clientLayer(2);
    auto dataset = client->Datasets()->Add(hostmodel::mapx::miDataSetLayer, *regions);
    auto labels = regions->LabelProperties();
    labels->setDataset(dataset);
    labels->setDataField(dataset->Fields()->Item(Variant(1)));
    labels->setVisible(kTrue);
    ASSERT_GE(dataset->Fields()->Count(), 2);
    std::vector<std::string> fields;
    for (int i = 1; i <= dataset->Fields()->Count(); ++i)
        fields.push_back(dataset->Fields()->Item(Variant(i))->Name());

    std::vector<std::string> offered;
    step([&](session::Session& s) {
        doubleClickHeader(s, "label properties");
        clickRowSet(s, 2, 2, "label field");
    });
    step([&](session::Session& s) {
        ASSERT_NE(s.gEditCell, nullptr);
        offered = s.gEditCell->EditList.items();
        s.gEditCell->EditList.pick(1);
    });
    std::string viewField;
    step([&](session::Session& s) {
        viewField = view(s).Layers()->Item(Variant(2))->LabelProperties()->DataField()->Name();
    });
    pressOK();

    EXPECT_EQ(layer.RunLayer(client), "ok");
    EXPECT_EQ(offered, fields);
    EXPECT_EQ(viewField, fields[1]);
    EXPECT_EQ(labels->DataField()->Name(), fields[1]);
    EXPECT_THAT(problems(), IsEmpty());
}

// MapX's labels step between always and by zoom, never to none.
TEST_F(MapXSession, TheLabelZoomCellStepsBetweenAlwaysAndByZoom) {
    clientLayer(2)->LabelProperties()->setVisible(kTrue);
    std::vector<bool> regionsByZoom;
    step([&](session::Session& s) {
        doubleClickHeader(s, "label properties");
        auto labels = view(s).Layers()->Item(Variant(2))->LabelProperties();
        for (int click = 0; click < 3; ++click) {
            clickRowSet(s, 2, 2, "label zoom");
            regionsByZoom.push_back(labels->LabelZoom());
            EXPECT_TRUE(labels->Visible());
        }
    });
    pressCancel();

    EXPECT_EQ(layer.RunLayer(client), "cancel");
    EXPECT_EQ(regionsByZoom, (std::vector<bool>{true, false, true}));
}

// A client layer whose file has gone since it was opened: the view is built without it.
class MapXSessionWithALayerGone : public MapXSession {
protected:
    MapXSessionWithALayerGone() {
        const std::string file = dir.file("tables/gone.tab");
        for (const char* ext : {".tab", ".dat", ".map", ".id"})
            std::filesystem::copy_file(dir.file(std::string("tables/lines") + ext),
                                       dir.file(std::string("tables/gone") + ext));
        clientLayers()->Add(Variant(file), 1);
        for (const char* ext : {".tab", ".dat", ".map", ".id"})
            std::filesystem::remove(dir.file(std::string("tables/gone") + ext));
    }
};

TEST_F(MapXSessionWithALayerGone, ItIsLoggedAndTheSessionGoesOn) {
    pressCancel();

    EXPECT_EQ(layer.RunLayer(client), "cancel");
    EXPECT_THAT(log(), HasSubstr("Error from createlayer: "));
    EXPECT_EQ(clientLayers()->Count(), 5);
    EXPECT_TRUE(toolkit.messages().empty());
}

// The load stops at the layer number that is missing from the view, so the view holds no
// layer at OK, and the copy back tells the user that the maps do not match.
TEST_F(MapXSessionWithALayerGone, OkSaysTheLayersDoNotMatch) {
    pressOK();

    EXPECT_EQ(layer.RunLayer(client), "ok");
    ASSERT_EQ(toolkit.messages().size(), 1U);
    EXPECT_EQ(toolkit.messages()[0].prompt,
              "Vellant error: Layer mismatch on save (changes too complex) 5 0");
    EXPECT_EQ(clientLayers()->Count(), 5);
}

} // namespace
} // namespace vellant::testing
