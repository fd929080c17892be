#include "search/core/PatternMatch.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct PatternCase {
    const char* name;
    int64_t start;
    std::string text, expression;
    int64_t expected;
};

class FindPattern : public testing::TestWithParam<PatternCase> {};

TEST_P(FindPattern, GivesTheOneBasedIndexOfTheMatch) {
    const PatternCase& c = GetParam();
    EXPECT_EQ(FindPatternPos(c.start, c.text, c.expression), c.expected);
}

const PatternCase kPatternCases[] = {
    {"ExactCase", 1, "ab", "Ab", 0},
    {"UnderscorePasses", 1, "a_x", "_x", 2},
    {"EmptyInvalid", 1, "abc", "", -1},
    {"DigitFirst", 1, "ab12", "1#", 3},
    {"BracketFirstLiteralThenList", 1, "a[b", "[b]", 0},
    {"BracketFirstFoundAsList", 1, "[b", "[[]b", 1},
    {"UnclosedListMatchesNothing", 1, "a[b", "a[b", 0},
    {"OverlapFromNext", 2, "aaa", "aa", 2},
    {"StartPastText", 9, "abc", "a", 0},
    {"StarSpansLines", 1, "ab\r\ncd", "b*d", 2},
    {"StarMayBeEmpty", 1, "bd", "b*d", 1},
    {"QuestionTakesOneByte", 1,
     "a\xC3\xA9"
     "b",
     "a??b", 1},
    {"QuestionNeedsAByte", 1, "ab", "ab?", 0},
    {"ListAndRange", 1, "a9 aq", "a[p-r]", 4},
    {"NegatedRange", 1, "a1 az", "a[!0-9]", 4},
    {"DashAtEndLiteral", 1, "a- ab", "a[b-]", 1},
    {"SecondStarSegment", 1, "a1xyz a2x", "a#*z", 1},
    {"LaterStartAfterStarFailure", 1, "axb ab", "a*c", 0},
    {"StarCannotRescueFixedPrefix", 1, "ab aab", "aab", 4},
};

INSTANTIATE_TEST_SUITE_P(Search, FindPattern, testing::ValuesIn(kPatternCases),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(FindPattern, AbsentTailOverALongTextEndsQuickly) {
    // Every byte is a candidate start; a failure behind a '*' settles all later ones at once.
    std::string text(200'000, 'a');
    EXPECT_EQ(FindPatternPos(1, text, "a*z"), 0);
    EXPECT_EQ(FindPatternPos(1, text + "z", "a*z"), 1);
}

} // namespace
