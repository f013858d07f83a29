#pragma once
// The errors of windows and layers, worded as the host words them. Each raises MbError:
//    590 "Invalid window ID: <id>"                 no open window has that id (or number)
//    648 "Invalid window number: <n>"              WindowID(n) past NumWindows()
//    313 "Window <id> is not a Map window."        a map statement or function on a browser
//    313 "No Map window is open."                  Set Map without Window, menu 811
//    600 "Invalid layer: <layer>"                  no layer of that number or name in the map
//    642 "Table <name> is not mappable."           Map From / Add Map of a table without a map
//    644 "Argument <n> of <Function> out of range." an attribute code a function does not have
//    644 "<What> out of range: <value>"            a zoom, scale, offset or size the host refuses
//      1 syntax errors of the statements, from Cursor ("Found [...] while searching for [...]")

#include <string>
#include <string_view>

namespace vellant::engine {

inline constexpr int kMbBadLayer = 600;

[[noreturn]] void raiseInvalidWindowId(double id);
[[noreturn]] void raiseInvalidWindowNumber(double number);
[[noreturn]] void raiseNotAMapWindow(int id);
[[noreturn]] void raiseNoMapWindow();
[[noreturn]] void raiseInvalidLayer(std::string_view layer);
[[noreturn]] void raiseTableNotMappable(std::string_view table);
[[noreturn]] void raiseArgumentOutOfRange(int argument, std::string_view function);
[[noreturn]] void raiseValueOutOfRange(std::string_view what, double value);

} // namespace vellant::engine
