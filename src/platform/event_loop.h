#pragma once
// Work queued to run later on the one thread. A host that must act "after the call returns"
// (open a dialog once a command has been answered, press a button when the dialog closes)
// posts the work here, and the toolkit's loop runs it between user actions.

#include <cstddef>
#include <deque>
#include <functional>

namespace vellant::platform {

class EventLoop {
public:
    void post(std::function<void()> task);

    // Runs waiting tasks in the order they were posted, including those they post themselves,
    // until none is left, and answers how many ran. A task may run the loop again from inside
    // (a modal dialog does); each task runs once. If a task raises an error the error goes to
    // the caller and the tasks behind it stay queued.
    std::size_t runPending();

    bool empty() const { return tasks_.empty(); }
    std::size_t size() const { return tasks_.size(); }

private:
    std::deque<std::function<void()>> tasks_;
};

} // namespace vellant::platform
