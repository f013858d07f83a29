#include "base/basic_text.h"
#include "base/runtime_error.h"
#include "base/variant.h"

#include <functional>
#include <gtest/gtest.h>

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

TEST(Str, IntegersCarryABlankUnlessNegative) {
    EXPECT_EQ(Str(0), " 0");
    EXPECT_EQ(Str(5), " 5");
    EXPECT_EQ(Str(-5), "-5");
    EXPECT_EQ(Str(static_cast<std::int16_t>(32767)), " 32767");
    EXPECT_EQ(Str(static_cast<std::int16_t>(-32768)), "-32768");
    EXPECT_EQ(Str(static_cast<std::int64_t>(3000000000LL)), " 3000000000");
    EXPECT_EQ(CStr(5), "5");
}

TEST(Str, DoublesUseFifteenSignificantDigitsAndDropTheLeadingZero) {
    EXPECT_EQ(Str(0.5), " .5");
    EXPECT_EQ(Str(-0.5), "-.5");
    EXPECT_EQ(Str(1.5), " 1.5");
    EXPECT_EQ(Str(2.0), " 2");
    EXPECT_EQ(Str(1.0 / 3.0), " .333333333333333");
    EXPECT_EQ(Str(-2.0 / 3.0), "-.666666666666667");
    EXPECT_EQ(Str(123456789012345.0), " 123456789012345");
    EXPECT_EQ(Str(1234567890123456.0), " 1.23456789012346E+15");
    EXPECT_EQ(Str(0.0001), " .0001");
    EXPECT_EQ(Str(0.00001), " 1E-05");
    EXPECT_EQ(Str(-1.5e-7), "-1.5E-07");
    EXPECT_EQ(Str(1e100), " 1E+100");
    EXPECT_EQ(CStr(0.25), ".25");
}

TEST(Str, SinglesUseSevenSignificantDigits) {
    EXPECT_EQ(Str(0.1f), " .1");
    EXPECT_EQ(Str(1.0f / 3.0f), " .3333333");
    EXPECT_EQ(Str(1234567.0f), " 1234567");
    EXPECT_EQ(Str(12345678.0f), " 1.234568E+07");
    EXPECT_EQ(Str(-2.5f), "-2.5");
    // The same value as a double shows the binary noise that seven digits hide.
    EXPECT_EQ(Str(static_cast<double>(0.1f)), " .100000001490116");
}

TEST(Str, VariantsFollowTheirType) {
    EXPECT_EQ(Str(Variant(std::string("12"))), " 12");
    EXPECT_EQ(Str(Variant(0.1f)), " .1");
    EXPECT_EQ(Str(Variant(static_cast<std::int32_t>(-7))), "-7");
    EXPECT_EQ(Str(Variant(true)), "True");
    EXPECT_EQ(errorOf([] { (void)Str(Variant(std::string("abc"))); }), kErrTypeMismatch);
}

TEST(Val, ReadsTheLeadingNumber) {
    EXPECT_EQ(Val(" 12"), 12);
    EXPECT_EQ(Val("-3.5abc"), -3.5);
    EXPECT_EQ(Val(".5"), 0.5);
    EXPECT_EQ(Val("1.2.3"), 1.2);
    EXPECT_EQ(Val("+7"), 7);
    EXPECT_EQ(Val("abc"), 0);
    EXPECT_EQ(Val(""), 0);
    EXPECT_EQ(Val("-"), 0);
}

TEST(Val, SkipsBlanksInsideTheNumber) {
    EXPECT_EQ(Val("1 2 3"), 123);
    EXPECT_EQ(Val("- 7"), -7);
    EXPECT_EQ(Val("\t4\n2"), 42);
}

TEST(Val, ReadsExponentsAndRadixPrefixes) {
    EXPECT_EQ(Val("1e3"), 1000);
    EXPECT_EQ(Val("2D2"), 200);
    EXPECT_EQ(Val("1.5E-2x"), 0.015);
    EXPECT_EQ(Val("1e"), 1);
    EXPECT_EQ(Val("&HFF"), 255);
    EXPECT_EQ(Val("&hffff"), -1);
    EXPECT_EQ(Val("&H10000"), 65536);
    EXPECT_EQ(Val("&O17"), 15);
}

