#include "base/TextCodec.h"

#include "base/Utf8.h"

#include <algorithm>

#include <cstdint>
#include <cstring>

#if defined(__x86_64__) || defined(__i386__)
#include <immintrin.h>
#endif

bool IsAllCrLf(std::string_view b) {
    const char* p = b.data();
    const char* end = p + b.size();
    // Every CR must be followed by LF and every LF preceded by CR.
    for (const char* q = p; (q = static_cast<const char*>(std::memchr(q, '\n', end - q))); ++q)
        if (q == p || q[-1] != '\r') return false;
    for (const char* q = p; (q = static_cast<const char*>(std::memchr(q, '\r', end - q))); ++q)
        if (q + 1 == end || q[1] != '\n') return false;
    return true;
}

std::string ToCrLf(std::string_view b) {
    if (IsAllCrLf(b)) return std::string(b);
    const char* s = b.data();
    const char* end = s + b.size();
    auto next = [end](const char* from, char c) {
        const void* hit = std::memchr(from, c, size_t(end - from));
        return hit ? static_cast<const char*>(hit) : end;
    };
    // Each line end grows by at most one byte; one buffer of the final size, filled by
    // copying whole lines between the line ends that memchr finds.
    std::string out;
    out.reserve(b.size() + size_t(std::count(s, end, '\n') + std::count(s, end, '\r')));
    const char* cr = next(s, '\r');
    const char* lf = next(s, '\n');
    for (const char* p = s; p < end;) {
        const char* q = std::min(cr, lf);
        out.append(p, size_t(q - p));
        if (q == end) break;
        out += "\r\n";
        p = (*q == '\r' && q + 1 < end && q[1] == '\n') ? q + 2 : q + 1;
        if (cr < p) cr = next(p, '\r');
        if (lf < p) lf = next(p, '\n');
    }
    return out;
}

bool IsValidUtf8(std::string_view b) {
    const auto* s = reinterpret_cast<const unsigned char*>(b.data());
    size_t n = b.size(), i = 0;
    while (i < n) {
        // Skip ASCII eight bytes at a time.
        while (i + 8 <= n) {
            uint64_t w;
            std::memcpy(&w, s + i, 8);
            if (w & 0x8080808080808080ull) break;
            i += 8;
        }
        if (i >= n) break;
        if (s[i] < 0x80) {
            ++i;
            continue;
        }
        char32_t cp;
        const size_t len = Utf8SequenceAt(b, i, cp);
        if (len == 0) return false;
        i += len;
    }
    return true;
}

std::string StripCr(std::string_view b) {
    std::string out;
    out.reserve(b.size());
    for (char c : b)
        if (c != '\r') out += c;
    return out;
}

