#include "editor/core/WordKeywords.h"

#include "editor/core/CpuFeatures.h"

#include <bit>
#include <cstring>
#include <map>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif
#if defined(KESTRUM_AVX2_FUNCTION)
#include <immintrin.h>
#endif

bool HidesOwnFinds(std::string_view k) {
    // A find at f hides a place f + d (1 <= d <= length) where the keyword stands too; the
    // byte in front of that place is the keyword's byte d - 1.
    for (size_t d = 1; d <= k.size(); ++d)
        if (!IsWordByte(uint8_t(k[d - 1])) && k.substr(d) == k.substr(0, k.size() - d)) return true;
    return false;
}

WordKeywords::WordKeywords(const std::vector<std::string>& patterns,
                           const std::vector<uint32_t>& ids, bool caseSensitive)
    : caseSensitive_(caseSensitive), patterns_(patterns), ids_(ids) {
    // Group the keywords by lead word.
    struct Lead {
        int32_t whole = -1;
        std::vector<uint32_t> others;
    };
    std::map<std::string, Lead> byLead;
    for (size_t k = 0; k < patterns_.size(); ++k) {
        const std::string& p = patterns_[k];
        const size_t gap = size_t(
            std::find_if(p.begin(), p.end(), [](char c) { return !IsWordByte(uint8_t(c)); }) -
            p.begin());
        Lead& lead = byLead[p.substr(0, gap)];
        leadOnly_.push_back(gap < p.size());
        if (gap == p.size())
            lead.whole = int32_t(k);
        else
            lead.others.push_back(uint32_t(k));
    }
    std::vector<Slot> slots;
    for (auto& [word, lead] : byLead) {
        const int64_t length = int64_t(word.size());
        maxLength_ = std::max(maxLength_, length);
        const Key key = KeyOf(reinterpret_cast<const unsigned char*>(word.data()), length, length);
        Slot slot;
        slot.head = key.head;
        slot.head2 = key.head2;
        slot.length = uint32_t(length);
        slot.whole = lead.whole;
        slot.leadFrom = uint32_t(leads_.size());
        leads_.insert(leads_.end(), lead.others.begin(), lead.others.end());
        slot.leadTo = uint32_t(leads_.size());
        slot.word = uint32_t(words_.size());
        words_.push_back(word);
        slots.push_back(slot);
    }
    // Cuckoo placement: each word in one of its two places. Other seeds, or a larger table,
    // until all fit.
    size_t size = 16;
    while (size < 2 * slots.size()) size *= 2;
    uint64_t seed = 0x9E3779B97F4A7C15ull;
    for (int attempt = 0;; ++attempt) {
        if (attempt > 0 && attempt % 8 == 0) size *= 2;
        hashShift_ = 64 - unsigned(std::countr_zero(size));
        seed1_ = (seed = seed * 6364136223846793005ull + 1442695040888963407ull) | 1;
        seed2_ = (seed = seed * 6364136223846793005ull + 1442695040888963407ull) | 1;
        std::vector<Slot> table(size);
        if (std::all_of(slots.begin(), slots.end(),
                        [&](const Slot& slot) { return Place(table, slot, seed1_, seed2_); })) {
            table_ = std::move(table);
            break;
        }
    }
    PlaceEachOnce(slots.size());
}

void WordKeywords::PlaceEachOnce(size_t words) {
    // With w words in p places a seed puts no two in one place with a chance of about
    // exp(-w * w / 2p); from 8 places a word on, a few seeds find one for any list of up to
    // a few hundred lead words.
    constexpr size_t kMostPlaces = 16384;
    constexpr int kSeeds = 64;
    uint64_t seed = 0x2545F4914F6CDD1Dull;
    for (size_t size = 64; size <= kMostPlaces; size *= 2) {
        if (size < 8 * words) continue;
        const unsigned shift = 64 - unsigned(std::countr_zero(size));
        for (int attempt = 0; attempt < kSeeds; ++attempt) {
            seed = (seed * 6364136223846793005ull + 1442695040888963407ull) | 1;
            std::vector<Key> keys(size, Key{0, 0});
            std::vector<uint32_t> places(size, 0);
            bool apart = true;
            for (uint32_t t = 0; t < table_.size() && apart; ++t) {
                const Slot& slot = table_[t];
                if (!slot.length) continue;
                const Key key{slot.head, slot.head2};
                const size_t at = size_t((Mix(key, slot.length) * seed) >> shift);
                apart = keys[at].head == 0; // a word's key is never all zero
                keys[at] = key;
                places[at] = t;
            }
            if (apart) {
                oneKeys_ = std::move(keys);
                oneSlots_ = std::move(places);
                oneSeed_ = seed;
                oneShift_ = shift;
                return;
            }
        }
    }
}

