#pragma once
// The map tools' pictures, drawn rather than loaded so that the host needs no image files: tool
// bar icons and the cursors a map window shows while a tool is chosen.

#include <QCursor>
#include <QIcon>

namespace vellant::qtui {

// Run Menu Command id of the info tool; the others are engine::MapTool's.
inline constexpr int kToolInfo = 1707;

// Icons of the select, grabber, zoom in, zoom out and info tools; a blank icon for another id.
QIcon toolIcon(int tool);
QIcon zoomEntireIcon();
QIcon layerControlIcon();

// The cursor over a map while the tool is chosen; dragging is the grabber's closed hand.
QCursor toolCursor(int tool, bool dragging = false);

} // namespace vellant::qtui
