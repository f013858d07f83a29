#pragma once
// Layer groups: rows that share a name in the column "group". The popup menu makes a group of
// the selected rows and unmakes it again; refusals go to the log only.

namespace vellant::session {
struct Session;
}

namespace vellant::interaction {

using session::Session;

// Group_selected: names the selected rows after the first group met from the anchor, or
// "Group " and the anchor's grid row.
void groupSelectedLayers(Session& s);
// Ungroup_layers: clears the first name met from the anchor from the selected rows bearing it.
void ungroupLayers(Session& s);

} // namespace vellant::interaction