bool WordKeywords::Place(std::vector<Slot>& table, Slot slot, uint64_t seed1,
                         uint64_t seed2) const {
    size_t at = Hash({slot.head, slot.head2}, slot.length, seed1);
    for (int kicks = 0; kicks < 64; ++kicks) {
        std::swap(slot, table[at]);
        if (!slot.length) return true;
        // The one pushed out goes to its other place.
        const size_t a = Hash({slot.head, slot.head2}, slot.length, seed1);
        at = a == at ? Hash({slot.head, slot.head2}, slot.length, seed2) : a;
    }
    return false;
}

bool WordKeywords::Equal(const unsigned char* p, const std::string& pattern, size_t from) const {
    for (size_t i = from; i < pattern.size(); ++i) {
        const unsigned char c = caseSensitive_ ? p[i] : FoldAscii(p[i]);
        if (c != static_cast<unsigned char>(pattern[i])) return false;
    }
    return true;
}

const WordKeywords::Slot* WordKeywords::Find(const unsigned char* p, int64_t length,
                                             int64_t available) const {
    if (length <= 0 || length > maxLength_) return nullptr;
    const Key key = KeyOf(p, length, available);
    for (uint64_t seed : {seed1_, seed2_}) {
        const Slot& slot = table_[Hash(key, length, seed)];
        if (slot.head == key.head && slot.head2 == key.head2 && slot.length == uint64_t(length))
            return length <= 16 || Equal(p, words_[slot.word], 16) ? &slot : nullptr;
    }
    return nullptr;
}

void WordKeywords::AtWord(std::string_view s, int64_t start, int64_t end, const Slot& slot,
                          std::vector<KeywordFind>& finds) const {
    const auto* text = reinterpret_cast<const unsigned char*>(s.data());
    const int64_t n = int64_t(s.size());
    for (uint32_t i = slot.leadFrom; i < slot.leadTo; ++i) {
        const std::string& p = patterns_[leads_[i]];
        const int64_t stop = start + int64_t(p.size());
        // The byte behind the lead word rules out nearly all of them at once.
        if (stop > n || text[end] != uint8_t(p[size_t(end - start)]) ||
            !Equal(text + start, p, size_t(end - start) + 1))
            continue;
        // The word's start passes the boundary test on the front; the back is tested here.
        if (start == 0 || stop == n || !IsWordByte(text[stop]))
            finds.push_back({start, ids_[leads_[i]]});
    }
}

namespace {

// The places where words start or end in groups of 64 bytes, one bit a byte: a word byte
// whose predecessor is none, or the other way round. The set bits alternate between starts
// and ends. Each writes the places of `groups` whole groups from text[g] on to edges and
// gives their count; edges gets up to three more entries of scratch behind them.
using CutGroups = size_t (*)(const unsigned char* text, int64_t g, int64_t groups, uint64_t& carry,
                             int64_t* edges);

// The word bytes of the 64 at p, as bits.
uint64_t WordMask(const unsigned char* p) {
#if defined(__SSE2__)
    const __m128i a = _mm_set1_epi8(65);
    uint64_t mask = 0;
    for (int q = 0; q < 4; ++q) {
        const __m128i x = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p + 16 * q));
        const __m128i word = _mm_cmpeq_epi8(_mm_max_epu8(x, a), x); // x >= 65, unsigned
        mask |= uint64_t(uint32_t(_mm_movemask_epi8(word)) & 0xFFFF) << (16 * q);
    }
    return mask;
#else
    uint64_t mask = 0;
    for (int i = 0; i < 64; ++i) mask |= uint64_t(IsWordByte(p[i])) << i;
    return mask;
#endif
}

