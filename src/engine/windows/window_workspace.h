#pragma once
// The statements that make a window again, as the host writes them into a workspace and
// gives them through WindowInfo(w, 14) and WindowInfo(w, 15): a Map From or Browse with the
// window's place, a Set Map for the view and one for the layers, and Set Window for the rest.
// Statements begin at the start of a line and go on over indented lines, as in a .WOR file;
// "Set Map" and "Set Window FrontWindow()" act on the window the first statement opens.
//
// The centre is written in the session's coordinate system, as Set Map reads it back; the
// zoom and zoom ranges with their Units, so that they read back whatever the session's units.

#include <string>
#include <vector>

namespace vellant::engine {

class Engine;
class Window;

std::string windowWorkspaceText(Engine& engine, const Window& window);

// The same with only some layers of a map (its layer numbers, in order), which become layers
// 1, 2, ... of the statements: a workspace leaves out layers whose tables it cannot reopen.
std::string windowWorkspaceText(Engine& engine, const Window& window,
                                const std::vector<int>& keptLayers);

} // namespace vellant::engine
