#pragma once
// File names and settings are bytes, which need not be UTF-8, while the windows work on
// UTF-16 text. The conversion here loses nothing: valid UTF-8 is decoded as usual, and each
// byte that is not part of a valid sequence becomes the lone low surrogate U+DC00 + byte
// (U+DC80..U+DCFF), which no valid text holds, and turns back into that byte.
#include <string>
#include <string_view>

std::u16string DecodeNameBytes(std::string_view bytes);
// The inverse of DecodeNameBytes. A lone surrogate outside U+DC80..U+DCFF (which decoding
// never makes) is written as U+FFFD.
std::string EncodeNameText(std::u16string_view text);
// True for a unit that stands for a byte that was not UTF-8.
constexpr bool IsEscapedByte(char16_t u) {
    return u >= 0xDC80 && u <= 0xDCFF;
}
