#pragma once
// rtfText: the document's edit control. A QsciScintilla that offers the operations the
// program needs of it. Positions are byte offsets into the buffer, in which every line end
// is held as CR LF. The bytes of a file are kept as they are: the buffer is shown as UTF-8
// when the file is valid UTF-8 (new documents are UTF-8), otherwise as Latin-1.
// Colour reaches the text as styles, one per colour slot, so that colouring is neither an
// edit nor an undo step. A long stretch of colours may be handed over unwritten
// (DeferStyles): the control then takes it as it shows or measures the text
// (RichEditStyles.cpp).
#include "base/TextCodec.h"
#include "editor/core/ColorSlot.h"
#include "editor/core/LineCommand.h"

#include <Qsci/qsciscintilla.h>
#include <QColor>
#include <QKeySequence>
#include <QList>
#include <QStringList>
#include <array>
#include <optional>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// What the control reports to its owner, under the names of the owner's handlers.
class RichEditEvents {
  public:
    virtual ~RichEditEvents() = default;
    virtual void rtfText_Change() {}
    // Key codes are the classic virtual-key codes (Tab 9, Enter 13, Space 32, Left 37, Up 38,
    // Right 39, Down 40); Shift is 1 for Shift, 2 for Ctrl, 4 for Alt. KeyCode 0 swallows.
    virtual void rtfText_KeyDown(int& KeyCode, int& Shift) {}
    // The character code of a key that types something; writing 0 swallows the key.
    virtual void rtfText_KeyPress(int& KeyAscii) {}
    virtual void rtfText_KeyUp(int& KeyCode, int& Shift) {}
    // Button: 1 left, 2 right, 4 middle.
    virtual void rtfText_MouseUp(int Button, int Shift, int x, int y) {}
    virtual void rtfText_SelChange() {}
    virtual void rtfText_OLEDragDrop(const QStringList& files) {}
};

class RichEdit : public QsciScintilla {
    Q_OBJECT
  public:
    explicit RichEdit(QWidget* parent = nullptr);

    void SetEvents(RichEditEvents* sink) { events_ = sink; }

    // --- Text and selection ---
    std::string Text() const;
    // The buffer read in place; valid until the next change of the text.
    std::string_view TextView() const;
    // The buffer from start to its end, read in place. Unlike TextView it moves the buffer's
    // gap no further than start, so reading near the caret stays cheap in a large document.
    std::string_view TextViewFrom(int64_t start) const;
    void SetText(std::string_view bytes); // line ends become CR LF
    int64_t TextLength() const;
    int64_t SelStart() const;
    void SetSelStart(int64_t pos); // collapses the selection
    int64_t SelLength() const;
    void SetSelLength(int64_t len);
    std::string SelText() const;
    // Replaces the selection; the caret lands behind the new text. Bytes are taken as they
    // are, so callers pass CR LF line ends.
    void SetSelText(std::string_view bytes);
    void SetSelColor(ColorSlot slot);
    // Paints a stretch directly (the painter's output), clipped to the buffer.
    void PaintRange(int64_t start, int64_t length, ColorSlot slot);
    void PaintStyles(int64_t start, std::string_view styleBytes); // one slot byte per position
    // Takes the slot bytes of positions start.. without writing them into the control yet:
    // the control asks for them as it comes to show them, edits move them with the text, and
    // later paints override them. Writing 10 MB of styles costs more than colouring them.
    void DeferStyles(int64_t start, std::vector<uint8_t> styleBytes);
    // Writes the deferred colours of the positions before upTo (-1: all) into the control.
    // Code that reads styles from the control itself (SCI_GETSTYLEAT, SCI_GETSTYLEDTEXT,
    // printing through the control) calls it first; SlotAt and Styles do so themselves.
    void FlushDeferredStyles(int64_t upTo = -1) const;
    ColorSlot SlotAt(int64_t pos) const;
    // The slot bytes of a stretch, one per position.
    std::string Styles(int64_t start, int64_t length) const;
    // Text, colours and encoding of another control, in one step.
    void CopyFrom(const RichEdit& other);
    // Applies edits computed over the current text, as one undo step.
    void ApplyEdits(const std::vector<TextEdit>& edits);
    // Counts changes of the text; a pass that yields compares it to see whether the text
    // it reads is still there.
    quint64 Version() const { return version_; }
    // Gives keys that the program's menus use back to the menus.
    void ReleaseKeys(const QList<QKeySequence>& keys);

    // --- Look ---
    // The font applies to every slot: the control has one typeface, as the editor shows one.
    void SetSelFontName(const QString& name);
    void SetSelFontSize(float points);
    float SelFontSize() const { return fontSize_; }
    void SetSelBold(bool bold);
    void SetSelItalic(bool italic);
    void SetSelIndent(int twips);
    void SetBackColor(const QColor& c);
    void SetSlotColor(ColorSlot slot, const QColor& c);
    QColor SlotColor(ColorSlot slot) const { return slotColors_[size_t(slot)]; }
    // Wrap column in twips; 1048576 and above turns wrapping off.
    void SetRightMargin(int twips);
    bool Wrapping() const { return wrapMode() != QsciScintilla::WrapNone; }

