#include "utilities/parsing/SExpression.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "utilities/parsing/SExpAtomic.h"
#include "utilities/parsing/SExpError.h"

namespace {

std::vector<std::string> fixtureMessages() {
    std::ifstream in(std::string(KORVEL_TEST_DATA_DIR) + "/server-messages-sample.txt");
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) {
        lines.push_back(line);
    }
    return lines;
}

// The world model parses each message wrapped in one more pair of parentheses.
std::unique_ptr<SExpression> parseMessage(const std::string& message) {
    return SExpression::parse("(" + message + ")");
}

std::string atomText(const SExpElement* element) {
    return element->as<SExpAtomic>().getValue().getValue();
}

// The text of element `index` of the first `header` list of `list`.
std::string valueOf(const SExpression& list, const std::string& header, unsigned int index = 1) {
    const SExpression* found = list.firstWithHeader(header);
    if (found == nullptr) {
        ADD_FAILURE() << "no list headed " << header << " in " << list.toString();
        return {};
    }
    return atomText((*found)[index]);
}

std::string withoutBlanks(std::string text) {
    text.erase(std::remove(text.begin(), text.end(), ' '), text.end());
    return text;
}

// Runs `parse` and returns the failed condition, or "" when nothing was thrown.
template <class Parse>
std::string failedCondition(Parse parse) {
    try {
        parse();
    } catch (const SExpError& error) {
        return error.getCondition();
    }
    return "";
}

}  // namespace

TEST(SExpressionFixture, EveryServerMessageParsesWithItsPerceptorsIndexed) {
    const std::vector<std::string> messages = fixtureMessages();
    ASSERT_EQ(messages.size(), 73U);
    int withVision = 0;
    for (const std::string& message : messages) {
        SCOPED_TRACE(message);
        const std::string wrapped = "(" + message + ")";
        unsigned int pos = 0;
        const SExpression root(wrapped, pos);
        EXPECT_EQ(pos, wrapped.length() - 1);
        EXPECT_EQ(root.numSExpWithHeader("time"), 1);
        EXPECT_EQ(root.numSExpWithHeader("GS"), 1);
        EXPECT_EQ(root.numSExpWithHeader("GYR"), 1);
        EXPECT_EQ(root.numSExpWithHeader("HJ"), 22);
        EXPECT_EQ(root["HJ"].size(), 22U);
        EXPECT_LE(root.numSExpWithHeader("See"), 1);
        withVision += root.numSExpWithHeader("See");
        // Only the perceptor lists are direct children of the wrapped message.
        for (unsigned int i = 0; i < root.size(); ++i) {
            EXPECT_EQ(root[i]->type(), SExpElement::listType);
        }
        // Sub-lists are indexed in their own list, never in the root.
        EXPECT_EQ(root.numSExpWithHeader("now"), 0);
        EXPECT_EQ(root.numSExpWithHeader("n"), 0);
        EXPECT_EQ(root.numSExpWithHeader("pol"), 0);
    }
    EXPECT_EQ(withVision, 25);
}

TEST(SExpressionFixture, HeaderLookupsReadTheFirstMessage) {
    const std::unique_ptr<SExpression> root = parseMessage(fixtureMessages().at(0));

    EXPECT_EQ(valueOf(*root->firstWithHeader("time"), "now"), "6.08");
    EXPECT_FLOAT_EQ((*root->firstWithHeader("time")->firstWithHeader("now"))[1]
                        ->as<SExpAtomic>()
                        .getValue()
                        .b_value(0.0F),
                    6.08F);

    const std::vector<const SExpression*> gs = (*root)["GS"];
    ASSERT_EQ(gs.size(), 1U);
    EXPECT_EQ(valueOf(*gs[0], "t"), "0.00");
    EXPECT_EQ(valueOf(*gs[0], "pm"), "BeforeKickOff");
    EXPECT_EQ(valueOf(*gs[0], "sl"), "0");
    EXPECT_EQ(gs[0]->numSExpWithHeader("team"), 0);
    EXPECT_EQ(gs[0]->toString(), "( GS ( sl 0 ) ( sr 0 ) ( t 0.00 ) ( pm BeforeKickOff ) )");

    const std::vector<const SExpression*> joints = (*root)["HJ"];
    ASSERT_EQ(joints.size(), 22U);
    EXPECT_EQ(valueOf(*joints[0], "n"), "hj1");
    EXPECT_EQ(valueOf(*joints[0], "ax"), "-0.00");
    EXPECT_EQ(valueOf(*joints[2], "n"), "raj1");  // the vision list sits between hj2 and raj1
    EXPECT_EQ(valueOf(*joints[21], "n"), "llj6");

    const SExpression* gyr = root->firstWithHeader("GYR");
    ASSERT_NE(gyr, nullptr);
    const SExpression* rt = gyr->firstWithHeader("rt");
    ASSERT_NE(rt, nullptr);
    ASSERT_EQ(rt->size(), 4U);
    EXPECT_EQ(atomText((*rt)[1]), "0.00");
    EXPECT_EQ(atomText((*rt)[2]), "-0.00");

    const std::vector<const SExpression*> see = (*root)["See"];
    ASSERT_EQ(see.size(), 1U);
    EXPECT_EQ(see[0]->numSExpWithHeader("L"), 9);
    EXPECT_EQ(see[0]->numSExpWithHeader("F1L"), 1);
    EXPECT_EQ(see[0]->numSExpWithHeader("F2L"), 0);
    const SExpression* f1l = see[0]->firstWithHeader("F1L");
    ASSERT_NE(f1l, nullptr);
    EXPECT_EQ(f1l->numSExpWithHeader("pol"), 1);
    EXPECT_EQ(f1l->firstWithHeader("pol")->toString(), "( pol 18.69 53.87 -5.02 )");
    EXPECT_EQ(see[0]->firstWithHeader("B")->firstWithHeader("pol")->toString(),
              "( pol 1.89 0.01 -57.85 )");
    // A field line holds two "pol" lists.
    EXPECT_EQ(see[0]->firstWithHeader("L")->numSExpWithHeader("pol"), 2);
}

