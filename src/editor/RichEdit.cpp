#include "editor/RichEdit.h"

#include "base/TextCodec.h"
#include "base/qt/FilePaths.h"

#include <Qsci/qscicommand.h>
#include <Qsci/qscicommandset.h>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>
#include <algorithm>

RichEdit::RichEdit(QWidget* parent) : QsciScintilla(parent) {
    setUtf8(true);
    Sci(SCI_SETEOLMODE, SC_EOL_CRLF);
    Sci(SCI_SETPASTECONVERTENDINGS, 1);
    // Only changes of the text are of interest, and only the notices that come before them:
    // the control answers a notice after an insertion or deletion by counting the characters
    // from the start of the text to the change, which in a large file costs more than the
    // edit itself. The notice before a change is delivered without that count.
    Sci(SCI_SETMODEVENTMASK, SC_MOD_BEFOREINSERT | SC_MOD_BEFOREDELETE);
    connect(this, &QsciScintillaBase::SCN_MODIFIED, this,
            [this](int pos, int type, const char*, int length, int, int, int, int, int, int) {
                if (!(type & (SC_MOD_BEFOREINSERT | SC_MOD_BEFOREDELETE))) return;
                ApplyInheritedSlot(); // the insertion before this one is in place by now
                NoteInheritedSlot(type, pos, length);
                MoveDeferredStyles(type, pos, length);
                emit textChanged();
            });
    // Without a lexer the control asks its owner for styles before it shows text.
    connect(this, &QsciScintillaBase::SCN_STYLENEEDED, this,
            [this](int pos) { StyleNeeded(pos); });
    Sci(SCI_SETSCROLLWIDTHTRACKING, 1);
    Sci(SCI_SETSCROLLWIDTH, 1);
    setMarginWidth(0, 0);
    setMarginWidth(1, 0);
    setMarginWidth(2, 0);
    setWrapMode(QsciScintilla::WrapNone);
    setAcceptDrops(true);
    viewport()->setAcceptDrops(true);
    // The program shows its own Edit menu on the right button.
    setContextMenuPolicy(Qt::NoContextMenu);
    for (auto& c : slotColors_) c = Qt::black;
    ApplyFont();
    ApplyColors();

    connect(this, &QsciScintilla::textChanged, this, [this] {
        ++version_;
        if (events_) events_->rtfText_Change();
    });
    connect(this, &QsciScintillaBase::SCN_UPDATEUI, this, [this](int updated) {
        if (updated & SC_UPDATE_SELECTION) NotifySelChange();
    });
}

long RichEdit::Sci(unsigned int msg, unsigned long w, long l) const {
    return SendScintilla(msg, w, l);
}

long RichEdit::SciPtr(unsigned int msg, unsigned long w, const void* p) const {
    return SendScintilla(msg, w, static_cast<const char*>(p));
}

// ---------------------------------------------------------------- text and selection

// The control reports selection changes when it next updates its view; changes made by
// code are reported at once, so that the owner sees each change exactly once.
void RichEdit::NotifySelChange() {
    long anchor = Sci(SCI_GETANCHOR), caret = Sci(SCI_GETCURRENTPOS);
    if (anchor == lastAnchor_ && caret == lastCaret_) return;
    lastAnchor_ = anchor;
    lastCaret_ = caret;
    if (events_) events_->rtfText_SelChange();
}

std::string RichEdit::Text() const { return std::string(TextView()); }

std::string_view RichEdit::TextView() const {
    auto* p = reinterpret_cast<const char*>(Sci(SCI_GETCHARACTERPOINTER));
    return {p, size_t(TextLength())};
}

std::string_view RichEdit::TextViewFrom(int64_t start) const {
    int64_t n = TextLength();
    start = std::clamp<int64_t>(start, 0, n);
    if (start == n) return {};
    auto* p = reinterpret_cast<const char*>(Sci(SCI_GETRANGEPOINTER, start, n - start));
    return {p, size_t(n - start)};
}

void RichEdit::SetText(std::string_view bytes) {
    std::string t = ToCrLf(bytes);
    DropDeferredStyles();
    Sci(SCI_CLEARALL);
    SciPtr(SCI_APPENDTEXT, t.size(), t.data());
    Sci(SCI_SETSEL, 0, 0);
}

int64_t RichEdit::TextLength() const { return Sci(SCI_GETLENGTH); }

int64_t RichEdit::SelStart() const { return Sci(SCI_GETSELECTIONSTART); }

