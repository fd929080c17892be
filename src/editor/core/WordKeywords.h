#pragma once
// Keywords found by looking up the text's words (maximal runs of word bytes, the bytes at or
// above "A"), for the keywords that begin with a word byte and cannot hide a coloured find of
// their own (see HidesOwnFinds).
//
// Away from the stretch's ends, a find is coloured only when the bytes in front of it and
// behind it are both below "A", so a coloured find of such a keyword begins where a word
// begins. A keyword made of word bytes only is then exactly a whole word; another one is its
// lead word (up to its first byte below "A") followed by the rest of it. And an earlier find
// of the same keyword could hide it only by covering the byte in front of it, which only a
// keyword that HidesOwnFinds can do. So inside the stretch the coloured finds are found at the
// words, and only the stretch's ends need the keywords searched as substrings.
#include "editor/core/KeywordAutomaton.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

// True for the bytes that words are made of.
inline bool IsWordByte(unsigned char c) {
    return c >= 65;
}

// Eight bytes with the ASCII capitals among them folded to lower case, all at once: a byte
// is a capital when its low seven bits lie in "A".."Z" and its top bit is clear.
inline uint64_t FoldAscii8(uint64_t x) {
    constexpr uint64_t ones = 0x0101010101010101ull, tops = ones * 0x80;
    const uint64_t low = x & ~tops;
    const uint64_t atLeastA = low + ones * (0x80 - 'A');
    const uint64_t aboveZ = low + ones * (0x80 - 'Z' - 1);
    const uint64_t capital = atLeastA & ~aboveZ & ~x & tops;
    return x | (capital >> 2);
}

// The number of set bits, without relying on a processor instruction for it.
inline int CountBits(uint64_t x) {
    x = x - ((x >> 1) & 0x5555555555555555ull);
    x = (x & 0x3333333333333333ull) + ((x >> 2) & 0x3333333333333333ull);
    x = (x + (x >> 4)) & 0x0F0F0F0F0F0F0F0Full;
    return int((x * 0x0101010101010101ull) >> 56);
}

// Whether a find of the keyword can keep the search from finding a later place where the
// keyword stands after a byte below "A": that needs the later place to start inside the find
// or right behind it, on a byte below "A" of the keyword, with both places agreeing.
bool HidesOwnFinds(std::string_view keyword);

class WordKeywords {
  public:
    // patterns begin with a word byte, do not hide their own finds, and are folded already
    // when case does not count; ids as for KeywordAutomaton.
    WordKeywords(const std::vector<std::string>& patterns, const std::vector<uint32_t>& ids,
                 bool caseSensitive);

    bool Empty() const { return patterns_.empty(); }

    // Calls whole(start, pattern) for every word of s starting in [from, to) that is a
    // keyword, and appends to finds the coloured finds of the other keywords there, in text
    // order. tick as for the automaton. Words are those of all of s; from and to should not
    // cut one, or a word that starts in front of from is left out.
    template <typename F>
    bool ScanWords(std::string_view s, int64_t from, int64_t to, F&& whole,
                   std::vector<KeywordFind>& finds, const ScanTick& tick) const;

    // Appends the whole-word keywords that share a byte with s[from, to).
    void WordsOverlapping(std::string_view s, int64_t from, int64_t to,
                          std::vector<KeywordFind>& finds) const;

    // Appends the coloured finds at the stretch's ends that ScanWords does not give: a
    // keyword that the first word begins with, and one that ends the text without standing
    // after a byte below "A", if the search does not step over it.
    void EdgeFinds(std::string_view s, std::vector<KeywordFind>& finds) const;

  private:
    // A lead word: a whole keyword, the beginning of others, or both. Each has two possible
    // places in the table (two hashes), so that a lookup is two loads and no search.
    struct Slot {
        uint64_t head = 0, head2 = 0;      // bytes 0-7 and 8-15, folded, zero behind the end
        uint32_t length = 0;               // 0: empty slot
        int32_t whole = -1;                // index into patterns_ of the keyword that is this word
        uint32_t leadFrom = 0, leadTo = 0; // range of leads_: keywords that go on behind it
        uint32_t word = 0;                 // index into words_
    };
    struct Key {
        uint64_t head, head2;
    };
    Key KeyOf(const unsigned char* p, int64_t length, int64_t available) const;
    static uint64_t Mix(const Key& key, int64_t length);
    size_t Hash(const Key& key, int64_t length, uint64_t seed) const;
    void PlaceEachOnce(size_t words);
    bool Place(std::vector<Slot>& table, Slot slot, uint64_t seed1, uint64_t seed2) const;
    const Slot* Find(const unsigned char* p, int64_t length, int64_t available) const;
    void AtWord(std::string_view s, int64_t start, int64_t end, const Slot& slot,
                std::vector<KeywordFind>& finds) const;
    bool Equal(const unsigned char* p, const std::string& pattern, size_t from) const;
    bool FoundAt(std::string_view s, int64_t at, const std::string& pattern) const;
    struct Hit {
        int64_t start, end;
        const Slot* slot;
    };
    // Room that CutWords may write behind the edges it gives.
    static constexpr size_t kEdgeSlack = 8;
    // Writes the places in text[b, e) where words start or end to edges and gives their
    // count; carry tells whether the byte in front of b is a word byte, and is left telling
    // that of the byte in front of e.
    static size_t CutWords(const unsigned char* text, int64_t b, int64_t e, bool& carry,
                           int64_t* edges);
    // Writes the words of the given start and end places that may be lead words to hits and
    // gives their count. Their keys agree; the length, and the rest of a lead word longer
    // than 16 bytes, are to be checked on.
    size_t LookUp(std::string_view s, const int64_t* edges, size_t count, Hit* hits) const;

