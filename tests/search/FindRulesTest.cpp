#include "search/core/FindRules.h"

#include <gtest/gtest.h>

#include <cctype>
#include <string>

namespace {

struct FindCase {
    const char* name;
    std::string text, find;
    int64_t start, end;
    bool wholeWord, matchCase;
    int64_t expected;
};

class FindTextRules : public testing::TestWithParam<FindCase> {};

TEST_P(FindTextRules, FindsTheFirstMatchInRange) {
    const FindCase& c = GetParam();
    EXPECT_EQ(FindText(c.text, c.find, c.start, c.end, c.wholeWord, c.matchCase), c.expected);
}

const FindCase kFindCases[] = {
    {"EmptyFind", "abc", "", 0, -1, false, false, -1},
    {"StartPastText", "abc", "c", 4, -1, false, false, -1},
    {"NegativeStartFromTop", "xab", "ab", -5, -1, false, false, 1},
    {"MatchMustEndByEnd", "abcabc", "abc", 1, 5, false, false, -1},
    {"MatchEndingAtEnd", "abcabc", "abc", 1, 6, false, false, 3},
    {"EmptyRange", "abc", "a", 0, 0, false, false, -1},
    {"HighBytesNotFolded", "\xC3\x89t\xC3\xA9", "\xC3\xA9", 0, -1, false, false, 3},
    {"HighByteNeverFoldsToAscii", std::string(20, '.') + "A\xC1", "a\xE1", 0, -1, false, false, -1},
    {"FoldPrefilterFalseHit", std::string(20, '.') + "@A`a", "`a", 0, -1, false, false, 22},
    {"PunctuationNotFolded", "[{", "{", 0, -1, false, false, 1},
    {"WholeWordSkipsInside", "xAbcx Abc", "abc", 0, -1, true, false, 6},
    {"WholeWordUnderscore", "_abc abc_ abc", "abc", 0, -1, true, false, 10},
    {"WholeWordDigits", "1abc abc2", "abc", 0, -1, true, false, -1},
    {"WholeWordHighByteIsLetter", "caf\xC3\xA9 caf", "caf", 0, -1, true, false, 6},
    {"WholeWordLooksBeyondRange", "xabc", "abc", 1, -1, true, false, -1},
};

INSTANTIATE_TEST_SUITE_P(Search, FindTextRules, testing::ValuesIn(kFindCases),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(FindText, FoldedSearchAgreesWithAScanAtEveryOffset) {
    // The sixteen-wide candidate filter must lose no match near block edges.
    std::string text;
    for (int i = 0; i < 200; ++i) text += "xYzAbQ"[i * 7 % 6];
    const std::string find = "AbQx";
    for (int64_t start = 0; start < 60; ++start) {
        int64_t expected = -1;
        for (size_t i = size_t(start); i + find.size() <= text.size() && expected < 0; ++i) {
            bool eq = true;
            for (size_t k = 0; k < find.size(); ++k)
                eq = eq && std::tolower(text[i + k]) == std::tolower(find[k]);
            if (eq) expected = int64_t(i);
        }
        EXPECT_EQ(FindText(text, "aBqX", start, -1, false, false), expected) << start;
    }
}

TEST(InStrIndex, IsOneBasedAndZeroWhenAbsent) {
    struct {
        int64_t start;
        const char *text, *find;
        bool matchCase;
        int64_t expected;
    } cases[] = {
        {1, "foo\r\nbar", "Foo\r\nBar", false, 1},
        {1, "foo\r\nbar", "Foo\r\nBar", true, 0},
        {2, "abab", "ab", true, 3},
        {5, "abab", "b", true, 0},
        {1, "abc", "", false, 0},
        {0, "abc", "a", false, 1},
    };
    for (const auto& c : cases)
        EXPECT_EQ(InStrIndex(c.start, c.text, c.find, c.matchCase), c.expected)
            << c.text << " / " << c.find;
}

} // namespace
