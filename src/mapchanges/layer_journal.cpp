#include "mapchanges/layer_journal.h"

#include "base/int16.h"
#include "grid/load_grid.h"
#include "hostmodel/host_predicates.h"
#include "session/session.h"

namespace vellant::mapchanges {

void journalLayerOp(Session& s, const std::string& kind, std::int16_t from, std::int16_t to,
                    const std::string& file) {
    s.gLayerOpCount = Int16(s.gLayerOpCount) + Int16(1);
    const long entry = s.gLayerOpCount - 1;
    s.gLayerOpKind[entry] = kind;
    s.gLayerOpFrom[entry] = from;
    s.gLayerOpTo[entry] = to;
    s.gLayerOpFile[entry] = file;
}

hostmodel::MXMap& mapDisplay(Session& s) {
    return s.viewMap();
}

void reloadGridAfterLayerChange(Session& s) {
    platform::FlexGrid& grid = s.layerForm().LyrGrid;
    grid.setRedraw(false);
    hostmodel::MapRedraw(s, "off");
    bool rebuild = false;
    grid::load_grid(s, rebuild);
    hostmodel::MapRedraw(s, "on");
    grid.setRedraw(true);
}

} // namespace vellant::mapchanges
