#include "editor/RichEdit.h"

#include "base/TextCodec.h"
#include "base/qt/FilePaths.h"
#include "editor/DocumentHost.h"
#include "editor/SafeSave.h"


#include <algorithm>

void RichEdit::ResetEncoding(bool utf8) {
    setUtf8(utf8);
}

void RichEdit::MakeRoomForFile(int64_t fileSize, size_t pieceSize, std::string_view converted) {
    // The control grows its text, style and line buffers by copying them into larger ones,
    // so that at each growth the old and the new are held together: they are given their
    // final sizes at once, as the first piece of the file foretells them, with a little to
    // spare for line ends that grow from LF to CR LF or lines shorter further on. A file
    // that turns out otherwise merely grows the buffers as usual.
    if (fileSize <= 0 || pieceSize == 0) return;
    const double scale = double(fileSize) / double(pieceSize);
    const bool whole = int64_t(pieceSize) >= fileSize;
    const int64_t bytes = int64_t(double(converted.size()) * scale);
    Sci(SCI_ALLOCATE, static_cast<unsigned long>(whole ? bytes + 1 : bytes + bytes / 64 + 4096));
    const auto lines = std::count(converted.begin(), converted.end(), '\n');
    constexpr int kAllocateLines = 2089; // not named in the control's header
    Sci(kAllocateLines,
        static_cast<unsigned long>(double(lines) * scale * (whole ? 1.0 : 1.02)) + 16);
}

bool RichEdit::LoadFile(const QString& path, int type, QString* error) {
    QFile f;
    if (!OpenFileAt(f, path, QIODevice::ReadOnly, error)) return false;
    // Read in chunks straight into the control, so that a large file is held only once
    // beside the control's own buffer.
    constexpr qint64 kChunk = 4 << 20;
    CrLfNormalizer norm;
    Utf8Validator utf8;
    std::string raw, converted;
    raw.resize(size_t(std::min<qint64>(kChunk, std::max<qint64>(f.size(), 1))));
    Sci(SCI_SETUNDOCOLLECTION, 0);
    // Each modification event costs the control a pass over the text before the insertion,
    // which for chunks appended at the end grows with the file: the events are off during
    // the load, and its one change is reported at the end.
    long eventMask = Sci(SCI_GETMODEVENTMASK);
    Sci(SCI_SETMODEVENTMASK, 0);
    bool hadText = TextLength() > 0;
    DropDeferredStyles(); // the events that would drop it are off
    Sci(SCI_CLEARALL);
    bool ok = true;
    for (bool first = true;; first = false) {
        qint64 n = f.read(raw.data(), qint64(raw.size()));
        if (n < 0) {
            ok = false;
            break;
        }
        if (n == 0) break;
        std::string_view piece(raw.data(), size_t(n));
        utf8.Feed(piece);
        converted.clear();
        norm.Feed(piece, converted);
        if (first) MakeRoomForFile(f.size(), piece.size(), converted);
        SciPtr(SCI_APPENDTEXT, converted.size(), converted.data());
    }
    converted.clear();
    norm.Finish(converted);
    SciPtr(SCI_APPENDTEXT, converted.size(), converted.data());
    setUtf8(utf8.Finish());
    if (ok) {
        lineEnds_ = norm.Style();
        if (lineEnds_ == LineEndStyle::Mixed)
            Host().SetPanelText(
                1, tr("This file mixes line-end styles; it will be saved with CR LF."));
    }
    Sci(SCI_SETMODEVENTMASK, eventMask);
    if (hadText || TextLength() > 0) emit textChanged();
    Sci(SCI_SETUNDOCOLLECTION, 1);
    Sci(SCI_EMPTYUNDOBUFFER);
    Sci(SCI_SETSEL, 0, 0);
    if (!ok && error) *error = f.errorString();
    (void)type;
    return ok;
}

bool RichEdit::SaveFile(const QString& path, int type, QString* error) {
    // Type 0 is the document as rich text, any other type its plain text. Either way a failed
    // write leaves the old file whole.
    std::string converted;
    if (type == 0)
        converted = TextRTF();
    else if (lineEnds_ == LineEndStyle::Lf || lineEnds_ == LineEndStyle::Cr)
        converted = FromCrLf(TextView(), lineEnds_);
    else
        return SaveBytesSafely(path, TextView(), error);
    return SaveBytesSafely(path, converted, error);
}