void RichEdit::SetSelStart(int64_t pos) {
    pos = std::clamp<int64_t>(pos, 0, TextLength());
    Sci(SCI_SETSEL, pos, pos);
    NotifySelChange();
}

int64_t RichEdit::SelLength() const {
    return Sci(SCI_GETSELECTIONEND) - Sci(SCI_GETSELECTIONSTART);
}

void RichEdit::SetSelLength(int64_t len) {
    int64_t s = SelStart();
    int64_t e = std::clamp<int64_t>(s + std::max<int64_t>(len, 0), s, TextLength());
    Sci(SCI_SETSEL, s, e);
    NotifySelChange();
}

std::string RichEdit::SelText() const {
    return std::string(TextViewFrom(SelStart()).substr(0, size_t(SelLength())));
}

void RichEdit::SetSelText(std::string_view bytes) {
    int64_t s = SelStart();
    Sci(SCI_SETTARGETRANGE, s, s + SelLength());
    SciPtr(SCI_REPLACETARGET, bytes.size(), bytes.data());
    int64_t caret = s + int64_t(bytes.size());
    Sci(SCI_SETSEL, caret, caret);
    NotifySelChange();
}

void RichEdit::ApplyEdits(const std::vector<TextEdit>& edits) {
    if (edits.empty()) return;
    UndoGroup group(*this);
    // From the back, so that the positions of the edits still to come stay valid.
    for (auto it = edits.rbegin(); it != edits.rend(); ++it) {
        Sci(SCI_SETTARGETRANGE, it->start, it->start + it->length);
        SciPtr(SCI_REPLACETARGET, it->text.size(), it->text.data());
    }
}

void RichEdit::ReleaseKeys(const QList<QKeySequence>& keys) {
    QsciCommandSet* set = standardCommands();
    for (const QKeySequence& seq : keys) {
        if (seq.isEmpty()) continue;
        int key = seq[0].toCombined();
        while (QsciCommand* cmd = set->boundTo(key)) {
            if (cmd->key() == key) cmd->setKey(0);
            if (cmd->alternateKey() == key) cmd->setAlternateKey(0);
        }
    }
}

void RichEdit::SetSelColor(ColorSlot slot) { PaintRange(SelStart(), SelLength(), slot); }

// ---------------------------------------------------------------- search

int64_t RichEdit::Find(std::string_view text, int64_t start, int64_t end, bool wholeWord,
                       bool matchCase) {
    if (text.empty()) return -1;
    int64_t n = TextLength();
    if (end < 0 || end > n) end = n;
    start = std::clamp<int64_t>(start, 0, n);
    Sci(SCI_SETTARGETRANGE, start, end);
    Sci(SCI_SETSEARCHFLAGS, (wholeWord ? SCFIND_WHOLEWORD : 0) | (matchCase ? SCFIND_MATCHCASE : 0));
    long pos = SciPtr(SCI_SEARCHINTARGET, text.size(), text.data());
    if (pos < 0) return -1;
    Sci(SCI_SETSEL, pos, pos + long(text.size()));
    return pos;
}

void RichEdit::Span(std::string_view set, bool forward) {
    // Character by character: a span is a word long, and reading the whole buffer in place
    // would cost a large document a move of its contents.
    auto in = [&](long pos) { return set.find(char(Sci(SCI_GETCHARAT, pos))) != set.npos; };
    long caret = Sci(SCI_GETCURRENTPOS), n = Sci(SCI_GETLENGTH), p = caret;
    if (forward)
        while (p < n && !in(p)) ++p;
    else
        while (p > 0 && !in(p - 1)) --p;
    Sci(SCI_SETSEL, caret, p);
}

// ---------------------------------------------------------------- lines

int RichEdit::LineFromChar(int64_t pos) const { return int(Sci(SCI_LINEFROMPOSITION, pos)); }
int64_t RichEdit::LineIndex(int line) const { return Sci(SCI_POSITIONFROMLINE, line); }
int64_t RichEdit::LineLength(int64_t pos) const {
    int line = LineFromChar(pos);
    return Sci(SCI_GETLINEENDPOSITION, line) - Sci(SCI_POSITIONFROMLINE, line);
}
int RichEdit::GetLineCount() const { return int(Sci(SCI_GETLINECOUNT)); }
int RichEdit::FirstVisibleLine() const { return int(Sci(SCI_GETFIRSTVISIBLELINE)); }
void RichEdit::SetFirstVisibleLine(int line) { Sci(SCI_SETFIRSTVISIBLELINE, line); }
void RichEdit::Undo() { Sci(SCI_UNDO); }

