// The painter's rules, one case for each, on small texts written one character per byte: the
// slot digit (1 to 3 keyword lists, 4 to 6 delimiter classes, 0 text) or '.' where nothing was
// painted. Every other combination of texts, ranges and flags is checked against the reference
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
        {"letter before", "xfor y", kFor, "......"},
        {"at sign (64) is a boundary", " for@", kFor, ".111."},
        {"A (65) is no boundary", " forA", kFor, "....."},
        {"high byte is no boundary", " for\xE9", kFor, "....."},
        {"range start makes a stretch start", "xformat", kFor, ".111...", false, 1},
        // The search goes on one byte behind a find's end: the first find is not coloured
        // (letter after it), and the second one is never found.
        {"skipped find at the end", " forfor", kFor, "......."},
        {"overlapping self", "aaaaa", KeywordList({"aa"}), "11.11"},
        // Reading the list: trimmed tokens up to the first empty one; only separated words.
        {"tokens are trimmed", "a for b", KeywordList({"  for  "}), "..111.."},
        {"blank token ends the list", "for while", KeywordList({"for", "  ", "while"}),
         "111......"},
        {"no final separator loses the last word", "for while", kFor + "while", "111......"},
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

TEST(PainterPasses, ColorCodeOrder) {
    const std::string k = "1 Keywords/Identifiers Coded...", d = "Coding Bracers and Delimiters...";
    for (bool codeOrder : {true, false}) {
        PaintHarness h("int /* int */ \"if\"");
        h.settings.Keywords = {KeywordList({"int"}), KeywordList({"if"}), ""};
        h.settings.CodeOrder = codeOrder;
        // Only pairs with both ends are coded: the last two keep their class unclamped.
        SetPairs(h.settings, {{"/*", "*/", 0}, {"\"", "\"", 2}, {"", "x", 9}, {"x", "", 9}});
        EXPECT_EQ(ColorCode(h.ctx), PassResult::Done);
        EXPECT_EQ(h.Show(), codeOrder ? "111044444444405555" : "111044411144405225");
        EXPECT_EQ(h.captions, (codeOrder ? std::vector{k, k, d} : std::vector{d, k, k}));
        EXPECT_EQ(FlagPair(h.flags), FlagPair(kClean));
        EXPECT_EQ(h.settings.Delimiters[0].DelimiterColor, 1);
        EXPECT_EQ(h.settings.Delimiters[2].DelimiterColor, 9);
        EXPECT_EQ(h.settings.Delimiters[3].DelimiterColor, 9);
    }
}

// CodeLine (a: line start, b: line length without its line end) and CodePassage (a: first,
// b: last) with the pairs "/*" "*/" class 1, quote class 2 and "'" without closer, which only
// CodeLine codes.
TEST(PainterPasses, LinesAndPassages) {
    struct Case {
        const char* name;
        bool line;
        std::string text;
        int64_t a, b;
        std::string painted;
        bool codeOrder = true;
    };
    const std::string s = "if /* if */ \"if\" if";
    const std::vector<Case> cases = {
        {"line with its line end", true, "a if\r\nif b", 0, 4, "001100...."},
        // Delimiter range a + 2 + n = 5: the pair closing at 4 goes on to the one at 5..6.
        {"delimiter range two longer", true, "x\r\n\"\"\"\"\"\"", 0, 1, "0005555.."},
        {"line, keyword over delimiters", true, "/* if */", 0, 8, "44411444", false},
        // A pair without closer paints its opener's first byte, as an empty closer is found
        // at once.
        {"empty closer", true, "x ' y", 0, 5, "00400"},
        // CodePassage holds CodingInProgress across its coders, so the delimiter coder
        // returns at once unless the keyword stage ran before it and cleared the flag.
        {"keywords, then delimiters", false, s, 0, 19, "1104444444405555011"},
        {"delimiters first paint nothing", false, s, 0, 19, "1100001100000110011", false},
        // The comment closes behind last: it is painted, and the string pair is not.
        {"a pair behind last ends the pairs", false, s, 0, 5, "11044444444........"},
    };
    for (auto& c : cases) {
        PaintHarness h(c.text);
        h.settings.Keywords = {KeywordList({"if"}), "", ""};
        h.settings.CodeOrder = c.codeOrder;
        SetPairs(h.settings, {{"/*", "*/", 1}, {"\"", "\"", 2}, {"'", "", 1}});
        EXPECT_EQ(c.line ? CodeLine(h.ctx, c.a, c.b) : CodePassage(h.ctx, c.a, c.b),
                  PassResult::Done)
            << c.name;
        EXPECT_EQ(h.Show(), c.painted) << c.name;
        EXPECT_EQ(FlagPair(h.flags), FlagPair(kClean)) << c.name;
        EXPECT_TRUE(h.captions.empty()) << c.name;
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
