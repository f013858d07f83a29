#include "qtui/host/native_windows.h"

#include "platform/control.h"

namespace vellant::qtui {

NativeWindows::NativeWindows() = default;
NativeWindows::~NativeWindows() = default;

void NativeWindows::add(std::int64_t hwnd, QWidget* widget) {
    if (hwnd == 0 || widget == nullptr) return;
    widgets_[hwnd] = widget;
}

std::int64_t NativeWindows::addNew(QWidget* widget) {
    frames_.push_back(std::make_unique<platform::Control>("NativeWindow"));
    const std::int64_t hwnd = frames_.back()->hWnd();
    add(hwnd, widget);
    return hwnd;
}

void NativeWindows::remove(std::int64_t hwnd) {
    widgets_.erase(hwnd);
}

QWidget* NativeWindows::find(std::int64_t hwnd) const {
    const auto it = widgets_.find(hwnd);
    return it == widgets_.end() ? nullptr : it->second.data();
}

std::int64_t NativeWindows::handleOf(const QWidget* widget) const {
    if (widget == nullptr) return 0;
    for (const auto& [hwnd, registered] : widgets_)
        if (registered.data() == widget) return hwnd;
    return 0;
}

} // namespace vellant::qtui
