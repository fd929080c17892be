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

    // A whole text's keywords painted stretch by stretch, for a pass that hands each
    // stretch's colours on as soon as they are final, so that no one holds them for the whole
    // text. The colours are those Paint gives over the whole text: the finds that reach from
    // one stretch into the next are carried over, and the searches whose finds depend on what
    // was found before run over the whole text once, at the first stretch.
    class Stretches {
      public:
        // Holds on to the matcher, s and listSlots.
        Stretches(const KeywordMatcher& m, std::string_view s, const ColorSlot* listSlots);
        // The end of a stretch that starts at from and is about bytes long, where no word is.
        int64_t End(int64_t from, int64_t bytes) const;
        // Paints the keywords of s[from, to) over bytes, which hold that stretch's colours so
        // far (bytes[0] is position from). Stretches come in text order, each starting where
        // the one before ended, and end where End puts them. alongside, if given, is called
        // with to while another thread scans. False when tick stopped the scan.
        bool Paint(int64_t from, int64_t to, uint8_t* bytes, const ScanTick& tick,
                   const Alongside& alongside);

      private:
        const KeywordMatcher& m_;
        std::string_view s_;
        const ColorSlot* listSlots_;
        bool byWord_; // words looked up; else every keyword by the automaton
        bool started_ = false;
        std::vector<KeywordFind> ahead_; // finds of the whole text's searches, by start
        size_t next_ = 0;                // the first of ahead_ not yet taken
        std::vector<KeywordFind> carried_;
    };

  private:
    // Paints finds in the coder's order: by the rank of the entry that paints each keyword.
    template <typename F> void InOrder(const std::vector<KeywordFind>& finds, F&& paint) const;
    void PaintInOrder(const std::vector<KeywordFind>& finds, int64_t base,
                      const ColorSlot* listSlots, PaintTarget& target) const;
    // Scans s[from, to), which no word crosses, on two threads piece by piece: the keywords
    // that are whole words painted into bytes (position from at bytes[0]), the other finds
    // appended to finds. sparse, if given, gets the automaton's sparse search over all of s,
    // made on the second thread first; alongside is called with to on this one.
    void ScanOnTwoThreads(std::string_view s, int64_t from, int64_t to, uint8_t* bytes,
                          const ColorSlot* listSlots, std::vector<KeywordFind>& finds,
                          std::vector<KeywordFind>* sparse, const Alongside& alongside) const;
    ColorSlot SlotOf(uint32_t pattern, const ColorSlot* listSlots) const {
        return listSlots[entries_[rank_[pattern]].list];
    }

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
