#pragma once
// Finds and paints the keywords of one or more keyword lists in a stretch of text, with the
// results of searching each keyword on its own: per keyword the search goes on one character
// behind each find's end, a find is coloured only when the word-boundary test lets it, and
// keywords paint in list order, later ones over earlier ones. The lists are read as the
// keyword coder reads them (see ReadKeywordList).
#include "editor/core/KeywordAutomaton.h"
#include "editor/core/SlotBuffer.h"
#include "editor/core/WordKeywords.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

// One token of a keyword list, in list order. counter is the 1-based count of tokens taken,
// the empty token that ends the list included; keyword is empty for that last one.
struct KeywordToken {
    int counter;
    std::string keyword; // trimmed
};

// Splits a list as the coder does: tokens end with the separator character; each is trimmed;
// the first empty token ends the list, and so does a rest that is empty when trimmed. Text
// behind the last separator is not a token. An empty list gives no tokens at all.
std::vector<KeywordToken> ReadKeywordList(std::string_view list);

class KeywordMatcher {
  public:
    // One token of one list, in the order in which the coder paints them.
    struct Entry {
        int list;
        int counter;
        int pattern; // index of the distinct keyword, -1 for the empty token ending a list
        bool paints; // the last entry of its keyword: only it needs painting
    };

    // Stretches from this length on are scanned word by word (see WordKeywords); shorter
    // ones, such as a line, by the automaton alone.
    static constexpr int64_t kWordScanFrom = 16 << 10;

    // Other work on the text for the scan to do on its threads: called once per round of a
    // long stretch with the round's end, on one thread while the other scans.
    using Alongside = std::function<void(int64_t end)>;

    KeywordMatcher(const std::vector<std::string_view>& lists, bool caseSensitive);

    const std::vector<Entry>& Entries() const { return entries_; }

    // Paints every coloured find of s at base plus its position, with listSlots[list] of the
    // entry that paints its keyword. False when tick stopped the scan; what was painted until
    // then is incomplete. alongside, if given, is called for some or all of s, in order.
    bool Paint(std::string_view s, int64_t base, const ColorSlot* listSlots, PaintTarget& target,
               const ScanTick& tick, const Alongside& alongside = {},
               int64_t wordScanFrom = kWordScanFrom) const;

  private:
    // Paints finds in the coder's order: by the rank of the entry that paints each keyword.
    void PaintInOrder(const std::vector<KeywordFind>& finds, int64_t base,
                      const ColorSlot* listSlots, PaintTarget& target) const;

    std::vector<Entry> entries_;
    std::vector<int64_t> lengths_;           // per keyword
    std::vector<uint32_t> rank_;             // per keyword: the index of the entry that paints it
    std::unique_ptr<KeywordAutomaton> all_;  // every keyword
    std::unique_ptr<KeywordAutomaton> gaps_; // keywords with a byte below "A"
    std::unique_ptr<WordKeywords> words_;    // the others
};

// The matcher for a set of lists and a case flag, built once and kept while the lists stay
// the same. Keeps a few, so that windows of different languages do not rebuild in turn.
std::shared_ptr<const KeywordMatcher>
SharedKeywordMatcher(const std::vector<std::string_view>& lists, bool caseSensitive);
