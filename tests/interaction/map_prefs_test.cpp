// A map's groups and user expressions in the preference file: what an accepted session leaves
// there byte for byte, what the next session on the same map brings back (groups collapsed,
// expressions by position), and the ways a read goes wrong. Over a loaded grid for the reading
// rules, over whole sessions on the embedded host for the rest.

#include "../grid/grid_host.h"
#include "base/basic_text.h"
#include "base/runtime_error.h"
#include "grid/column_catalogue.h"
#include "grid/header_cells.h"
#include "grid/layer_rows.h"
#include "interaction/layer_groups.h"
#include "prefs/map_prefs.h"
#include "prefs/map_slots.h"
#include "prefs/record_file.h"
#include "prefs/setting_controls.h"
#include "session/host_session.h"

#include <filesystem>
#include <gmock/gmock.h>

namespace vellant {
namespace {

std::string padded(const std::string& text) {
    return text + std::string(100 - text.size(), ' ');
}

// ---- the reading rules, over a loaded grid ----

class MapPrefs : public grid::testing::GridHost {
protected:
    MapPrefs() { open(); }

    // The grid as the form's load leaves it before the stored groups are applied.
    void open() {
        grid::labelgrid(*session);
        load();
    }
    void group(const std::string& name, std::initializer_list<int> layers) {
        for (int layer : layers)
            session->gLayerGroup[layer] = name;
    }
    void setUserInfo(int layer, const std::string& expression) {
        grid().setTextMatrix(row(layer), col("user info"), expression);
    }
    // A next session on the same map: nothing of this one's groups is left.
    void reopen() {
        for (int layer = 0; layer <= kLayers; ++layer)
            session->gLayerGroup[layer].clear();
        open();
    }
    int height(int layer) { return grid().RowHeight(row(layer)); }
};

TEST_F(MapPrefs, TheTitleFindsTheSlotTheNameAtAPositionTheGroupAndThePositionTheExpression) {
    group("Areas", {kRegions, kLines});
    group("Solo", {kMixed});
    group("Last", {kScratch}); // the last layer is never stored
    setUserInfo(kPoints, "TableInfo(%LAYERNAME%,8)");
    session->gMapPrefCount = 1; // a slot of another map before this one
    prefs::writemapprefs(*session, "Town");
    EXPECT_EQ(session->gMapPrefCount, 2);
    EXPECT_EQ(session->gMapPrefSlot, 2);

    reopen();
    // Another layer now stands at the regions' place.
    grid().setTextMatrix(row(kRegions), 0, "parcels");
    session->gMapPrefSlot = 0;
    prefs::getmapprefs(*session, prefs::mapprefname("Town:3"));
    EXPECT_EQ(session->gMapPrefSlot, 2);
    EXPECT_EQ(session->gMapPrefName, "Town");
    EXPECT_EQ(session->gLayerGroup[kRegions], "");
    EXPECT_EQ(text(kRegions, "group"), "");
    EXPECT_EQ(session->gLayerGroup[kLines], "Areas");
    EXPECT_EQ(text(kLines, "group"), "Areas");
    EXPECT_EQ(session->gLayerGroup[kScratch], "");
    EXPECT_EQ(text(kPoints, "user info"), "TableInfo(%LAYERNAME%,8)");
    // Each stored group comes back collapsed onto its first member.
    EXPECT_EQ(session->gRowExpanded[kLines], kFalse);
    EXPECT_EQ(session->gRowExpanded[kMixed], kFalse);
    EXPECT_EQ(session->gRowExpanded[kRegions], kTrue);
    EXPECT_EQ(grid().cellAt(row(kLines), col("visible")).backColor, 0xFFFFC0u);
    EXPECT_EQ(log().find("Error"), std::string::npos) << log();
}

TEST_F(MapPrefs, AnUnknownTitleOrAnEmptyOneBringsNothingBack) {
    group("Areas", {kRegions, kLines});
    prefs::writemapprefs(*session, "Town");
    reopen();
    session->gMapPrefSlot = 5;
    prefs::getmapprefs(*session, "");
    EXPECT_EQ(session->gMapPrefSlot, 5); // nothing was looked up
    prefs::getmapprefs(*session, "town");
    EXPECT_EQ(session->gMapPrefSlot, 0);
    EXPECT_EQ(session->gLayerGroup[kRegions], "");
    EXPECT_EQ(height(kLines), grid().defaultRowHeight());
}

TEST_F(MapPrefs, AMissingFileIsLoggedAndLeavesTheSlotAsItWas) {
    std::filesystem::remove(dir.file("Vellant.prf"));
    session->gMapPrefCount = 2;
    session->gMapPrefSlot = 4;
    prefs::getmapprefs(*session, "Town");
    EXPECT_TRUE(logged("Error from getmapprefs " + RuntimeError(kErrFileNotFound).description()))
        << log();
    EXPECT_EQ(session->gMapPrefSlot, 4);
    EXPECT_EQ(session->gMapPrefName, "Town");
}

TEST_F(MapPrefs, AStoredCountBeyondTheGridStopsTheReadBeforeAnyGroupCollapses) {
    prefs::RecordFile file;
    file.open(dir.file("Vellant.prf"), prefs::RecordFile::Access::ReadWrite);
    prefs::writeSlotHeader(file, 1, "Town", 20);
    for (int layer = 1; layer <= 20; ++layer) {
        const std::string name = layer <= kLayers ? text(layer, "layer") : "gone";
        prefs::writeSlotLayer(file, 1, static_cast<std::int16_t>(layer), {name, "G", "x"});
    }
    file.close();
    session->gMapPrefCount = 1;

    prefs::getmapprefs(*session, "Town");
    EXPECT_NE(log().find("\"Error from getmapprefs "), std::string::npos) << log();
    EXPECT_EQ(session->gLayerGroup[kQuery], "G");
    EXPECT_EQ(session->gLayerGroup[kScratch], "G");
    EXPECT_EQ(text(kScratch, "user info"), "x");
    EXPECT_EQ(session->gRowExpanded[kQuery], kTrue);
    EXPECT_EQ(height(kRaster), grid().defaultRowHeight());
    // The file was let go: it can be opened again.
    prefs::writemapprefs(*session, "Town");
    EXPECT_EQ(log().find("Error from writemapprefs"), std::string::npos) << log();
}

// ---- whole sessions ----

class StoredMapGroups : public testing::HostSession {
protected:
    static constexpr const char* kCount = "TableInfo(%LAYERNAME%,8)";

