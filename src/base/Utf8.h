#pragma once
// One UTF-8 sequence at a time, for the places that walk text code point by code point.
#include <cstddef>
#include <string>
#include <string_view>

// Appends the encoding of cp, which must be at most U+10FFFF. A surrogate is encoded as it
// is, so that a caller passing on what it decoded loosely gives back the same bytes.
void AppendUtf8(std::string& out, char32_t cp);
// The well-formed sequence at s[i] (no overlong form, no surrogate, at most U+10FFFF): its
// length, with its code point in cp; 0 when none starts there.
size_t Utf8SequenceAt(std::string_view s, size_t i, char32_t& cp);
