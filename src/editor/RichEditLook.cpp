#include "editor/RichEdit.h"

#include <QFontDatabase>

namespace {
constexpr unsigned long kStyleMask = kColorSlotCount;
constexpr int kTwipsPerPixel = 15;
} // namespace

void RichEdit::ApplyFont() {
    QString family = fontName_;
    // A font the machine lacks would fall back to a proportional face; a programmer's
    // editor falls back to the system's fixed-width font instead.
    if (!QFontDatabase::hasFamily(family))
        family = QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
    QByteArray name = family.toUtf8();
    auto apply = [&](unsigned long style) {
        SciPtr(SCI_STYLESETFONT, style, name.constData());
        Sci(SCI_STYLESETSIZEFRACTIONAL, style, long(std::max(1.0f, fontSize_) * 100));
        Sci(SCI_STYLESETBOLD, style, bold_);
        Sci(SCI_STYLESETITALIC, style, italic_);
    };
    apply(STYLE_DEFAULT);
    for (unsigned long s = 0; s < kStyleMask; ++s) apply(s);
}

static long ColorRef(const QColor& c) { return c.red() | (c.green() << 8) | (c.blue() << 16); }

void RichEdit::ApplyColors() {
    Sci(SCI_STYLESETBACK, STYLE_DEFAULT, ColorRef(back_));
    Sci(SCI_STYLESETFORE, STYLE_DEFAULT, ColorRef(slotColors_[0]));
    for (unsigned long s = 0; s < kStyleMask; ++s) {
        Sci(SCI_STYLESETBACK, s, ColorRef(back_));
        Sci(SCI_STYLESETFORE, s, ColorRef(slotColors_[s]));
    }
    // The caret must stay visible on a dark background.
    QColor caret = back_.lightness() < 128 ? Qt::white : Qt::black;
    Sci(SCI_SETCARETFORE, ColorRef(caret));
}

void RichEdit::SetSelFontName(const QString& name) {
    if (name == fontName_) return;
    fontName_ = name;
    ApplyFont();
}
void RichEdit::SetSelFontSize(float points) {
    if (points == fontSize_) return;
    fontSize_ = points;
    ApplyFont();
}
void RichEdit::SetSelBold(bool bold) {
    if (bold == bold_) return;
    bold_ = bold;
    ApplyFont();
}
void RichEdit::SetSelItalic(bool italic) {
    if (italic == italic_) return;
    italic_ = italic;
    ApplyFont();
}
void RichEdit::SetSelIndent(int twips) { Sci(SCI_SETMARGINLEFT, 0, twips / kTwipsPerPixel); }

void RichEdit::SetBackColor(const QColor& c) {
    if (c == back_) return;
    back_ = c;
    ApplyColors();
}

void RichEdit::SetSlotColor(ColorSlot slot, const QColor& c) {
    if (slotColors_[size_t(slot)] == c) return;
    slotColors_[size_t(slot)] = c;
    Sci(SCI_STYLESETFORE, (unsigned long)slot, ColorRef(c));
    if (slot == ColorSlot::Text) Sci(SCI_STYLESETFORE, STYLE_DEFAULT, ColorRef(c));
}

void RichEdit::SetRightMargin(int twips) {
    setWrapMode(twips >= 1048576 ? QsciScintilla::WrapNone : QsciScintilla::WrapWord);
}
