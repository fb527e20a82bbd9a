#include "utilities/config/StrConfig.h"

#include <gtest/gtest.h>

#include "support/CheckDiagnostic.h"

namespace {

TEST(StrConfigTest, ConvertsValidText) {
    EXPECT_EQ(StrConfig("a b").asString(), "a b");
    EXPECT_FLOAT_EQ(StrConfig("2.5abc").asFloat(), 2.5F);
    EXPECT_EQ(StrConfig("42").asInt(), 42);
    EXPECT_EQ(StrConfig("0x10").asInt(), 16);
    EXPECT_EQ(StrConfig("010").asInt(), 8);
    EXPECT_EQ(StrConfig("-3").asInt(), -3);
    EXPECT_EQ(StrConfig("x").asChar(), 'x');
    EXPECT_TRUE(StrConfig("TRUE").asBool());
    EXPECT_TRUE(StrConfig("1").asBool());
    EXPECT_FALSE(StrConfig("False").asBool());
    EXPECT_FALSE(StrConfig("0").asBool());
}

TEST(StrConfigTest, FloatWithoutDigitsIsFatal) {
    EXPECT_EXIT(StrConfig("abc").asFloat(), ::testing::ExitedWithCode(1),
                support::checkDiagnosticPattern("Str", "float StrConfig::asFloat() const",
                                                "end != value.c_str()", "text \"abc\""));
}

TEST(StrConfigTest, IntegerWithoutDigitsIsFatal) {
    EXPECT_EXIT(StrConfig("").asInt(), ::testing::ExitedWithCode(1),
                support::checkDiagnosticPattern("Str", "int StrConfig::asInt() const",
                                                "end != value.c_str()", "text \"\""));
}

TEST(StrConfigTest, CharNeedsExactlyOneCharacter) {
    EXPECT_EXIT(StrConfig("xy").asChar(), ::testing::ExitedWithCode(1),
                support::checkDiagnosticPattern("Str", "char StrConfig::asChar() const",
                                                "value.length() == 1", "text \"xy\""));
    EXPECT_EXIT(StrConfig("").asChar(), ::testing::ExitedWithCode(1),
                support::checkDiagnosticPattern("Str", "char StrConfig::asChar() const",
                                                "value.length() == 1", "text \"\""));
}

TEST(StrConfigTest, BoolMustBeOneOfFourWords) {
    EXPECT_EXIT(
        StrConfig("yes").asBool(), ::testing::ExitedWithCode(1),
        support::checkDiagnosticPattern(
            "Str", "bool StrConfig::asBool() const",
            "tmp == \"true\" || tmp == \"1\" || tmp == \"false\" || tmp == \"0\"", "text \"yes\""));
}

}  // namespace