TEST(Val, ReadsBackWhatStrWrites) {
    for (double x : {0.0, 1.0, -1.0, 0.5, -0.125, 1234.5678, 1e-7, -3.25e20, 98765.4321}) {
        EXPECT_EQ(Val(Str(x)), x) << Str(x);
    }
    EXPECT_EQ(static_cast<float>(Val(Str(0.1f))), 0.1f);
}

TEST(IsNumericText, AcceptsOnlyWholeNumbers) {
    EXPECT_TRUE(IsNumericText(" 12 "));
    EXPECT_TRUE(IsNumericText("-1.5e3"));
    EXPECT_TRUE(IsNumericText(".5"));
    EXPECT_TRUE(IsNumericText("&H1F"));
    EXPECT_FALSE(IsNumericText(""));
    EXPECT_FALSE(IsNumericText("12abc"));
    EXPECT_FALSE(IsNumericText("1e"));
    EXPECT_FALSE(IsNumericText("."));
    EXPECT_FALSE(IsNumericText("m"));
}

TEST(CInt, RoundsHalfToEven) {
    EXPECT_EQ(CInt(0.5), 0);
    EXPECT_EQ(CInt(1.5), 2);
    EXPECT_EQ(CInt(2.5), 2);
    EXPECT_EQ(CInt(3.5), 4);
    EXPECT_EQ(CInt(-0.5), 0);
    EXPECT_EQ(CInt(-1.5), -2);
    EXPECT_EQ(CInt(-2.5), -2);
    EXPECT_EQ(CInt(2.4999), 2);
    EXPECT_EQ(CInt(2.5001), 3);
    EXPECT_EQ(CInt(static_cast<double>(2.5f)), 2);
    EXPECT_EQ(CInt(Variant(std::string(" 3.5"))), 4);
    EXPECT_EQ(CLng(-2.5), -2);
    EXPECT_EQ(CLng(1e9 + 0.5), 1000000000);
}

TEST(CInt, RaisesOverflowOutsideItsRangeAndTypeMismatchOnText) {
    EXPECT_EQ(CInt(32767.4), 32767);
    EXPECT_EQ(CInt(-32768.5), -32768);
    EXPECT_EQ(errorOf([] { CInt(32767.5); }), kErrOverflow);
    EXPECT_EQ(errorOf([] { CInt(-32768.6); }), kErrOverflow);
    EXPECT_EQ(errorOf([] { CLng(2147483647.5); }), kErrOverflow);
    EXPECT_EQ(errorOf([] { CInt(Variant(std::string("x"))); }), kErrTypeMismatch);
}

TEST(StringFunctions, CountFromOneAndRefuseBadArguments) {
    EXPECT_EQ(Mid("abcdef", 2, 3), "bcd");
    EXPECT_EQ(Mid("abc", 2), "bc");
    EXPECT_EQ(Mid("abc", 5), "");
    EXPECT_EQ(Left("abc", 5), "abc");
    EXPECT_EQ(Right("abc", 2), "bc");
    EXPECT_EQ(InStr("a:b:c", ":"), 2);
    EXPECT_EQ(InStr(3, "a:b:c", ":"), 4);
    EXPECT_EQ(InStr("abc", "x"), 0);
    EXPECT_EQ(errorOf([] { (void)Mid("abc", 0); }), kErrInvalidCall);
    EXPECT_EQ(errorOf([] { (void)Mid("abc", -1, 1); }), kErrInvalidCall);
    EXPECT_EQ(errorOf([] { (void)Left("abc", -1); }), kErrInvalidCall);
}

TEST(StringFunctions, TrimRemovesBlanksOnlyAndCaseFoldsAscii) {
    EXPECT_EQ(Trim("  a b  "), "a b");
    EXPECT_EQ(RTrim("a \t "), "a \t");
    EXPECT_EQ(LTrim("   "), "");
    EXPECT_EQ(LCase("Label Properties"), "label properties");
    EXPECT_EQ(UCase("abc1"), "ABC1");
    EXPECT_EQ(Space(3), "   ");
}

} // namespace
} // namespace vellant
