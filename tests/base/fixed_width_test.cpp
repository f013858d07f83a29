#include "base/fixed_array.h"
#include "base/int16.h"

#include <functional>
#include <gtest/gtest.h>
#include <string>

namespace vellant {
namespace {

int errorOf(const std::function<void()>& f) {
    try {
        f();
    } catch (const RuntimeError& e) {
        return e.number();
    }
    return 0;
}

TEST(FixedArray, LayerAndColumnRangesRaiseSubscriptErrorsOutside) {
    LayerArray<std::string> names;
    names[0] = "cosmetic";
    names[1000] = "last";
    EXPECT_EQ(names[0], "cosmetic");
    EXPECT_EQ(names[1000], "last");
    EXPECT_EQ(errorOf([&] { names[1001] = "x"; }), kErrSubscript);
    EXPECT_EQ(errorOf([&] { names[-1] = "x"; }), kErrSubscript);

    ColumnArray<int> widths;
    widths[39] = 5;
    EXPECT_EQ(widths[39], 5);
    EXPECT_EQ(errorOf([&] { widths[40] = 1; }), kErrSubscript);
    widths.clear();
    EXPECT_EQ(widths[39], 0);
}

TEST(Int16, OverflowRaisesErrorSixInsteadOfWrapping) {
    EXPECT_EQ((Int16(327) * Int16(100)).value(), 32700);
    EXPECT_EQ(errorOf([] { (void)(Int16(328) * Int16(100)); }), kErrOverflow);
    EXPECT_EQ(errorOf([] { (void)(Int16(32767) + Int16(1)); }), kErrOverflow);
    EXPECT_EQ(errorOf([] { (void)(Int16(-32768) - Int16(1)); }), kErrOverflow);
    EXPECT_EQ(errorOf([] { (void)Int16(40000); }), kErrOverflow);
    // Each step of an expression is checked, as the runtime evaluates it.
    EXPECT_EQ(errorOf([] { (void)(Int16(327) * Int16(100) + Int16(10) + Int16(3) * Int16(30)); }),
              kErrOverflow);
}

} // namespace
} // namespace vellant
