#include "editor/core/KeywordMatcher.h"

#include "base/EditorSettings.h"
#include "base/MiscSubs.h"

#include <algorithm>
#include <atomic>
#include <cstring>
#include <map>
#include <thread>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

std::vector<KeywordToken> ReadKeywordList(std::string_view list) {
    std::vector<KeywordToken> tokens;
    if (list.empty()) return tokens;
    int counter = 0;
    do {
        // A token is what stands before the next separator; without one there is none.
        std::string_view token;
        if (auto p = list.find(kKeywordSeparator); p != std::string_view::npos) {
            token = list.substr(0, p);
            list.remove_prefix(p + 1);
        }
        token = Trim(token);
        tokens.push_back({++counter, std::string(token)});
        if (token.empty()) break;
    } while (!Trim(list).empty());
    return tokens;
}

KeywordMatcher::KeywordMatcher(const std::vector<std::string_view>& lists, bool caseSensitive) {
    // Equal keywords (equal after folding, when case does not count) find the same places;
    // they share one pattern, painted by the last entry in order.
    std::map<std::string, int> index;
    std::vector<std::string> patterns;
    for (int l = 0; l < int(lists.size()); ++l) {
        for (auto& t : ReadKeywordList(lists[size_t(l)])) {
            int pattern = -1;
            if (!t.keyword.empty()) {
                std::string key = t.keyword;
                if (!caseSensitive)
                    for (char& c : key) c = char(FoldAscii(static_cast<unsigned char>(c)));
                auto [it, added] = index.try_emplace(key, int(patterns.size()));
                if (added) patterns.push_back(key);
                pattern = it->second;
            }
            entries_.push_back({l, t.counter, pattern, false});
        }
    }
    rank_.assign(patterns.size(), 0);
    std::vector<bool> seen(patterns.size());
    for (size_t e = entries_.size(); e-- > 0;) {
        const int p = entries_[e].pattern;
        if (p < 0 || seen[size_t(p)]) continue;
        entries_[e].paints = seen[size_t(p)] = true;
        rank_[size_t(p)] = uint32_t(e);
    }

    std::vector<uint32_t> all, gaps, words;
    std::vector<std::string> gapPatterns, wordPatterns;
    for (uint32_t k = 0; k < patterns.size(); ++k) {
        const std::string& p = patterns[k];
        lengths_.push_back(int64_t(p.size()));
        all.push_back(k);
        if (IsWordByte(uint8_t(p[0])) && !HidesOwnFinds(p)) {
            words.push_back(k);
            wordPatterns.push_back(p);
        } else {
            gaps.push_back(k);
            gapPatterns.push_back(p);
        }
    }
    all_ = std::make_unique<KeywordAutomaton>(patterns, all, caseSensitive);
    gaps_ = std::make_unique<KeywordAutomaton>(gapPatterns, gaps, caseSensitive);
    words_ = std::make_unique<WordKeywords>(wordPatterns, words, caseSensitive);
}

namespace {

// Stretches from this length on are scanned on two threads, in rounds of kRound bytes, each
// cut into pieces of about kPiece bytes: small enough that neither thread waits long for the
// other at the end of a round.
constexpr int64_t kTwoThreadsFrom = 1 << 20, kRound = 8 << 20, kPiece = 256 << 10;

// The first place from pos on that no word spans: behind a byte below "A", or the end.
int64_t WordBoundaryFrom(std::string_view s, int64_t pos) {
    while (pos > 0 && pos < int64_t(s.size()) && IsWordByte(uint8_t(s[size_t(pos) - 1]))) ++pos;
    return pos;
}

// memset for the few bytes of a word, without a call: two stores that may overlap.
inline void Fill(uint8_t* p, int64_t n, uint8_t v) {
    if (n >= 8 && n <= 16) {
        const uint64_t w = 0x0101010101010101ull * v;
        std::memcpy(p, &w, 8);
        std::memcpy(p + n - 8, &w, 8);
    } else if (n >= 4 && n < 8) {
        const uint32_t w = 0x01010101u * v;
        std::memcpy(p, &w, 4);
        std::memcpy(p + n - 4, &w, 4);
    } else {
        std::memset(p, v, size_t(n));
    }
}

// Paints a word of n bytes at p, with room bytes at p that this thread alone paints: where
// there are 16 of them, a blend of 16 bytes without a branch on n, which would be guessed
// wrong at every other keyword.
inline void PaintWord(uint8_t* p, int64_t n, uint8_t v, int64_t room) {
#if defined(__SSE2__)
    alignas(16) static constexpr uint8_t kRamp[32] = {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF,
                                                      0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF,
                                                      0xFF, 0xFF, 0xFF, 0xFF};
    if (n <= 16 && room >= 16) {
        auto* at = reinterpret_cast<__m128i*>(p);
        const __m128i keep = _mm_loadu_si128(reinterpret_cast<const __m128i*>(kRamp + 16 - n));
        const __m128i old = _mm_loadu_si128(at);
        _mm_storeu_si128(at, _mm_or_si128(_mm_andnot_si128(keep, old),
                                          _mm_and_si128(keep, _mm_set1_epi8(char(v)))));
        return;
    }
#endif
    Fill(p, n, v);
}

} // namespace

