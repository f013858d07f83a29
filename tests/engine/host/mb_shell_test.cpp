// The shell's line discipline over a real host.

#include "engine/engine.h"
#include "engine/host/host_services.h"
#include "engine/host/mapinfo_automation.h"
#include "engine/host/mb_shell.h"

#include <gtest/gtest.h>
#include <memory>
#include <sstream>

namespace vellant::engine {
namespace {

TEST(MbShell, ExpressionsPrintStatementsRunAndRefusalsPrintTheError) {
    auto engine = std::make_shared<Engine>();
    MapInfoAutomation host(engine);
    std::ostringstream out;
    EXPECT_TRUE(runShellLine(host, "# set event processing off", out));
    EXPECT_TRUE(runShellLine(host, "   ", out));
    EXPECT_TRUE(engine->host().eventProcessing()) << "a comment runs nothing";
    EXPECT_TRUE(runShellLine(host, "  set event processing off\r", out));
    EXPECT_FALSE(engine->host().eventProcessing());
    EXPECT_TRUE(runShellLine(host, "=2 * 21", out));
    EXPECT_TRUE(runShellLine(host, "= 1 = 2", out));
    EXPECT_FALSE(runShellLine(host, "frobnicate", out));
    EXPECT_FALSE(runShellLine(host, "=SystemInfo(0)", out));
    EXPECT_EQ(out.str(), "42\nF\n! 1 Unrecognized command: frobnicate.\n"
                         "! 644 Argument 1 of SystemInfo out of range.\n");
}

} // namespace
} // namespace vellant::engine
