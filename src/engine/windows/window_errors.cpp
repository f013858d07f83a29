#include "engine/windows/window_errors.h"

#include "engine/mb_error.h"
#include "engine/mb_value_text.h"

namespace vellant::engine {

void raiseInvalidWindowId(double id) {
    raiseMb(kMbBadWindow, "Invalid window ID: " + formatMbFloat(id));
}

void raiseInvalidWindowNumber(double number) {
    raiseMb(kMbBadWindowNum, "Invalid window number: " + formatMbFloat(number));
}

void raiseNotAMapWindow(int id) {
    raiseMb(kMbWantMapperWindow, "Window " + std::to_string(id) + " is not a Map window.");
}

void raiseNoMapWindow() {
    raiseMb(kMbWantMapperWindow, "No Map window is open.");
}

void raiseInvalidLayer(std::string_view layer) {
    raiseMb(kMbBadLayer, "Invalid layer: " + std::string(layer));
}

void raiseTableNotMappable(std::string_view table) {
    raiseMb(kMbCmdNotSupported, "Table " + std::string(table) + " is not mappable.");
}

void raiseArgumentOutOfRange(int argument, std::string_view function) {
    raiseMb(kMbArgRange, "Argument " + std::to_string(argument) + " of " + std::string(function) +
                             " out of range.");
}

void raiseValueOutOfRange(std::string_view what, double value) {
    raiseMb(kMbArgRange, std::string(what) + " out of range: " + formatMbFloat(value));
}

} // namespace vellant::engine
