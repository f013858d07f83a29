#include "base/error_trap.h"

#include <gtest/gtest.h>
#include <stdexcept>
#include <vector>

namespace vellant {
namespace {

TEST(OnErrorGoTo, HandlerTakesTheErrorAndTheRestOfTheBodyIsSkipped) {
    std::vector<std::string> trace;
    onErrorGoTo(
        [&] {
            trace.push_back("before");
            raiseError(kErrSubscript);
            trace.push_back("after");
        },
        [&](const RuntimeError& e) { trace.push_back("handler " + e.description()); });
    EXPECT_EQ(trace, (std::vector<std::string>{"before", "handler Subscript out of range"}));
}

TEST(OnErrorGoTo, LibraryExceptionsBecomeRuntimeErrors) {
    int number = 0;
    onErrorGoTo([] { throw std::out_of_range("vector"); },
                [&](const RuntimeError& e) { number = e.number(); });
    EXPECT_EQ(number, 51);
    onErrorGoTo([] { throw std::bad_alloc(); },
                [&](const RuntimeError& e) { number = e.number(); });
    EXPECT_EQ(number, kErrOutOfMemory);
}

TEST(ResumeNext, GoesOnWithTheNextStatementAndKeepsTheLastError) {
    ResumeNext next;
    int reached = 0;
    EXPECT_FALSE(next([] { raiseError(kErrFileNotFound); }));
    EXPECT_TRUE(next([&] { ++reached; }));
    EXPECT_EQ(reached, 1);
    EXPECT_EQ(next.Err.Number, kErrFileNotFound);
    EXPECT_EQ(next.Err.Description, "File not found");
    next.Err.Clear();
    EXPECT_EQ(next.Err.Number, 0);
}

TEST(RuntimeError, HostErrorsKeepTheirOwnText) {
    const RuntimeError e(1234, "Unrecognized command: sett.");
    EXPECT_EQ(e.number(), 1234);
    EXPECT_STREQ(e.what(), "Unrecognized command: sett.");
    EXPECT_EQ(RuntimeError(999).description(), "Application-defined or object-defined error");
}

} // namespace
} // namespace vellant
