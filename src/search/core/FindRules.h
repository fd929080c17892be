#pragma once
// The text search of the edit control, over the document's bytes. A match starts at or
// after start and ends at or before end (-1: the end of the text); a start past end or past
// the text finds nothing, and so does an empty search text. Case folding folds the ASCII
// letters only: bytes of 128 and above compare exactly, whatever the encoding.
#include <cstdint>
#include <string_view>

// Word characters for whole-word matches: letters, digits, '_', and every byte of 128 and
// above (the letters of other scripts and code pages).
bool IsWordByte(unsigned char c);

// Position of the first match in [start, end), or -1. The bytes on both sides of a whole-word
// match (or the text's edges) are no word characters; they are read beyond [start, end).
int64_t FindText(std::string_view text, std::string_view find, int64_t start, int64_t end,
                 bool wholeWord, bool matchCase);

// The runtime's InStr: the 1-based index of the first occurrence of find in text from the
// 1-based index start on, 0 if none (an empty find too). Binary comparison or ASCII folding.
int64_t InStrIndex(int64_t start, std::string_view text, std::string_view find, bool matchCase);
