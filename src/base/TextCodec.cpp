#include "base/TextCodec.h"

#include <algorithm>

#include <cstdint>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
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
        unsigned char c = s[i];
        if (c < 0x80) {
            ++i;
            continue;
        }
        int len;
        uint32_t cp;
        if (c >= 0xC2 && c <= 0xDF)
            len = 2, cp = c & 0x1F;
        else if (c >= 0xE0 && c <= 0xEF)
            len = 3, cp = c & 0x0F;
        else if (c >= 0xF0 && c <= 0xF4)
            len = 4, cp = c & 0x07;
        else
            return false;
        if (i + len > n) return false;
        for (int k = 1; k < len; ++k) {
            if ((s[i + k] & 0xC0) != 0x80) return false;
            cp = (cp << 6) | (s[i + k] & 0x3F);
        }
        if ((len == 3 && cp < 0x800) || (len == 4 && cp < 0x10000) || cp > 0x10FFFF ||
            (cp >= 0xD800 && cp <= 0xDFFF))
            return false;
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

namespace {
// Copies the bytes before the first CR or LF of [from, end) to out and returns how many.
// Whole blocks of 16 bytes are stored before they are looked at, which is why this is many
// times faster than a search and a copy per line on text of short lines; a block is only
// taken while 16 bytes remain, so nothing lands beyond out + (end - from).
inline size_t CopyToLineEnd(const char* from, const char* end, char* out) {
    const char* p = from;
#if defined(__SSE2__)
    const __m128i lf = _mm_set1_epi8('\n'), cr = _mm_set1_epi8('\r');
    for (; end - p >= 16; p += 16, out += 16) {
        const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(out), block);
        const int hits = _mm_movemask_epi8(
            _mm_or_si128(_mm_cmpeq_epi8(block, lf), _mm_cmpeq_epi8(block, cr)));
        if (hits != 0) return size_t(p - from) + size_t(__builtin_ctz(unsigned(hits)));
    }
#endif
    for (; p < end && *p != '\n' && *p != '\r'; ++p) *out++ = *p;
    return size_t(p - from);
}
} // namespace

char* CrLfNormalizer::Convert(std::string_view chunk, char* out) {
    const char* p = chunk.data();
    const char* const end = p + chunk.size();
    if (pendingCr_ && p < end) {
        *out++ = '\r';
        *out++ = '\n';
        ++(*p == '\n' ? crLf_ : cr_);
        if (*p == '\n') ++p;
        pendingCr_ = false;
    }
    while (p < end) {
        const size_t run = CopyToLineEnd(p, end, out);
        p += run;
        out += run;
        if (p == end) break;
        if (*p == '\n') {
            ++lf_;
            ++p;
        } else if (p + 1 == end) { // the LF that may follow comes with the next chunk
            pendingCr_ = true;
            return out;
        } else if (p[1] == '\n') { // CR LF stays as it is
            ++crLf_;
            p += 2;
        } else {
            ++cr_;
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
        ++cr_;
    }
    pendingCr_ = false;
}

LineEndStyle CrLfNormalizer::Style() const {
    const int kinds = int(crLf_ > 0) + int(lf_ > 0) + int(cr_ > 0);
    if (kinds > 1) return LineEndStyle::Mixed;
    if (crLf_ > 0) return LineEndStyle::CrLf;
    if (cr_ > 0) return LineEndStyle::Cr;
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
