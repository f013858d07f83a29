// Filling the grid from the map. The marks in gTrace say, in a log line of a failed load, how
// far the load came.

#include "grid/load_grid.h"

#include "base/basic_text.h"
#include "base/error_trap.h"
#include "grid/column_catalogue.h"
#include "grid/layer_rows.h"
#include "grid/setpropandcell.h"
#include "grid/view_map_layers.h"
#include "hostmodel/host_predicates.h"
#include "hostmodel/mapx_map.h"
#include "hostmodel/mi_props.h"
#include "prefs/settings.h"
#include "session/session.h"
#include "styles/label_copy.h"
#include "styles/override_cells.h"
#include "styles/style_copy.h"
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

// Where a row's values are read: the facades on the MapInfo host; on the MapX host a layer of
// the user's map while the view is being built, of the view map afterwards.
struct RowSource {
    std::shared_ptr<hostmodel::ILayer> layer;
    std::shared_ptr<hostmodel::ILabelProps> labels;
};

RowSource mapInfoSource(Session& s) {
    RowSource source{s.gLyr, s.gLabelProps};
    if (!source.layer || !source.labels) raiseError(kErrObjectNotSet);
    s.gLayerType = hostmodel::asMIProps(*source.layer).ltype();
    return source;
}

// The view layer becomes gLyr, and for a plain layer its style and labels the current ones;
// on the first load the layer is made first, from the user's.
RowSource mapXSource(Session& s, std::int16_t i, bool rebuild) {
    hostmodel::MXMap& view = s.layerForm().MapDisplay.map();
    const Variant index(static_cast<std::int32_t>(i));
    std::shared_ptr<hostmodel::MXLayer> source =
        rebuild ? hostmodel::asMXMap(s.map()).Layers()->Item(index) : view.Layers()->Item(index);
    s.gLayerType = source->Type();
    std::shared_ptr<hostmodel::MXLabelProperties> labels;
    if (s.gLayerType == 0) labels = source->LabelProperties();
    s.gTrace = "0.01";
    if (rebuild) createlayer(s, view, i, *source, true, false, "");
    const std::shared_ptr<hostmodel::MXLayer> viewLayer = view.Layers()->Item(index);
    s.gLyr = viewLayer;
    s.gTrace = "0.02 ";
    if (s.gLayerType == 0) {
        s.gStyle = viewLayer->Style();
        s.gLabelProps = viewLayer->LabelProperties();
    }
    s.gTrace = "0.03";
    if (s.gLayerType == 0) s.gLabelStyle = hostmodel::asMXLabelProperties(s.labelProps()).Style();
    return {source, labels};
}

std::string mapXCoordsys(hostmodel::ILayer& source) {
    const std::shared_ptr<hostmodel::MXCoordSys> coordsys = hostmodel::asMXLayer(source).CoordSys();
    return "Type: " + Str(coordsys->Type()) + ", Units: " + unittext(Variant(coordsys->Units()));
}

// The row of one layer. Returns the length of its name in characters.
long loadLayerRow(Session& s, platform::FlexGrid& grid, std::int16_t i, bool rebuild) {
    s.gLayer = i;
    s.gRow = i;
    s.gPendFirst = i;
    s.gPendLast = i;
    s.gTrace = ".005 ";

    const bool mapInfo = s.gIsMapInfo != kFalse;
    const RowSource found = mapInfo ? mapInfoSource(s) : mapXSource(s, i, rebuild);
    hostmodel::ILayer& source = *found.layer;
    s.gTrace = ".0055 ";

    const int row = LayerToRow(s, static_cast<std::uint16_t>(i));
    grid.setRow(row);
    grid.setCol(0);
    grid.setText(s.lyr().Name());
    if (mapInfo && (s.gLayerType == 0 || s.gLayerType == 1))
        showTableState(s, grid, hostmodel::asMIProps(source));

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

    // A raster layer of MapX has no display toggles and no labels to ask about.
    const bool mapXRaster = !mapInfo && s.gLayerType == 2;
    paint(s, "Visible", source.Visible());
    if (!mapXRaster) {
        paint(s, "show nodes", source.Shownodes());
        paint(s, "show directions", source.Showlinedirection());
        paint(s, "show centroids", source.ShowCentroids());
        paint(s, "Selectable", source.Selectable());
    }
    s.gTrace = "1";
    if (s.gLayerType == 0) {
        paint(s, "Editable", source.Editable());
        if (mapInfo) {
            hostmodel::MIProps& props = hostmodel::asMIProps(source);
            paint(s, "Fastedit", props.Fastedit());
            paint(s, "Undo", props.Undo());
            paint(s, "Readonly", props.Readonly());
        } else {
            paint(s, "Fastedit", false);
            paint(s, "Undo", false);
            paint(s, "Readonly", false);
        }
    }
    s.gTrace = "2";
    if (!mapXRaster) paint(s, "Autolabel", source.Autolabel());
    paint(s, "Zoom layer", source.ZoomLayer());
    paint(s, "Zoom min", source.ZoomMin());
    paint(s, "Zoom max", source.ZoomMax());
    s.gTrace = "3";
    // Feature counts are read only when their column group is unfolded.
    paint(s, "Info", "");
    paint(s, "Table Path", source.FileSpec());
    paint(s, "Coordsys", mapInfo ? hostmodel::asMIProps(source).coordsys() : mapXCoordsys(source));
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
        if (!mapInfo) s.lyr().setoverridestyle(toFlag(overridden));
        s.gOrigOverride[s.gLayer] = overridden;
        if (!mapInfo)
            styles::copystyle(s, hostmodel::asMXLayer(source), hostmodel::asMXLayer(s.lyr()));
        s.gTrace = "4.11";
    }
    const std::string typeText = featureTypeText(s, source);
    grid.setText(typeText);
    // Only layers of one kind of feature have a style of their own to show.
    if (typeText == "Region" || typeText == "Line" || typeText == "Symbol" || typeText == "Text")
        styles::setoridestylecell(s, s.gFeatureType, overridden, false);

    s.gTrace = "6";
    if (mapInfo || s.gLayerType < 2)
        styles::copylabelprops(s, source, *found.labels, s.lyr(), s.labelProps(), i, true);
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
            } else if (rebuild) {
                // The view map opens with the user's geoset, and is then built layer by layer.
                hostmodel::MXMap& view = form.MapDisplay.map();
                view.setGeoset(hostmodel::asMXMap(s.map()).Geoset());
                view.Layers()->RemoveAll();
            }
            s.gApplyToLayer = toFlag(!mapInfo && rebuild);
            s.gClickRow = 0;

            long longestName = 0;
            for (int i = mapInfo ? 0 : 1; i <= s.gLayerCount; ++i)
                longestName = std::max(
                    longestName, loadLayerRow(s, grid, static_cast<std::int16_t>(i), rebuild));

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
            } else {
                form.MapDisplay.map().setAutoRedraw(true);
                form.MapDisplay.map().Refresh();
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
