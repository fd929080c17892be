#pragma once
// The fixed set of colours a character of a document can carry. The painter writes slots;
// the editor widget maps each slot to one style whose colour comes from the global settings.
#include <cstdint>

enum class ColorSlot : uint8_t {
    Text = 0,      // TextColor
    Keywords0 = 1, // KeywordColor 0
    Keywords1 = 2, // KeywordColor 1
    Keywords2 = 3, // KeywordColor 2
    Comment = 4,   // KeywordColor 3, delimiter class 1
    Delimiter1 = 5, // KeywordColor 4, delimiter class 2
    Delimiter2 = 6, // KeywordColor 5, delimiter class 3
};
constexpr int kColorSlotCount = 7;

// The slot of keyword list i (0 to 2) and of delimiter class n (1 to 3).
constexpr ColorSlot KeywordSlot(int list) { return ColorSlot(1 + list); }
constexpr ColorSlot DelimiterSlot(int colourClass) { return ColorSlot(3 + colourClass); }
// Index into EditorSettings::KeywordColor of a slot other than Text.
constexpr int KeywordColorIndex(ColorSlot s) { return int(s) - 1; }
