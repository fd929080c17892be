#include "editor/core/DelimiterScan.h"

#include "editor/core/CpuFeatures.h"

#include <algorithm>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif
#if defined(KESTRUM_AVX2_FUNCTION)
#include <immintrin.h>
#endif

namespace {

// The first place c from i on with hay[c] == a and hay[c + 1] == b, c + 1 < n; else -1.
using FindTwo = int64_t (*)(const char* hay, int64_t i, int64_t n, char a, char b);

int64_t FindTwoPlain(const char* hay, int64_t i, int64_t n, char a, char b) {
#if defined(__SSE2__)
    // Sixteen candidate places at a time, tested on both bytes at once.
    const __m128i va = _mm_set1_epi8(a), vb = _mm_set1_epi8(b);
    for (; i + 17 <= n; i += 16) {
        const __m128i x = _mm_loadu_si128(reinterpret_cast<const __m128i*>(hay + i));
        const __m128i y = _mm_loadu_si128(reinterpret_cast<const __m128i*>(hay + i + 1));
        const int mask =
            _mm_movemask_epi8(_mm_and_si128(_mm_cmpeq_epi8(x, va), _mm_cmpeq_epi8(y, vb)));
        if (mask) return i + __builtin_ctz(unsigned(mask));
    }
#endif
    for (; i + 1 < n; ++i)
        if (hay[i] == a && hay[i + 1] == b) return i;
    return -1;
}

#if defined(KESTRUM_AVX2_FUNCTION)
// The same, 64 places a step.
KESTRUM_AVX2_FUNCTION int64_t FindTwoAvx2(const char* hay, int64_t i, int64_t n, char a, char b) {
    const __m256i va = _mm256_set1_epi8(a), vb = _mm256_set1_epi8(b);
    for (; i + 65 <= n; i += 64) {
        const __m256i x0 = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(hay + i));
        const __m256i y0 = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(hay + i + 1));
        const __m256i x1 = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(hay + i + 32));
        const __m256i y1 = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(hay + i + 33));
        const __m256i m0 = _mm256_and_si256(_mm256_cmpeq_epi8(x0, va), _mm256_cmpeq_epi8(y0, vb));
        const __m256i m1 = _mm256_and_si256(_mm256_cmpeq_epi8(x1, va), _mm256_cmpeq_epi8(y1, vb));
        if (_mm256_testz_si256(_mm256_or_si256(m0, m1), _mm256_or_si256(m0, m1))) continue;
        const uint64_t mask = uint64_t(uint32_t(_mm256_movemask_epi8(m0))) |
                              uint64_t(uint32_t(_mm256_movemask_epi8(m1))) << 32;
        return i + int64_t(_tzcnt_u64(mask));
    }
    for (; i + 1 < n; ++i)
        if (hay[i] == a && hay[i + 1] == b) return i;
    return -1;
}
#endif

FindTwo ChooseFindTwo() {
#if defined(KESTRUM_AVX2_FUNCTION)
    if (UseAvx2()) return FindTwoAvx2;
#endif
    return FindTwoPlain;
}

// First place of a needle of two or more bytes in hay, or -1: the places of its first two
// bytes, each checked on for the rest.
int64_t FindLong(const char* hay, int64_t n, std::string_view needle) {
    static const FindTwo findTwo = ChooseFindTwo();
    const int64_t last = n - int64_t(needle.size()); // the last place where it fits
    for (int64_t i = 0; i <= last; ++i) {
        i = findTwo(hay, i, n, needle[0], needle[1]);
        if (i < 0 || i > last) return -1;
        if (needle.size() == 2 ||
            std::memcmp(hay + i + 2, needle.data() + 2, needle.size() - 2) == 0)
            return i;
    }
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

void DelimiterScan::Forget(int64_t before) {
    for (State& s : states_) {
        // Spans follow each other, their ends too.
        auto gone = std::partition_point(s.spans.begin(), s.spans.end(), [&](const Span& p) {
            return p.start + p.length <= before;
        });
        s.spans.erase(s.spans.begin(), gone);
    }
}
