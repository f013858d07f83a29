#pragma once
// A new layer for a table, as Map From and Add Map make it.

#include "engine/tables/table.h"
#include "engine/windows/layer.h"

namespace vellant::engine {

// Labels read the first column until a Label With says otherwise. Raises 642 for a table
// that is not mappable.
Layer makeTableLayer(const Table& table);

// Where Add Map Auto puts a table: higher ranks stay above lower ones. Images 0, regions 1,
// lines 2, points and text 3, judged by the first object as the host judges a table's kind.
int stackingRank(const Table& table);

} // namespace vellant::engine
