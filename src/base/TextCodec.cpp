#include "base/TextCodec.h"

#include <algorithm>

#include <cstdint>
#include <cstring>

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

void CrLfNormalizer::Feed(std::string_view chunk, std::string& out) {
    size_t i = 0;
    if (pendingCr_ && !chunk.empty()) {
        out += "\r\n";
        if (chunk[0] == '\n') i = 1;
        ++(i == 1 ? crLf_ : cr_);
        pendingCr_ = false;
    }
    const char* base = chunk.data();
    const size_t n = chunk.size();
    out.reserve(out.size() + n + n / 8 + 2);
    // The next CR and the next LF, found with memchr: text between line ends is copied whole.
    auto next = [&](char c, size_t from) {
        const void* p = from < n ? std::memchr(base + from, c, n - from) : nullptr;
        return p ? size_t(static_cast<const char*>(p) - base) : n;
    };
    size_t cr = next('\r', i), lf = next('\n', i), start = i;
    while (cr < n || lf < n) {
        if (cr < lf) {
            if (cr + 1 == n) { // the LF that may follow comes with the next chunk
                out.append(base + start, cr - start);
                pendingCr_ = true;
                return;
            }
            if (base[cr + 1] == '\n') { // CR LF stays as it is
                ++crLf_;
                lf = next('\n', cr + 2);
            } else {
                ++cr_;
                out.append(base + start, cr - start);
                out += "\r\n";
                start = cr + 1;
            }
            cr = next('\r', cr + 1);
        } else {
            ++lf_;
            out.append(base + start, lf - start);
            out += "\r\n";
            start = lf + 1;
            lf = next('\n', lf + 1);
        }
    }
    out.append(base + start, n - start);
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
