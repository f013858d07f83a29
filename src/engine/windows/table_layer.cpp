#include "engine/windows/table_layer.h"

#include "engine/windows/window_errors.h"

namespace vellant::engine {

Layer makeTableLayer(const Table& table) {
    if (!table.isMappable()) raiseTableNotMappable(table.name());
    Layer layer;
    layer.name = table.name();
    if (table.type() == TableType::Wms) {
        layer.kind = LayerKind::Wms;
    } else if (table.isRaster()) {
        layer.kind = LayerKind::Image;
    }
    if (!table.columns().empty()) layer.label.expression = table.columns().front().name;
    return layer;
}

int stackingRank(const Table& table) {
    if (table.isRaster() || table.type() == TableType::Wms) return 0;
    if (table.rowCount() < 1) return 1;
    const auto object = table.object(1);
    if (!object) return 1;
    switch (object->kind) {
    case ObjectKind::Point:
    case ObjectKind::MultiPoint:
    case ObjectKind::Text:
        return 3;
    case ObjectKind::Line:
    case ObjectKind::Polyline:
    case ObjectKind::Arc:
        return 2;
    default:
        return 1;
    }
}

} // namespace vellant::engine
