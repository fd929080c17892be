#pragma once
// The answers of the Go To boxes, read as the runtime reads a number.
#include <cstdint>
#include <optional>
#include <string_view>

// Leading blanks skipped, then the longest leading decimal number (sign, digits, a fraction)
// taken and rounded to an integer, halves to even; no number at all reads as 0.
int64_t ReadNumber(std::string_view answer);

struct Selection {
    int64_t start;
    int64_t length;
};

// The 0-based line a Go To Line answer names, or nothing when that line does not exist.
std::optional<int64_t> GotoLineIndex(std::string_view answer, int64_t lineCount);
// The selection a Go To Character answer makes, or nothing when the character does not exist.
std::optional<Selection> GotoCharSelection(std::string_view answer, int64_t textLength);
