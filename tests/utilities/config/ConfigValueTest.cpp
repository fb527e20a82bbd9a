#include "utilities/config/ConfigValue.h"

#include <gtest/gtest.h>

#include "support/CheckDiagnostic.h"
#include "utilities/config/ConfigGroup.h"

namespace {

TEST(ConfigValueTest, TypedAccessorsReadTheFirstWord) {
    const ConfigValue value("2.5abc 7 x");
    EXPECT_EQ(value.size(), 3);
    EXPECT_FLOAT_EQ(value.asFloat(), 2.5F);
    EXPECT_EQ(value.asInt(), 2);
    EXPECT_FALSE(value.asBool());
    EXPECT_EQ(value.asChar(), '2');
    EXPECT_EQ(value[1].b_value(0), 7);
    EXPECT_EQ(value[2].b_value('?'), 'x');
}

TEST(ConfigValueTest, EmptyTextGivesOneEmptyWord) {
    const ConfigValue value("");
    ASSERT_EQ(value.size(), 1);
    EXPECT_EQ(value[0].b_value(std::string()), "");
    EXPECT_EQ(ConfigValue(" \t ").size(), 1);
}

TEST(ConfigValueTest, CopyKeepsTextWordsAndLocation) {
    ConfigGroup group("Conf", "Grp");
    group.add("k", "a b");
    const ConfigValue copy = group["k"];
    EXPECT_EQ(copy.asString(), "a b");
    EXPECT_EQ(copy.size(), 2);
    EXPECT_EQ(copy.getConfigurationName(), "Conf");
    EXPECT_EQ(copy.getGroupName(), "Grp");
    EXPECT_EQ(copy.getKey(), "k");
}

TEST(ConfigValueTest, AddReplacesTheWholeValue) {
    ConfigGroup group;
    group.add("k", "1 2 3");
    group.add("k", "9");
    EXPECT_EQ(group["k"].asString(), "9");
    EXPECT_EQ(group["k"].size(), 1);
    EXPECT_TRUE(group.exists("k"));
    EXPECT_FALSE(group.exists("K"));
}

TEST(ConfigValueTest, ReadingAValueWithoutWordsIsFatal) {
    ConfigGroup group("Conf", "Grp");
    group.add("k", "x");
    group["k"] = ConfigValue();
    group["k"].setLocation("Conf", "Grp", "k");
    const std::string detail = "configuration \"Conf\", group \"Grp\", key \"k\" has no value";
    EXPECT_EXIT(group["k"].asFloat(), ::testing::ExitedWithCode(1),
                support::checkDiagnosticPattern("Config", "float ConfigValue::asFloat() const",
                                                "values.size() > 0", detail));
    EXPECT_EXIT(group["k"].asInt(), ::testing::ExitedWithCode(1),
                support::checkDiagnosticPattern("Config", "int ConfigValue::asInt() const",
                                                "values.size() > 0", detail));
    EXPECT_EXIT(group["k"].asBool(), ::testing::ExitedWithCode(1),
                support::checkDiagnosticPattern("Config", "bool ConfigValue::asBool() const",
                                                "values.size() > 0", detail));
    EXPECT_EXIT(group["k"].asChar(), ::testing::ExitedWithCode(1),
                support::checkDiagnosticPattern("Config", "char ConfigValue::asChar() const",
                                                "values.size() > 0", detail));
}

}  // namespace
