#pragma once
// The popup menu's structural changes to the view map: removing the selected layers, inserting
// an open table at the selected row, and zooming the view to the selected layers. Each acts at
// once on the view map and leaves the grid loaded again where the layer list changed.

namespace vellant::session {
struct Session;
}

namespace vellant::mapchanges {

using session::Session;

// Remove_layer: the selected rows' layers leave the view map in one statement. The cosmetic row
// is never removed, and the last layer is refused with a message.
void removelayerclick(Session& s);

// Add_Layer: MapInfo's open mappable tables are offered in the cell editor's list; the chosen
// one comes in on top and is moved to the selected row. On the MapX host a table file is chosen
// in the open dialog. A cancel, or a table the host refuses, ends it without a word.
void addlayer(Session& s);

// View_Entire: one row zooms the view to that layer; a range, or the cosmetic row, centres the
// view on the union of the layers' bounds at its width in km.
void viewentireclick(Session& s);

} // namespace vellant::mapchanges
