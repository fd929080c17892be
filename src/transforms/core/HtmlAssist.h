#pragma once
// The fixed tag list of the tag picker, how an entry wraps a selection, and the rows of the
// special character list.
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// The 136 entries in list order. "opening ... closing" is a pair that wraps the selection;
// an entry without " ... " is inserted whole.
std::span<const std::string_view> HtmlTagEntries();

struct TagPair {
    std::string opening, closing;
};
TagPair SplitTagEntry(std::string_view entry);

// What replaces the selection, and the selection afterwards: the tags and what they wrap.
struct TagInsertion {
    std::string text;
    int64_t selStart = 0;
    int64_t selLength = 0;
};
TagInsertion WrapSelection(std::string_view entry, std::string_view selected, int64_t selStart);

// Codes 160 to 255: the code in decimal, a tab, and the character as the document's bytes
// (one Latin-1 byte, or its UTF-8 form in a UTF-8 document).
struct SpecialCharRow {
    int code = 0;
    std::string character; // document bytes
    std::string text;      // the row as listed
};
std::vector<SpecialCharRow> SpecialCharRows(bool utf8);