#if defined(__GNUC__) && (defined(__x86_64__) || defined(__i386__))
#define KESTRUM_SHUFFLE_LINE_ENDS 1
namespace {
// For each pattern of 8 bits: the byte shuffle that spreads 8 bytes apart with a byte 15 (an
// LF) inserted after each marked one, and how long the result is.
struct SpreadTable {
    alignas(16) uint8_t shuffle[256][16];
    uint8_t length[256];
};

constexpr SpreadTable MakeSpreadTable() {
    SpreadTable t{};
    for (int bits = 0; bits < 256; ++bits) {
        int o = 0;
        for (int i = 0; i < 8; ++i) {
            t.shuffle[bits][o++] = uint8_t(i);
            if ((bits >> i) & 1) t.shuffle[bits][o++] = 15;
        }
        t.length[bits] = uint8_t(o);
        for (; o < 16; ++o) t.shuffle[bits][o] = 0x80; // zero: overwritten by the next store
    }
    return t;
}

constexpr SpreadTable kSpread = MakeSpreadTable();

bool CanShuffle() {
    static const bool can = __builtin_cpu_supports("ssse3");
    return can;
}

// Converts 16 bytes a step, with no branch per line, which on text of short lines is twice as
// fast as stopping at each line end: a line end of its own (an LF not after a CR, a CR not
// before an LF) becomes a CR with an LF inserted after it; CR LF passes as it is. Reads p[-1]
// and p[16], so it runs from the second byte of a chunk while 17 bytes remain; returns where
// it stopped, having finished a CR LF pair whose CR was the last byte of a step. The kinds of
// line ends seen are or'ed into the three flags.
__attribute__((target("ssse3"))) const char* ConvertBlocks(const char* p, const char* end,
                                                           char*& out, bool& crLf, bool& lf,
                                                           bool& cr) {
    const __m128i kLf = _mm_set1_epi8('\n'), kCr = _mm_set1_epi8('\r');
    const __m128i kLfToCr = _mm_set1_epi8('\n' ^ '\r');
    const __m128i kLow = _mm_set_epi64x(0, -1);
    const __m128i kLfAt15 = _mm_set_epi8('\n', 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
    __m128i seenPair = _mm_setzero_si128(), seenLf = seenPair, seenCr = seenPair;
    char* o = out;
    for (; end - p >= 17; p += 16) {
        const __m128i at = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
        const __m128i before = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p - 1));
        const __m128i after = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p + 1));
        const __m128i isCr = _mm_cmpeq_epi8(at, kCr);
        const __m128i lfAfter = _mm_cmpeq_epi8(after, kLf);
        const __m128i loneLf = _mm_andnot_si128(_mm_cmpeq_epi8(before, kCr), _mm_cmpeq_epi8(at, kLf));
        const __m128i loneCr = _mm_andnot_si128(lfAfter, isCr);
        seenPair = _mm_or_si128(seenPair, _mm_and_si128(isCr, lfAfter));
        seenLf = _mm_or_si128(seenLf, loneLf);
        seenCr = _mm_or_si128(seenCr, loneCr);
        const unsigned lone = unsigned(_mm_movemask_epi8(_mm_or_si128(loneLf, loneCr)));
        const __m128i bytes = _mm_xor_si128(at, _mm_and_si128(loneLf, kLfToCr));
        const __m128i low = _mm_or_si128(_mm_and_si128(bytes, kLow), kLfAt15);
        const __m128i high = _mm_or_si128(_mm_srli_si128(bytes, 8), kLfAt15);
        const unsigned lowBits = lone & 0xFF, highBits = lone >> 8;
        _mm_storeu_si128(reinterpret_cast<__m128i*>(o),
                         _mm_shuffle_epi8(low, _mm_load_si128(reinterpret_cast<const __m128i*>(
                                                   kSpread.shuffle[lowBits]))));
        o += kSpread.length[lowBits];
        _mm_storeu_si128(reinterpret_cast<__m128i*>(o),
                         _mm_shuffle_epi8(high, _mm_load_si128(reinterpret_cast<const __m128i*>(
                                                    kSpread.shuffle[highBits]))));
        o += kSpread.length[highBits];
    }
    if (p[-1] == '\r' && *p == '\n') *o++ = *p++; // the CR went out as the pair's first half
    crLf |= _mm_movemask_epi8(seenPair) != 0;
    lf |= _mm_movemask_epi8(seenLf) != 0;
    cr |= _mm_movemask_epi8(seenCr) != 0;
    out = o;
    return p;
}
} // namespace
#endif

char* CrLfNormalizer::Convert(std::string_view chunk, char* out) {
    const char* p = chunk.data();
    const char* const end = p + chunk.size();
    if (pendingCr_ && p < end) {
        *out++ = '\r';
        *out++ = '\n';
        (*p == '\n' ? crLf_ : cr_) = true;
        if (*p == '\n') ++p;
        pendingCr_ = false;
    }
    while (p < end) {
#ifdef KESTRUM_SHUFFLE_LINE_ENDS
        if (p > chunk.data() && end - p >= 17 && CanShuffle()) {
            p = ConvertBlocks(p, end, out, crLf_, lf_, cr_);
            continue;
        }
#endif
        // The first byte of a chunk and the last few, or all of it where the processor
        // cannot shuffle bytes, one at a time.
        const char c = *p;
        if (c != '\n' && c != '\r') {
            *out++ = c;
            ++p;
            continue;
        }
        if (c == '\n') {
            lf_ = true;
            ++p;
        } else if (p + 1 == end) { // the LF that may follow comes with the next chunk
            pendingCr_ = true;
            return out;
        } else if (p[1] == '\n') { // CR LF stays as it is
            crLf_ = true;
            p += 2;
        } else {
            cr_ = true;
            ++p;
        }
        *out++ = '\r';
        *out++ = '\n';
    }
    return out;
}

