#include "mapchanges/map_refresh.h"

#include "base/basic_text.h"
#include "base/error_trap.h"
#include "hostmodel/host_predicates.h"
#include "hostmodel/mapx_map.h"
#include "hostmodel/mi_props.h"
#include "mapchanges/layer_journal.h"
#include "prefs/settings.h"
#include "session/closing.h"
#include "session/session.h"

namespace vellant::mapchanges {

namespace {

std::int16_t userMapLayerCount(Session& s) {
    if (!s.gIsMapInfo)
        return static_cast<std::int16_t>(hostmodel::asMXMap(s.map()).Layers()->Count());
    return CInt(Val(s.mapInfoApp().eval("Mapperinfo(" + Str(s.gMapWin) + ",9)")));
}

void reloadFromUserMap(Session& s) {
    s.gMapChanged = kFalse;
    s.gLayerCount = userMapLayerCount(s);
    reloadGridAfterLayerChange(s);
}

void logFailure(Session& s, const RuntimeError& e) {
    prefs::logQuietly(s, "Error from RefreshMap " + e.description());
}

} // namespace

void RefreshMap(Session& s) {
    onErrorGoTo(
        [&] {
            const std::int32_t front = hostmodel::asMIProps(s.lyr()).Frontwindow();
            if (front != s.gMapWin && s.gImmediate) {
                if (hostmodel::isMapper(s, front)) {
                    // The user has moved to another map: the session ends as accepted and
                    // opens anew on that one.
                    s.gRestart = kTrue;
                    session::okclick(s);
                    return;
                }
                s.showMessage("Click on a map first");
            }
            if (hostmodel::IsWindowOpen(s, s.gMapWin)) {
                reloadFromUserMap(s);
            } else {
                prefs::vlog(s, "no map - shutdown");
                session::shutdown(s);
            }
        },
        [&](const RuntimeError& e) { logFailure(s, e); });
}

void refreshFromUserMap(Session& s) {
    onErrorGoTo([&] { reloadFromUserMap(s); }, [&](const RuntimeError& e) { logFailure(s, e); });
}

} // namespace vellant::mapchanges
