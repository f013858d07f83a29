#pragma once
// A timer control: while it is enabled with an interval above zero the toolkit ticks it about
// every Interval milliseconds, on the one thread, between other events.

#include "platform/control.h"

#include <functional>
#include <string>

namespace vellant::platform {

class Toolkit;

class Timer : public Control {
public:
    Timer(std::string name, Toolkit& toolkit, int index = -1);
    ~Timer() override;

    int Interval() const { return interval_; }
    // 0 to 65535 milliseconds; 0 stops the timer without disabling it.
    void setInterval(int milliseconds);

    bool running() const { return Enabled() && interval_ > 0; }

    // The handler each tick reaches.
    std::function<void()> onTimer;

    // Called by the toolkit. A tick that arrives while the handler still runs is dropped, as
    // the desktop drops timer messages that pile up behind a busy handler.
    void Tick();

private:
    void sync(bool restart);

    Toolkit& toolkit_;
    int interval_ = 0;
    bool scheduled_ = false;
    bool inTick_ = false;
};

} // namespace vellant::platform
