// The rich text of rtfText: its text with the colours the control shows and its font, as RTF.
#include "editor/RichEdit.h"

#include "editor/core/RtfCodec.h"

namespace {

RtfPalette PaletteOf(const RichEdit& e) {
    RtfPalette p;
    for (int i = 0; i < kColorSlotCount; ++i) {
        QColor c = e.SlotColor(ColorSlot(i));
        p[size_t(i)] = {uint8_t(c.red()), uint8_t(c.green()), uint8_t(c.blue())};
    }
    return p;
}

std::string RtfOf(const RichEdit& e, int64_t start, int64_t length, const RtfFont& font) {
    std::string_view text = e.TextView().substr(size_t(start), size_t(length));
    return WriteRtf(text, e.Styles(start, length), PaletteOf(e), font, e.IsUtf8Document());
}

} // namespace

std::string RichEdit::TextRTF() const {
    return RtfOf(*this, 0, TextLength(), {fontName_.toStdString(), fontSize_, bold_, italic_});
}

std::string RichEdit::SelRTF() const {
    return RtfOf(*this, SelStart(), SelLength(),
                 {fontName_.toStdString(), fontSize_, bold_, italic_});
}

void RichEdit::SetTextRTF(std::string_view rtf) {
    RtfContent c = ReadRtf(rtf, PaletteOf(*this), IsUtf8Document());
    SetText(c.text);
    PaintStyles(0, c.styles);
}

void RichEdit::SetSelRTF(std::string_view rtf) {
    RtfContent c = ReadRtf(rtf, PaletteOf(*this), IsUtf8Document());
    int64_t at = SelStart();
    SetSelText(c.text);
    PaintStyles(at, c.styles);
}