TEST(SExpressionFixture, TeamAndFootPressureAppearInLaterMessages) {
    const std::vector<std::string> messages = fixtureMessages();
    const std::unique_ptr<SExpression> fourth = parseMessage(messages.at(3));
    const SExpression* gs = fourth->firstWithHeader("GS");
    ASSERT_NE(gs, nullptr);
    EXPECT_EQ(valueOf(*gs, "team"), "left");
    EXPECT_EQ(valueOf(*gs, "unum"), "1");
    // A player seen as "P" has lists headed by body parts, indexed like any other.
    const SExpression* player = fourth->firstWithHeader("See")->firstWithHeader("P");
    ASSERT_NE(player, nullptr);
    EXPECT_EQ(valueOf(*player, "team"), "Test");
    EXPECT_EQ(player->firstWithHeader("rlowerarm")->firstWithHeader("pol")->toString(),
              "( pol 0.18 -34.62 -22.54 )");

    int feet = 0;
    for (const std::string& message : messages) {
        const std::unique_ptr<SExpression> root = parseMessage(message);
        for (const SExpression* frp : (*root)["FRP"]) {
            const std::string name = valueOf(*frp, "n");
            EXPECT_TRUE(name == "lf" || name == "rf") << name;
            EXPECT_EQ(frp->firstWithHeader("c")->size(), 4U);
            EXPECT_EQ(frp->firstWithHeader("f")->size(), 4U);
            ++feet;
        }
    }
    EXPECT_EQ(feet, 132);
}

TEST(SExpressionFixture, TextFormRoundTripsEveryMessage) {
    for (const std::string& message : fixtureMessages()) {
        SCOPED_TRACE(message);
        const std::string wrapped = "(" + message + ")";
        const std::string text = parseMessage(message)->toString();
        // The text form only adds blanks around the parentheses.
        EXPECT_EQ(withoutBlanks(text), withoutBlanks(wrapped));
        EXPECT_EQ(text.substr(0, 9), "( ( time ");
        EXPECT_EQ(text.substr(text.length() - 4), " ) )");
        // Reading the text form again gives the same tree.
        EXPECT_EQ(SExpression::parse(text)->toString(), text);
    }
}

