#pragma once
// Wildcard search: '?' any byte, '*' any run of bytes (line ends included), '#' one digit,
// "[list]" one byte of the list (ranges as a-z), "[!list]" one byte not in it; anything else
// stands for itself. Comparison is exact; each element takes one byte.
#include <cstdint>
#include <string_view>

// The 1-based index at or after start where a match of expression begins (it may run on to
// the end of the text), 0 for none, -1 when the expression's first character is neither a
// digit nor in the byte range 'A'..'z'. An unclosed '[' makes the expression match nothing.
int64_t FindPatternPos(int64_t start, std::string_view text, std::string_view expression);