    // --- Files ---
    // Type 1 is plain text. On failure returns false with the reason in *error.
    // Plain text is written back with the line ends the last loaded file had (CR LF for a
    // new text, and for a file that mixed several kinds).
    bool LoadFile(const QString& path, int type, QString* error);
    bool SaveFile(const QString& path, int type, QString* error);
    LineEndStyle LineEnds() const { return lineEnds_; }
    void SetLineEnds(LineEndStyle style) { lineEnds_ = style; }
    // The document, or the selection, as RTF with its colours and font; setting one reads
    // what getting it writes, and RTF from word processors (RichEditRtf.cpp).
    std::string TextRTF() const;
    void SetTextRTF(std::string_view rtf);
    std::string SelRTF() const;
    // Replaces the selection with the text of the RTF, in its colours.
    void SetSelRTF(std::string_view rtf);
    bool IsUtf8Document() const { return isUtf8(); }
    // Text as this document holds it: UTF-8, or Latin-1 byte for byte. Nothing when a Latin-1
    // document cannot hold a character of it, since none may be replaced by another.
    std::optional<std::string> ToDocumentBytes(const QString& text) const;
    QString FromDocumentBytes(std::string_view bytes) const;
    // A new, empty document in UTF-8.
    void ResetEncoding(bool utf8);

    // --- Search ---
    // Finds text in [start, end) (end -1: to the end); selects and returns the position,
    // or -1.
    int64_t Find(std::string_view text, int64_t start, int64_t end, bool wholeWord,
                 bool matchCase);
    // Grows the selection from the caret until a character of the set is met.
    void Span(std::string_view charSet, bool forward);

    // --- Line messages ---
    int LineFromChar(int64_t pos) const;
    int64_t LineIndex(int line) const;
    int64_t LineLength(int64_t pos) const; // of the line that holds pos, without its line end
    int GetLineCount() const;
    int FirstVisibleLine() const;
    void SetFirstVisibleLine(int line);
    void Undo(); // EM_UNDO

    // WM_SETREDRAW: paired freezes of the display, nestable.
    void SetRedraw(bool on);

  signals:
    // A typed or pasted character that a Latin-1 document cannot hold was refused.
    void CharacterRefused();

  protected:
    void keyPressEvent(QKeyEvent* e) override;
    void keyReleaseEvent(QKeyEvent* e) override;
    void mouseReleaseEvent(QMouseEvent* e) override;
    void contextMenuEvent(QContextMenuEvent* e) override;
    void dragEnterEvent(QDragEnterEvent* e) override;
    void dragMoveEvent(QDragMoveEvent* e) override;
    void dropEvent(QDropEvent* e) override;
    QByteArray fromMimeData(const QMimeData* source, bool& rectangular) const override;
    void inputMethodEvent(QInputMethodEvent* e) override;
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

  private:
    LineEndStyle lineEnds_ = LineEndStyle::CrLf;
    long Sci(unsigned int msg, unsigned long w = 0, long l = 0) const;
    long SciPtr(unsigned int msg, unsigned long w, const void* p) const;
    // Sizes the control's buffers for a file being loaded, from its first converted piece.
    void MakeRoomForFile(int64_t fileSize, size_t pieceSize, std::string_view converted);
    void ApplyFont();
    void ApplyColors();
    void NotifySelChange();
    // Deferred colours: answers the control's request to style the text before pos, and
    // moves the store with an insertion or deletion that is about to happen.
    void StyleNeeded(int64_t pos);
    void MoveDeferredStyles(int modificationType, int64_t pos, int64_t length);
    // Inserted text takes the colour at the caret: notes the slot before an insertion or
    // deletion happens, and paints it once the inserted text is in place.
    void NoteInheritedSlot(int modificationType, int64_t pos, int64_t length);
    void ApplyInheritedSlot() const;
    ColorSlot StoredSlotAt(int64_t pos) const;
    void DropDeferredStyles() { deferred_ = {}; }
    // Keeps the control's end of styled text at or before the store, so that it asks.
    void KeepStoreUnstyled() const;
    template <typename C, typename S>
    void PaintAround(int64_t start, int64_t length, C&& toControl, S&& toStore);

    // Slot bytes not yet written into the control, for positions start.. . Written bytes
    // are skipped by offset rather than removed, so that taking a chunk moves nothing.
    struct DeferredStyles {
        std::vector<uint8_t> bytes;
        size_t offset = 0;
        int64_t start = 0; // the position of bytes[offset]
        int64_t Size() const { return int64_t(bytes.size() - offset); }
        int64_t End() const { return start + Size(); }
        bool Empty() const { return offset >= bytes.size(); }
    };
    // Flushing changes what the control holds, not what it reports: readers stay const.
    mutable DeferredStyles deferred_;
    // The last insertion, still to be painted in the slot it inherits (length 0: none), and
    // the first slot of the last deletion, which the text replacing it takes.
    struct Inherited {
        int64_t start = 0, length = 0;
        ColorSlot slot = ColorSlot::Text;
    };
    mutable Inherited inherited_;
    int64_t deletedAt_ = -1;
    ColorSlot deletedSlot_ = ColorSlot::Text;

    RichEditEvents* events_ = nullptr;
    std::array<QColor, kColorSlotCount> slotColors_{};
    QColor back_ = Qt::white;
    QString fontName_ = QStringLiteral("Monospace");
    float fontSize_ = 10;
    bool bold_ = false, italic_ = false;
    int redrawOff_ = 0;
    long lastAnchor_ = 0, lastCaret_ = 0;
    quint64 version_ = 0;
};

// Virtual-key code of a Qt key (0 when it has none we use).
int VirtualKeyOf(int qtKey);
int ShiftStateOf(Qt::KeyboardModifiers m);

// One undo step for everything a command does to the text, however many edits it makes.
class UndoGroup {
  public:
    explicit UndoGroup(RichEdit& e) : e_(e) { e_.beginUndoAction(); }
    ~UndoGroup() { e_.endUndoAction(); }
    UndoGroup(const UndoGroup&) = delete;
    UndoGroup& operator=(const UndoGroup&) = delete;

  private:
    RichEdit& e_;
};