    std::vector<unsigned char> file() { return testing::readBytes(dir.file("Vellant.prf")); }
    // Record n from 1, as the file holds it.
    std::string record(int n) {
        const auto bytes = file();
        const std::size_t at = static_cast<std::size_t>(n - 1) * 100;
        if (bytes.size() < at + 100) return "(short)";
        return std::string(bytes.begin() + static_cast<long>(at),
                           bytes.begin() + static_cast<long>(at + 100));
    }
    int int16At(int n) {
        const std::string r = record(n);
        return static_cast<std::int16_t>(static_cast<unsigned char>(r[0]) |
                                         (static_cast<unsigned char>(r[1]) << 8));
    }
    std::string userMapTitle() { return eval("WindowInfo(" + Str(userMap) + ",1)"); }

    static platform::FlexGrid& grid(session::Session& s) { return s.layerForm().LyrGrid; }
    static int rowOf(session::Session& s, int layer) {
        return grid::LayerToRow(s, static_cast<std::uint16_t>(layer));
    }
    static int colOf(session::Session& s, const char* key) { return grid::getcolnum(s, key); }

    // The user groups layers 1 and 2 from the popup menu and picks an expression for layers 2
    // and 4, then accepts.
    void firstSession() {
        step([&](session::Session& s) {
            viewTitle = s.mapInfoApp().eval("WindowInfo(" + Str(s.gViewWin) + ",1)");
            grid(s).setRow(rowOf(s, 1));
            grid(s).setCol(1);
            grid(s).setRowSel(rowOf(s, 2));
            grid(s).setColSel(grid(s).Cols() - 1);
            interaction::groupSelectedLayers(s);
            grid(s).setTextMatrix(rowOf(s, 2), colOf(s, "user info"), kCount);
            grid(s).setTextMatrix(rowOf(s, 4), colOf(s, "user info"), "MapperInfo(%MAPID%,9)");
        });
        pressOK();
        ASSERT_EQ(runMapInfoLayer(), "ok");
    }

