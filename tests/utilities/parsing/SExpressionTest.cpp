#include "utilities/parsing/SExpression.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "support/Files.h"
#include "utilities/parsing/SExpAtomic.h"
#include "utilities/parsing/SExpError.h"

namespace {

// The condition a parse of `text` reports, or "" when it parses.
std::string failedCondition(const std::string& text) {
    try {
        SExpression::parse(text);
    } catch (const SExpError& error) {
        return error.getCondition();
    }
    return "";
}

// (The world model's tests parse every message of the recorded sessions.)
TEST(SExpressionTest, ARealMessageIsIndexedByHeader) {
    const std::string message =
        support::readLines(std::string(KORVEL_TEST_DATA_DIR) + "/server-messages-sample.txt")
            .front();
    // The world model parses each message wrapped in one more pair of parentheses.
    const std::unique_ptr<SExpression> root = SExpression::parse("(" + message + ")");
    EXPECT_EQ(root->numSExpWithHeader("time"), 1);
    EXPECT_EQ((*root)["HJ"].size(), 22U);
    EXPECT_EQ(root->numSExpWithHeader("now"), 0);  // sub-lists are indexed in their own list
    EXPECT_EQ((*root)["HJ"][2]->firstWithHeader("n")->atomAt(1).toString(), "raj1");
    const SExpression* see = root->firstWithHeader("See");
    ASSERT_NE(see, nullptr);
    EXPECT_EQ(see->numSExpWithHeader("L"), 9);
    EXPECT_EQ(see->firstWithHeader("F1L")->firstWithHeader("pol")->toString(),
              "( pol 18.69 53.87 -5.02 )");
    // The text form adds blanks around the parentheses and reads back the same.
    EXPECT_EQ(SExpression::parse(root->toString())->toString(), root->toString());
}

struct GrammarCase {
    std::string text;
    std::string form;      // the text form ("" when rejected, "?" when not compared)
    const char* rejected;  // the failed condition
};

TEST(SExpressionTest, GrammarAndItsErrors) {
    const GrammarCase cases[] = {
        {"()", "( )", ""},
        {"(a (b c))", "( a ( b c ) )", ""},
        {"(a\tb  c)", "( a b c )", ""},
        {"(a(b))", "( a ( b ) )", ""},
        {std::string("(a\nb \"q\" x\r ") + '\0' + "z)",
         std::string("( a\nb \"q\" x\r ") + '\0' + "z )", ""},
        {"(a b", "", "i < value.length()"},
        {"(a (b)", "", "i < value.length()"},
        {"", "", "value[pos] == '('"},
        {"a (b)", "", "value[pos] == '('"},
        {")(", "", "value[pos] == '('"},
        {"(a))", "", "pos + 1 == value.length()"},
        {"(a)(b)", "", "pos + 1 == value.length()"},
        {std::string(SExpression::maxDepth, '(') + std::string(SExpression::maxDepth, ')'), "?",
         ""},
        {std::string(SExpression::maxDepth + 1, '(') + std::string(SExpression::maxDepth + 1, ')'),
         "", "depth <= maxDepth"},
        {std::string(1000000, '('), "", "depth <= maxDepth"},
    };
    for (const GrammarCase& c : cases) {
        EXPECT_EQ(failedCondition(c.text), c.rejected) << c.text.substr(0, 20);
        if (!c.form.empty() && c.form != "?") {
            EXPECT_EQ(SExpression::parse(c.text)->toString(), c.form);
        }
    }
}

}  // namespace
