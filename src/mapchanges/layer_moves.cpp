#include "mapchanges/layer_moves.h"

#include "base/basic_text.h"
#include "base/error_trap.h"
#include "base/runtime_error.h"
#include "prefs/settings.h"
#include "session/session.h"

#include <algorithm>
#include <vector>

namespace vellant::mapchanges {

namespace {

// MapInfo moves a layer only by being told the whole new order: position i of the list names
// the layer that is to stand there.
std::string newOrder(Session& s, std::int16_t from, std::int16_t to) {
    const long count = s.gLayerCount;
    std::vector<long> order(static_cast<std::size_t>(std::max(count, 0L)) + 1);
    auto at = [&](long i) -> long& {
        if (i < 1 || i > count) raiseError(kErrSubscript);
        return order[static_cast<std::size_t>(i)];
    };
    for (long i = 1; i <= count; ++i)
        at(i) = i;
    // The layers between the two places close the gap the moved one leaves.
    const long step = to < from ? -1 : 1;
    for (long i = std::min(from, to); i <= std::max(from, to); ++i)
        at(i) = i + step;
    at(to) = from;

    std::string list;
    for (long i = 1; i <= count; ++i) {
        if (i > 1) list += ",";
        list += CStr(static_cast<std::int32_t>(order[static_cast<std::size_t>(i)]));
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
            }
            // The MapX host's Layers.Move and its journal entry join here with that host.
            moved = true;
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "Error from MoveLayers: " + e.description());
        });
    return moved;
}

} // namespace vellant::mapchanges
