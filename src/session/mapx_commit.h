#pragma once
// Accepting a MapX session: what the user did in the view map is carried over to the client's
// map, layer by layer. On the MapInfo host the view window itself takes the user's place, so
// there is nothing to copy.

namespace vellant::session {

struct Session;

void copytomap2(Session& s);

// The structural operations of the session (removes, adds, moves) replayed on the client's
// map before the values are copied; the layer list of the view only changes through them.
void replayLayerOperations(Session& s);

} // namespace vellant::session
