#include "engine/windows/window.h"

#include "engine/windows/cosmetic_table.h"

namespace vellant::engine {

Window::Window(int id, WindowType type)
    : id_(id), type_(type),
      frame_(std::make_unique<platform::Control>(type == WindowType::Map ? "Map" : "Browser")) {}

Window::~Window() = default;

Table* Window::cosmeticTable() const {
    return cosmeticTable_.get();
}

} // namespace vellant::engine