template <typename F>
void KeywordMatcher::InOrder(const std::vector<KeywordFind>& finds, F&& paint) const {
    // Counting sort by rank; finds of one keyword keep their order.
    std::vector<size_t> from(entries_.size() + 1, 0);
    for (auto& f : finds) ++from[rank_[f.pattern] + 1];
    for (size_t r = 1; r < from.size(); ++r) from[r] += from[r - 1];
    std::vector<const KeywordFind*> sorted(finds.size());
    for (auto& f : finds) sorted[from[rank_[f.pattern]]++] = &f;
    for (const KeywordFind* f : sorted) paint(f->start, lengths_[f->pattern], f->pattern);
}

void KeywordMatcher::PaintInOrder(const std::vector<KeywordFind>& finds, int64_t base,
                                  const ColorSlot* listSlots, PaintTarget& target) const {
    InOrder(finds, [&](int64_t start, int64_t length, uint32_t k) {
        target.Paint(base + start, length, SlotOf(k, listSlots));
    });
}

void KeywordMatcher::ScanOnTwoThreads(std::string_view s, int64_t from, int64_t to, uint8_t* slots,
                                      const ColorSlot* listSlots, std::vector<KeywordFind>& finds,
                                      std::vector<KeywordFind>* sparse,
                                      const Alongside& alongside) const {
    // Pieces cut where no word is, which two threads take in turn. Nothing may run the event
    // loop meanwhile: it could change the text that both threads read.
    std::vector<int64_t> cuts(1, from);
    for (int64_t c = from + kPiece; c < to; c += kPiece)
        if (const int64_t cut = WordBoundaryFrom(s, c); cut > cuts.back() && cut < to)
            cuts.push_back(cut);
    cuts.push_back(to);
    std::vector<std::vector<KeywordFind>> pieceFinds(cuts.size() - 1);
    std::atomic<size_t> next = 0;
    auto scan = [&] {
        for (size_t p; (p = next++) < pieceFinds.size();) {
            const int64_t pieceEnd = cuts[p + 1];
            auto paint = [&](int64_t start, uint32_t k) {
                PaintWord(slots + (start - from), lengths_[k], uint8_t(SlotOf(k, listSlots)),
                          pieceEnd - start);
            };
            words_->ScanWords(s, cuts[p], pieceEnd, paint, pieceFinds[p], {});
        }
    };
    {
        // A sparse search is quick: the second thread makes it before it takes pieces.
        std::jthread worker([&] {
            if (sparse && !gaps_->Empty()) gaps_->FindSparse(s, *sparse, {});
            scan();
        });
        if (alongside) alongside(to);
        scan();
    }
    for (auto& f : pieceFinds) finds.insert(finds.end(), f.begin(), f.end());
}

bool KeywordMatcher::Paint(std::string_view s, int64_t base, const ColorSlot* listSlots,
                           PaintTarget& target, const ScanTick& tick, const Alongside& alongside,
                           int64_t wordScanFrom) const {
    const int64_t n = int64_t(s.size());
    std::vector<KeywordFind> finds;
    if (n < wordScanFrom || words_->Empty()) {
        if (!all_->FindAll(s, finds, tick)) return false;
        PaintInOrder(finds, base, listSlots, target);
        return true;
    }
    // No two whole words overlap, so the words that are keywords are painted as they are
    // found, in any order; other finds are collected.
    if (uint8_t* direct = target.Direct(base, n); direct && n >= kTwoThreadsFrom) {
        // In rounds, between which the tick may run the event loop.
        std::vector<KeywordFind> sparse;
        for (int64_t r = 0; r < n;) {
            const int64_t end = WordBoundaryFrom(s, std::min(n, r + kRound));
            ScanOnTwoThreads(s, r, end, direct + r, listSlots, finds, r == 0 ? &sparse : nullptr,
                             alongside);
            if (tick && !tick(end - r)) return false;
            r = end;
        }
        finds.insert(finds.end(), sparse.begin(), sparse.end());
    } else {
        auto word = [&](int64_t start, uint32_t k) {
            target.Paint(base + start, lengths_[k], SlotOf(k, listSlots));
        };
        if (!words_->ScanWords(s, 0, n, word, finds, tick)) return false;
        if (!gaps_->Empty() && !gaps_->FindSparse(s, finds, tick)) return false;
    }
    words_->EdgeFinds(s, finds);
    if (finds.empty()) return true;
    // The other finds may overlap words and each other: they are painted in the coder's
    // order together with the words they touch, which puts the right keyword on top.
    for (size_t i = 0, count = finds.size(); i < count; ++i)
        words_->WordsOverlapping(s, finds[i].start, finds[i].start + lengths_[finds[i].pattern],
                                 finds);
    PaintInOrder(finds, base, listSlots, target);
    return true;
}

