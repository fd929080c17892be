#pragma once
// The three HTML layouts: Compact (all on one line), Loose (each tag on a line of its own)
// and Indented (a walk over the tags, one tab per level). Plain string functions over bytes;
// every line end they write is CR LF.
#include <optional>
#include <string>
#include <string_view>

struct HTMLTag {
    std::string text;  // from "<" to ">", both included
    int64_t start = 0; // 1-based, as the walk counts
    int64_t end = 0;
};

// " >" -> ">", then "< " -> "<", then "> <" -> "><", each a single left-to-right pass.
std::string HTMLTrimBrackets(std::string_view text);
std::string HTMLCompact(std::string_view text);
std::string HTMLLoose(std::string_view text);
// Empty when the layout would grow beyond maxBytes (a deep nest multiplies the tabs).
std::optional<std::string> HTMLIndent(std::string_view text, size_t maxBytes = size_t(1) << 30);
std::optional<std::string> HTMLIndentTags(std::string_view text, size_t maxBytes = size_t(1) << 30);
// The tag at or after the 1-based position: from the first "<" to the first ">" behind that
// same start; an empty text when either is missing or the ">" stands first.
HTMLTag HTMLNextTag(std::string_view text, int64_t position);
// The name: from behind "<" to the first space, or to ">" when there is none; a comment is
// "!--" whatever follows.
std::string HTMLTagName(std::string_view tag);