void RichEdit::SetRedraw(bool on) {
    if (!on) {
        if (redrawOff_++ == 0) setUpdatesEnabled(false);
    } else if (redrawOff_ > 0 && --redrawOff_ == 0) {
        setUpdatesEnabled(true);
        viewport()->update();
    }
}

// ---------------------------------------------------------------- events

int VirtualKeyOf(int k) {
    if (k >= Qt::Key_A && k <= Qt::Key_Z) return 65 + (k - Qt::Key_A);
    if (k >= Qt::Key_0 && k <= Qt::Key_9) return 48 + (k - Qt::Key_0);
    if (k >= Qt::Key_F1 && k <= Qt::Key_F24) return 112 + (k - Qt::Key_F1);
    switch (k) {
    case Qt::Key_Backspace: return 8;
    case Qt::Key_Tab:
    case Qt::Key_Backtab: return 9;
    case Qt::Key_Return:
    case Qt::Key_Enter: return 13;
    case Qt::Key_Shift: return 16;
    case Qt::Key_Control: return 17;
    case Qt::Key_Alt: return 18;
    case Qt::Key_Pause: return 19;
    case Qt::Key_CapsLock: return 20;
    case Qt::Key_Escape: return 27;
    case Qt::Key_Space: return 32;
    case Qt::Key_PageUp: return 33;
    case Qt::Key_PageDown: return 34;
    case Qt::Key_End: return 35;
    case Qt::Key_Home: return 36;
    case Qt::Key_Left: return 37;
    case Qt::Key_Up: return 38;
    case Qt::Key_Right: return 39;
    case Qt::Key_Down: return 40;
    case Qt::Key_Insert: return 45;
    case Qt::Key_Delete: return 46;
    case Qt::Key_NumLock: return 144;
    default: return 0;
    }
}

int ShiftStateOf(Qt::KeyboardModifiers m) {
    return (m & Qt::ShiftModifier ? 1 : 0) | (m & Qt::ControlModifier ? 2 : 0) |
           (m & Qt::AltModifier ? 4 : 0);
}

std::optional<std::string> RichEdit::ToDocumentBytes(const QString& text) const {
    if (!isUtf8() &&
        !std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() <= 0xFF; }))
        return std::nullopt;
    QByteArray b = isUtf8() ? text.toUtf8() : text.toLatin1();
    return std::string(b.constData(), size_t(b.size()));
}

QString RichEdit::FromDocumentBytes(std::string_view b) const {
    return isUtf8() ? QString::fromUtf8(b.data(), qsizetype(b.size()))
                    : QString::fromLatin1(b.data(), qsizetype(b.size()));
}

void RichEdit::keyPressEvent(QKeyEvent* e) {
    int key = e->key();
    int vk = VirtualKeyOf(key);
    int shift = ShiftStateOf(e->modifiers());
    if (events_ && vk != 0) {
        events_->rtfText_KeyDown(vk, shift);
        if (vk == 0) {
            e->accept();
            return;
        }
    }
    // The character the key types, if any. Ctrl and Alt combinations type nothing.
    int ascii = 0;
    if (key == Qt::Key_Return || key == Qt::Key_Enter) ascii = 13;
    else if (key == Qt::Key_Tab || key == Qt::Key_Backtab) ascii = 9;
    else if (key == Qt::Key_Backspace) ascii = 8;
    else if (key == Qt::Key_Escape) ascii = 27;
    else if (!(e->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) &&
             !e->text().isEmpty() && e->text()[0].unicode() >= 32)
        ascii = e->text()[0].unicode();
    if (ascii != 0) {
        int original = ascii;
        if (events_) events_->rtfText_KeyPress(ascii);
        if (ascii == 0) {
            e->accept();
            return;
        }
        if (ascii != original || ascii == 9) {
            // The handler typed another character (or a tab, which the control would
            // otherwise turn into its own indentation): insert it ourselves.
            auto bytes = ToDocumentBytes(QString(QChar(char16_t(ascii))));
            if (!bytes) {
                emit CharacterRefused();
                return;
            }
            SetSelText(*bytes);
            e->accept();
            return;
        }
    }
    // Ctrl and Alt combinations type nothing: those the control does not bind itself
    // (menu access keys when the window manager gives no focus, say) go on to the window.
    if ((e->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) && !e->text().isEmpty() &&
        e->text()[0].isPrint() && !standardCommands()->boundTo(e->key() | int(e->modifiers()))) {
        e->ignore();
        return;
    }
    if (!ToDocumentBytes(e->text())) {
        // A Latin-1 document cannot hold the character; never substitute another one.
        emit CharacterRefused();
        e->accept();
        return;
    }
    QsciScintilla::keyPressEvent(e);
}

