#include "utilities/parsing/SExpression.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "support/Files.h"
#include "utilities/parsing/SExpAtomic.h"
#include "utilities/parsing/SExpError.h"

namespace {

std::vector<std::string> fixtureMessages() {
    return support::readLines(std::string(KORVEL_TEST_DATA_DIR) + "/server-messages-sample.txt");
}

// The world model parses each message wrapped in one more pair of parentheses.
std::unique_ptr<SExpression> parseMessage(const std::string& message) {
    return SExpression::parse("(" + message + ")");
}

std::string withoutBlanks(std::string text) {
    text.erase(std::remove(text.begin(), text.end(), ' '), text.end());
    return text;
}

// The condition a parse of `text` reports, or "" when it parses.
std::string failedCondition(const std::string& text) {
    try {
        SExpression::parse(text);
    } catch (const SExpError& error) {
        return error.getCondition();
    }
    return "";
}

TEST(SExpressionTest, EveryServerMessageParsesWithItsPerceptorsIndexed) {
    const std::vector<std::string> messages = fixtureMessages();
    ASSERT_EQ(messages.size(), 73U);
    int withVision = 0;
    for (const std::string& message : messages) {
        SCOPED_TRACE(message);
        const std::unique_ptr<SExpression> root = parseMessage(message);
        EXPECT_EQ(root->numSExpWithHeader("time"), 1);
        EXPECT_EQ(root->numSExpWithHeader("GS"), 1);
        EXPECT_EQ((*root)["HJ"].size(), 22U);
        EXPECT_EQ(root->numSExpWithHeader("now"), 0);  // sub-lists are indexed in their own list
        withVision += root->numSExpWithHeader("See");
        // The text form only adds blanks around the parentheses and reads back the same.
        const std::string text = root->toString();
        EXPECT_EQ(withoutBlanks(text), withoutBlanks("(" + message + ")"));
        EXPECT_EQ(SExpression::parse(text)->toString(), text);
    }
    EXPECT_EQ(withVision, 25);

    const std::unique_ptr<SExpression> first = parseMessage(messages[0]);
    const SExpression* see = first->firstWithHeader("See");
    ASSERT_NE(see, nullptr);
    EXPECT_EQ(see->numSExpWithHeader("L"), 9);
    EXPECT_EQ(see->firstWithHeader("F1L")->firstWithHeader("pol")->toString(),
              "( pol 18.69 53.87 -5.02 )");
    EXPECT_EQ(first->firstWithHeader("GS")->toString(),
              "( GS ( sl 0 ) ( sr 0 ) ( t 0.00 ) ( pm BeforeKickOff ) )");
    EXPECT_EQ((*first)["HJ"][2]->firstWithHeader("n")->atomAt(1).toString(), "raj1");
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
        {"(", "", "i < value.length()"},
        {"", "", "value[pos] == '('"},
        {"a (b)", "", "value[pos] == '('"},
        {")(", "", "value[pos] == '('"},
        {"(a))", "", "pos + 1 == value.length()"},
        {"(a) ", "", "pos + 1 == value.length()"},
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
