#include "engine/windows/window.h"

namespace vellant::engine {

Window::Window(int id, WindowType type)
    : id_(id), type_(type),
      frame_(std::make_unique<platform::Control>(type == WindowType::Map ? "Map" : "Browser")) {}

} // namespace vellant::engine
