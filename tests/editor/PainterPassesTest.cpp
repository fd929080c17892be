// Delimiter pairs and the three passes: results one character per byte as in the keyword
// tests, and the flag effects that the passes depend on.
#include "editor/PaintHarness.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {

void SetPairs(EditorSettings& s, std::vector<DelimiterPair> pairs) {
    for (size_t i = 0; i < s.Delimiters.size(); ++i)
        s.Delimiters[i] = i < pairs.size() ? pairs[i] : DelimiterPair{};
}

} // namespace

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
        {"slash star slash is complete", "/*/", "/*", "*/", 1, "444", 1},
        {"unterminated string stays", "x \"abc", "\"", "\"", 2, "......", 2},
        {"two strings", "\"a\" \"b\"", "\"", "\"", 2, "555.555", 2},
        {"line comment ends with LF", "// a\r\nb", "//", "\r\n", 3, "666666.", 3},
        {"line end closer in any case", "rem a\r\nb", "rem", "\r\n", 3, "6666666.", 3},
        // The next opener is looked for from one behind the closer's start.
        {"closer tail opens again", "ababa", "ab", "ba", 1, "44444", 1},
        {"no nesting", "/* /* */ */", "/*", "*/", 1, "44444444...", 1},
        {"case-sensitive always", "REM x\r\n", "rem", "\r\n", 1, ".......", 1},
        {"class 0 paints as Comment", "<a>", "<", ">", 0, "444", 1},
        {"class above 3", "<a>", "<", ">", 4, "444", 1},
        {"negative class", "<a>", "<", ">", -2147483640, "444", 1},
        {"class 3 kept", "<a>", "<", ">", 3, "666", 3},
        {"opener without closer ends the search", "/* a */ /* b */", "/*", "x", 1,
         "...............", 1},
        // A pair closing behind last is painted and ends the call with CodingInProgress set
        // and ChangedHighLight as it was.
        {"pair behind the range", "ab /* c */ /* d */", "/*", "*/", 1, "...4444444........", 1, 1,
         kStale, kRunningStale},
        {"pair across the range end", "a /* b */ /* c */", "/*", "*/", 1, "..4444444........", 1, 3,
         kStale, kRunningStale},
        {"pair behind the range, nothing stale", "a /* b */", "/*", "*/", 1, "..4444444", 1, 2,
         kClean, kRunningClean},
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

