// The colours of rtfText: styles written into the control, read back from it, and a store of
// colours not yet written that the control takes as it comes to show them.
//
// The control has no lexer: before it shows or measures text behind its end of styled text
// it raises SCN_STYLENEEDED. The store's positions are always at or behind that end, so the
// control asks before it shows any of them. Text outside the store holds its colours in the
// control already (paints outside the store go straight in, inserted text is painted in the
// slot it inherits), so the end may pass over it freely.
#include "editor/RichEdit.h"

#include <algorithm>
#include <cstring>

namespace {
// A request for styles is answered in whole chunks of the store, so that a reader or the
// view going on position by position writes once a chunk.
constexpr int64_t kFlushChunk = 64 << 10;
} // namespace

// Gives the positions start.. start + length - 1 (inside the text) their colours: those held
// in the store get them there, through toStore(bytes, pos, n), so that a later flush does not
// bring older colours back; the others get them in the control, through toControl(pos, n).
template <typename C, typename S>
void RichEdit::PaintAround(int64_t start, int64_t length, C&& toControl, S&& toStore) {
    ApplyInheritedSlot(); // first, so that it cannot cover the new colours
    const int64_t end = start + length;
    const DeferredStyles& d = deferred_;
    int64_t in = d.Empty() ? end : std::clamp(d.start, start, end);
    int64_t out = d.Empty() ? end : std::clamp(d.End(), in, end);
    if (in > start) toControl(start, in - start);
    if (out > in) toStore(deferred_.bytes.data() + d.offset + (in - d.start), in, out - in);
    if (end > out) toControl(out, end - out);
    KeepStoreUnstyled();
}

void RichEdit::PaintRange(int64_t start, int64_t length, ColorSlot slot) {
    int64_t n = TextLength();
    start = std::clamp<int64_t>(start, 0, n);
    length = std::clamp<int64_t>(length, 0, n - start);
    if (length == 0) return;
    PaintAround(
        start, length,
        [&](int64_t pos, int64_t len) {
            Sci(SCI_STARTSTYLING, pos, 0);
            Sci(SCI_SETSTYLING, len, long(slot));
        },
        [&](uint8_t* to, int64_t, int64_t len) { std::memset(to, int(slot), size_t(len)); });
}

void RichEdit::PaintStyles(int64_t start, std::string_view styleBytes) {
    int64_t n = TextLength();
    if (start < 0 || start >= n || styleBytes.empty()) return;
    int64_t length = std::min<int64_t>(int64_t(styleBytes.size()), n - start);
    auto from = [&](int64_t pos) { return styleBytes.data() + (pos - start); };
    PaintAround(
        start, length,
        [&](int64_t pos, int64_t len) {
            Sci(SCI_STARTSTYLING, pos, 0);
            SciPtr(SCI_SETSTYLINGEX, len, from(pos));
        },
        [&](uint8_t* to, int64_t pos, int64_t len) { std::memcpy(to, from(pos), size_t(len)); });
}

void RichEdit::DeferStyles(int64_t start, std::vector<uint8_t> styleBytes) {
    ApplyInheritedSlot();
    int64_t n = TextLength();
    if (start < 0 || start >= n || styleBytes.empty()) return;
    if (int64_t(styleBytes.size()) > n - start) styleBytes.resize(size_t(n - start));
    const int64_t end = start + int64_t(styleBytes.size());
    if (!deferred_.Empty() && (deferred_.start < start || deferred_.End() > end)) {
        // One store only: the new colours do not cover the old ones, so the smaller of the
        // two is written now, which costs no more than writing the new ones would.
        if (deferred_.Size() > end - start) {
            PaintStyles(start,
                        {reinterpret_cast<const char*>(styleBytes.data()), styleBytes.size()});
            return;
        }
        FlushDeferredStyles();
    }
    deferred_ = {std::move(styleBytes), 0, start};
    KeepStoreUnstyled();
    viewport()->update(); // the view asks for what it shows as it repaints
}

void RichEdit::FlushDeferredStyles(int64_t upTo) const {
    DeferredStyles& d = deferred_;
    if (d.Empty() || (upTo >= 0 && upTo <= d.start)) return;
    // Edits keep the store inside the text; the clip only guards the control, which
    // refuses to style past the end.
    int64_t n = std::min(d.Size(), TextLength() - d.start);
    if (upTo >= 0 && upTo < d.End())
        n = std::min(n, (upTo - d.start + kFlushChunk - 1) / kFlushChunk * kFlushChunk);
    if (n <= 0) {
        d = {};
        return;
    }
    Sci(SCI_STARTSTYLING, d.start, 0);
    SciPtr(SCI_SETSTYLINGEX, n, d.bytes.data() + d.offset);
    d.offset += size_t(n);
    d.start += n;
    if (d.Empty()) d = {}; // gives the memory back
}

void RichEdit::KeepStoreUnstyled() const {
    if (!deferred_.Empty() && Sci(SCI_GETENDSTYLED) > deferred_.start)
        Sci(SCI_STARTSTYLING, deferred_.start, 0);
}

void RichEdit::StyleNeeded(int64_t pos) {
    ApplyInheritedSlot();
    FlushDeferredStyles(pos);
    // Nothing before the store (or, without one, anywhere) needs styling: the control need
    // not ask again until an edit or a new store sets its end back.
    int64_t styled = deferred_.Empty() ? TextLength() : deferred_.start;
    if (styled > Sci(SCI_GETENDSTYLED)) Sci(SCI_STARTSTYLING, styled, 0);
}

