#pragma once
// The layer grid's event handlers behind wireLayerGrid, shared by the files that hold them. Each
// takes the form whose grid raised the event and whether that form is the docked one: the two
// forms have a handler each, and they differ only in small things.

#include <cstdint>
#include <string>

namespace vellant::session {
struct Session;
class LayerForm;
} // namespace vellant::session

namespace vellant::interaction {

using session::LayerForm;
using session::Session;

// The name of a layer as the host gives it; gLayer is left on that layer.
std::string layerName(Session& s, std::int16_t layer);

// grid_drag.cpp: the press that remembers the mouse, opens the popup menu and picks up a layer
// by its "order" handle, the release, and the drop that moves the layer.
void lyrgrid_mousedown(Session& s, LayerForm& form, bool docked, int button, float x, float y);
void lyrgrid_mouseup(LayerForm& form);
void lyrgrid_dragdrop(Session& s, LayerForm& form, bool docked, float y);

// grid_selection.cpp: a row set comes about or ends, and the popup menu follows it.
void lyrgrid_selchange(Session& s, LayerForm& form, bool docked);

// grid_events.cpp: the tool-tip that follows the mouse.
void Mousemove(Session& s, LayerForm& form, bool docked, float x, float y);

} // namespace vellant::interaction
