#include "base/runtime_error.h"
#include "base/variant.h"

#include <gtest/gtest.h>

namespace vellant {
namespace {

TEST(Variant, ReportsTheRuntimeTypeNumbers) {
    EXPECT_EQ(VarTypeOf(Variant()), 0);
    EXPECT_EQ(VarTypeOf(Variant::null()), 1);
    EXPECT_EQ(VarTypeOf(Variant(static_cast<std::int16_t>(1))), 2);
    EXPECT_EQ(VarTypeOf(Variant(static_cast<std::int32_t>(1))), 3);
    EXPECT_EQ(VarTypeOf(Variant(1.0f)), 4);
    EXPECT_EQ(VarTypeOf(Variant(1.0)), 5);
    EXPECT_EQ(VarTypeOf(Variant("m")), 8);
    EXPECT_EQ(VarTypeOf(Variant(std::make_shared<BasicObject>())), 9);
    EXPECT_EQ(VarTypeOf(Variant(true)), 11);
}

TEST(Variant, NumericTestsAcceptNumbersAndNumericText) {
    EXPECT_TRUE(Variant(7.0f).isNumeric());
    EXPECT_TRUE(Variant(" 7").isNumeric());
    EXPECT_FALSE(Variant("m").isNumeric());
    EXPECT_FALSE(Variant("m").isNumber());
    EXPECT_FALSE(Variant(" 7").isNumber());
}

TEST(Variant, ConvertsLikeTheRuntime) {
    EXPECT_EQ(Variant(true).toDouble(), -1);
    EXPECT_EQ(Variant(" 2.5").toDouble(), 2.5);
    EXPECT_EQ(Variant(0.5).toString(), ".5");
    EXPECT_EQ(Variant(static_cast<std::int16_t>(3)).toString(), "3");
    EXPECT_EQ(Variant(false).toString(), "False");
    EXPECT_TRUE(Variant("True").toBool());
    EXPECT_TRUE(Variant(-1.0).toBool());
    EXPECT_FALSE(Variant(" 0").toBool());
    EXPECT_THROW((void)Variant("abc").toDouble(), RuntimeError);
    EXPECT_THROW((void)Variant(1.0).toObject(), RuntimeError);
    EXPECT_EQ(Variant().toObject(), nullptr);
}

} // namespace
} // namespace vellant