    std::string viewTitle;
};

TEST_F(StoredMapGroups, AnAcceptedSessionStoresTheMapsGroupsAndExpressionsRecordByRecord) {
    const std::string title = userMapTitle();
    firstSession();

    // The view is a further window of the user's map; its number is not part of the title.
    EXPECT_EQ(viewTitle, title + ":2");
    EXPECT_EQ(int16At(9), 1);
    EXPECT_EQ(record(101), padded(title));
    // MapInfo's last layer is left out.
    EXPECT_EQ(int16At(102), 3);
    const std::vector<std::vector<std::string>> layers = {
        {"points", "Group  2", ""}, {"regions", "Group  2", kCount}, {"text", "", ""}};
    for (int i = 0; i < 3; ++i)
        for (int k = 0; k < 3; ++k)
            EXPECT_EQ(record(110 + 3 * i + k), padded(layers[i][k])) << i << " " << k;
    EXPECT_EQ(file().size(), 118u * 100);
    // There was no file to read at the start; the session went on.
    EXPECT_THAT(logLines(), ::testing::Contains("Error from getmapprefs " +
                                                RuntimeError(kErrFileNotFound).description()));
}

TEST_F(StoredMapGroups, TheNextSessionBringsBackTheGroupsCollapsedAndTheExpressions) {
    firstSession();
    step([&](session::Session& s) {
        EXPECT_EQ(s.gMapPrefSlot, 1);
        EXPECT_EQ(s.gLayerGroup[1], "Group  2");
        EXPECT_EQ(s.gLayerGroup[2], "Group  2");
        EXPECT_EQ(grid(s).TextMatrix(rowOf(s, 2), colOf(s, "group")), "Group  2");
        EXPECT_EQ(s.gRowExpanded[1], kFalse);
        EXPECT_EQ(s.gRowExpanded[2], kFalse);
        EXPECT_EQ(s.gRowExpanded[3], kTrue);
        EXPECT_GT(grid(s).RowHeight(rowOf(s, 1)), 0);
        EXPECT_EQ(grid(s).RowHeight(rowOf(s, 2)), 0);
        EXPECT_GT(grid(s).RowHeight(rowOf(s, 3)), 0);
        EXPECT_EQ(grid(s).TextMatrix(rowOf(s, 2), colOf(s, "user info")), kCount);
        EXPECT_EQ(grid(s).TextMatrix(rowOf(s, 4), colOf(s, "user info")), "");
        // Every column group opens folded, the expressions not yet evaluated.
        EXPECT_EQ(grid(s).ColWidth(colOf(s, "show nodes")), 0);
        EXPECT_EQ(grid(s).ColWidth(colOf(s, "user eval")), 0);
        EXPECT_GT(grid(s).ColWidth(colOf(s, "user info")), 0);
        EXPECT_EQ(grid(s).TextMatrix(rowOf(s, 2), colOf(s, "user eval")), "");
        EXPECT_TRUE(s.layerForm().ExpandColsPic(6).Visible());
    });
    pressCancel();
    ASSERT_EQ(runMapInfoLayer(), "ok");
    // The first session found no file; the second found the bounds table the first one left
    // open, and went on past it.
    EXPECT_THAT(logLines(), ::testing::ElementsAre(
                                ::testing::StartsWith("Error from getotherprefs "),
                                ::testing::StartsWith("Error from getmapprefs "),
                                "Error from initstylewin Table vlBounds is already open.",
                                "Error from initstylewin Table vlBounds is already mappable."));
}

TEST_F(StoredMapGroups, ForgettingTheStoredMapsWritesThisMapAtTheFirstSlotAtTheNextAccept) {
    const std::string title = userMapTitle();
    {
        prefs::RecordFile seed;
        seed.open(dir.file("Vellant.prf"), prefs::RecordFile::Access::ReadWrite);
        seed.writeInt16(9, 2);
        prefs::writeSlotHeader(seed, 1, "Elsewhere", 0);
        prefs::writeSlotHeader(seed, 2, title, 0);
        seed.close();
    }
    step([&](session::Session& s) {
        EXPECT_EQ(s.gMapPrefSlot, 2);
        toolkit.queueAnswer(platform::vbYes);
        prefs::remove_group_prefs_clicK(s);
        EXPECT_EQ(s.gMapPrefCount, 0);
        EXPECT_EQ(s.gMapPrefSlot, 0);
    });
    pressOK();
    ASSERT_EQ(runMapInfoLayer(), "ok");

    EXPECT_EQ(int16At(9), 1);
    EXPECT_EQ(record(101), padded(title));
    EXPECT_EQ(int16At(102), 3);
    EXPECT_EQ(record(201), padded(title)); // the old slot stays, never read again
}

} // namespace
} // namespace vellant