TEST(PainterPasses, ColorCodeOrderAndGuards) {
    struct Case {
        const char* name;
        bool codeOrder;
        PaintFlags before;
        std::string painted;
        std::vector<std::string> captions;
    };
    const std::string text = "int /* int */ \"if\"";
    const std::string k = "1 Keywords/Identifiers Coded...", d = "Coding Bracers and Delimiters...";
    const std::vector<Case> cases = {
        {"keywords first, delimiters over them", true, kStale, "111044444444405555", {k, k, d}},
        {"delimiters first, keywords over them", false, kStale, "111044411144405225", {d, k, k}},
        {"nothing stale", true, kClean, std::string(18, '.'), {}},
        {"a pass running", true, kRunningStale, std::string(18, '.'), {}},
    };
    for (auto& c : cases) {
        PaintHarness h(text);
        h.settings.Keywords = {"int\xFF", "if\xFF", ""};
        h.settings.CodeOrder = c.codeOrder;
        // Only pairs with both ends are coded: the last two keep their class unclamped.
        SetPairs(h.settings, {{"/*", "*/", 0}, {"\"", "\"", 2}, {"", "x", 9}, {"x", "", 9}});
        h.flags = c.before;
        const bool done = c.painted[0] != '.';
        EXPECT_EQ(ColorCode(h.ctx), done ? PassResult::Done : PassResult::Skipped) << c.name;
        EXPECT_EQ(h.Show(), c.painted) << c.name;
        EXPECT_EQ(h.captions, c.captions) << c.name;
        EXPECT_EQ(FlagPair(h.flags), FlagPair(done ? kClean : c.before)) << c.name;
        EXPECT_EQ(h.settings.Delimiters[0].DelimiterColor, done ? 1 : 0) << c.name;
        EXPECT_EQ(h.settings.Delimiters[2].DelimiterColor, 9) << c.name;
        EXPECT_EQ(h.settings.Delimiters[3].DelimiterColor, 9) << c.name;
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
        std::array<std::string, 3> lists = {"if\xFF", "", ""};
    };
    const std::string s = "if /* if */ \"if\" if";
    const std::vector<Case> cases = {
        {"line with its line end", true, "a if\r\nif b", 0, 4, "001100...."},
        {"last line without line end", true, "x\r\nb if", 3, 4, "...0011"},
        // Delimiter range a + 2 + n = 5: the pair closing at 4 goes on to the one at 5..6.
        {"delimiter range two longer", true, "x\r\n\"\"\"\"\"\"", 0, 1, "0005555.."},
        {"each pair starts with the flag clear", true, "x\r\n/* */ \"s\"", 0, 1, "00044444.555"},
        {"line, keyword over delimiters", true, "/* if */", 0, 8, "44411444", false},
        {"line, delimiters over keywords", true, "/* if */", 0, 8, "44444444"},
        // A pair without closer paints its opener's first byte, as an empty closer is found
        // at once.
        {"empty closer", true, "x ' y", 0, 5, "00400"},

        // CodePassage holds CodingInProgress across its coders, so the delimiter coder
        // returns at once unless the keyword stage ran before it and cleared the flag.
        {"keywords, then delimiters", false, s, 0, 19, "1104444444405555011"},
        {"delimiters first paint nothing", false, s, 0, 19, "1100001100000110011", false},
        {"all lists empty: no delimiters", false, s, 0, 19, std::string(19, '0'), true, {}},
        {"a blank list is not empty", false, s, 0, 19, "0004444444405555000", true, {"  "}},
        // The comment closes behind last: it is painted, and the string pair is not.
        {"a pair behind last ends the pairs", false, s, 0, 5, "11044444444........"},
        {"range inside", false, s, 3, 6, "...44444444........"},
    };
    for (auto& c : cases) {
        PaintHarness h(c.text);
        h.settings.Keywords = c.lists;
        h.settings.CodeOrder = c.codeOrder;
        SetPairs(h.settings, {{"/*", "*/", 1}, {"\"", "\"", 2}, {"'", "", 1}});
        EXPECT_EQ(c.line ? CodeLine(h.ctx, c.a, c.b) : CodePassage(h.ctx, c.a, c.b),
                  PassResult::Done)
            << c.name;
        EXPECT_EQ(h.Show(), c.painted) << c.name;
        EXPECT_EQ(FlagPair(h.flags), FlagPair(kClean)) << c.name;
        EXPECT_TRUE(h.captions.empty()) << c.name;
    }

    // Guards: nothing is painted. CodeLine leaves CodingInProgress clear either way, and so
    // does CodePassage over an empty range.
    struct GuardCase {
        const char* name;
        bool line;
        int64_t a, b;
        PaintFlags before, after;
    };
    const std::vector<GuardCase> guards = {
        {"line, a pass running", true, 0, 2, kRunningStale, kStale},
        {"line, nothing stale", true, 0, 2, kClean, kClean},
        {"line, running and nothing stale", true, 0, 2, kRunningClean, kClean},
        {"empty passage", false, 3, 3, kRunningStale, kStale},
        {"empty passage, nothing stale", false, 3, 3, kRunningClean, kClean},
        {"passage, a pass running", false, 0, 4, kRunningStale, kRunningStale},
        {"passage, nothing stale", false, 0, 4, kClean, kClean},
    };
    for (auto& g : guards) {
        PaintHarness h(s);
        h.settings.Keywords = {"if\xFF", "", ""};
        h.flags = g.before;
        EXPECT_EQ(g.line ? CodeLine(h.ctx, g.a, g.b) : CodePassage(h.ctx, g.a, g.b),
                  PassResult::Skipped)
            << g.name;
        EXPECT_EQ(h.slots.Size(), 0) << g.name;
        EXPECT_EQ(FlagPair(h.flags), FlagPair(g.after)) << g.name;
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
