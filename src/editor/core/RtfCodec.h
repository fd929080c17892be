#pragma once
// A document's text with the colour slot of every byte, as RTF and back: the rich-text
// export, and rich text pasted or read from what this program or a word processor wrote.
// The text holds every line end as CR LF and its bytes in the document's encoding: UTF-8, or
// 8-bit bytes as they are (shown as Latin-1, written as code page 1252).
#include "editor/core/ColorSlot.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

struct RtfColor {
    uint8_t red = 0, green = 0, blue = 0;
    bool operator==(const RtfColor&) const = default;
};
// The colour of each slot, in slot order, as the document shows it.
using RtfPalette = std::array<RtfColor, kColorSlotCount>;

struct RtfFont {
    std::string name; // UTF-8
    float points = 10;
    bool bold = false;
    bool italic = false;
};

// Writes the text, with one slot byte per text byte in styles (missing or unknown ones are
// Text), as an RTF document whose colour table is the palette in slot order: \cfN is slot N.
// Bytes above 127 become \'hh in an 8-bit document and \uN? in a UTF-8 one.
std::string WriteRtf(std::string_view text, std::string_view styles, const RtfPalette& palette,
                     const RtfFont& font, bool utf8);

struct RtfContent {
    std::string text;   // CR LF line ends, encoded for the target document
    std::string styles; // one ColorSlot byte per text byte
};

// Reads RTF into text for a UTF-8 or an 8-bit document. A colour of the file's table becomes
// the slot that shows that colour (the slot of the same number first, so that what WriteRtf
// wrote comes back slot for slot), any other colour the Text slot. Formatting other than
// colour, and the font, style, information and picture groups, are dropped. Input that is not
// RTF is taken as plain text.
RtfContent ReadRtf(std::string_view rtf, const RtfPalette& palette, bool utf8);
