#include "interaction/info_cells.h"

#include "base/basic_text.h"
#include "base/error_trap.h"
#include "grid/column_catalogue.h"
#include "grid/layer_rows.h"
#include "platform/combo_box.h"
#include "prefs/settings.h"
#include "session/session.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace vellant::interaction {

namespace {

constexpr int kLastTableCode = 31;
constexpr int kLastLayerCode = 64;
// Whatever stands further behind a token than this is dropped.
constexpr std::size_t kTextBehindToken = 555;

// A keyword's position in the list is its code, so the order is fixed and nothing is sorted.
constexpr std::array<std::string_view, 86> kInfoKeywords = {
    // TableInfo, codes 1 to 31.
    "TAB_INFO_NAME", "TAB_INFO_NUM", "TAB_INFO_TYPE", "TAB_INFO_NCOLS", "TAB_INFO_MAPPABLE",
    "TAB_INFO_READONLY", "TAB_INFO_TEMP", "TAB_INFO_NROWS", "TAB_INFO_EDITED", "TAB_INFO_FASTEDIT",
    "TAB_INFO_UNDO", "TAB_INFO_MAPPABLE_TABLE", "TAB_INFO_USERMAP", "TAB_INFO_USERBROWSE",
    "TAB_INFO_USERCLOSE", "TAB_INFO_USEREDITABLE", "TAB_INFO_USERREMOVEMAP",
    "TAB_INFO_USERDISPLAYMAP", "TAB_INFO_TABFILE", "TAB_INFO_MINX", "TAB_INFO_MINY",
    "TAB_INFO_MAXX", "TAB_INFO_MAXY", "TAB_INFO_SEAMLESS", "TAB_INFO_COORDSYS_MINX",
    "TAB_INFO_COORDSYS_MINY", "TAB_INFO_COORDSYS_MAXX", "TAB_INFO_COORDSYS_MAXY",
    "TAB_INFO_COORDSYS_CLAUSE", "TAB_INFO_COORDSYS_NAME", "TAB_INFO_NREFS",
    // LayerInfo, codes 1 to 33.
    "LAYER_INFO_NAME", "LAYER_INFO_EDITABLE", "LAYER_INFO_SELECTABLE", "LAYER_INFO_ZOOM_LAYERED",
    "LAYER_INFO_ZOOM_MIN", "LAYER_INFO_ZOOM_MAX", "LAYER_INFO_COSMETIC", "LAYER_INFO_PATH",
    "LAYER_INFO_DISPLAY", "LAYER_INFO_OVR_LINE", "LAYER_INFO_OVR_PEN", "LAYER_INFO_OVR_BRUSH",
    "LAYER_INFO_OVR_SYMBOL", "LAYER_INFO_OVR_FONT", "LAYER_INFO_LBL_EXPR", "LAYER_INFO_LBL_LT",
    "LAYER_INFO_LBL_CURFONT", "LAYER_INFO_LBL_FONT", "LAYER_INFO_LBL_PARALLEL",
    "LAYER_INFO_LBL_POS", "LAYER_INFO_ARROWS", "LAYER_INFO_NODES", "LAYER_INFO_CENTROIDS",
    "LAYER_INFO_TYPE", "LAYER_INFO_LBL_VISIBILITY", "LAYER_INFO_LBL_ZOOM_MIN",
    "LAYER_INFO_LBL_ZOOM_MAX", "LAYER_INFO_LBL_AUTODISPLAY", "LAYER_INFO_LBL_OVERLAP",
    "LAYER_INFO_LBL_DUPLICATES", "LAYER_INFO_LBL_OFFSET", "LAYER_INFO_LBL_MAX",
    "LAYER_INFO_LBL_PARTIALSEGS",
    // MapperInfo, codes 1 to 22.
    "MAPPER_INFO_ZOOM", "MAPPER_INFO_SCALE", "MAPPER_INFO_CENTERX", "MAPPER_INFO_CENTERY",
    "MAPPER_INFO_MINX", "MAPPER_INFO_MINY", "MAPPER_INFO_MAXX", "MAPPER_INFO_MAXY",
    "MAPPER_INFO_LAYERS", "MAPPER_INFO_EDIT_LAYER", "MAPPER_INFO_XYUNITS", "MAPPER_INFO_DISTUNITS",
    "MAPPER_INFO_AREAUNITS", "MAPPER_INFO_SCROLLBARS", "MAPPER_INFO_DISPLAY",
    "MAPPER_INFO_NUM_THEMATIC", "MAPPER_INFO_COORDSYS_CLAUSE", "MAPPER_INFO_COORDSYS_NAME",
    "MAPPER_INFO_MOVE_DUPLICATE_NODES", "MAPPER_INFO_DIST_CALC_TYPE", "MAPPER_INFO_DISPLAY_DMS",
    "MAPPER_INFO_COORDSYS_CLAUSE_WITH_BOUNDS"};

} // namespace

