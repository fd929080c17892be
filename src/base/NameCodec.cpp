#include "base/NameCodec.h"

#include <cstdint>

namespace {

// The code point of the valid UTF-8 sequence at s[i], and its length; 0 when none starts there.
size_t ValidSequence(std::string_view s, size_t i, uint32_t& cp) {
    const auto byte = [&](size_t k) { return static_cast<unsigned char>(s[k]); };
    unsigned char c = byte(i);
    size_t len;
    if (c >= 0xC2 && c <= 0xDF)
        len = 2, cp = c & 0x1F;
    else if (c >= 0xE0 && c <= 0xEF)
        len = 3, cp = c & 0x0F;
    else if (c >= 0xF0 && c <= 0xF4)
        len = 4, cp = c & 0x07;
    else
        return 0;
    if (i + len > s.size()) return 0;
    for (size_t k = 1; k < len; ++k) {
        if ((byte(i + k) & 0xC0) != 0x80) return 0;
        cp = (cp << 6) | (byte(i + k) & 0x3F);
    }
    if ((len == 3 && cp < 0x800) || (len == 4 && cp < 0x10000) || cp > 0x10FFFF ||
        (cp >= 0xD800 && cp <= 0xDFFF))
        return 0;
    return len;
}

void AppendUtf8(std::string& out, uint32_t cp) {
    if (cp < 0x80) {
        out += char(cp);
    } else if (cp < 0x800) {
        out += char(0xC0 | (cp >> 6));
        out += char(0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
        out += char(0xE0 | (cp >> 12));
        out += char(0x80 | ((cp >> 6) & 0x3F));
        out += char(0x80 | (cp & 0x3F));
    } else {
        out += char(0xF0 | (cp >> 18));
        out += char(0x80 | ((cp >> 12) & 0x3F));
        out += char(0x80 | ((cp >> 6) & 0x3F));
        out += char(0x80 | (cp & 0x3F));
    }
}

} // namespace

std::u16string DecodeNameBytes(std::string_view bytes) {
    std::u16string out;
    out.reserve(bytes.size());
    for (size_t i = 0; i < bytes.size();) {
        unsigned char c = static_cast<unsigned char>(bytes[i]);
        uint32_t cp = 0;
        size_t len = c < 0x80 ? 1 : ValidSequence(bytes, i, cp);
        if (c < 0x80) {
            out += char16_t(c);
        } else if (len == 0) {
            // Only this byte is taken: the next one may begin a valid sequence.
            out += char16_t(0xDC00 + c);
            len = 1;
        } else if (cp < 0x10000) {
            out += char16_t(cp);
        } else {
            out += char16_t(0xD800 + ((cp - 0x10000) >> 10));
            out += char16_t(0xDC00 + ((cp - 0x10000) & 0x3FF));
        }
        i += len;
    }
    return out;
}

std::string EncodeNameText(std::u16string_view text) {
    std::string out;
    out.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        char16_t u = text[i];
        if (u >= 0xD800 && u <= 0xDBFF && i + 1 < text.size() && text[i + 1] >= 0xDC00 &&
            text[i + 1] <= 0xDFFF) {
            AppendUtf8(out, 0x10000 + ((uint32_t(u) - 0xD800) << 10) + (text[i + 1] - 0xDC00));
            ++i;
        } else if (IsEscapedByte(u)) {
            out += char(u - 0xDC00);
        } else if (u >= 0xD800 && u <= 0xDFFF) {
            AppendUtf8(out, 0xFFFD);
        } else {
            AppendUtf8(out, u);
        }
    }
    return out;
}
