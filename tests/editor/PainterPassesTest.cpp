// Delimiter pairs and the three passes: results one character per byte as in the keyword
// tests, and the flag effects that the passes depend on.
#include "editor/PaintHarness.h"

#include <gtest/gtest.h>

namespace {

struct DelimiterCase {
    const char* name;
    std::string text;
    std::string opener, closer;
    int32_t colourClass;
    std::string painted;
    int32_t classAfter;
    int64_t last = -1; // -1: the end of the text
};

void SetPairs(EditorSettings& s, std::vector<DelimiterPair> pairs) {
    for (size_t i = 0; i < s.Delimiters.size(); ++i)
        s.Delimiters[i] = i < pairs.size() ? pairs[i] : DelimiterPair{};
}

} // namespace

TEST(PainterDelimiters, Pairs) {
    const std::vector<DelimiterCase> cases = {
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
        {"pair behind the range is painted", "ab /* c */ /* d */", "/*", "*/", 1,
         "...4444444........", 1, 1},
        {"pair across the range end", "a /* b */ /* c */", "/*", "*/", 1, "..4444444........", 1,
         3},
    };
    for (auto& c : cases) {
        PaintHarness h(c.text);
        h.settings.CaseSensitive = false;
        int32_t cls = c.colourClass;
        int64_t last = c.last < 0 ? int64_t(c.text.size()) : c.last;
        EXPECT_EQ(CodeDelimiters(h.ctx, 0, last, c.opener, c.closer, cls), PassResult::Done)
            << c.name;
        EXPECT_EQ(h.Show(), c.painted) << c.name;
        EXPECT_EQ(cls, c.classAfter) << c.name;
    }
}

