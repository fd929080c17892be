// The coders' rules, one case for each, on small texts written one character per byte: the
// slot digit (1 to 3 keyword lists, 4 to 6 delimiter classes, 0 text) or '.' where nothing was
// painted. How the passes (whole text, line, passage) order and bound the coders, and every
// other combination of texts, ranges and flags, is checked against the literal reference
// painter in PainterCrossCheckTest.
#include "editor/PaintHarness.h"

#include "support/KeywordLists.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {
void SetPairs(EditorSettings& s, std::vector<DelimiterPair> pairs) {
    for (size_t i = 0; i < s.Delimiters.size(); ++i)
        s.Delimiters[i] = i < pairs.size() ? pairs[i] : DelimiterPair{};
}
} // namespace

TEST(PainterKeywords, OneList) {
    struct Case {
        const char* name;
        std::string text;
        std::string list;
        std::string painted;
        bool caseSensitive = false;
        int64_t first = 0;
    };
    const std::string kFor = KeywordList({"for"});
    const std::vector<Case> cases = {
        // A find is coloured when the bytes on both sides are below 65 ("A"); at the stretch's
        // start or end the side outside is not looked at.
        {"at stretch start, right side ignored", "format", kFor, "111..."},
        {"at stretch end, left side ignored", "xfor", kFor, ".111"},
        {"at sign (64) is a boundary", " for@", kFor, ".111."},
        {"A (65) is no boundary", " forA", kFor, "....."},
        {"high byte is no boundary", " for\xE9", kFor, "....."},
        {"range start makes a stretch start", "xformat", kFor, ".111...", false, 1},
        // The search goes on one byte behind a find's end: the first find is not coloured
        // (letter after it), and the second one is never found.
        {"skipped find at the end", " forfor", kFor, "......."},
        {"overlapping self", "aaaaa", KeywordList({"aa"}), "11.11"},
        // Only separated words: a phrase with two blanks is not "end if".
        {"phrase inner blanks kept", "end  if", KeywordList({"end if"}), "......."},
        {"case folds ASCII only", " \xC3\x89t ", KeywordList({"\xC3\xA9t"}), "....."},
        {"case-sensitive when asked", "INT x", KeywordList({"Int"}), ".....", true},
    };
    for (auto& c : cases) {
        PaintHarness h(c.text);
        h.settings.CaseSensitive = c.caseSensitive;
        EXPECT_EQ(KeywordCoder(h.ctx, c.first, int64_t(c.text.size()), c.list, ColorSlot::Keywords0,
                               false),
                  PassResult::Done)
            << c.name;
        EXPECT_EQ(h.Show(), c.painted) << c.name;
    }
}

TEST(PainterDelimiters, PairsAndFlags) {
    struct Case {
        const char* name;
        std::string text;
        std::string opener, closer;
        int32_t colourClass;
        std::string painted;
        int32_t classAfter;
        int64_t last = -1; // -1: the end of the text
        PaintFlags before = kStale, after = kClean;
    };
    const std::vector<Case> cases = {
        {"comment", "a /* b */ c", "/*", "*/", 1, "..4444444..", 1},
        {"line end closer in any case", "rem a\r\nb", "rem", "\r\n", 3, "6666666.", 3},
        // The next opener is looked for from one behind the closer's start.
        {"closer tail opens again", "ababa", "ab", "ba", 1, "44444", 1},
        {"no nesting", "/* /* */ */", "/*", "*/", 1, "44444444...", 1},
        {"case-sensitive always", "REM x\r\n", "rem", "\r\n", 1, ".......", 1},
        {"class 0 paints as Comment", "<a>", "<", ">", 0, "444", 1},
        {"opener without closer ends the search", "/* a */ /* b */", "/*", "x", 1,
         "...............", 1},
        // A pair closing behind last is painted and ends the call with CodingInProgress set
        // and ChangedHighLight as it was.
        {"pair across the range end", "a /* b */ /* c */", "/*", "*/", 1, "..4444444........", 1, 3,
         kStale, kRunningStale},
        // The class is clamped before the guard that returns while a pass runs.
        {"a running pass", "a /* b */", "/*", "*/", 0, ".........", 1, -1, kRunningStale,
         kRunningStale},
    };
    for (auto& c : cases) {
        PaintHarness h(c.text);
        h.settings.CaseSensitive = false;
        h.flags = c.before;
        int32_t cls = c.colourClass;
        int64_t last = c.last < 0 ? int64_t(c.text.size()) : c.last;
        EXPECT_EQ(CodeDelimiters(h.ctx, 0, last, c.opener, c.closer, cls),
                  c.before.CodingInProgress ? PassResult::Skipped : PassResult::Done)
            << c.name;
        EXPECT_EQ(h.Show(), c.painted) << c.name;
        EXPECT_EQ(cls, c.classAfter) << c.name;
        EXPECT_EQ(FlagPair(h.flags), FlagPair(c.after)) << c.name;
    }
}

TEST(PainterPasses, YieldsByTimeAndStopsWhenTheTextChanged) {
    std::string text;
    while (text.size() < 300000) text += "int x; /* c */ \"s\"\r\n";
    struct Case {
        const char* name;
        std::chrono::milliseconds interval;
        bool goOn;
        PassResult result;
    };
    const std::vector<Case> cases = {{"text changed", 0ms, false, PassResult::Aborted},
                                     {"goes on", 0ms, true, PassResult::Done},
                                     {"no time used up", 1h, false, PassResult::Done}};
    for (auto& c : cases) {
        for (int pass = 0; pass < 3; ++pass) {
            PaintHarness h(text);
            h.settings.Keywords = {"int\xFF", "", ""};
            SetPairs(h.settings, {{"/*", "*/", 1}, {"\"", "\"", 2}});
            int calls = 0;
            h.ctx.YieldInterval = c.interval;
            h.ctx.Yield = [&calls, &c] { return ++calls, c.goOn; };
            PassResult r = pass == 0   ? ColorCode(h.ctx)
                           : pass == 1 ? CodePassage(h.ctx, 0, int64_t(text.size()))
                                       : CodeLine(h.ctx, 0, int64_t(text.size()));
            EXPECT_EQ(r, c.result) << c.name << " pass " << pass;
            if (c.result == PassResult::Aborted) {
                EXPECT_EQ(calls, 1) << c.name << ": stops at the first refusal";
                EXPECT_EQ(FlagPair(h.flags), FlagPair(kStale)) << c.name << ": runs again later";
                // Keywords come first (CodeOrder true): no pair was painted after the stop.
                EXPECT_EQ(h.Show().find('4'), std::string::npos) << c.name;
            } else {
                EXPECT_FALSE(h.flags.ChangedHighLight) << c.name;
                // By time, not per find: there are 45000 finds here.
                EXPECT_LT(calls, int(text.size() / 1000)) << c.name;
                if (c.interval.count() > 0)
                    EXPECT_EQ(calls, 0) << c.name;
                else
                    EXPECT_GT(calls, 0) << c.name;
            }
        }
    }
}
