#include "platform/event_loop.h"

#include <gtest/gtest.h>
#include <stdexcept>
#include <string>

namespace vellant::platform {
namespace {

TEST(EventLoop, RunsTasksInPostingOrderIncludingThoseTheyPost) {
    EventLoop loop;
    std::string trace;
    loop.post([&] {
        trace += "a";
        loop.post([&] { trace += "c"; });
    });
    loop.post([&] { trace += "b"; });
    EXPECT_EQ(loop.runPending(), 3u);
    EXPECT_EQ(trace, "abc");
    EXPECT_TRUE(loop.empty());
}

TEST(EventLoop, NestedRunFromInsideATaskRunsEachTaskOnce) {
    EventLoop loop;
    std::string trace;
    loop.post([&] {
        trace += "dialog(";
        loop.runPending(); // a modal dialog's own loop
        trace += ")";
    });
    loop.post([&] { trace += "press"; });
    loop.runPending();
    EXPECT_EQ(trace, "dialog(press)");
}

TEST(EventLoop, FailingTaskLeavesTheRestQueued) {
    EventLoop loop;
    int ran = 0;
    loop.post([] { throw std::runtime_error("host gone"); });
    loop.post([&] { ++ran; });
    EXPECT_THROW(loop.runPending(), std::runtime_error);
    EXPECT_EQ(loop.size(), 1u);
    loop.runPending();
    EXPECT_EQ(ran, 1);
}

} // namespace
} // namespace vellant::platform