TEST(SExpressionGrammar, ListsAtomsAndTheirTextForm) {
    unsigned int pos = 0;
    const SExpression empty("()", pos);
    EXPECT_EQ(empty.size(), 0U);
    EXPECT_EQ(empty.type(), 1);
    EXPECT_EQ(empty.toString(), "( )");
    EXPECT_EQ(pos, 1U);

    const auto nested = SExpression::parse("(a (b c))");
    EXPECT_EQ(nested->toString(), "( a ( b c ) )");
    ASSERT_EQ(nested->size(), 2U);
    EXPECT_EQ((*nested)[0]->type(), 0);
    EXPECT_EQ((*nested)[0]->toString(), "a");
    EXPECT_EQ((*nested)[1]->type(), 1);

    // Tabs and runs of blanks separate like one blank.
    const auto blanks = SExpression::parse("(a\tb  c)");
    ASSERT_EQ(blanks->size(), 3U);
    EXPECT_EQ(blanks->toString(), "( a b c )");

    // An atom may touch a parenthesis.
    const auto touching = SExpression::parse("(a(b))");
    ASSERT_EQ(touching->size(), 2U);
    EXPECT_EQ(atomText((*touching)[0]), "a");
    EXPECT_EQ((*touching)[1]->toString(), "( b )");

    // Line feeds, carriage returns, quotes and zero bytes are ordinary atom bytes.
    const std::string odd = std::string("(a\nb \"q\" x\r ") + '\0' + "z)";
    const auto oddList = SExpression::parse(odd);
    ASSERT_EQ(oddList->size(), 4U);
    EXPECT_EQ(atomText((*oddList)[0]), "a\nb");
    EXPECT_EQ(atomText((*oddList)[1]), "\"q\"");
    EXPECT_EQ(atomText((*oddList)[2]), "x\r");
    EXPECT_EQ(atomText((*oddList)[3]), std::string(1, '\0') + "z");

    // Text after the outermost list is not read; pos tells where the list ended.
    pos = 0;
    const SExpression trailing("(a) trailing", pos);
    EXPECT_EQ(pos, 2U);
    EXPECT_EQ(trailing.toString(), "( a )");

    // Parsing may start in the middle of a text.
    pos = 3;
    const SExpression inner("(x (y z) w)", pos);
    EXPECT_EQ(pos, 7U);
    EXPECT_EQ(inner.toString(), "( y z )");
}

TEST(SExpressionGrammar, AtomsReadFromTheirFirstToTheirLastByte) {
    const std::string text = "ab c(d";
    unsigned int pos = 0;
    const SExpAtomic first(text, pos);
    EXPECT_EQ(first.toString(), "ab");
    EXPECT_EQ(first.type(), 0);
    EXPECT_EQ(pos, 1U);
    pos = 3;
    const SExpAtomic second(text, pos);
    EXPECT_EQ(second.toString(), "c");
    EXPECT_EQ(pos, 3U);
    pos = 5;
    const SExpAtomic last(text, pos);  // runs to the end of the text
    EXPECT_EQ(last.toString(), "d");
    EXPECT_EQ(pos, 5U);

    // Numbers stay text until read.
    const auto numbers = SExpression::parse("(n nan 2.5abc -3 x)");
    EXPECT_EQ(numbers->atomAt(1).getValue().b_value(0.0F), 0.0F);
    EXPECT_EQ(numbers->atomAt(2).getValue().b_value(0.0F), 2.5F);
    EXPECT_EQ(numbers->atomAt(3).getValue().b_value(0), -3);
    EXPECT_EQ(numbers->atomAt(4).getValue().b_value(0.0F), 0.0F);
}

TEST(SExpressionHeaders, IndexHoldsDirectChildListsHeadedByAnAtom) {
    const auto gs = SExpression::parse("(GS (t 0.00) (pm BeforeKickOff))");
    ASSERT_EQ(gs->size(), 3U);
    EXPECT_EQ(gs->numSExpWithHeader("t"), 1);
    const std::vector<const SExpression*> t = (*gs)["t"];
    ASSERT_EQ(t.size(), 1U);
    EXPECT_EQ(t[0], (*gs)[1]);
    EXPECT_EQ(atomText((*t[0])[1]), "0.00");
    EXPECT_EQ((*gs)["pm"].at(0), (*gs)[2]);
    // The head atom of the list itself is not a child list.
    EXPECT_EQ(gs->numSExpWithHeader("GS"), 0);

    const auto twice = SExpression::parse("(x (HJ (n hj1)) (y) (HJ (n hj2)))");
    EXPECT_EQ(twice->numSExpWithHeader("HJ"), 2);
    const std::vector<const SExpression*> hj = (*twice)["HJ"];
    ASSERT_EQ(hj.size(), 2U);
    EXPECT_EQ(valueOf(*hj[0], "n"), "hj1");
    EXPECT_EQ(valueOf(*hj[1], "n"), "hj2");
    EXPECT_EQ(twice->firstWithHeader("HJ"), hj[0]);
    // Grandchildren are not indexed in the outer list.
    EXPECT_EQ(twice->numSExpWithHeader("n"), 0);

    // A list headed by a list, and an empty list, are kept but not indexed.
    const auto headless = SExpression::parse("(x ((a) b) ())");
    EXPECT_EQ(headless->size(), 3U);
    EXPECT_EQ(headless->numSExpWithHeader("a"), 0);
    EXPECT_EQ(headless->numSExpWithHeader(""), 0);

    const auto single = SExpression::parse("(x (HJ))");
    EXPECT_EQ(single->numSExpWithHeader("HJ"), 1);

    // Exact, case-sensitive, whole-atom match; an absent header is no failure.
    const auto see = SExpression::parse("(x (See) (Seen))");
    EXPECT_EQ(see->numSExpWithHeader("See"), 1);
    EXPECT_TRUE((*see)["see"].empty());
    EXPECT_EQ(see->numSExpWithHeader("see"), 0);
    EXPECT_EQ(see->numSExpWithHeader("Se"), 0);
    EXPECT_EQ(see->firstWithHeader("B"), nullptr);
}

