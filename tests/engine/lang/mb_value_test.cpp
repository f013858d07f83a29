#include "engine/map_object.h"
#include "engine/mb_error.h"
#include "engine/mb_value.h"
#include "engine/mb_value_text.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <memory>

namespace vellant::engine {
namespace {

TEST(FloatText, FifteenSignificantDigitsWithoutTrailingZeros) {
    EXPECT_EQ(formatMbFloat(0.1 + 0.2), "0.3");
    EXPECT_EQ(formatMbFloat(1.0 / 3), "0.333333333333333");
    EXPECT_EQ(formatMbFloat(2.0 / 3), "0.666666666666667");
    EXPECT_EQ(formatMbFloat(1234567.5), "1234567.5");
    EXPECT_EQ(formatMbFloat(-3), "-3");
    EXPECT_EQ(formatMbFloat(100), "100");
    EXPECT_EQ(formatMbFloat(0.999999999999999999), "1");
    EXPECT_EQ(formatMbFloat(9.9999999999999995), "10");
    EXPECT_EQ(formatMbFloat(12345678901234567890.0), "12345678901234600000");
}

TEST(FloatText, OrdinaryMagnitudesNeverUseAnExponent) {
    EXPECT_EQ(formatMbFloat(1e20), "100000000000000000000");
    EXPECT_EQ(formatMbFloat(1e-10), "0.0000000001");
    EXPECT_EQ(formatMbFloat(-0.00012), "-0.00012");
    EXPECT_EQ(formatMbFloat(1e21), "1E+21");
    EXPECT_EQ(formatMbFloat(-2.5e-11), "-2.5E-11");
    EXPECT_EQ(formatMbFloat(std::numeric_limits<double>::max()), "1.79769313486232E+308");
    EXPECT_EQ(formatMbFloat(std::numeric_limits<double>::denorm_min()), "4.94065645841247E-324");
}

TEST(FloatText, ZeroOfEitherSignIsZero) {
    EXPECT_EQ(formatMbFloat(0.0), "0");
    EXPECT_EQ(formatMbFloat(-0.0), "0");
}

TEST(NumberText, ReadsWholeNumbersOnly) {
    EXPECT_EQ(parseMbNumber(" 12.5 "), 12.5);
    EXPECT_EQ(parseMbNumber("-3"), -3);
    EXPECT_EQ(parseMbNumber("+.5"), 0.5);
    EXPECT_EQ(parseMbNumber("1e3"), 1000);
    EXPECT_EQ(parseMbNumber(""), 0);
    EXPECT_FALSE(parseMbNumber("12abc"));
    EXPECT_FALSE(parseMbNumber("inf"));
    EXPECT_FALSE(parseMbNumber("nan"));
    EXPECT_FALSE(parseMbNumber("-"));
    EXPECT_FALSE(parseMbNumber("1 2"));
}

TEST(EvalText, EachTypeAsTheHostShowsIt) {
    EXPECT_EQ(MbValue::logical(true).toEvalText(), "T");
    EXPECT_EQ(MbValue::logical(false).toEvalText(), "F");
    EXPECT_EQ(MbValue::smallInt(-32768).toEvalText(), "-32768");
    EXPECT_EQ(MbValue::integer(2147483647).toEvalText(), "2147483647");
    EXPECT_EQ(MbValue::number(2.5).toEvalText(), "2.5");
    EXPECT_EQ(MbValue::number(3).toEvalText(), "3");
    EXPECT_EQ(MbValue::string("a b").toEvalText(), "a b");
    EXPECT_EQ(MbValue::style(MbType::Pen, "Pen (1,2,0)").toEvalText(), "Pen (1,2,0)");
    EXPECT_EQ(MbValue().toEvalText(), "");
}

TEST(EvalText, ObjectsShowTheirKindAndNoObjectShowsNothing) {
    auto region = std::make_shared<MapObject>();
    region->kind = ObjectKind::Region;
    EXPECT_EQ(MbValue::object(region).toEvalText(), "Region");
    auto rect = std::make_shared<MapObject>();
    rect->kind = ObjectKind::Rect;
    EXPECT_EQ(MbValue::object(rect).toEvalText(), "Rectangle");
    EXPECT_EQ(MbValue::object(nullptr).toEvalText(), "");
}

int conversionError(const auto& convert) {
    try {
        convert();
    } catch (const MbError& e) {
        return e.code();
    }
    return 0;
}

TEST(Conversion, NumbersLogicalsAndTextConvertAsTheHostDoes) {
    EXPECT_EQ(MbValue::number(2.5).asInteger(), 3);
    EXPECT_EQ(MbValue::number(-2.5).asInteger(), -3);
    EXPECT_EQ(MbValue::string(" 7 ").asInteger(), 7);
    EXPECT_EQ(MbValue::logical(true).asNumber(), 1);
    EXPECT_TRUE(MbValue::number(0.5).asLogical());
    EXPECT_FALSE(MbValue::integer(0).asLogical());
    EXPECT_TRUE(MbValue::string("true").asLogical());
    EXPECT_FALSE(MbValue::string("f").asLogical());
    EXPECT_EQ(MbValue::number(0.25).asString(), "0.25");
    EXPECT_EQ(MbValue::logical(true).asString(), "T");
}

TEST(Conversion, ValuesThatCannotConvertRaiseTypeMismatch) {
    EXPECT_EQ(conversionError([] { MbValue::string("abc").asNumber(); }), kMbTypeMismatch);
    EXPECT_EQ(conversionError([] { MbValue::string("yes").asLogical(); }), kMbTypeMismatch);
    EXPECT_EQ(conversionError([] { MbValue::integer(1).asObject(); }), kMbTypeMismatch);
    EXPECT_EQ(conversionError([] { MbValue::string("Pen (1,2,0)").styleClause(); }),
              kMbTypeMismatch);
    EXPECT_EQ(conversionError([] { MbValue::object(nullptr).asNumber(); }), kMbTypeMismatch);
    EXPECT_EQ(conversionError([] { MbValue::number(1e300).asInteger(); }), kMbFloatRange);
    EXPECT_EQ(conversionError([] { MbValue::number(std::nan("")).asInteger(); }), kMbFloatRange);
}

} // namespace
} // namespace vellant::engine
