// The procedures over the column catalogue: key lookup, the attributes of every column, and the
// header cells of a column group.

#include "base/basic_text.h"
#include "base/error_trap.h"
#include "grid/column_catalogue.h"
#include "grid/header_cells.h"
#include "prefs/settings.h"
#include "session/session.h"

#include <algorithm>
#include <optional>

namespace vellant::grid {

namespace {

constexpr int kFirstShiftedMapXColumn = 21; // right of "label dataset"
constexpr int kLabelPropertiesColumn = 19;

// The MapX column number of a lower-case key, or 0 when no column has it.
int mapxColumnOf(const std::string& key) {
    if (key == "label visible") return kLabelPropertiesColumn;
    for (const CatalogueColumn& column : columnCatalogue())
        if (key == column.key) return column.mapxColumn;
    return 0;
}

} // namespace

std::int16_t getcolnum(Session& s, const std::string& key) {
    std::int16_t number = 0;
    onErrorGoTo(
        [&] {
            const std::string lower = LCase(key);
            const bool known = lower == "layer" || mapxColumnOf(lower) > 0;
            int column = mapxColumnOf(lower);
            if (s.gIsMapInfo && lower == "label dataset") {
                column = -1;
            } else if (!known) {
                prefs::vlog(s, "Unknown column name " + lower);
            } else if (s.gIsMapInfo && column >= kFirstShiftedMapXColumn) {
                column -= 1;
            }
            number = static_cast<std::int16_t>(column);
            if (number > 0) s.gColKey[number] = lower;
            if (number > s.gColCount) prefs::vlog(s, "Max columns exceeded");
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "error from getcolnum " + e.description());
        });
    return number;
}

void setcolatts(Session& s) {
    onErrorGoTo(
        [&] {
            for (s.gColIter = 1; s.gColIter <= s.gColCount; ++s.gColIter) {
                s.gColGroup[s.gColIter] = 0;
                s.gColGroupPic[s.gColIter] = 0;
                s.gColTip[s.gColIter].clear();
            }
            // The unit is asked of the map only when the first zoom tip needs it.
            std::optional<std::string> unit;
            for (const CatalogueColumn& column : columnCatalogue()) {
                const std::int16_t c = getcolnum(s, column.key);
                if (std::string_view(column.key) == "label dataset" && c < 1) continue;
                s.gColType[c] = column.type;
                std::string tip = column.tip;
                if (column.tipWithGroupHint) tip += kGroupHint;
                if (column.tipWithUnit) {
                    if (!unit) unit = unittext(s.map().mapunit());
                    tip += "(" + *unit + ")";
                }
                s.gColTip[c] = tip;
                s.gColGroup[c] = column.headKey ? getcolnum(s, column.headKey) : 0;
                s.gColGroupPic[c] = column.glyph;
            }
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "Error from setcolatts " + e.description());
        });
}

std::int16_t colgroup(Session& s, std::int16_t& headColumn) {
    const std::string key = LCase(s.gColKey[headColumn]);
    const auto members = groupMembers(key);
    if (members.empty()) {
        prefs::vlog(s, "unknown colgroup " + CStr(headColumn));
        return 0;
    }
    platform::FlexGrid& grid = s.layerForm().LyrGrid;
    if (key == "label properties" || key == "label visible") {
        if (!s.gIsMapInfo) grid.setTextMatrix(0, getcolnum(s, "label dataset"), "Dataset");
        grid.setTextMatrix(0, getcolnum(s, "label field"), "Field");
    }
    for (const GroupMember& member : members) {
        std::string caption = member.key;
        labelcolheader(s, caption, s.layerForm().imageControl(member.picture));
    }
    return 0;
}

std::int16_t labelcolheader(Session& s, std::string& key, platform::Control& image) {
    onErrorGoTo(
        [&] {
            platform::FlexGrid& grid = s.layerForm().LyrGrid;
            grid.setCol(getcolnum(s, key));
            const int col = grid.Col();
            grid.setPictureType(0);
            grid.setCellPicture(image.Picture());
            grid.setCellPictureAlignment(4);
            const auto wanted = static_cast<std::uint16_t>(image.Width() + kPictureMargin);
            s.gColWidth[col] = std::max(s.gColWidth[col], wanted);
            grid.setColWidth(col, s.gColWidth[col]);
            if (s.gColGroup[col] == col) grid.setCellBackColor(kHeadColumnBackColor);
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "Error from labelcolheader " + e.description());
        });
    return 0;
}

} // namespace vellant::grid