TEST(SExpressionNodes, IsAndAsTellAtomsFromLists) {
    const auto ball = SExpression::parse("(B (pol 1 2 3))");
    EXPECT_TRUE((*ball)[0]->is<SExpAtomic>());
    EXPECT_FALSE((*ball)[0]->is<SExpression>());
    EXPECT_TRUE((*ball)[1]->is<SExpression>());
    EXPECT_FALSE((*ball)[1]->is<SExpAtomic>());
    EXPECT_EQ(&(*ball)[1]->as<SExpression>(), (*ball)[1]);
    EXPECT_EQ((*ball)[1]->as<SExpression>().size(), 4U);
    EXPECT_EQ(ball->atomAt(0).toString(), "B");
}

TEST(SExpressionNodesDeathTest, AsOnTheWrongKindStopsWithTheCheck) {
    const auto ball = SExpression::parse("(B (pol 1 2 3))");
    // The console copy of the check goes to standard output; send it where the death test
    // looks.
    const auto consoleToStderr = [] {
        std::fflush(stdout);
        dup2(STDERR_FILENO, STDOUT_FILENO);
    };
    EXPECT_DEATH(
        {
            consoleToStderr();
            (void)(*ball)[1]->as<SExpAtomic>();
        },
        "\\.\\./Utilities/SExpression:35 'tmp != NULL' FAILED!");
    EXPECT_DEATH(
        {
            consoleToStderr();
            (void)(*ball)[0]->as<SExpression>();
        },
        "\\.\\./Utilities/SExpression:35 'tmp != NULL' FAILED!");
}

TEST(SExpressionErrors, IndexBeyondTheListThrows) {
    const auto list = SExpression::parse("(a b)");
    EXPECT_EQ(atomText((*list)[1]), "b");
    try {
        (*list)[2];
        FAIL() << "no exception";
    } catch (const SExpError& error) {
        EXPECT_STREQ(error.what(),
                     "SExpression:98: SExpElement* SExpression::operator[](unsigned int) const: "
                     "Assertion `index >= 0 && index < elements.size()' failed.");
        EXPECT_EQ(error.getSource(), "SExpression");
        EXPECT_EQ(error.getLine(), 98);
    }
    EXPECT_EQ(failedCondition([&] { list->atomAt(7); }), "index >= 0 && index < elements.size()");
    const auto nested = SExpression::parse("(a (b))");
    EXPECT_EQ(failedCondition([&] { nested->atomAt(1); }), "elements[index]->is<SExpAtomic>()");
    EXPECT_EQ(failedCondition([&] { SExpression::parse("()")->operator[](0U); }),
              "index >= 0 && index < elements.size()");
}

TEST(SExpressionErrors, UnbalancedAndTruncatedTextIsReported) {
    try {
        SExpression::parse("(a b");
        FAIL() << "no exception";
    } catch (const SExpError& error) {
        EXPECT_STREQ(error.what(),
                     "SExpression:52: SExpression::SExpression(const std::string&, unsigned int&): "
                     "Assertion `i < value.length()' failed.");
        EXPECT_EQ(error.getCondition(), "i < value.length()");
        EXPECT_EQ(error.getFunction(),
                  "SExpression::SExpression(const std::string&, unsigned int&)");
    }
    EXPECT_EQ(failedCondition([] { SExpression::parse("(a (b)"); }), "i < value.length()");
    EXPECT_EQ(failedCondition([] { SExpression::parse("("); }), "i < value.length()");
    EXPECT_EQ(failedCondition([] { SExpression::parse(""); }), "value[pos] == '('");
    EXPECT_EQ(failedCondition([] { SExpression::parse("a (b)"); }), "value[pos] == '('");
    EXPECT_EQ(failedCondition([] { SExpression::parse(")("); }), "value[pos] == '('");
    EXPECT_EQ(failedCondition([] { SExpression::parse("(a))"); }), "pos + 1 == value.length()");
    EXPECT_EQ(failedCondition([] { SExpression::parse("(a) "); }), "pos + 1 == value.length()");
    EXPECT_EQ(failedCondition([] { SExpression::parse("(a)(b)"); }), "pos + 1 == value.length()");

    unsigned int pos = 3;
    EXPECT_EQ(failedCondition([&] { SExpression("(a)", pos); }), "value[pos] == '('");
    pos = 3;
    EXPECT_EQ(failedCondition([&] { SExpAtomic("(a)", pos); }), "pos < value.length()");
    pos = 0;
    EXPECT_EQ(failedCondition([&] { SExpAtomic("(a)", pos); }), "end > pos");
    try {
        pos = 9;
        SExpAtomic("abc", pos);
    } catch (const SExpError& error) {
        EXPECT_STREQ(error.what(),
                     "SExpression:22: SExpAtomic::SExpAtomic(const std::string&, unsigned int&): "
                     "Assertion `pos < value.length()' failed.");
    }
}

