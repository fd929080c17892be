#include "search/core/FindRules.h"

#include <algorithm>
#include <cstring>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

bool IsWordByte(unsigned char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
           c == '_' || c >= 0x80;
}

namespace {

inline unsigned char Fold(unsigned char c) { return (c >= 'A' && c <= 'Z') ? c + 32 : c; }

bool EqualFolded(const char* a, const char* b, size_t n) {
    for (size_t i = 0; i < n; ++i)
        if (Fold(static_cast<unsigned char>(a[i])) != Fold(static_cast<unsigned char>(b[i])))
            return false;
    return true;
}

bool HasLetter(std::string_view s) {
    return std::any_of(s.begin(), s.end(),
                       [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); });
}

// First exact occurrence of find in hay[from, hayLen), or npos. glibc's memmem is the
// baseline the search is measured against, and it is already vectorised.
size_t FindExact(const char* hay, size_t hayLen, size_t from, std::string_view find) {
    if (from > hayLen || hayLen - from < find.size()) return std::string_view::npos;
    const void* p = memmem(hay + from, hayLen - from, find.data(), find.size());
    return p ? size_t(static_cast<const char*>(p) - hay) : std::string_view::npos;
}

// First case-folded occurrence. Candidates are positions whose first and last byte agree
// with the needle's after OR-ing 0x20 (a superset of the folded match: '@' passes for '`'),
// sixteen positions at a time; each candidate is then compared exactly, folded.
size_t FindFolded(const char* hay, size_t hayLen, size_t from, std::string_view find) {
    const size_t n = find.size();
    if (from > hayLen || hayLen - from < n) return std::string_view::npos;
    const size_t last = hayLen - n; // last possible start
    size_t i = from;
#if defined(__SSE2__)
    const __m128i lo = _mm_set1_epi8(0x20);
    const __m128i first = _mm_set1_epi8(char(find[0] | 0x20));
    const __m128i lastB = _mm_set1_epi8(char(find[n - 1] | 0x20));
    for (; i + 16 <= last + 1; i += 16) {
        __m128i a = _mm_or_si128(_mm_loadu_si128(reinterpret_cast<const __m128i*>(hay + i)), lo);
        __m128i b = _mm_or_si128(
            _mm_loadu_si128(reinterpret_cast<const __m128i*>(hay + i + n - 1)), lo);
        unsigned mask = unsigned(_mm_movemask_epi8(
            _mm_and_si128(_mm_cmpeq_epi8(a, first), _mm_cmpeq_epi8(b, lastB))));
        while (mask) {
            unsigned bit = unsigned(__builtin_ctz(mask));
            if (EqualFolded(hay + i + bit, find.data(), n)) return i + bit;
            mask &= mask - 1;
        }
    }
#endif
    for (; i <= last; ++i)
        if (EqualFolded(hay + i, find.data(), n)) return i;
    return std::string_view::npos;
}

} // namespace

int64_t FindText(std::string_view text, std::string_view find, int64_t start, int64_t end,
                 bool wholeWord, bool matchCase) {
    const int64_t len = int64_t(text.size());
    if (find.empty()) return -1;
    if (end < 0 || end > len) end = len;
    if (start < 0) start = 0;
    if (start > end) return -1;
    const bool exact = matchCase || !HasLetter(find);
    size_t from = size_t(start);
    for (;;) {
        size_t hit = exact ? FindExact(text.data(), size_t(end), from, find)
                           : FindFolded(text.data(), size_t(end), from, find);
        if (hit == std::string_view::npos) return -1;
        if (!wholeWord) return int64_t(hit);
        bool leftOk = hit == 0 || !IsWordByte(static_cast<unsigned char>(text[hit - 1]));
        size_t after = hit + find.size();
        bool rightOk = after >= text.size() || !IsWordByte(static_cast<unsigned char>(text[after]));
        if (leftOk && rightOk) return int64_t(hit);
        from = hit + 1;
    }
}

int64_t InStrIndex(int64_t start, std::string_view text, std::string_view find, bool matchCase) {
    if (start < 1) start = 1;
    int64_t r = FindText(text, find, start - 1, -1, false, matchCase);
    return r < 0 ? 0 : r + 1;
}
