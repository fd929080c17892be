#pragma once
// Whole-text conversions and the one-line commands of the Edit menu.
#include "base/TextLines.h"

#include <cstdint>
#include <string>
#include <string_view>

// Reads a count as the system's number conversion does: leading blanks skipped, an optional
// sign, then the longest run of decimal digits ("3x" is 3, "abc" and "" are 0, "08" is 8).
// Saturates instead of overflowing.
int64_t ReadCount(std::string_view text);

// Every tab becomes count spaces, wherever it stands (a count below 1 deletes the tabs).
std::string TabsToSpaces(std::string_view text, int64_t count);
// Runs of count spaces become tabs, read from the left (a count below 1 changes nothing).
std::string SpacesToTabs(std::string_view text, int64_t count);
// The size TabsToSpaces would produce, without producing it.
uint64_t TabsToSpacesSize(std::string_view text, int64_t count);

// Every LF becomes CR LF, pairs already there included.
std::string ToDosLineEnds(std::string_view text);
// Every CR is removed.
std::string ToUnixLineEnds(std::string_view text);

// What Delete Line removes: the line of pos with its line end, or, on the last line, its
// text alone.
TextRange DeleteLineRange(std::string_view text, int64_t pos);
