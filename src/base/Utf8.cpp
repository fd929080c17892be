#include "base/Utf8.h"

void AppendUtf8(std::string& out, char32_t cp) {
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

size_t Utf8SequenceAt(std::string_view s, size_t i, char32_t& cp) {
    const auto c = static_cast<unsigned char>(s[i]);
    size_t n;
    char32_t v;
    if (c < 0x80)
        n = 1, v = c;
    else if (c >= 0xC2 && c <= 0xDF)
        n = 2, v = c & 0x1F;
    else if (c >= 0xE0 && c <= 0xEF)
        n = 3, v = c & 0x0F;
    else if (c >= 0xF0 && c <= 0xF4)
        n = 4, v = c & 0x07;
    else
        return 0;
    if (i + n > s.size()) return 0;
    for (size_t k = 1; k < n; ++k) {
        const auto t = static_cast<unsigned char>(s[i + k]);
        if ((t & 0xC0) != 0x80) return 0;
        v = (v << 6) | (t & 0x3F);
    }
    static constexpr char32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
    if (v < kLeast[n] || v > 0x10FFFF || (v >= 0xD800 && v <= 0xDFFF)) return 0;
    cp = v;
    return n;
}