TEST(PainterDelimiters, Flags) {
    struct Case {
        const char* name;
        std::string text;
        int64_t last;
        PaintFlags before, after;
        std::string painted;
    };
    const std::vector<Case> cases = {
        {"normal end clears both", "a /* b */", 9, {false, true}, {false, false}, "..4444444"},
        {"no pair clears both", "abc", 3, {false, true}, {false, false}, "..."},
        {"stop behind the range keeps ChangedHighLight",
         "a /* b */",
         2,
         {false, true},
         {true, true},
         "..4444444"},
        {"stop behind the range, ChangedHighLight clear",
         "a /* b */",
         2,
         {false, false},
         {true, false},
         "..4444444"},
        {"a running pass makes it return", "a /* b */", 9, {true, true}, {true, true}, "........."},
    };
    for (auto& c : cases) {
        PaintHarness h(c.text);
        h.flags = c.before;
        int32_t cls = 0;
        CodeDelimiters(h.ctx, 0, c.last, "/*", "*/", cls);
        EXPECT_EQ(h.flags.CodingInProgress, c.after.CodingInProgress) << c.name;
        EXPECT_EQ(h.flags.ChangedHighLight, c.after.ChangedHighLight) << c.name;
        EXPECT_EQ(h.Show(), c.painted) << c.name;
        EXPECT_EQ(cls, 1) << c.name << ": the class is clamped before the guard";
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
    const std::vector<Case> cases = {
        {"keywords first, delimiters over them",
         true,
         {false, true},
         "111044444444405555",
         {"1 Keywords/Identifiers Coded...", "1 Keywords/Identifiers Coded...",
          "Coding Bracers and Delimiters..."}},
        {"delimiters first, keywords over them",
         false,
         {false, true},
         "111044411144405225",
         {"Coding Bracers and Delimiters...", "1 Keywords/Identifiers Coded...",
          "1 Keywords/Identifiers Coded..."}},
        {"nothing stale", true, {false, false}, std::string(18, '.'), {}},
        {"a pass running", true, {true, true}, std::string(18, '.'), {}},
    };
    for (auto& c : cases) {
        PaintHarness h(text);
        h.settings.Keywords = {"int\xFF", "if\xFF", ""};
        h.settings.CodeOrder = c.codeOrder;
        SetPairs(h.settings, {{"/*", "*/", 1}, {"\"", "\"", 2}, {"", "x", 3}, {"x", "", 3}});
        h.flags = c.before;
        PassResult r = ColorCode(h.ctx);
        EXPECT_EQ(r, c.painted[0] == '.' ? PassResult::Skipped : PassResult::Done) << c.name;
        EXPECT_EQ(h.Show(), c.painted) << c.name;
        EXPECT_EQ(h.captions, c.captions) << c.name;
        if (r == PassResult::Done) {
            EXPECT_FALSE(h.flags.CodingInProgress) << c.name;
            EXPECT_FALSE(h.flags.ChangedHighLight) << c.name;
        } else {
            EXPECT_EQ(h.flags.CodingInProgress, c.before.CodingInProgress) << c.name;
            EXPECT_EQ(h.flags.ChangedHighLight, c.before.ChangedHighLight) << c.name;
        }
    }
}

TEST(PainterPasses, ColorCodeEdges) {
    PaintHarness empty("");
    empty.settings.Keywords = {"a\xFF", "", ""};
    SetPairs(empty.settings, {{"/*", "*/", 9}});
    EXPECT_EQ(ColorCode(empty.ctx), PassResult::Done);
    EXPECT_EQ(empty.slots.Size(), 0);
    EXPECT_FALSE(empty.flags.ChangedHighLight);
    EXPECT_EQ(empty.settings.Delimiters[0].DelimiterColor, 1); // handed back clamped

    // A pair used nowhere keeps its class: only pairs with both ends are coded.
    PaintHarness unused("a");
    SetPairs(unused.settings, {{"/*", "", 9}});
    ColorCode(unused.ctx);
    EXPECT_EQ(unused.settings.Delimiters[0].DelimiterColor, 9);
    EXPECT_EQ(unused.Show(), "0");
}

TEST(PainterPasses, CodeLine) {
    struct Case {
        const char* name;
        std::string text;
        int64_t lineStart, lineLength;
        bool codeOrder;
        std::string painted;
    };
    // Pairs: "/*" "*/" class 1, quote class 2, "'" with no closer (coded by CodeLine only).
    const std::vector<Case> cases = {
        {"line with its line end", "a if\r\nif b", 0, 4, true, "001100...."},
        {"last line without line end", "x\r\nb if", 3, 4, true, "...0011"},
        // Delimiter range a + 2 + n = 5: the pair closing at 4 goes on to the one at 5..6.
        {"delimiter range two longer", "x\r\n\"\"\"\"\"\"", 0, 1, true, "0005555.."},
        {"each pair starts with the flag clear", "x\r\n/* */ \"s\"", 0, 1, true, "00044444.555"},
        {"keyword over delimiters when CodeOrder false", "/* if */", 0, 8, false, "44411444"},
        {"delimiters over keywords when CodeOrder true", "/* if */", 0, 8, true, "44444444"},
        // A pair without closer paints its opener's first byte, as an empty closer is found
        // at once.
        {"empty closer", "x ' y", 0, 5, true, "00400"},
    };
    for (auto& c : cases) {
        PaintHarness h(c.text);
        h.settings.Keywords = {"if\xFF", "", ""};
        h.settings.CodeOrder = c.codeOrder;
        SetPairs(h.settings, {{"/*", "*/", 1}, {"\"", "\"", 2}, {"'", "", 1}});
        EXPECT_EQ(CodeLine(h.ctx, c.lineStart, c.lineLength), PassResult::Done) << c.name;
        EXPECT_EQ(h.Show(), c.painted) << c.name;
        EXPECT_FALSE(h.flags.CodingInProgress) << c.name;
        EXPECT_FALSE(h.flags.ChangedHighLight) << c.name;
        EXPECT_TRUE(h.captions.empty()) << c.name;
    }
    // Guards: nothing painted, and CodingInProgress is clear afterwards either way.
    for (PaintFlags before :
         {PaintFlags{true, true}, PaintFlags{false, false}, PaintFlags{true, false}}) {
        PaintHarness h("if\r\n");
        h.settings.Keywords = {"if\xFF", "", ""};
        h.flags = before;
        EXPECT_EQ(CodeLine(h.ctx, 0, 2), PassResult::Skipped);
        EXPECT_EQ(h.Show(), "....");
        EXPECT_FALSE(h.flags.CodingInProgress);
        EXPECT_EQ(h.flags.ChangedHighLight, before.ChangedHighLight);
    }
}

TEST(PainterPasses, CodePassage) {
    struct Case {
        const char* name;
        std::array<std::string, 3> lists;
        bool codeOrder;
        int64_t first, last;
        std::string painted;
    };
    const std::string text = "if /* if */ \"if\" if";
    const std::vector<Case> cases = {
        {"keywords, then delimiters", {"if\xFF", "", ""}, true, 0, 19, "1104444444405555011"},
        {"delimiters first paint nothing", {"if\xFF", "", ""}, false, 0, 19, "1100001100000110011"},
        {"all lists empty: no delimiters", {"", "", ""}, true, 0, 19, std::string(19, '0')},
        {"a blank list is not empty", {"  ", "", ""}, true, 0, 19, "0004444444405555000"},
        // The comment closes behind last: it is painted, and the string pair is not.
        {"a pair stopping behind last ends the pairs",
         {"if\xFF", "", ""},
         true,
         0,
         5,
         "11044444444........"},
        {"range inside", {"if\xFF", "", ""}, true, 3, 6, "...44444444........"},
    };
    for (auto& c : cases) {
        PaintHarness h(text);
        h.settings.Keywords = c.lists;
        h.settings.CodeOrder = c.codeOrder;
        SetPairs(h.settings, {{"/*", "*/", 1}, {"\"", "\"", 2}});
        EXPECT_EQ(CodePassage(h.ctx, c.first, c.last), PassResult::Done) << c.name;
        EXPECT_EQ(h.Show(), c.painted) << c.name;
        EXPECT_FALSE(h.flags.CodingInProgress) << c.name;
        EXPECT_FALSE(h.flags.ChangedHighLight) << c.name;
    }

    struct GuardCase {
        const char* name;
        int64_t first, last;
        PaintFlags before, after;
    };
    for (auto& g : std::vector<GuardCase>{
             {"empty passage clears CodingInProgress", 3, 3, {true, true}, {false, true}},
             {"empty passage, nothing stale", 3, 3, {true, false}, {false, false}},
             {"a pass running", 0, 4, {true, true}, {true, true}},
             {"nothing stale", 0, 4, {false, false}, {false, false}}}) {
        PaintHarness h(text);
        h.settings.Keywords = {"if\xFF", "", ""};
        h.flags = g.before;
        EXPECT_EQ(CodePassage(h.ctx, g.first, g.last), PassResult::Skipped) << g.name;
        EXPECT_EQ(h.slots.Size(), 0) << g.name;
        EXPECT_EQ(h.flags.CodingInProgress, g.after.CodingInProgress) << g.name;
        EXPECT_EQ(h.flags.ChangedHighLight, g.after.ChangedHighLight) << g.name;
    }
}

TEST(PainterPasses, YieldsByTimeAndStopsWhenTheTextChanged) {
    std::string text;
    while (text.size() < 300000) text += "int x; /* c */ \"s\"\r\n";
    auto setUp = [](PaintHarness& h, std::chrono::milliseconds interval, bool goOn, int& calls) {
        h.settings.Keywords = {"int\xFF", "", ""};
        SetPairs(h.settings, {{"/*", "*/", 1}, {"\"", "\"", 2}});
        h.ctx.YieldInterval = interval;
        h.ctx.Yield = [&calls, goOn] { return ++calls, goOn; };
    };
    struct Case {
        const char* name;
        std::chrono::milliseconds interval;
        bool goOn;
        PassResult result;
    };
    for (auto& c : std::vector<Case>{
             {"text changed", std::chrono::milliseconds(0), false, PassResult::Aborted},
             {"goes on", std::chrono::milliseconds(0), true, PassResult::Done},
             {"no time used up", std::chrono::hours(1), false, PassResult::Done}}) {
        for (int pass = 0; pass < 3; ++pass) {
            PaintHarness h(text);
            int calls = 0;
            setUp(h, c.interval, c.goOn, calls);
            PassResult r = pass == 0   ? ColorCode(h.ctx)
                           : pass == 1 ? CodePassage(h.ctx, 0, int64_t(text.size()))
                                       : CodeLine(h.ctx, 0, int64_t(text.size()));
            EXPECT_EQ(r, c.result) << c.name << " pass " << pass;
            if (c.result == PassResult::Aborted) {
                EXPECT_EQ(calls, 1) << c.name << ": stops at the first refusal";
                EXPECT_FALSE(h.flags.CodingInProgress) << c.name;
                EXPECT_TRUE(h.flags.ChangedHighLight) << c.name << ": runs again later";
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