// Called before the control inserts or deletes length bytes at pos (undo and redo too).
void RichEdit::MoveDeferredStyles(int modificationType, int64_t pos, int64_t length) {
    if (deferred_.Empty() || pos >= deferred_.End()) return;
    // The colours in front of the change are written, so that the store starts at or
    // behind it and moves as one piece.
    FlushDeferredStyles(pos);
    if (deferred_.Empty()) return;
    if (modificationType & SC_MOD_BEFOREINSERT) {
        deferred_.start += length; // the inserted text keeps the control's own slot
        return;
    }
    int64_t gone = std::clamp<int64_t>(pos + length - deferred_.start, 0, deferred_.Size());
    deferred_.offset += size_t(gone);
    deferred_.start += gone - length;
    if (deferred_.Empty()) DropDeferredStyles();
}

// Inserted text takes the colour at the caret, as typing into coloured text does: the slot
// of the character before it, or at a line's start that of the character after it (a comment
// running to the line end does not spill into the next line); text that replaces a deletion
// takes the deleted text's first slot. A whole new text is plain.
void RichEdit::NoteInheritedSlot(int modificationType, int64_t pos, int64_t length) {
    if (modificationType & SC_MOD_BEFOREDELETE) {
        deletedAt_ = pos;
        deletedSlot_ = StoredSlotAt(pos);
        return;
    }
    auto inherited = [&] {
        const int64_t n = TextLength();
        auto lineEnd = [](long c) { return c == '\r' || c == '\n'; };
        if (n == 0) return ColorSlot::Text;
        if (deletedAt_ == pos) return deletedSlot_;
        if (pos > 0 && !lineEnd(Sci(SCI_GETCHARAT, pos - 1))) return StoredSlotAt(pos - 1);
        if (pos < n && !lineEnd(Sci(SCI_GETCHARAT, pos))) return StoredSlotAt(pos);
        return ColorSlot::Text;
    };
    const ColorSlot slot = inherited();
    deletedAt_ = -1;
    // The control gives new text the plain slot itself.
    if (slot != ColorSlot::Text && length > 0) inherited_ = {pos, length, slot};
}

// Paints the last insertion in its inherited slot. It runs before anything else reads or
// paints colours, and before the next edit, so the positions are still the insertion's;
// the store was moved behind the insertion when it was made.
void RichEdit::ApplyInheritedSlot() const {
    if (inherited_.length == 0) return;
    const Inherited in = inherited_;
    inherited_ = {};
    const int64_t length = std::min(in.length, TextLength() - in.start);
    if (length <= 0) return;
    Sci(SCI_STARTSTYLING, in.start, 0);
    Sci(SCI_SETSTYLING, length, long(in.slot));
    KeepStoreUnstyled();
}

// The slot of a position, from the store where it holds it.
ColorSlot RichEdit::StoredSlotAt(int64_t pos) const {
    const DeferredStyles& d = deferred_;
    const long s = !d.Empty() && pos >= d.start && pos < d.End()
                       ? long(d.bytes[d.offset + size_t(pos - d.start)])
                       : Sci(SCI_GETSTYLEAT, pos);
    return s >= 0 && s < kColorSlotCount ? ColorSlot(s) : ColorSlot::Text;
}

ColorSlot RichEdit::SlotAt(int64_t pos) const {
    ApplyInheritedSlot();
    FlushDeferredStyles(std::max<int64_t>(pos + 1, 0));
    return StoredSlotAt(pos); // written into the control by now
}

std::string RichEdit::Styles(int64_t start, int64_t length) const {
    ApplyInheritedSlot();
    int64_t n = TextLength();
    start = std::clamp<int64_t>(start, 0, n);
    length = std::clamp<int64_t>(length, 0, n - start);
    FlushDeferredStyles(start + length);
    // The control hands out text and style bytes interleaved, two bytes a position.
    std::string both(size_t(2 * length + 2), '\0');
    struct {
        struct {
            long cpMin, cpMax;
        } chrg;
        char* lpstrText;
    } range{{long(start), long(start + length)}, both.data()};
    SciPtr(SCI_GETSTYLEDTEXT, 0, &range);
    std::string styles(size_t(length), '\0');
    for (int64_t i = 0; i < length; ++i) styles[size_t(i)] = both[size_t(2 * i + 1)];
    return styles;
}

void RichEdit::CopyFrom(const RichEdit& other) {
    setUtf8(other.isUtf8());
    lineEnds_ = other.lineEnds_;
    std::string_view t = other.TextView();
    DropDeferredStyles();
    Sci(SCI_CLEARALL);
    SciPtr(SCI_APPENDTEXT, t.size(), t.data());
    // What the other control still defers stays deferred here: only the colours it holds
    // itself are read out of it.
    const DeferredStyles& d = other.deferred_;
    PaintStyles(0, other.Styles(0, d.Empty() ? other.TextLength() : d.start));
    if (!d.Empty()) DeferStyles(d.start, {d.bytes.begin() + ptrdiff_t(d.offset), d.bytes.end()});
    Sci(SCI_SETSEL, 0, 0);
}
