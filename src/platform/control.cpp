#include "platform/control.h"

#include <atomic>
#include <utility>

namespace vellant::platform {

namespace {

// Window handles are unique for the life of the process, as the desktop's are, so a handle kept
// by the program after a form is gone never names a newer window. The count starts well clear
// of the small numbers the window-order calls give a meaning of their own (0, 1, -1, -2).
std::int32_t nextWindowHandle() {
    static std::atomic<std::int32_t> next{0x10000};
    return next.fetch_add(1, std::memory_order_relaxed);
}

} // namespace

Control::Control(std::string name, int index)
    : name_(std::move(name)), index_(index), hwnd_(nextWindowHandle()) {}

void Control::setValue(int v) {
    if (value_ == v) return;
    value_ = v;
    notify(Property::Value);
    Click();
}

void Control::Move(int left, int top, int width, int height) {
    setLeft(left);
    setTop(top);
    setWidth(width);
    setHeight(height);
}

int Control::subscribe(Observer observer) {
    return observers_.add(std::move(observer));
}

void Control::unsubscribe(int token) {
    observers_.remove(token);
}

void Control::notify(Property p) {
    observers_.notify(*this, p);
}

} // namespace vellant::platform