std::span<const std::string_view> infoKeywords() {
    return kInfoKeywords;
}

void fillInfoKeywords(platform::ComboBox& list) {
    for (std::string_view keyword : kInfoKeywords)
        list.AddItem(std::string(keyword));
}

std::string infoExpression(int position) {
    if (position <= kLastTableCode) return "TableInfo(%LAYERNAME%," + Str(position) + ")";
    if (position <= kLastLayerCode)
        return "LayerInfo(%MAPID%,%LAYERNUM%," + Str(position - kLastTableCode) + ")";
    return "MapperInfo(%MAPID%," + Str(position - kLastLayerCode) + ")";
}

std::string expandTokens(std::string_view text, const std::function<std::string()>& layerName,
                         std::int16_t layerNum, std::int32_t mapId) {
    std::string e(text);
    // A layer name that holds a token of its own would be expanded for ever: the scan starts
    // again at the front after each token. Far more tokens than any expression holds means that.
    constexpr int kMostTokens = 10000;
    // Such a name also grows the text at each round; past MapBasic's longest string no
    // evaluation could take it anyway, and copying it ever longer would freeze the grid.
    constexpr std::size_t kLongestExpression = 32767;
    // Nothing in front of the first percent sign can hold one, so the scan from the front goes on
    // where the last token stood, and only what stands behind it is rewritten: a long expansion
    // costs what it adds rather than the whole text at every round.
    std::size_t open = e.find('%');
    for (int tokens = 0; open != std::string::npos; ++tokens) {
        if (tokens == kMostTokens || e.size() > kLongestExpression) raiseError(kErrInvalidCall);
        const std::size_t close = e.find('%', open + 1);
        if (close == std::string::npos) raiseError(kErrInvalidCall);
        const std::string_view token = std::string_view(e).substr(open + 1, close - open - 1);
        std::string value;
        if (token == "LAYERNAME")
            value = "\"" + layerName() + "\"";
        else if (token == "LAYERNUM")
            value = Str(layerNum);
        else if (token == "MAPID")
            value = Str(mapId);
        else
            value = "unknown_token";
        e.resize(close + 1 + std::min(e.size() - close - 1, kTextBehindToken));
        e.replace(open, close + 1 - open, value);
        open = e.find('%', open);
    }
    return e;
}

std::string runfunction(Session& s, std::int16_t& layer) {
    std::string result;
    onErrorGoTo(
        [&] {
            const std::string t = s.layerForm().LyrGrid.TextMatrix(
                grid::LayerToRow(s, static_cast<std::uint16_t>(layer)),
                grid::getcolnum(s, "user info"));
            // An expression without a token is never sent to MapInfo.
            if (t.empty() || InStr(t, "%") == 0) return;
            const std::string e = expandTokens(
                t, [&] { return s.lyr().Name(); }, s.gLayer, s.gViewWin);
            if (e.empty()) return;
            result = s.mapInfoApp().eval(e);
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "From runfunction " + e.description());
            result.clear();
        });
    return result;
}

} // namespace vellant::interaction
