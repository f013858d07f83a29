#include "mapchanges/layer_moves.h"

#include "base/basic_text.h"
#include "base/bounded_array.h"
#include "base/error_trap.h"
#include "hostmodel/mapx_map.h"
#include "mapchanges/layer_journal.h"
#include "prefs/settings.h"
#include "session/session.h"

#include <algorithm>

namespace vellant::mapchanges {

namespace {

// MapInfo moves a layer only by being told the whole new order: position i of the list names
// the layer that is to stand there.
std::string newOrder(Session& s, std::int16_t from, std::int16_t to) {
    const long count = s.gLayerCount;
    BoundedArray<long> order;
    order.redim(count);
    for (long i = 1; i <= count; ++i)
        order[i] = i;
    // The layers between the two places close the gap the moved one leaves.
    const long step = to < from ? -1 : 1;
    for (long i = std::min(from, to); i <= std::max(from, to); ++i)
        order[i] = i + step;
    order[to] = from;

    std::string list;
    for (long i = 1; i <= count; ++i) {
        if (i > 1) list += ",";
        list += CStr(static_cast<std::int32_t>(order[i]));
    }
    return list;
}

} // namespace

bool MoveLayers(Session& s, std::int16_t from, std::int16_t to) {
    bool moved = false;
    onErrorGoTo(
        [&] {
            if (from < 1 || to < 1 || from == to) return;
            if (s.gIsMapInfo) {
                s.mapInfoApp().Do("Set Map Window " + Str(s.gViewWin) + " Order " +
                                  newOrder(s, from, to));
            } else {
                mapDisplay(s).Layers()->Move(from, to);
                journalLayerOp(s, "move", from, to);
            }
            moved = true;
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "Error from MoveLayers: " + e.description());
        });
    return moved;
}

} // namespace vellant::mapchanges
