#pragma once
// The layer grid's events on both forms other than click and double click themselves: the
// mouse (positions, the popup menu, the drag of a layer by its "order" handle, tool-tips that
// follow), the row set made by selecting whole rows, keys and scrolling. The two forms are
// twins and differ where the form's docked flag says so.

namespace vellant::session {
class LayerForm;
}

namespace vellant::interaction {

// Hooks the grid's events and the popup menu's items of a layer form to their handlers. The
// form's session is read at each event, so it may be set after this.
void wireLayerGrid(session::LayerForm& form, bool docked);

} // namespace vellant::interaction
