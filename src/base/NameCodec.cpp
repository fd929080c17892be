#include "base/NameCodec.h"

#include "base/Utf8.h"

std::u16string DecodeNameBytes(std::string_view bytes) {
    std::u16string out;
    out.reserve(bytes.size());
    for (size_t i = 0; i < bytes.size();) {
        char32_t cp = 0;
        const size_t len = Utf8SequenceAt(bytes, i, cp);
        if (len == 0) {
            // Only this byte is taken: the next one may begin a valid sequence.
            out += char16_t(0xDC00 + static_cast<unsigned char>(bytes[i]));
            ++i;
            continue;
        }
        if (cp < 0x10000) {
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
            AppendUtf8(out, 0x10000 + ((char32_t(u) - 0xD800) << 10) + (text[i + 1] - 0xDC00));
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
