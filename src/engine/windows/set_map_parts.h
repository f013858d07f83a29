#pragma once
// The pieces of the Set Map statement, one file each: the clauses of the map as a whole, of
// one layer, and of one layer's labels. Each reader takes clauses for as long as the next word
// begins one of its own and returns at the first word that does not.

namespace vellant::engine {

class Cursor;
struct Layer;
struct MapState;
class Window;

// Clauses after "Layer <n>": Display, Global, Selectable, Editable, Zoom (min, max), Arrows,
// Nodes, Centroids, Label ..., Alpha, Translucency. number is the layer's number in map.
void readLayerClauses(Cursor& cursor, MapState& map, int number);

// Clauses after "Label": Line, Position, Font, Pen, With, Parallel, Follow Path, Auto [Retry],
// Overlap, Duplicates, PartialSegments, Offset, Max, Visibility, LabelAlpha, Default and
// Object <row> with its own clauses.
void readLabelClauses(Cursor& cursor, Layer& layer);

// One clause of the map as a whole (Center, Zoom, Scale, Pan, CoordSys, units, Redraw, Order,
// Preserve, Display ...); false when the next word begins none. window gives the size the
// view is fitted to; map is the state being changed.
bool readMapClause(Cursor& cursor, const Window& window, MapState& map);

} // namespace vellant::engine
