#include "platform/timer.h"

#include "base/runtime_error.h"
#include "platform/toolkit.h"

#include <utility>

namespace vellant::platform {

Timer::Timer(std::string name, Toolkit& toolkit, int index)
    : Control(std::move(name), index), toolkit_(toolkit) {
    subscribe([this](Control&, Property p) {
        if (p == Property::Enabled) sync(false);
    });
}

Timer::~Timer() {
    if (scheduled_) toolkit_.stopTimer(*this);
}

void Timer::setInterval(int milliseconds) {
    if (milliseconds < 0 || milliseconds > 65535) raiseError(kErrInvalidProperty);
    if (milliseconds == interval_) return;
    interval_ = milliseconds;
    notify(Property::Interval);
    // A new interval starts the count afresh, so the toolkit hears of it even when the timer
    // was already running.
    sync(true);
}

void Timer::Tick() {
    if (!running() || inTick_) return;
    inTick_ = true;
    struct Leave {
        bool& flag;
        ~Leave() { flag = false; }
    } leave{inTick_};
    if (onTimer) onTimer();
}

void Timer::sync(bool restart) {
    if (running()) {
        if (!scheduled_ || restart) toolkit_.startTimer(*this);
        scheduled_ = true;
    } else if (scheduled_) {
        scheduled_ = false;
        toolkit_.stopTimer(*this);
    }
}

} // namespace vellant::platform
