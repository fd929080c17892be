// The keyword coder's rules on small texts. Results are written one character per byte: the
// slot digit (1 keyword list 0, 2 list 1, 3 list 2, 0 text) or '.' where nothing was painted.
#include "editor/PaintHarness.h"

#include "support/KeywordLists.h"

#include <gtest/gtest.h>

TEST(PainterKeywords, OneList) {
    struct Case {
        const char* name;
        std::string text;
        std::string list;
        std::string painted;
        bool caseSensitive = false;
        int64_t first = 0, last = -1; // -1: the end of the text
    };
    const std::vector<Case> cases = {
        // A find is coloured when the bytes on both sides are below 65 ("A"); at the stretch's
        // start or end the side outside is not looked at.
        {"at stretch start, right side ignored", "format", KeywordList({"for"}), "111..."},
        {"at stretch end, left side ignored", "xfor", KeywordList({"for"}), ".111"},
        {"letter before", "xfor y", KeywordList({"for"}), "......"},
        {"digit before and semicolon after", "2for;", KeywordList({"for"}), ".111."},
        {"digit after", " for2 ", KeywordList({"for"}), ".111.."},
        {"underscore is no boundary", "_for ", KeywordList({"for"}), "....."},
        {"square bracket is no boundary", " for[", KeywordList({"for"}), "....."},
        {"at sign (64) is a boundary", " for@", KeywordList({"for"}), ".111."},
        {"A (65) is no boundary", " forA", KeywordList({"for"}), "....."},
        {"DEL (127) is no boundary", " for\x7F", KeywordList({"for"}), "....."},
        {"high byte is no boundary", " for\xE9", KeywordList({"for"}), "....."},
        {"control character is a boundary", "\tfor\r\n", KeywordList({"for"}), ".111.."},
        {"whole stretch", "for", KeywordList({"for"}), "111"},
        {"range start makes a stretch start", "xformat", KeywordList({"for"}), ".111...", false, 1},
        {"range end makes a stretch end", "xfory", KeywordList({"for"}), ".111.", false, 0, 4},
        {"range beyond the text is cut", "a for", KeywordList({"for"}), "..111", false, 0, 99},
        {"empty range", "for", KeywordList({"for"}), "...", false, 2, 2},

        // The search goes on one byte behind a find's end.
        {"adjacent repeat is skipped", "forfor ", KeywordList({"for"}), "111...."},
        // The first find is not coloured (letter after it), and still the second one, which
        // would be coloured at the stretch end, is never found.
        {"skipped find at the end", " forfor", KeywordList({"for"}), "......."},
        {"one character between is enough", "for,for", KeywordList({"for"}), "111.111"},
        {"blank between", " for for", KeywordList({"for"}), ".111.111"},
        {"overlapping self", "aaaaa", KeywordList({"aa"}), "11.11"},

        // Reading the list: trimmed tokens up to the first empty one; only separated words.
        {"tokens are trimmed", "a for b", KeywordList({"  for  "}), "..111.."},
        {"empty token ends the list", "for while", KeywordList({"for", "", "while"}), "111......"},
        {"blank token ends the list", "for while", KeywordList({"for", "  ", "while"}),
         "111......"},
        {"no final separator loses the last word", "for while", KeywordList({"for"}) + "while",
         "111......"},
        {"no separator at all", "for", "for", "..."},
        {"phrase with a blank", "x end if;", KeywordList({"end if"}), "..111111."},
        {"phrase inner blanks kept", "end  if", KeywordList({"end if"}), "......."},
        {"high bytes in a keyword", " \xC3\xA9t ", KeywordList({"\xC3\xA9t"}), ".111."},
        {"keyword inside punctuation", "(1+2)", KeywordList({"+"}), "..1.."},
        {"case folds ASCII only", " \xC3\x89t ", KeywordList({"\xC3\xA9t"}), "....."},
        {"case-insensitive by default", "INT x", KeywordList({"Int"}), "111.."},
        {"case-sensitive when asked", "INT x", KeywordList({"Int"}), ".....", true},
        {"case-sensitive exact", "Int x", KeywordList({"Int"}), "111..", true},
    };
    for (auto& c : cases) {
        PaintHarness h(c.text);
        h.settings.CaseSensitive = c.caseSensitive;
        int64_t last = c.last < 0 ? int64_t(c.text.size()) : c.last;
        EXPECT_EQ(KeywordCoder(h.ctx, c.first, last, c.list, ColorSlot::Keywords0, false),
                  PassResult::Done)
            << c.name;
        EXPECT_EQ(h.Show(), c.painted) << c.name;
    }
}

TEST(PainterKeywords, LaterListsPaintOver) {
    struct Case {
        const char* name;
        std::array<std::string, 3> lists;
        std::string painted;
    };
    const std::vector<Case> cases = {
        {"later list over earlier", {KeywordList({"a b"}), KeywordList({"b"}), ""}, "01120"},
        {"earlier list under later", {KeywordList({"b"}), KeywordList({"a b"}), ""}, "02220"},
        {"third list last",
         {KeywordList({"a"}), KeywordList({"b"}), KeywordList({"a b"})},
         "03330"},
        {"same keyword twice: the last list wins",
         {KeywordList({"b"}), "", KeywordList({"B"})},
         "00030"},
    };
    for (auto& c : cases) {
        PaintHarness h(" a b ");
        h.settings.Keywords = c.lists;
        EXPECT_EQ(ColorCode(h.ctx), PassResult::Done) << c.name;
        EXPECT_EQ(h.Show(), c.painted) << c.name;
    }
}

// An empty list returns at once and leaves both flags as they were; any other list, a blank
// one too, clears both, whatever they were. With progress shown there is one caption per token
// taken, the empty token that ends the list included.
TEST(PainterKeywords, FlagsAndCaptions) {
    struct Case {
        std::string list;
        int captions;
    };
    const std::vector<Case> cases = {{"", 0},
                                     {"  ", 1},
                                     {KeywordList({"a", "b"}), 2},
                                     {KeywordList({"a"}) + "b", 2},
                                     {KeywordList({"a", "", "b"}), 2},
                                     {KeywordList({"a"}) + "  ", 1}};
    for (auto& c : cases) {
        for (PaintFlags before : {kRunningStale, kStale, kRunningClean}) {
            for (bool progress : {true, false}) {
                PaintHarness h("a b");
                h.flags = before;
                const bool empty = c.list.empty();
                EXPECT_EQ(KeywordCoder(h.ctx, 0, 3, c.list, ColorSlot::Keywords0, progress),
                          empty ? PassResult::Skipped : PassResult::Done)
                    << c.list;
                EXPECT_EQ(FlagPair(h.flags), FlagPair(empty ? before : kClean)) << c.list;
                std::vector<std::string> captions;
                for (int i = 1; progress && i <= c.captions; ++i)
                    captions.push_back(std::to_string(i) + " Keywords/Identifiers Coded...");
                EXPECT_EQ(h.captions, captions) << c.list;
            }
        }
    }
}
