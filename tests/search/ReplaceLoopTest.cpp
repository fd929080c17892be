#include "search/core/ReplaceLoop.h"
#include "search/core/FindRules.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

// A document as a byte string with a selection, searched by the editor's own rules.
class BufferTarget : public ReplaceTarget {
  public:
    std::string text;
    int64_t selStart = 0, selLength = 0;
    std::vector<int64_t> prompts; // where each prompt's match stood

    int64_t Find(std::string_view find, int64_t start, int64_t end, bool matchCase) override {
        int64_t at = FindText(text, find, start, end, false, matchCase);
        if (at >= 0) selStart = at, selLength = int64_t(find.size()), prompts.push_back(at);
        return at;
    }
    void ReplaceSelection(std::string_view r) override {
        text.replace(size_t(selStart), size_t(selLength), r);
        selStart += int64_t(r.size());
        selLength = 0;
    }
    int64_t SelStart() const override { return selStart; }
    int64_t SelLength() const override { return selLength; }
};

struct PromptCase {
    const char* name;
    std::string text;
    int64_t selStart, selLength;
    std::string find, replacement;
    ReplaceOptions options;
    std::string answers; // Y, N, C; Cancel once they run out
    std::string expectedText;
    std::vector<int64_t> expectedPrompts;
    bool expectedFinished;
};

class Prompting : public testing::TestWithParam<PromptCase> {};

TEST_P(Prompting, FollowsTheAnswers) {
    const PromptCase& c = GetParam();
    BufferTarget doc;
    doc.text = c.text;
    doc.selStart = c.selStart;
    doc.selLength = c.selLength;
    size_t next = 0;
    bool finished = ReplacePrompting(doc, c.find, c.replacement, c.options, [&] {
        char a = next < c.answers.size() ? c.answers[next++] : 'C';
        return a == 'Y' ? ReplaceAnswer::Yes : a == 'N' ? ReplaceAnswer::No : ReplaceAnswer::Cancel;
    });
    EXPECT_EQ(doc.text, c.expectedText);
    EXPECT_EQ(doc.prompts, c.expectedPrompts);
    EXPECT_EQ(finished, c.expectedFinished);
}

const ReplaceOptions kActive{false, false, false}, kAll{false, false, true},
    kActiveSel{false, true, false}, kAllSel{false, true, true}, kCase{true, false, true};

const PromptCase kPromptCases[] = {
    {"NoSkipsSearchTextLength", "aaa", 0, 0, "aa", "b", kActive, "N", "aaa", {0}, true},
    {"NoThenYes", "a.a.a", 0, 0, "a", "b", kAll, "NYN", "a.b.a", {0, 2, 4}, true},
    {"CancelStopsAtOnce", "aaa", 0, 0, "a", "b", kAll, "YC", "baa", {0, 1}, false},
    {"NotFoundFinishes", "xyz", 0, 0, "q", "r", kActive, "", "xyz", {}, true},
    {"EmptyFindNeverPrompts", "xyz", 0, 0, "", "r", kAll, "", "xyz", {}, true},
    {"MatchCase", "ABC abc", 0, 0, "abc", "x", kCase, "Y", "ABC x", {4}, true},
    // The selection's end is read once: "aXaXa" with X -> YYYY pushes the second X out.
    {"SelectionEndFixedAll", "aXaXa", 0, 5, "X", "YYYY", kAllSel, "YY", "aYYYYaXa", {1}, true},
    {"ShorterPullsTextIn", "XX.XX", 0, 3, "X", "", kActiveSel, "YYYY", ".", {0, 0, 1, 1}, true},
    {"SelectionStartsTheSearch", "a.a.a", 2, 3, "a", "b", kAllSel, "YY", "a.b.b", {2, 4}, true},
    {"EmptySelectionFindsNothing", "aaa", 1, 0, "a", "b", kAllSel, "Y", "aaa", {}, true},
};

INSTANTIATE_TEST_SUITE_P(Replace, Prompting, testing::ValuesIn(kPromptCases),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(ReplaceTextCompare, ReplacesLeftToRightWithoutRescanning) {
    struct {
        const char *source, *find, *replacement;
        bool matchCase;
        const char* expected;
    } cases[] = {
        {"ABC abc aBc", "abc", "x", false, "x x x"},
        {"ABC abc", "abc", "Q", true, "ABC Q"},
        {"aaaa", "aa", "a", true, "aa"},
        {"a\r\nb\r\nc", "\r\nb\r\n", "-", true, "a-c"},
        {"\xC3\x89\xC3\xA9", "\xC3\xA9", "e", false, "\303\211e"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ReplaceTextCompare(c.source, c.find, c.replacement, c.matchCase), c.expected)
            << c.source << " / " << c.find;
}

} // namespace