size_t CutGroupsPlain(const unsigned char* text, int64_t g, int64_t groups, uint64_t& carry,
                      int64_t* edges) {
    size_t k = 0;
    for (const int64_t end = g + 64 * groups; g < end; g += 64) {
        const uint64_t mask = WordMask(text + g);
        uint64_t bits = mask ^ ((mask << 1) | carry);
        carry = mask >> 63;
        // Four at a time, whatever the count: no branch per place.
        const int count = CountBits(bits);
        for (int i = 0; i < count; i += 4)
            for (int j = 0; j < 4; ++j) {
                edges[k + size_t(i + j)] = g + std::countr_zero(bits);
                bits &= bits - 1;
            }
        k += size_t(count);
    }
    return k;
}

#if defined(KESTRUM_AVX2_FUNCTION)
// The same with 32 bytes a compare and the processor's own bit counting.
KESTRUM_AVX2_FUNCTION size_t CutGroupsAvx2(const unsigned char* text, int64_t g, int64_t groups,
                                           uint64_t& carry, int64_t* edges) {
    const __m256i a = _mm256_set1_epi8(65);
    size_t k = 0;
    for (const int64_t end = g + 64 * groups; g < end; g += 64) {
        const __m256i x0 = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(text + g));
        const __m256i x1 = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(text + g + 32));
        const __m256i w0 = _mm256_cmpeq_epi8(_mm256_max_epu8(x0, a), x0);
        const __m256i w1 = _mm256_cmpeq_epi8(_mm256_max_epu8(x1, a), x1);
        const uint64_t mask = uint64_t(uint32_t(_mm256_movemask_epi8(w0))) |
                              uint64_t(uint32_t(_mm256_movemask_epi8(w1))) << 32;
        uint64_t bits = mask ^ ((mask << 1) | carry);
        carry = mask >> 63;
        const int count = int(_mm_popcnt_u64(bits));
        for (int i = 0; i < count; i += 4)
            for (int j = 0; j < 4; ++j) {
                edges[k + size_t(i + j)] = g + int64_t(_tzcnt_u64(bits));
                bits = _blsr_u64(bits);
            }
        k += size_t(count);
    }
    return k;
}
#endif

CutGroups ChooseCutGroups() {
#if defined(KESTRUM_AVX2_FUNCTION)
    if (UseAvx2()) return CutGroupsAvx2;
#endif
    return CutGroupsPlain;
}

} // namespace

size_t WordKeywords::CutWords(const unsigned char* text, int64_t b, int64_t e, bool& carry,
                              int64_t* edges) {
    static const CutGroups cutGroups = ChooseCutGroups();
    uint64_t in = carry;
    const int64_t groups = (e - b) / 64, tail = b + 64 * groups;
    size_t k = cutGroups(text, b, groups, in, edges);
    for (int64_t i = tail; i < e; ++i) {
        const uint64_t word = IsWordByte(text[i]);
        if (word != in) edges[k++] = i;
        in = word;
    }
    carry = in != 0;
    return k;
}

size_t WordKeywords::LookUp(std::string_view s, const int64_t* edges, size_t count,
                            Hit* hits) const {
    const auto* text = reinterpret_cast<const unsigned char*>(s.data());
    const int64_t n = int64_t(s.size());
    size_t m = 0;
    if (oneKeys_.empty()) {
        for (size_t i = 0; i < count; i += 2) {
            const int64_t start = edges[i], length = edges[i + 1] - start;
            const Key key = KeyOf(text + start, length, n - start);
            const Slot& s1 = table_[Hash(key, length, seed1_)];
            const Slot& s2 = table_[Hash(key, length, seed2_)];
            const bool m1 =
                (s1.head == key.head) & (s1.head2 == key.head2) & (s1.length == uint64_t(length));
            const bool m2 =
                (s2.head == key.head) & (s2.head2 == key.head2) & (s2.length == uint64_t(length));
            hits[m] = {start, start + length, m1 ? &s1 : &s2};
            m += m1 | m2;
        }
        return m;
    }
    // Words with 16 bytes of text from their start are read whole; the few at the very end of
    // the text are looked up one by one.
    size_t whole16 = count;
    while (whole16 > 0 && edges[whole16 - 2] + 16 > n) whole16 -= 2;
    auto lookUp = [&]<bool kFold>() {
        for (size_t i = 0; i < whole16; i += 2) {
            const int64_t start = edges[i], length = edges[i + 1] - start;
            Key key;
            std::memcpy(&key.head, text + start, 8);
            std::memcpy(&key.head2, text + start + 8, 8);
            key.head &= kKeepBytes[std::min<int64_t>(length, 8)];
            key.head2 &= kKeepBytes[std::clamp<int64_t>(length - 8, 0, 8)];
            if constexpr (kFold) {
                key.head = FoldAscii8(key.head);
                key.head2 = FoldAscii8(key.head2);
            }
            const size_t at = size_t((Mix(key, length) * oneSeed_) >> oneShift_);
            const Key& place = oneKeys_[at];
            hits[m] = {start, start + length, &table_[oneSlots_[at]]};
            m += ((place.head ^ key.head) | (place.head2 ^ key.head2)) == 0;
        }
    };
    if (caseSensitive_)
        lookUp.template operator()<false>();
    else
        lookUp.template operator()<true>();
    for (size_t i = whole16; i < count; i += 2) {
        const int64_t start = edges[i], end = edges[i + 1];
        if (const Slot* slot = Find(text + start, end - start, n - start))
            hits[m++] = {start, end, slot};
    }
    return m;
}

