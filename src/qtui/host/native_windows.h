#pragma once
// The desktop's window handles on Qt: a handle (hWnd) names a widget, as a native handle names
// a window. Widgets that a MapBasic statement may name by handle register themselves here (the
// host's main window, map windows, the program's forms), so that "Set Next Document Parent" and
// "Set Application Window" can find the widget behind a number. A widget leaves the registry
// when it is destroyed.

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <cstdint>
#include <deque>
#include <memory>
#include <unordered_map>

namespace vellant::platform {
class Control;
}

namespace vellant::qtui {

class NativeWindows {
public:
    NativeWindows();
    ~NativeWindows();
    NativeWindows(const NativeWindows&) = delete;
    NativeWindows& operator=(const NativeWindows&) = delete;

    // The widget answers to the handle until it is destroyed or removed; a handle given again
    // names the new widget.
    void add(std::int64_t hwnd, QWidget* widget);
    // A widget that has no handle of its own gets a fresh one from the desktop's handle space.
    std::int64_t addNew(QWidget* widget);
    void remove(std::int64_t hwnd);

    // nullptr for a handle no living widget answers to (0 included).
    QWidget* find(std::int64_t hwnd) const;
    // The handle a widget registered under; 0 when it has none.
    std::int64_t handleOf(const QWidget* widget) const;

private:
    std::unordered_map<std::int64_t, QPointer<QWidget>> widgets_;
    // Frames that hold the handles given by addNew: a handle is unique for the process's life.
    std::deque<std::unique_ptr<platform::Control>> frames_;
};

} // namespace vellant::qtui
