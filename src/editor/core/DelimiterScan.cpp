#include "editor/core/DelimiterScan.h"

#include <algorithm>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace {

// First place of a needle of two or more bytes in hay, or -1. Sixteen candidate places at a
// time are tested on their first two bytes, which rules out nearly all of them at once.
int64_t FindLong(const char* hay, int64_t n, std::string_view needle) {
    const int64_t last = n - int64_t(needle.size()); // the last place where it fits
    const char a = needle[0], b = needle[1];
    auto rest = [&](int64_t i) {
        return needle.size() == 2 ||
               std::memcmp(hay + i + 2, needle.data() + 2, needle.size() - 2) == 0;
    };
    int64_t i = 0;
#if defined(__SSE2__)
    const __m128i va = _mm_set1_epi8(a), vb = _mm_set1_epi8(b);
    for (; i + 17 <= n && i <= last; i += 16) {
        const __m128i x = _mm_loadu_si128(reinterpret_cast<const __m128i*>(hay + i));
        const __m128i y = _mm_loadu_si128(reinterpret_cast<const __m128i*>(hay + i + 1));
        unsigned mask = unsigned(
            _mm_movemask_epi8(_mm_and_si128(_mm_cmpeq_epi8(x, va), _mm_cmpeq_epi8(y, vb))));
        for (; mask; mask &= mask - 1) {
            const int64_t c = i + __builtin_ctz(mask);
            if (c <= last && rest(c)) return c;
        }
    }
#endif
    for (; i <= last; ++i)
        if (hay[i] == a && hay[i + 1] == b && rest(i)) return i;
    return -1;
}

} // namespace

int64_t FindFrom(std::string_view text, int64_t from, std::string_view needle) {
    const int64_t n = int64_t(text.size());
    if (from < 0) from = 0;
    if (from >= n) return -1;
    if (needle.empty()) return from;
    const char* hay = text.data() + from;
    if (needle.size() == 1) {
        const void* hit = std::memchr(hay, needle[0], size_t(n - from));
        return hit ? static_cast<const char*>(hit) - text.data() : -1;
    }
    const int64_t at = FindLong(hay, n - from, needle);
    return at < 0 ? -1 : from + at;
}

DelimiterScan::DelimiterScan(std::string_view text, std::vector<Pair> pairs) : text_(text) {
    for (auto& p : pairs) {
        states_.emplace_back();
        states_.back().pair = std::move(p);
    }
}

void DelimiterScan::Advance(int64_t limit) {
    limit = std::min(limit, int64_t(text_.size()));
    if (limit <= reached_) return;
    for (State& s : states_) AdvancePair(s, limit);
    reached_ = limit;
}

void DelimiterScan::AdvancePair(State& s, int64_t limit) const {
    while (!s.done) {
        // An opener found last time behind the old limit is not looked for again.
        const int64_t open = s.next >= 0 ? s.next : FindFrom(text_, s.from, s.pair.opener);
        s.next = -1;
        if (open < 0) {
            s.done = true;
            return;
        }
        if (open >= limit) {
            s.next = open;
            return;
        }
        const int64_t close = FindFrom(text_, open + 1, s.pair.closer);
        if (close < 0) {
            s.done = true;
            return;
        }
        s.spans.push_back({open, close - open + int64_t(s.pair.closer.size())});
        s.from = close + 1;
    }
}