KeywordMatcher::Stretches::Stretches(const KeywordMatcher& m, std::string_view s,
                                     const ColorSlot* listSlots)
    : m_(m), s_(s), listSlots_(listSlots),
      byWord_(int64_t(s.size()) >= kWordScanFrom && !m.words_->Empty()) {}

int64_t KeywordMatcher::Stretches::End(int64_t from, int64_t bytes) const {
    const int64_t n = int64_t(s_.size());
    return WordBoundaryFrom(s_, std::min(n, from + std::max<int64_t>(bytes, 1)));
}

bool KeywordMatcher::Stretches::Paint(int64_t from, int64_t to, uint8_t* slots,
                                      const ScanTick& tick, const Alongside& alongside) {
    const KeywordMatcher& m = m_;
    std::vector<KeywordFind> finds = std::move(carried_);
    carried_.clear();
    const bool twoThreads = byWord_ && int64_t(s_.size()) >= kTwoThreadsFrom;
    if (!byWord_) {
        if (!started_ && !m.all_->FindAll(s_, ahead_, tick)) return false;
    } else if (twoThreads) {
        m.ScanOnTwoThreads(s_, from, to, slots, listSlots_, finds, started_ ? nullptr : &ahead_,
                           alongside);
    } else {
        auto word = [&](int64_t start, uint32_t k) {
            PaintWord(slots + (start - from), m.lengths_[k], uint8_t(m.SlotOf(k, listSlots_)),
                      to - start);
        };
        if (!m.words_->ScanWords(s_, from, to, word, finds, tick)) return false;
        if (!started_ && !m.gaps_->Empty() && !m.gaps_->FindSparse(s_, ahead_, tick)) return false;
    }
    if (!started_) {
        if (byWord_) m.words_->EdgeFinds(s_, ahead_);
        std::stable_sort(
            ahead_.begin(), ahead_.end(),
            [](const KeywordFind& a, const KeywordFind& b) { return a.start < b.start; });
        started_ = true;
    }
    if (alongside && !twoThreads) alongside(to);
    for (; next_ < ahead_.size() && ahead_[next_].start < to; ++next_)
        finds.push_back(ahead_[next_]);
    for (auto& f : finds)
        if (f.start + m.lengths_[f.pattern] > to) carried_.push_back(f);
    if (byWord_)
        for (size_t i = 0, count = finds.size(); i < count; ++i)
            m.words_->WordsOverlapping(s_, std::max(finds[i].start, from),
                                       std::min(finds[i].start + m.lengths_[finds[i].pattern], to),
                                       finds);
    // Clipped to the stretch: a find that goes on into the next one is painted there again,
    // in its place in the order.
    m.InOrder(finds, [&](int64_t start, int64_t length, uint32_t k) {
        const int64_t a = std::max(start, from), b = std::min(start + length, to);
        if (b > a) std::memset(slots + (a - from), int(m.SlotOf(k, listSlots_)), size_t(b - a));
    });
    return true;
}

namespace {
struct CacheEntry {
    std::vector<std::string> lists;
    bool caseSensitive;
    std::shared_ptr<const KeywordMatcher> matcher;
};
} // namespace

std::shared_ptr<const KeywordMatcher>
SharedKeywordMatcher(const std::vector<std::string_view>& lists, bool caseSensitive) {
    // All painting runs on the one user-interface thread; the cache needs no lock.
    static std::vector<CacheEntry> cache; // most recently used last
    constexpr size_t kKept = 8;
    for (size_t i = 0; i < cache.size(); ++i) {
        auto& e = cache[i];
        if (e.caseSensitive != caseSensitive || e.lists.size() != lists.size() ||
            !std::equal(e.lists.begin(), e.lists.end(), lists.begin()))
            continue;
        auto hit = std::move(e);
        cache.erase(cache.begin() + ptrdiff_t(i));
        cache.push_back(std::move(hit));
        return cache.back().matcher;
    }
    auto matcher = std::make_shared<const KeywordMatcher>(lists, caseSensitive);
    if (cache.size() == kKept) cache.erase(cache.begin());
    cache.push_back({std::vector<std::string>(lists.begin(), lists.end()), caseSensitive, matcher});
    return matcher;
}
