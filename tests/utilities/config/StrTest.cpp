#include "utilities/config/Str.h"

#include <cmath>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

std::string text(const Str& s) {
    return s.b_value(std::string());
}

TEST(StrTest, FormatsLikeADefaultOutputStream) {
    EXPECT_EQ(text(Str(std::string("a b\t"))), "a b\t");
    EXPECT_EQ(text(Str(-42)), "-42");
    EXPECT_EQ(text(Str(0.5F)), "0.5");
    EXPECT_EQ(text(Str(0.1F)), "0.1");
    EXPECT_EQ(text(Str(100000.0F)), "100000");
    EXPECT_EQ(text(Str(1234567.0F)), "1.23457e+06");
    EXPECT_EQ(text(Str(0.0000001F)), "1e-07");
    EXPECT_EQ(text(Str(-2.25F)), "-2.25");
}

TEST(StrTest, VectorIsWrittenAsAFloatListWithFinalSeparator) {
    EXPECT_EQ(text(Str(math::Vector3<float>(1.0F, 2.5F, 0.0F))), "1|2.5|0|");
    EXPECT_EQ(text(Str(math::Vector3<float>(-0.1F, 1234567.0F, 3.0F))), "-0.1|1.23457e+06|3|");
}

TEST(StrTest, FloatConversionIsLenient) {
    EXPECT_FLOAT_EQ(Str("2.5abc").b_value(0.0F), 2.5F);
    EXPECT_FLOAT_EQ(Str("  -1e2").b_value(0.0F), -100.0F);
    EXPECT_EQ(Str("abc").b_value(0.0F), 0.0F);
    EXPECT_EQ(Str("").b_value(0.0F), 0.0F);
    EXPECT_EQ(Str("nan").b_value(0.0F), 0.0F);
    // Only the exact text "nan" is special.
    EXPECT_TRUE(std::isnan(Str("NaN").b_value(0.0F)));
}

TEST(StrTest, DoubleConversionKeepsNan) {
    EXPECT_DOUBLE_EQ(Str("0.125x").b_value(0.0), 0.125);
    EXPECT_TRUE(std::isnan(Str("nan").b_value(0.0)));
}

TEST(StrTest, IntegerConversionIsDecimalPrefix) {
    EXPECT_EQ(Str("12.7").b_value(0), 12);
    EXPECT_EQ(Str("abc").b_value(0), 0);
    EXPECT_EQ(Str("0x10").b_value(0), 0);
    EXPECT_EQ(Str("010").b_value(0), 10);
    EXPECT_EQ(Str(" -7 ").b_value(0), -7);
    EXPECT_EQ(Str("3100").b_value(0U), 3100U);
    EXPECT_EQ(Str("-1").b_value(0U), static_cast<unsigned int>(-1));
}

TEST(StrTest, BoolIsTrueOnlyForTrueOrOne) {
    EXPECT_TRUE(Str("true").b_value(false));
    EXPECT_TRUE(Str("TRUE").b_value(false));
    EXPECT_TRUE(Str("True").b_value(false));
    EXPECT_TRUE(Str("1").b_value(false));
    EXPECT_FALSE(Str("false").b_value(true));
    EXPECT_FALSE(Str("0").b_value(true));
    EXPECT_FALSE(Str("yes").b_value(true));
    EXPECT_FALSE(Str("on").b_value(true));
    EXPECT_FALSE(Str("").b_value(true));
    EXPECT_FALSE(Str("11").b_value(true));
    EXPECT_FALSE(Str(" true").b_value(true));
}

TEST(StrTest, CharIsTheFirstCharacter) {
    EXPECT_EQ(Str("xyz").b_value('a'), 'x');
    EXPECT_EQ(Str("").b_value('a'), '\0');
}

TEST(StrTest, FloatListNeedsSeparators) {
    EXPECT_EQ(Str("1|2|3|").b_value(std::vector<float>()), (std::vector<float>{1.0F, 2.0F, 3.0F}));
    EXPECT_TRUE(Str("1 2 3").b_value(std::vector<float>()).empty());
    EXPECT_TRUE(Str("").b_value(std::vector<float>()).empty());
    EXPECT_EQ(Str("|").b_value(std::vector<float>()), (std::vector<float>{0.0F}));
    EXPECT_EQ(Str("nan|x|2.5|").b_value(std::vector<float>()),
              (std::vector<float>{0.0F, 0.0F, 2.5F}));
    EXPECT_EQ(Str("1||2|").b_value(std::vector<float>()), (std::vector<float>{1.0F, 0.0F, 2.0F}));
}

TEST(StrTest, FloatListKeepsAnUnterminatedLastElement) {
    EXPECT_EQ(Str("1|2|3").b_value(std::vector<float>()), (std::vector<float>{1.0F, 2.0F, 3.0F}));
    EXPECT_EQ(Str("-0.5|4").b_value<float>(std::vector<float>()),
              (std::vector<float>{-0.5F, 4.0F}));
}

TEST(StrTest, VectorFromAFloatList) {
    const math::Vector3<float> v = Str("1|2.5|-3|9|").b_value(math::Vector3<float>());
    EXPECT_EQ(v, math::Vector3<float>(1.0F, 2.5F, -3.0F));
}

TEST(StrTest, VectorFromAShortListFillsZeros) {
    EXPECT_EQ(Str("4|5|").b_value(math::Vector3<float>()), math::Vector3<float>(4.0F, 5.0F, 0.0F));
    EXPECT_EQ(Str("4|").b_value(math::Vector3<float>()), math::Vector3<float>(4.0F, 0.0F, 0.0F));
    EXPECT_EQ(Str("4 5 6").b_value(math::Vector3<float>()), math::Vector3<float>());
}

TEST(StrTest, VectorSurvivesARoundTrip) {
    const math::Vector3<float> v(0.25F, -1.5F, 8.0F);
    EXPECT_EQ(Str(v).b_value(math::Vector3<float>()), v);
}

}  // namespace
