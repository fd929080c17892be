// The painter against the literal reference painter on random texts, lists and delimiter
// tables: every pass, every range, both case modes, deterministic seeds.
#include "editor/PaintHarness.h"
#include "editor/ReferencePainter.h"

#include <gtest/gtest.h>

#include <random>

namespace {

// Small alphabets, so that keywords overlap, repeat and sit next to every kind of neighbour:
// letters of both cases, the boundary edges "@" (64) and "A" (65), "_", "[", digits, blanks,
// line ends, the list separator and high bytes.
const std::vector<std::string> kTextPieces = {
    "a",  "b", "A", "B",  "ab", "ba", " ", " ",    "_",        "@",        "[",    "1", "\r\n",
    "\t", "/", "*", "/*", "*/", "\"", "'", "\xFF", "\xC3\xA9", "\xC3\x89", "\x80", "x"};
const std::vector<std::string> kKeyPieces = {"a", "b", "A", "B",        "a",    "b", " ",
                                             "_", "@", "1", "\xC3\xA9", "\xC3", "/", "*"};
const std::vector<std::string> kDelimiters = {"/*", "*/", "/",  "*",  "\"", "'", "\r\n",
                                              "\n", "a",  "ab", "ba", "A",  "",  "\xC3\xA9"};

struct Random {
    std::mt19937 gen;
    explicit Random(unsigned seed) : gen(seed) {}
    int Int(int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(gen); }
    bool Chance(int percent) { return Int(1, 100) <= percent; }
    const std::string& Pick(const std::vector<std::string>& v) {
        return v[size_t(Int(0, int(v.size()) - 1))];
    }

    std::string Text() {
        std::string t;
        for (int i = Int(0, 60); i > 0; --i) t += Pick(kTextPieces);
        return t;
    }
    std::string Keyword() {
        std::string k;
        for (int i = Int(1, 4); i > 0; --i) k += Pick(kKeyPieces);
        if (Chance(10)) k = " " + k; // trimmed by the coder
        return k;
    }
    std::string List() {
        if (Chance(20)) return "";
        std::string l;
        for (int i = Int(0, 6); i > 0; --i) {
            l += Chance(5) ? std::string(Chance(50) ? "" : "  ") : Keyword();
            l += '\xFF';
        }
        if (Chance(15)) l += Keyword(); // no final separator: the last word is lost
        if (Chance(5)) l += "  ";
        return l;
    }
    void Settings(EditorSettings& s) {
        for (auto& l : s.Keywords) l = List();
        for (auto& d : s.Delimiters) {
            d = {};
            if (Chance(50))
                d = {Pick(kDelimiters), Chance(20) ? "\r\n" : Pick(kDelimiters), Int(-1, 5)};
        }
        s.CaseSensitive = Chance(50);
        s.CodeOrder = Chance(50);
    }
    PaintFlags Flags() { return {Chance(20), Chance(80)}; }
};

void Expect(const PaintHarness& fast, const RefDocument& ref, const char* pass, unsigned seed) {
    const std::string what = std::string(pass) + " seed " + std::to_string(seed);
    ASSERT_EQ(fast.Slots(), ref.slots) << what;
    EXPECT_EQ(FlagPair(fast.flags), FlagPair(ref.flags)) << what;
    EXPECT_EQ(fast.captions, ref.captions) << what;
    EXPECT_EQ(fast.settings.Delimiters, ref.settings.Delimiters) << what;
}

// A target with no bytes of its own: a whole-document pass hands it each stretch run by run.
struct RunsOnly final : PaintTarget {
    SlotBuffer& to;
    explicit RunsOnly(SlotBuffer& slots) : to(slots) {}
    void Paint(int64_t start, int64_t length, ColorSlot slot) override {
        to.Paint(start, length, slot);
    }
};

// Both painters set up alike from one seed.
struct Pair {
    PaintHarness fast;
    RefDocument ref;
    Pair(Random& r, const std::string& text) : fast(text), ref(text) {
        r.Settings(fast.settings);
        fast.flags = r.Flags();
        ref.settings = fast.settings;
        ref.flags = fast.flags;
    }
};

} // namespace

