#include "prefs/map_prefs.h"

#include "base/error_trap.h"
#include "base/int16.h"
#include "grid/column_catalogue.h"
#include "grid/layer_rows.h"
#include "hostmodel/mapper.h"
#include "hostmodel/mapx_map.h"
#include "interaction/double_click.h"
#include "prefs/map_slots.h"
#include "prefs/record_file.h"
#include "prefs/settings.h"
#include "session/session.h"

#include <algorithm>

namespace vellant::prefs {

namespace {

int layerRow(const Session& s, int layer) {
    return grid::LayerToRow(s, static_cast<std::uint16_t>(layer));
}

void closeQuietly(RecordFile& file) {
    ResumeNext next;
    next([&] { file.close(); });
}

// A stored group comes back collapsed onto its first member. The double click reads the mouse,
// so the mouse is put below the header and right of the layer names first; a later member of a
// group is skipped because the first one's collapse has marked it collapsed already.
void collapseStoredGroups(Session& s, platform::FlexGrid& grid, std::int16_t storedLayers) {
    s.gMouseY = static_cast<float>(grid.RowHeight(0) + 10);
    s.gMouseX = static_cast<float>(grid.ColWidth(0) + 10);
    std::string previous;
    for (int i = 1; i <= storedLayers; ++i) {
        const std::string group = s.gLayerGroup[i];
        if (group != previous && !group.empty() && s.gRowExpanded[i] == kTrue) {
            grid.setCol(0);
            grid.setRow(layerRow(s, i));
            interaction::dblclick(s);
            previous = group;
        }
    }
}

} // namespace

std::string maptitle(Session& s) {
    if (!s.gIsMapInfo) return hostmodel::asMXMap(s.map()).Title()->Caption();
    auto* mapper = dynamic_cast<hostmodel::Mapper*>(&s.map());
    if (mapper == nullptr) raiseError(kErrTypeMismatch);
    return mapper->titletext();
}

// The title picks the slot. A group then comes back only to a layer of the same name at the
// same position, while a user expression comes back by position alone.
void getmapprefs(Session& s, const std::string& title) {
    RecordFile file;
    onErrorGoTo(
        [&] {
            s.gMapPrefName = title;
            if (title.empty()) return;
            file.open(prefFilePath(s), RecordFile::Access::Read);
            s.gMapPrefSlot = 0;
            if (s.gMapPrefCount < 1) {
                file.close();
                return;
            }
            const std::int16_t slot = findSlot(file, s.gMapPrefCount, title);
            if (slot == 0) {
                file.close();
                return;
            }
            s.gMapPrefSlot = slot;
            const std::int16_t stored = readSlotLayerCount(file, slot);
            platform::FlexGrid& grid = s.layerForm().LyrGrid;
            const int groupCol = grid::getcolnum(s, "group");
            const int userInfoCol = grid::getcolnum(s, "user info");
            for (s.gLayer = 1; s.gLayer <= stored; ++s.gLayer) {
                const int row = layerRow(s, s.gLayer);
                if (readSlotLayerName(file, slot, s.gLayer) == grid.TextMatrix(row, 0)) {
                    const std::string group = readSlotLayerGroup(file, slot, s.gLayer);
                    if (!group.empty()) {
                        s.gLayerGroup[s.gLayer] = group;
                        grid.setTextMatrix(row, groupCol, group);
                    }
                }
                grid.setTextMatrix(row, userInfoCol, readSlotLayerUserInfo(file, slot, s.gLayer));
            }
            collapseStoredGroups(s, grid, stored);
            file.close();
        },
        [&](const RuntimeError& e) {
            logQuietly(s, "Error from getmapprefs " + e.description());
            closeQuietly(file);
        });
}

// A map without a slot gets a new one behind the others; a freed slot is never looked for.
// The MapInfo host leaves the map's last layer out, so that layer never has stored groups.
void writemapprefs(Session& s, const std::string& title) {
    RecordFile file;
    onErrorGoTo(
        [&] {
            file.open(prefFilePath(s), RecordFile::Access::ReadWrite);
            if (s.gMapPrefSlot == 0) {
                s.gMapPrefCount = Int16(s.gMapPrefCount) + Int16(1);
                s.gMapPrefSlot = s.gMapPrefCount;
            }
            const std::int16_t slot = s.gMapPrefSlot;
            const int layers = s.gIsMapInfo ? s.gLayerCount - 1 : s.gLayerCount;
            const auto stored = static_cast<std::int16_t>(std::min(layers, kMaxStoredLayers));
            writeSlotHeader(file, slot, title, stored);
            platform::FlexGrid& grid = s.layerForm().LyrGrid;
            const int userInfoCol = grid::getcolnum(s, "user info");
            for (s.gLayer = 1; s.gLayer <= stored; ++s.gLayer) {
                const int row = layerRow(s, s.gLayer);
                writeSlotLayer(file, slot, s.gLayer,
                               {grid.TextMatrix(row, 0), s.gLayerGroup[s.gLayer],
                                grid.TextMatrix(row, userInfoCol)});
            }
            file.close();
        },
        [&](const RuntimeError& e) {
            logQuietly(s, "Error from writemapprefs " + e.description());
            closeQuietly(file);
        });
}

} // namespace vellant::prefs
