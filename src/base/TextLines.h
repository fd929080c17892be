#pragma once
// Lines of a text as the edit control counts them: CR LF, a lone CR and a lone LF each end a
// line, and a text ending in one has an empty last line.
#include <cstdint>
#include <string_view>

struct TextRange {
    int64_t start = 0;
    int64_t length = 0;
};

// The line that holds pos, without its line end.
TextRange LineAround(std::string_view text, int64_t pos);
