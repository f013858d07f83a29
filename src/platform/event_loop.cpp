#include "platform/event_loop.h"

#include <utility>

namespace vellant::platform {

void EventLoop::post(std::function<void()> task) {
    if (task) tasks_.push_back(std::move(task));
}

std::size_t EventLoop::runPending() {
    std::size_t ran = 0;
    while (!tasks_.empty()) {
        // Taken off before it runs, so that a nested run never repeats it.
        std::function<void()> task = std::move(tasks_.front());
        tasks_.pop_front();
        ++ran;
        task();
    }
    return ran;
}

} // namespace vellant::platform