// Every pass on one random text per seed, each with settings, flags and a range of its own.
TEST(PainterCrossCheck, EveryPass) {
    for (unsigned seed = 1; seed <= 1500; ++seed) {
        Random r(seed);
        const std::string text = r.Text();
        const int64_t n = int64_t(text.size());
        {
            // In stretches down to a byte, so that finds and pairs reach across them; every
            // other seed into a target that takes them run by run.
            Pair p(r, text);
            RunsOnly runs(p.fast.slots);
            PaintContext viaRuns{text, p.fast.settings,    p.fast.flags, runs,
                                 {},   p.fast.ctx.Progress};
            PaintContext& ctx = seed % 2 ? viaRuns : p.fast.ctx;
            ctx.StretchBytes = r.Int(1, 160);
            ColorCode(ctx);
            RefColorCode(p.ref);
            Expect(p.fast, p.ref, "ColorCode", seed);
        }
        // The coders' range may reach past the text.
        const int64_t first = r.Int(0, int(n)), last = first + r.Int(0, int(n - first) + 3);
        {
            bool progress = r.Chance(50);
            Pair p(r, text);
            KeywordCoder(p.fast.ctx, first, last, p.fast.settings.Keywords[0], ColorSlot::Keywords2,
                         progress);
            RefKeywordCoder(p.ref, first, last, p.ref.settings.Keywords[0], 3, progress);
            Expect(p.fast, p.ref, "KeywordCoder", seed);
        }
        {
            Pair p(r, text);
            std::string open = r.Pick(kDelimiters), close = r.Pick(kDelimiters);
            int32_t c1 = r.Int(-1, 5), c2 = c1;
            CodeDelimiters(p.fast.ctx, first, last, open, close, c1);
            RefCodeDelimiters(p.ref, first, last, open, close, c2);
            EXPECT_EQ(c1, c2) << "CodeDelimiters seed " << seed;
            Expect(p.fast, p.ref, "CodeDelimiters", seed);
        }
        {
            // A real line of the text: from a line start to its CR LF or the end.
            std::vector<int64_t> starts{0};
            for (size_t i = text.find("\r\n"); i != std::string::npos; i = text.find("\r\n", i + 2))
                starts.push_back(int64_t(i) + 2);
            int64_t a = starts[size_t(r.Int(0, int(starts.size()) - 1))];
            size_t e = text.find("\r\n", size_t(a));
            int64_t len = (e == std::string::npos ? n : int64_t(e)) - a;
            Pair p(r, text);
            CodeLine(p.fast.ctx, a, len);
            RefCodeLine(p.ref, a, len);
            Expect(p.fast, p.ref, "CodeLine", seed);
        }
        {
            // A passage ends inside the text.
            const int64_t from = r.Int(0, int(n)), to = from + r.Int(0, int(n - from));
            Pair p(r, text);
            CodePassage(p.fast.ctx, from, to);
            RefCodePassage(p.ref, from, to);
            Expect(p.fast, p.ref, "CodePassage", seed);
        }
        if (HasFatalFailure()) return;
    }
}

// Long texts of a C-like shape, where the automaton's blocks and its cache are exercised; the
// last ones are long enough for the word scan on two threads with the pairs searched beside
// it. Some are painted in several stretches, one into a target without bytes of its own.
TEST(PainterCrossCheck, LongTexts) {
    const std::vector<std::string> words = {"int",  "interrupt", "print", "for", "format", "if",
                                            "elif", "  ",        "\r\n",  "/* ", " */",    "\"s\"",
                                            "(",    ");",        "2for",  "_if", "IF",     "Int"};
    for (unsigned seed = 1; seed <= 6; ++seed) {
        Random r(seed);
        std::string text;
        while (text.size() < (seed <= 4 ? 150000u : 1300000u)) text += r.Pick(words);
        Pair p(r, text);
        if (seed > 4) {
            // Pairs near and far apart, one of them across the middle of the text.
            p.fast.settings.CodeOrder = seed == 5;
            p.fast.settings.Delimiters = {};
            p.fast.settings.Delimiters[0] = {"/* ", " */", 1};
            p.fast.settings.Delimiters[2] = {"if", "elif", 2};
            p.fast.settings.Delimiters[3] = {"\"", "\"", 0};
        }
        p.fast.settings.Keywords = {"int\xFF"
                                    "for\xFF",
                                    "if\xFF"
                                    "print\xFF"
                                    "in\xFF",
                                    "t\xFF"};
        p.fast.flags = {false, true};
        p.ref.settings = p.fast.settings;
        p.ref.flags = p.fast.flags;
        RunsOnly runs(p.fast.slots);
        PaintContext viaRuns{text, p.fast.settings, p.fast.flags, runs, {}, p.fast.ctx.Progress};
        PaintContext& ctx = seed == 4 ? viaRuns : p.fast.ctx;
        if (seed == 3 || seed == 4) ctx.StretchBytes = 20000;
        if (seed >= 5) ctx.StretchBytes = 300000;
        ColorCode(ctx);
        RefColorCode(p.ref);
        Expect(p.fast, p.ref, "long ColorCode", seed);
    }
}
