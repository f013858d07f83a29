#pragma once
// The desktop around a replayed session: the screen, the placement of MapInfo's main window,
// the docked form's timer, the user dragging the form's edge, and where the form and its main
// controls stand. Lengths a person sees on the desktop (screen, main window) are pixels; the
// form's are twips, as the program measures them.

#include "app/replay/script.h"
#include "platform/scripted_toolkit.h"

namespace vellant::replay {

// "screen <width> <height>" in pixels.
void screenVerb(ReplayRun& replay, const ScriptLine& line);
// "hostwindow normal|restored <left> <top> <right> <bottom>", "hostwindow maximized",
// "hostwindow minimized", "hostwindow showcmd <n>".
void hostWindowVerb(ReplayRun& replay, const ScriptLine& line);
void tickVerb(ReplayRun& replay, const ScriptLine& line);
// "formheight <twips>": the user drags the form's top edge; its bottom edge stays.
void formHeightVerb(ReplayRun& replay, const ScriptLine& line);
void geometryVerb(ReplayRun& replay, const ScriptLine& line);
// "panel": the map panel's options, captions, check boxes and tools as they stand.
void panelVerb(ReplayRun& replay, const ScriptLine& line);

// The transcript line of a SetWindowPos call, windows by name where the runner knows them.
void writeWindowPos(ReplayRun& replay, const platform::ScriptedToolkit::WindowPosCall& call);

} // namespace vellant::replay