    bool caseSensitive_;
    std::vector<std::string> patterns_;
    std::vector<uint32_t> ids_;
    std::vector<uint32_t> leads_;
    std::vector<bool> leadOnly_;     // per pattern: it goes on behind its lead word
    std::vector<std::string> words_; // the lead words
    int64_t maxLength_ = 0;          // of the lead words
    unsigned hashShift_ = 0;
    uint64_t seed1_ = 0, seed2_ = 0;
    std::vector<Slot> table_; // at most half full
    // The lead words again, each at the one place a single hash gives it, when a table small
    // enough to stay in the cache allows that: a lookup is then one load and no choice.
    std::vector<Key> oneKeys_;       // empty: no such table, lookups use both places
    std::vector<uint32_t> oneSlots_; // per place: the index into table_ of its word
    uint64_t oneSeed_ = 0;
    unsigned oneShift_ = 0;
};

// Masks keeping the first 0 to 8 bytes of eight.
inline constexpr uint64_t kKeepBytes[9] = {0,
                                           0xFFull,
                                           0xFFFFull,
                                           0xFFFFFFull,
                                           0xFFFFFFFFull,
                                           0xFFFFFFFFFFull,
                                           0xFFFFFFFFFFFFull,
                                           0xFFFFFFFFFFFFFFull,
                                           ~0ull};

inline WordKeywords::Key WordKeywords::KeyOf(const unsigned char* p, int64_t length,
                                             int64_t available) const {
    Key key;
    if (available >= 16) [[likely]] {
        std::memcpy(&key.head, p, 8);
        std::memcpy(&key.head2, p + 8, 8);
    } else {
        unsigned char copy[16] = {};
        std::memcpy(copy, p, size_t(std::max<int64_t>(available, 0)));
        std::memcpy(&key.head, copy, 8);
        std::memcpy(&key.head2, copy + 8, 8);
    }
    key.head &= kKeepBytes[std::clamp<int64_t>(length, 0, 8)];
    key.head2 &= kKeepBytes[std::clamp<int64_t>(length - 8, 0, 8)];
    if (!caseSensitive_) {
        key.head = FoldAscii8(key.head);
        key.head2 = FoldAscii8(key.head2);
    }
    return key;
}

inline uint64_t WordKeywords::Mix(const Key& key, int64_t length) {
    return key.head ^ (key.head2 >> 1) ^ uint64_t(length);
}

inline size_t WordKeywords::Hash(const Key& key, int64_t length, uint64_t seed) const {
    return size_t((Mix(key, length) * seed) >> hashShift_);
}

template <typename F>
bool WordKeywords::ScanWords(std::string_view s, int64_t from, int64_t to, F&& whole,
                             std::vector<KeywordFind>& finds, const ScanTick& tick) const {
    const auto* text = reinterpret_cast<const unsigned char*>(s.data());
    const int64_t n = int64_t(s.size());
    to = std::min(to, n);
    from = std::clamp<int64_t>(from, 0, to);
    // Per block: the places where words start and end, then the words that are lead words,
    // then what those give. The first two steps have no branch that depends on the text, so
    // that the processor does not guess wrong at every other word.
    constexpr int64_t kBlock = 64 << 10;
    // Scratch for one block, left uninitialised and no larger than the stretch: the matcher
    // scans a long text in many short pieces.
    const size_t room = size_t(std::min(kBlock, std::max<int64_t>(to - from, 0)));
    const auto edges = std::make_unique_for_overwrite<int64_t[]>(room + kEdgeSlack);
    const auto hits = std::make_unique_for_overwrite<Hit[]>(room / 2 + 1);
    auto other = [&](int64_t start, int64_t end, const Slot& slot) {
        if (slot.whole >= 0) whole(start, ids_[size_t(slot.whole)]);
        if (slot.leadFrom != slot.leadTo) AtWord(s, start, end, slot, finds);
    };
    int64_t pending = -1; // the start of a word that goes on into the next block
    // Whether the byte in front of the group is a word byte: then the first one is no start.
    bool carry = from > 0 && IsWordByte(text[from - 1]);
    for (int64_t b = from; b < to; b += kBlock) {
        const int64_t e = std::min(to, b + kBlock);
        size_t k = 0;
        if (pending >= 0) edges[k++] = pending;
        k += CutWords(text, b, e, carry, edges.get() + k);
        pending = (k & 1) ? edges[k - 1] : -1;
        const size_t m = LookUp(s, edges.get(), k & ~size_t(1), hits.get());
        for (size_t i = 0; i < m; ++i) {
            const Hit& h = hits[i];
            // The key holds 16 bytes: a longer word may share it with a lead word of 16 bytes,
            // and the rest of a longer lead word is compared here.
            if (h.end - h.start == h.slot->length &&
                (h.slot->length <= 16 || Equal(text + h.start, words_[h.slot->word], 16)))
                other(h.start, h.end, *h.slot);
        }
        if (tick && !tick(e - b)) return false;
    }
    if (pending >= 0) {
        int64_t end = to;
        while (end < n && IsWordByte(text[end])) ++end;
        if (const Slot* slot = Find(text + pending, end - pending, n - pending))
            other(pending, end, *slot);
    }
    return true;
}