void CrLfNormalizer::Feed(std::string_view chunk, std::string& out) {
    out.reserve(out.size() + chunk.size() + chunk.size() / 8 + 2);
    // Converted piece by piece through a buffer that stays in the processor's cache, each
    // piece then appended whole.
    constexpr size_t kPiece = 16 << 10;
    char converted[2 * kPiece + 2];
    for (size_t at = 0; at < chunk.size(); at += kPiece) {
        const char* to = Convert(chunk.substr(at, kPiece), converted);
        out.append(converted, size_t(to - converted));
    }
}

void CrLfNormalizer::Finish(std::string& out) {
    if (pendingCr_) {
        out += "\r\n";
        cr_ = true;
    }
    pendingCr_ = false;
}

LineEndStyle CrLfNormalizer::Style() const {
    if (int(crLf_) + int(lf_) + int(cr_) > 1) return LineEndStyle::Mixed;
    if (crLf_) return LineEndStyle::CrLf;
    if (cr_) return LineEndStyle::Cr;
    return LineEndStyle::Lf;
}

std::string FromCrLf(std::string_view text, LineEndStyle style) {
    if (style == LineEndStyle::CrLf || style == LineEndStyle::Mixed) return std::string(text);
    const char end = style == LineEndStyle::Lf ? '\n' : '\r';
    std::string out;
    out.reserve(text.size());
    size_t start = 0;
    for (;;) {
        const size_t pair = text.find("\r\n", start);
        if (pair == std::string_view::npos) break;
        out.append(text.substr(start, pair - start));
        out += end;
        start = pair + 2;
    }
    out.append(text.substr(start));
    return out;
}

void Utf8Validator::Feed(std::string_view chunk) {
    if (!valid_) return;
    std::string joined;
    if (!carry_.empty()) {
        joined = carry_;
        joined.append(chunk.substr(0, 3));
        chunk = chunk.substr(std::min<size_t>(3, chunk.size()));
        // Validate the carried sequence with enough of the new chunk to complete it.
        size_t lead = 0;
        unsigned char c = static_cast<unsigned char>(joined[0]);
        lead = c >= 0xF0 ? 4 : c >= 0xE0 ? 3 : 2;
        if (joined.size() < lead) {
            carry_ = joined;
            return;
        }
        std::string_view rest(joined);
        // Everything of joined after the carried sequence goes back in front of the chunk.
        std::string tail(rest.substr(lead));
        if (!IsValidUtf8(rest.substr(0, lead))) {
            valid_ = false;
            return;
        }
        carry_.clear();
        tail.append(chunk);
        joined = std::move(tail);
        chunk = joined;
    }
    // Keep an incomplete sequence at the very end for the next chunk.
    size_t n = chunk.size(), cut = n;
    for (size_t k = 1; k <= 3 && k <= n; ++k) {
        unsigned char c = static_cast<unsigned char>(chunk[n - k]);
        if ((c & 0xC0) == 0x80) continue; // continuation byte: look further back
        size_t need = c >= 0xF0 ? 4 : c >= 0xE0 ? 3 : c >= 0xC0 ? 2 : 1;
        if (need > k) cut = n - k;
        break;
    }
    if (!IsValidUtf8(chunk.substr(0, cut))) valid_ = false;
    carry_.assign(chunk.substr(cut));
}

bool Utf8Validator::Finish() {
    if (!carry_.empty()) valid_ = false;
    carry_.clear();
    return valid_;
}