TEST(SExpressionErrors, EveryTruncationOfAServerMessageIsDetected) {
    const std::vector<std::string> messages = fixtureMessages();
    // The first message has vision (deepest nesting); the fourth the player and team lists.
    for (const std::size_t line : {0U, 3U}) {
        const std::string wrapped = "(" + messages.at(line) + ")";
        for (std::size_t length = 0; length < wrapped.length(); ++length) {
            const std::string cut = wrapped.substr(0, length);
            const std::string condition = failedCondition([&] { SExpression::parse(cut); });
            EXPECT_TRUE(condition == "i < value.length()" || condition == "value[pos] == '('")
                << "cut at " << length << ": '" << condition << "'";
        }
    }
}

TEST(SExpressionErrors, AStrayOrMissingParenthesisInAServerMessageIsDetected) {
    const std::string message = fixtureMessages().at(0);
    int positions = 0;
    for (std::size_t i = 0; i < message.length(); ++i) {
        if (message[i] != '(' && message[i] != ')') {
            continue;
        }
        ++positions;
        std::string dropped = message;
        dropped.erase(i, 1);
        EXPECT_NE(failedCondition([&] { parseMessage(dropped); }), "") << "dropped at " << i;
    }
    EXPECT_GT(positions, 100);
    std::string extra = message;
    extra.insert(message.find("(GYR"), ")");
    EXPECT_EQ(failedCondition([&] { parseMessage(extra); }), "pos + 1 == value.length()");
}

TEST(SExpressionErrors, NestingIsLimitedWithoutExhaustingTheStack) {
    const unsigned int limit = SExpression::maxDepth;
    const std::string deepest = std::string(limit, '(') + std::string(limit, ')');
    const auto tree = SExpression::parse(deepest);
    EXPECT_EQ(tree->toString().length(), 4U * limit - 1);

    const std::string tooDeep = std::string(limit + 1, '(') + std::string(limit + 1, ')');
    EXPECT_EQ(failedCondition([&] { SExpression::parse(tooDeep); }), "depth <= maxDepth");

    // Far deeper than any stack would allow to recurse into.
    const std::string hostile(1000000, '(');
    EXPECT_EQ(failedCondition([&] { SExpression::parse(hostile); }), "depth <= maxDepth");
}

TEST(SExpressionErrors, MutatedServerMessagesEitherParseWholeOrThrow) {
    // Random byte edits of real messages: the parser must either build a consistent tree or
    // report the text; it must never read out of bounds (the sanitizer build checks that).
    const std::vector<std::string> messages = fixtureMessages();
    std::mt19937 random(20261122U);
    const std::string alphabet = std::string("() \tab1.\n") + '\0' + "\xff";
    int parsed = 0;
    int rejected = 0;
    for (int round = 0; round < 1000; ++round) {
        std::string text = "(" + messages[random() % messages.size()] + ")";
        const int edits = 1 + static_cast<int>(random() % 4);
        for (int e = 0; e < edits; ++e) {
            const std::size_t at = random() % text.length();
            const char byte = alphabet[random() % alphabet.length()];
            switch (random() % 3) {
                case 0:
                    text[at] = byte;
                    break;
                case 1:
                    text.insert(at, 1, byte);
                    break;
                default:
                    text.erase(at, 1);
                    break;
            }
        }
        std::unique_ptr<SExpression> tree;
        try {
            tree = SExpression::parse(text);
        } catch (const SExpError&) {
            ++rejected;
            continue;
        }
        ++parsed;
        const std::string form = tree->toString();
        EXPECT_EQ(SExpression::parse(form)->toString(), form);
    }
    EXPECT_GT(parsed, 30);
    EXPECT_GT(rejected, 30);
}
