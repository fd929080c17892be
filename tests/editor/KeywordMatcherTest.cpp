// The word-by-word scan of long stretches against the automaton, which steps through every
// byte: both must colour every position alike, on random texts and lists in both case modes.
// The automaton itself is checked against the literal reference painter elsewhere.
#include "editor/core/KeywordMatcher.h"

#include "base/EditorSettings.h"

#include <gtest/gtest.h>

#include <random>

namespace {

// Pieces that make words, lead words with a digit or blank behind them ("ab1", "a b"),
// keywords that can hide their own finds ("a1a", "1"), high bytes and both cases.
const std::vector<std::string> kPieces = {"a",    "b",    "A",   "B",   "ab",  " ",    " ",
                                          "1",    "_",    "@",   "[",   "#",   "\r\n", "\xC3\xA9",
                                          "\xFF", "\x80", "ab1", "a b", "a1a", "Ba"};

struct Random {
    std::mt19937 gen;
    explicit Random(unsigned seed) : gen(seed) {}
    int Int(int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(gen); }
    const std::string& Pick() { return kPieces[size_t(Int(0, int(kPieces.size()) - 1))]; }
    std::string Text(size_t size) {
        std::string t;
        while (t.size() < size) t += Pick();
        return t;
    }
    std::string List() {
        std::string l;
        for (int i = Int(0, 8); i > 0; --i) {
            std::string k;
            for (int j = Int(1, 3); j > 0; --j) k += Pick();
            l += k + kKeywordSeparator;
        }
        return l;
    }
};

std::vector<uint8_t> Painted(const KeywordMatcher& m, std::string_view text, int64_t wordScanFrom) {
    static const ColorSlot slots[3] = {KeywordSlot(0), KeywordSlot(1), KeywordSlot(2)};
    SlotBuffer b(0, int64_t(text.size()));
    b.Paint(0, int64_t(text.size()), ColorSlot::Text);
    EXPECT_TRUE(m.Paint(text, 0, slots, b, {}, {}, wordScanFrom));
    return {b.Data(), b.Data() + b.Size()};
}

} // namespace

TEST(KeywordMatcher, WordScanMatchesTheAutomaton) {
    constexpr int64_t kWordScan = 0, kAutomaton = int64_t(1) << 62;
    for (unsigned seed = 1; seed <= 3000; ++seed) {
        Random r(seed);
        const std::string l0 = r.List(), l1 = r.List(), l2 = r.List();
        const KeywordMatcher m({l0, l1, l2}, r.Int(0, 1) == 1);
        const std::string text = r.Text(size_t(r.Int(0, 200)));
        ASSERT_EQ(Painted(m, text, kWordScan), Painted(m, text, kAutomaton)) << "seed " << seed;
    }
}

// Words of 15 to 20 bytes around the 16 that a lookup key holds, once in a short list (one
// place per word) and once among 3,000 others (too many for that: two places per word).
TEST(KeywordMatcher, LongWordsAndLongLists) {
    const std::vector<std::string> longWords = {"abcdefghijklmno",   "abcdefghijklmnop",
                                                "abcdefghijklmnopq", "abcdefghijklmnopqrst",
                                                "ABCDEFGHIJKLMNOPQ", "abcdefghijklmnop1x"};
    std::vector<std::string> many;
    for (int i = 0; i < 3000; ++i) {
        std::string w = "k";
        for (int v = i; v > 0; v /= 26) w += char('a' + v % 26);
        many.push_back(w);
    }
    for (bool large : {false, true}) {
        std::mt19937 gen(large ? 3 : 4);
        auto pick = [&](const std::vector<std::string>& v) {
            return v[std::uniform_int_distribution<size_t>(0, v.size() - 1)(gen)];
        };
        std::string list0, list1;
        for (size_t i = 0; i < longWords.size(); i += 2) list0 += longWords[i] + kKeywordSeparator;
        for (size_t i = 1; i < longWords.size(); i += 2) list1 += longWords[i] + kKeywordSeparator;
        if (large)
            for (auto& w : many) list1 += w + kKeywordSeparator;
        const std::vector<std::string> gaps = {" ", "1", "\r\n", "(", "x"};
        std::string text;
        while (text.size() < 40000) text += (gen() % 2 ? pick(longWords) : pick(many)) + pick(gaps);
        for (bool caseSensitive : {true, false}) {
            const KeywordMatcher m({list0, list1, ""}, caseSensitive);
            EXPECT_EQ(Painted(m, text, 0), Painted(m, text, int64_t(1) << 62))
                << (large ? "long list" : "short list") << (caseSensitive ? "" : ", any case");
        }
    }
}

// A word of more than 16 bytes has the key of the 16-byte lead word that it begins with; a
// lookup that lands on that lead word's place must still tell the two apart.
TEST(KeywordMatcher, WordsLongerThanASixteenByteKeyword) {
    // Short lists, each in a small table with a seed of its own, so that some of the longer
    // words land on their lead word's place.
    for (char list = 'a'; list < 'k'; ++list) {
        std::string keywords, text;
        for (char i = 'a'; i < 'i'; ++i) {
            const std::string w = "sixteen_bytes_" + std::string{list, i};
            keywords += w + kKeywordSeparator;
            for (size_t more = 1; more <= 60; ++more) text += w + std::string(more, 'z') + " ";
        }
        const KeywordMatcher m({keywords}, true);
        EXPECT_EQ(Painted(m, text, 0), Painted(m, text, int64_t(1) << 62)) << list;
    }
}
