#include "error_number.h"
#include "platform/scripted_toolkit.h"
#include "platform/timer.h"

#include <gtest/gtest.h>
#include <memory>

namespace vellant::platform {
namespace {

using testing::raisedBy;

TEST(Timer, RunsOnlyWhileEnabledWithAnInterval) {
    ScriptedToolkit tk;
    Timer t("Timer1", tk);
    int ticks = 0;
    t.onTimer = [&] { ++ticks; };
    EXPECT_FALSE(tk.isTimerRunning(t)); // enabled, but interval 0
    t.setInterval(100);
    EXPECT_TRUE(tk.isTimerRunning(t));
    tk.fireTimers();
    t.setEnabled(false);
    EXPECT_FALSE(tk.isTimerRunning(t));
    EXPECT_EQ(tk.fireTimers(), 0u);
    t.setEnabled(true);
    tk.fireTimers();
    t.setInterval(0);
    EXPECT_FALSE(tk.isTimerRunning(t));
    tk.fireTimers();
    EXPECT_EQ(ticks, 2);
}

TEST(Timer, HandlerMayRetimeAndStopItself) {
    ScriptedToolkit tk;
    Timer t("Timer1", tk);
    int ticks = 0;
    t.onTimer = [&] {
        ++ticks;
        if (ticks == 1)
            t.setInterval(1000); // the docked form's slow-down after its first act
        else
            t.setEnabled(false);
    };
    t.setInterval(100);
    tk.fireTimers();
    EXPECT_EQ(t.Interval(), 1000);
    EXPECT_TRUE(tk.isTimerRunning(t));
    tk.fireTimers();
    EXPECT_FALSE(tk.isTimerRunning(t));
    EXPECT_EQ(ticks, 2);
}

TEST(Timer, NewIntervalRestartsTheCountOfARunningTimer) {
    struct CountingToolkit : ScriptedToolkit {
        int starts = 0, stops = 0;
        void startTimer(Timer& t) override {
            ++starts;
            ScriptedToolkit::startTimer(t);
        }
        void stopTimer(Timer& t) override {
            ++stops;
            ScriptedToolkit::stopTimer(t);
        }
    } tk;
    {
        Timer t("Timer1", tk);
        t.setInterval(100);
        t.setInterval(1000);
        t.setEnabled(true); // no change: no restart
        EXPECT_EQ(tk.starts, 2);
        EXPECT_EQ(tk.stops, 0);
    }
    EXPECT_EQ(tk.stops, 1);
}

TEST(Timer, TickDuringItsOwnHandlerIsDropped) {
    ScriptedToolkit tk;
    Timer t("Timer1", tk);
    int ticks = 0;
    t.onTimer = [&] {
        ++ticks;
        tk.fireTimers();
    };
    t.setInterval(100);
    tk.fireTimers();
    EXPECT_EQ(ticks, 1);
}

TEST(Timer, IntervalOutsideItsRangeIsAnInvalidPropertyValue) {
    ScriptedToolkit tk;
    Timer t("Timer1", tk);
    EXPECT_EQ(raisedBy([&] { t.setInterval(-1); }).number, 380);
    EXPECT_EQ(raisedBy([&] { t.setInterval(65536); }).number, 380);
    EXPECT_EQ(t.Interval(), 0);
}

} // namespace
} // namespace vellant::platform
