// Filling the grid from the map. The marks in gTrace say, in a log line of a failed load, how
// far the load came.

#include "grid/load_grid.h"

#include "base/basic_text.h"
#include "base/error_trap.h"
#include "grid/column_catalogue.h"
#include "grid/layer_rows.h"
#include "grid/setpropandcell.h"
#include "hostmodel/host_predicates.h"
#include "hostmodel/mi_props.h"
#include "prefs/settings.h"
#include "session/session.h"
#include "styles/label_copy.h"
#include "styles/override_cells.h"
#include "styles/style_samples.h"

#include <algorithm>

namespace vellant::grid {

namespace {

constexpr int kTwipsPerCharacter = 85;
constexpr platform::OleColor kLayerNameColor = 0xFF0000;

void disableLayerMenus(session::LayerForm& form) {
    for (platform::MenuItem* item : {&form.Group_selected, &form.Ungroup_layers, &form.View_Entire,
                                     &form.Remove_layer, &form.Add_Layer})
        item->setEnabled(false);
}

// Every cell answers a click and has no text or colour until its layer is painted; the header
// keeps its words, and pictures stay until a rule replaces them.
void clearCells(Session& s, platform::FlexGrid& grid) {
    for (int r = 0; r < grid.Rows(); ++r) {
        for (int c = 0; c < grid.Cols(); ++c) {
            s.gCellState(r, c) = true;
            if (r > 0) grid.setTextMatrix(r, c, "");
            grid.setRow(r);
            grid.setCol(c);
            if (r >= 1 && c >= 1)
                grid.setCellBackColor(static_cast<platform::OleColor>(kLiveCellColor));
        }
    }
}

// The table's state beside the layer's name: edited, a query, or both.
void showTableState(Session& s, platform::FlexGrid& grid, hostmodel::MIProps& props) {
    s.gTrace = ".0056 ";
    const char* picture = nullptr;
    if (props.Edited())
        picture = props.QueryTab() ? "QueryTab_EditedPic" : "EditedPic";
    else if (props.QueryTab())
        picture = "QueryTabPic";
    if (!picture) return;
    grid.setCellPicture(s.layerForm().imageControl(picture).Picture());
    grid.setCellPictureAlignment(platform::flexAlignRightCenter);
}

void paint(Session& s, const std::string& key, const Variant& value) {
    bool cellToo = true;
    setpropandcell(s, key, value, cellToo);
}

std::string featureTypeText(Session& s, hostmodel::ILayer& source) {
    switch (s.gLayerType) {
    case 2:
        return "Raster";
    case 3:
        return "Thematic";
    case 4:
        return "Grid";
    default:
        break;
    }
    switch (s.gFeatureType) {
    case 0:
        return "Region";
    case 1:
        return "Line";
    case 2:
        return "Symbol";
    case 3:
        return "Mixed";
    default:
        break;
    }
    switch (source.PredominantFeatureType()) {
    case 4:
        return "Unknown";
    case 5:
        return "Text";
    case 6:
        return "Empty";
    default:
        return "";
    }
}

// The row of one layer. Returns the length of its name in characters.
long loadLayerRow(Session& s, platform::FlexGrid& grid, std::int16_t i) {
    s.gLayer = i;
    s.gRow = i;
    s.gPendFirst = i;
    s.gPendLast = i;
    s.gTrace = ".005 ";

    // The MapInfo host reads through the facades, which follow gLayer. The MapX host's source
    // and view layers come with that host.
    hostmodel::ILayer& source = s.lyr();
    hostmodel::ILabelProps& sourceLabels = s.labelProps();
    hostmodel::MIProps& props = hostmodel::asMIProps(source);
    s.gLayerType = props.ltype();
    s.gTrace = ".0055 ";

    const int row = LayerToRow(s, static_cast<std::uint16_t>(i));
    grid.setRow(row);
    grid.setCol(0);
    grid.setText(source.Name());
    if (s.gLayerType == 0 || s.gLayerType == 1) showTableState(s, grid, props);

    s.gTrace = ".0057 ";
    grid.setDragMode(platform::vbManual);
    const long nameLength = Len(grid.TextMatrix(row, 0));
    grid.setCol(1);
    grid.setText(Str(i));
    s.gTrace = ".006 ";

    if (s.gLayer == 0) {
        // The cosmetic layer can't join a layer group.
        grid.setCol(getcolnum(s, "group"));
        grid.setCellBackColor(static_cast<platform::OleColor>(kGrayCellColor));
        s.gCellState(row, grid.Col()) = false;
    }

    s.gFeatureType = hostmodel::GetFeatureType(s, source);
    s.gTrace = ".0065 ";

    paint(s, "Visible", source.Visible());
    paint(s, "show nodes", source.Shownodes());
    paint(s, "show directions", source.Showlinedirection());
    paint(s, "show centroids", source.ShowCentroids());
    paint(s, "Selectable", source.Selectable());
    s.gTrace = "1";
    if (s.gLayerType == 0) {
        paint(s, "Editable", source.Editable());
        paint(s, "Fastedit", props.Fastedit());
        paint(s, "Undo", props.Undo());
        paint(s, "Readonly", props.Readonly());
    }
    s.gTrace = "2";
    paint(s, "Autolabel", source.Autolabel());
    paint(s, "Zoom layer", source.ZoomLayer());
    paint(s, "Zoom min", source.ZoomMin());
    paint(s, "Zoom max", source.ZoomMax());
    s.gTrace = "3";
    // Feature counts are read only when their column group is unfolded.
    paint(s, "Info", "");
    paint(s, "Table Path", source.FileSpec());
    paint(s, "Coordsys", props.coordsys());
    s.gTrace = "4";

    if (s.gLayer == 0) {
        paint(s, "style", false);
        paint(s, "override", false);
    }

    grid.setCol(getcolnum(s, "Type"));
    bool overridden = false;
    if (s.gLayerType == 0) {
        s.gTrace = "4.10";
        overridden = source.overridestyle();
        s.gOrigOverride[s.gLayer] = overridden;
        s.gTrace = "4.11";
    }
    const std::string typeText = featureTypeText(s, source);
    grid.setText(typeText);
    // Only layers of one kind of feature have a style of their own to show.
    if (typeText == "Region" || typeText == "Line" || typeText == "Symbol" || typeText == "Text")
        styles::setoridestylecell(s, s.gFeatureType, overridden, false);

    s.gTrace = "6";
    styles::copylabelprops(s, source, sourceLabels, source, sourceLabels, i, true);
    s.gTrace = "6.01";
    return nameLength;
}

} // namespace

void load_grid(Session& s, bool& rebuild) {
    onErrorGoTo(
        [&] {
            session::LayerForm& form = s.layerForm();
            platform::FlexGrid& grid = form.LyrGrid;
            const bool mapInfo = s.gIsMapInfo != kFalse;
            if (mapInfo) s.toolkit.ShowCursor(false);
            s.gInClick = kFalse;
            s.gTrace = ".001";

            grid.setRedraw(false);
            disableLayerMenus(form);
            s.gTrace = ".002 " + CStr(s.gLayerCount);
            grid.setRows(s.gLayerCount + (mapInfo ? 2 : 1));
            s.gTrace = ".003 ";

            s.toolkit.setMousePointer(platform::vbHourglass);
            s.gCellState.redim(grid.Rows() - 1, grid.Cols() - 1, true);
            s.gOrigOverride.redim(s.gLayerCount);
            s.gTrace = ".004 ";

            clearCells(s, grid);
            s.gLayer = 1;
            s.gTrace = ".0045 ";

            if (mapInfo) {
                s.mapInfoApp().Do("set event processing off");
                s.mapInfoApp().Do("set progressbars off");
            }
            s.gApplyToLayer = toFlag(!mapInfo && rebuild);
            s.gClickRow = 0;

            long longestName = 0;
            for (int i = mapInfo ? 0 : 1; i <= s.gLayerCount; ++i)
                longestName =
                    std::max(longestName, loadLayerRow(s, grid, static_cast<std::int16_t>(i)));

            grid.setColWidth(getcolnum(s, "Layer"),
                             static_cast<int>((longestName + 2) * kTwipsPerCharacter));
            grid.setRow(0);
            grid.setCol(0);
            grid.setForeColor(kLayerNameColor);
            grid.setCellFontBold(true);
            grid.setEnabled(true);
            grid.setCellPictureAlignment(platform::flexAlignLeftTop);
            grid.setRedraw(true);
            grid.Refresh();

            if (mapInfo) {
                s.mapInfoApp().Do("set event processing on");
                s.mapInfoApp().Do("set progressbars on");
            }
            s.toolkit.setMousePointer(platform::vbDefault);
            styles::closestylewin(s);
            if (mapInfo) s.toolkit.ShowCursor(true);
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "From load_grid " + s.gTrace + e.description());
            s.toolkit.setMousePointer(platform::vbDefault);
            if (s.gIsMapInfo) s.toolkit.ShowCursor(true);
        });
}

void shiftlayergroups(Session& s, const std::string& word) {
    platform::FlexGrid& grid = s.layerForm().LyrGrid;
    constexpr int kGroupColumn = 2;
    grid.setCol(kGroupColumn);
    const auto moveGroup = [&](int from) {
        s.gLayerGroup[s.gLayer] = s.gLayerGroup[from];
        const int row = LayerToRow(s, static_cast<std::uint16_t>(s.gLayer));
        grid.setRow(row);
        grid.setTextMatrix(row, kGroupColumn, s.gLayerGroup[s.gLayer]);
    };
    // Both callers pass a capitalised word, so the groups always move up one row.
    if (word != "add") {
        for (s.gLayer = 1; s.gLayer <= s.gLayerCount - 1; ++s.gLayer)
            moveGroup(s.gLayer + 1);
    } else {
        for (s.gLayer = s.gLayerCount; s.gLayer >= 2; --s.gLayer)
            moveGroup(s.gLayer - 1);
    }
}

} // namespace vellant::grid