void WordKeywords::WordsOverlapping(std::string_view s, int64_t from, int64_t to,
                                    std::vector<KeywordFind>& finds) const {
    const auto* text = reinterpret_cast<const unsigned char*>(s.data());
    const int64_t n = int64_t(s.size());
    to = std::min(to, n);
    // Back to the start of the word that holds from; a word longer than any keyword is no
    // keyword, so the walk goes no further than that.
    int64_t i = std::clamp<int64_t>(from, 0, n);
    if (i < n && IsWordByte(text[i]))
        for (const int64_t limit = std::max<int64_t>(0, i - maxLength_);
             i > limit && IsWordByte(text[i - 1]);)
            --i;
    while (i < to) {
        if (!IsWordByte(text[i])) {
            ++i;
            continue;
        }
        const int64_t start = i, limit = std::min(n, start + maxLength_ + 1);
        int64_t end = start;
        while (end < limit && IsWordByte(text[end])) ++end;
        if ((start == 0 || !IsWordByte(text[start - 1])) && (end == n || !IsWordByte(text[end])))
            if (const Slot* slot = Find(text + start, end - start, n - start);
                slot && slot->whole >= 0)
                finds.push_back({start, ids_[size_t(slot->whole)]});
        for (i = end; i < to && IsWordByte(text[i]);) ++i;
    }
}

// Whether the search for pattern over the whole of s finds the place at, where it stands.
bool WordKeywords::FoundAt(std::string_view s, int64_t at, const std::string& pattern) const {
    const auto* text = reinterpret_cast<const unsigned char*>(s.data());
    const int64_t length = int64_t(pattern.size());
    auto stands = [&](int64_t pos) { return Equal(text + pos, pattern, 0); };
    // Back to a place x with no occurrence in the length bytes before it: any earlier find
    // ends so far ahead of x that the search is free again at x.
    int64_t x = at;
    for (bool moved = true; moved;) {
        moved = false;
        for (int64_t c = std::max<int64_t>(0, x - length); c < x; ++c)
            if (stands(c)) {
                x = c;
                moved = true;
                break;
            }
    }
    for (int64_t f = x; f <= at; f += length + 1) {
        while (f < at && !stands(f)) ++f;
        if (f == at) return true;
    }
    return false;
}

void WordKeywords::EdgeFinds(std::string_view s, std::vector<KeywordFind>& finds) const {
    const auto* text = reinterpret_cast<const unsigned char*>(s.data());
    const int64_t n = int64_t(s.size());
    for (size_t k = 0; k < patterns_.size(); ++k) {
        const std::string& p = patterns_[k];
        const int64_t length = int64_t(p.size());
        if (length >= n) continue; // then it can only be the text's one word, or not be there
        // A find at the start is always coloured; ScanWords has those that are whole words
        // or begin with the whole first word.
        if (IsWordByte(text[length]) && !leadOnly_[k] && Equal(text, p, 0))
            finds.push_back({0, ids_[k]});
        // A find that reaches the end is coloured if the search gets to it; ScanWords has
        // those that begin a word.
        const int64_t last = n - length;
        if (IsWordByte(text[last - 1]) && Equal(text + last, p, 0) && FoundAt(s, last, p))
            finds.push_back({last, ids_[k]});
    }
}