void RichEdit::inputMethodEvent(QInputMethodEvent* e) {
    if (!ToDocumentBytes(e->commitString())) {
        emit CharacterRefused();
        e->accept();
        return;
    }
    QsciScintilla::inputMethodEvent(e);
}

// Input methods ask for the text around the caret after every change. The control answers
// with the whole paragraph up to the next blank line, which in a large file without blank
// lines is the whole file; the caret's line is all an input method needs.
QVariant RichEdit::inputMethodQuery(Qt::InputMethodQuery query) const {
    if (query != Qt::ImSurroundingText && query != Qt::ImCursorPosition &&
        query != Qt::ImAnchorPosition && query != Qt::ImTextBeforeCursor &&
        query != Qt::ImTextAfterCursor)
        return QsciScintilla::inputMethodQuery(query);
    long caret = Sci(SCI_GETCURRENTPOS), anchor = Sci(SCI_GETANCHOR);
    int line = int(Sci(SCI_LINEFROMPOSITION, caret));
    long start = Sci(SCI_POSITIONFROMLINE, line), end = Sci(SCI_GETLINEENDPOSITION, line);
    auto text = [this](long from, long to) {
        return FromDocumentBytes(TextViewFrom(from).substr(0, size_t(std::max(0L, to - from))));
    };
    switch (query) {
    case Qt::ImSurroundingText: return text(start, end);
    case Qt::ImCursorPosition: return int(text(start, caret).size());
    case Qt::ImAnchorPosition:
        return int(text(start, std::clamp(anchor, start, end)).size());
    case Qt::ImTextBeforeCursor: return text(start, caret);
    default: return text(caret, end);
    }
}

void RichEdit::keyReleaseEvent(QKeyEvent* e) {
    int vk = VirtualKeyOf(e->key());
    int shift = ShiftStateOf(e->modifiers());
    if (events_ && vk != 0 && !e->isAutoRepeat()) events_->rtfText_KeyUp(vk, shift);
    QsciScintilla::keyReleaseEvent(e);
}

void RichEdit::mouseReleaseEvent(QMouseEvent* e) {
    QsciScintilla::mouseReleaseEvent(e);
    int button = e->button() == Qt::LeftButton    ? 1
                 : e->button() == Qt::RightButton ? 2
                 : e->button() == Qt::MiddleButton ? 4
                                                   : 0;
    if (events_)
        events_->rtfText_MouseUp(button, ShiftStateOf(e->modifiers()), int(e->position().x()),
                                 int(e->position().y()));
}

void RichEdit::contextMenuEvent(QContextMenuEvent* e) { e->accept(); }

static QStringList LocalFiles(const QMimeData* m) {
    QStringList files;
    if (!m || !m->hasUrls()) return files;
    for (const QUrl& u : m->urls())
        if (u.isLocalFile()) files << LocalPathOfUrl(u);
    return files;
}

void RichEdit::dragEnterEvent(QDragEnterEvent* e) {
    if (!LocalFiles(e->mimeData()).isEmpty()) {
        e->acceptProposedAction();
        return;
    }
    QsciScintilla::dragEnterEvent(e);
}

void RichEdit::dragMoveEvent(QDragMoveEvent* e) {
    if (!LocalFiles(e->mimeData()).isEmpty()) {
        e->acceptProposedAction();
        return;
    }
    QsciScintilla::dragMoveEvent(e);
}

void RichEdit::dropEvent(QDropEvent* e) {
    QStringList files = LocalFiles(e->mimeData());
    if (!files.isEmpty()) {
        e->acceptProposedAction();
        if (events_) events_->rtfText_OLEDragDrop(files);
        return;
    }
    QsciScintilla::dropEvent(e);
}

QByteArray RichEdit::fromMimeData(const QMimeData* source, bool& rectangular) const {
    if (source && source->hasText() && !ToDocumentBytes(source->text())) {
        emit const_cast<RichEdit*>(this)->CharacterRefused();
        rectangular = false;
        return {};
    }
    return QsciScintilla::fromMimeData(source, rectangular);
}
