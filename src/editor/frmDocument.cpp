#include "editor/frmDocument.h"

#include "base/MiscSubs.h"
#include "base/qt/AppGlobals.h"
#include "components/cDialogs.h"
#include "editor/DocumentArray.h"
#include "editor/DocumentHost.h"

#include <QApplication>
#include <QCloseEvent>
#include <QCursor>
#include <QFocusEvent>
#include <QLabel>
#include <QMdiSubWindow>
#include <QTimer>

namespace {
constexpr int kTwipsPerPixel = 15;
} // namespace

frmDocument::frmDocument(int16_t formIndex, QWidget* parent)
    : QWidget(parent), FormIndex(formIndex) {
    setWindowTitle(QStringLiteral("Untitled "));
    lblColors = new QLabel(this);
    lblColors->setAlignment(Qt::AlignCenter);
    lblColors->setMinimumWidth(320);
    setFocusPolicy(Qt::StrongFocus); // holds the focus while the editor is hidden
    rtfText = new RichEdit(this);
    rtfText->SetEvents(this);
    rtfText->raise(); // the label is seen only while the control is hidden
    tmrChanges = new QTimer(this);
    tmrChanges->setInterval(200);
    connect(tmrChanges, &QTimer::timeout, this, &frmDocument::tmrChanges_Timer);
    connect(rtfText, &RichEdit::CharacterRefused, this, [] {
        QApplication::beep();
        Host().SetPanelText(1,
                            QObject::tr("This file is not UTF-8: it cannot hold that character."));
    });
    tmrChanges->start();
    tmrLiveColour = new QTimer(this);
    tmrLiveColour->setSingleShot(true);
    tmrLiveColour->setInterval(150);
    connect(tmrLiveColour, &QTimer::timeout, this, [this] {
        if (!codingInProgress_ && ChangedHighLight) CodeLine();
    });
    rtfText->ReleaseKeys(Host().MenuShortcuts());
}

frmDocument::~frmDocument() {
    Form_Unload();
}

QMdiSubWindow* frmDocument::SubWindow() const {
    return qobject_cast<QMdiSubWindow*>(parentWidget());
}

void frmDocument::SetCaption(const QString& caption) {
    // A caption is only shown, so a file name that is not UTF-8 is made readable here.
    const QString shown = ShownText(caption);
    setWindowTitle(shown);
    if (QMdiSubWindow* w = SubWindow()) w->setWindowTitle(shown);
}

void frmDocument::Form_Load() {
    if (QMdiSubWindow* w = SubWindow()) {
        QSize area = Host().DocumentAreaSize();
        w->resize(int(area.width() * 0.9), int(area.height() * 0.9));
    }
    const EditorSettings& g = g_EditorSettings();
    rtfText->SetBackColor(ColorFromLong(g.BGColor));
    Form_Resize();
    rtfText->SetSelIndent(255);
    rtfText->SetSelFontName(FromBytes(g.EditorFont));
    rtfText->SetSelBold(g.EditorBold);
    rtfText->SetSelItalic(g.EditorItalic);
    Host().AddTab(TabKey(), Caption());
    settings_ = g;
    Changed = false;
}

void frmDocument::Form_Resize() {
    rtfText->setGeometry(0, 0, width(), height());
    lblColors->adjustSize();
    lblColors->move(width() / 2 - lblColors->width() / 2, height() / 2 - lblColors->height() / 2);
    // Wrap at the window's width less a little, or (margin 2^20 twips) not at all.
    rtfText->SetRightMargin(settings_.WordWrap ? width() * kTwipsPerPixel - 400 : 1048576);
}

void frmDocument::resizeEvent(QResizeEvent* e) {
    QWidget::resizeEvent(e);
    Form_Resize();
}

void frmDocument::focusInEvent(QFocusEvent* e) {
    QWidget::focusInEvent(e);
    // The window keeps the focus itself only while its editor is hidden for colouring.
    if (rtfText->isVisible()) rtfText->setFocus(e->reason());
}

void frmDocument::ToggleWrap() {
    settings_.WordWrap = !settings_.WordWrap;
    Form_Resize();
}

void frmDocument::ReflectSettings() {
    settings_ = g_SelectedProfile();
}

void frmDocument::RefreshDisplay() {
    Form_Resize();
    bool changed = Changed;
    Host().SetTabCaption(TabKey(), Caption());
    if (!codingInProgress_) {
        bool highlight = ChangedHighLight;
        const EditorSettings& g = g_EditorSettings();
        rtfText->SetBackColor(ColorFromLong(g.BGColor));
        rtfText->SetSlotColor(ColorSlot::Text, ColorFromLong(g.TextColor));
        for (int i = 0; i < 6; ++i)
            rtfText->SetSlotColor(ColorSlot(i + 1), ColorFromLong(g.KeywordColor[size_t(i)]));
        rtfText->SetSelFontName(FromBytes(g.EditorFont));
        rtfText->SetSelFontSize(g.EditorSize);
        rtfText->SetSelItalic(g.EditorItalic);
        rtfText->SetSelBold(g.EditorBold);
        rtfText->setTabWidth(g.TabWidth > 0 ? g.TabWidth : 8);
        ChangedHighLight = highlight;
    }
    Changed = changed;
}

void frmDocument::Form_Activate() {
    OfferReloadIfChangedOnDisk();
    RefreshDisplay();
    if (g_EditorSettings().AutoCode) ColorCode();
}

void frmDocument::Form_GotFocus() {
    Form_Resize();
    Host().SetPanelText(2, QString::number(rtfText->SelLength()) + " bytes selected.");
    Host().SelectTab(TabKey(), Tag);
    Host().ShowSyntaxProfile(syntaxProfile_);
}

void frmDocument::rtfText_SelChange() {
    if (SelChangeMuted || !rtfText->isVisible()) return;
    Host().SetPanelText(2, QString::number(rtfText->SelLength()) + " selected.");
    // The control keeps one font for all text, so a caret can never land in foreign
    // formatting and the typing attributes need no reset here.
}

void frmDocument::tmrChanges_Timer() {
    DocumentHost& m = Host();
    if (m.ActiveDocument() != this || codingInProgress_) return;
    int64_t sel = rtfText->SelStart();
    int line = rtfText->LineFromChar(sel);
    QString pos =
        QStringLiteral("Line %1 : Col %2").arg(line + 1).arg(sel + 1 - rtfText->LineIndex(line));
    m.SetPanelText(3, pos);
    m.SetPanelText(4, Changed ? QStringLiteral("MODIFIED") : QStringLiteral("UNMODIFIED"));
    m.SetDocInfo(pos);
    // "INS" stands greyed while the Insert key has switched to overtyping.
    m.SetPanelEnabled(5, !rtfText->overwriteMode());
}

void frmDocument::rtfText_Change() {
    Changed = true;
    ChangedHighLight = true;
}

void frmDocument::rtfText_MouseUp(int Button, int, int, int) {
    if (Button == 2) Host().PopupEditMenu(QCursor::pos());
}

void frmDocument::rtfText_OLEDragDrop(const QStringList& files) {
    for (const QString& file : files) {
        QString error;
        QString backup = g_EditorSettings().Backup ? file + "~" : QString();
        if (!Host().OpenFileInNewDocument(file, backup, true, &error)) {
            // The rest of the list is left; the window made for this file stays.
            cDialogs::Get().MsgBox("An error occurred while you were trying to open a file:\n" +
                                       error,
                                   MsgButtons::OK, MsgIcon::Critical, "File I/O Error");
            return;
        }
    }
}

bool frmDocument::CloseWith(UnloadMode reason) {
    pendingUnloadMode_ = reason;
    QMdiSubWindow* w = SubWindow();
    bool closed = w ? w->close() : close();
    pendingUnloadMode_ = vbFormControlMenu;
    return closed;
}

void frmDocument::closeEvent(QCloseEvent* e) {
    if (Form_QueryUnload(pendingUnloadMode_)) {
        e->ignore();
        return;
    }
    e->accept();
    Form_Unload();
}

bool frmDocument::Form_QueryUnload(int unloadMode) {
    // A colouring run cannot be closed under itself, unless the session itself ends.
    if ((unloadMode == vbFormControlMenu || unloadMode == vbFormCode) && codingInProgress_)
        return true;
    if (!Changed) return false;
    MsgResult r = cDialogs::Get().MsgBox(
        "Do you wish to save the changes you have made to the file " + Caption() + "?",
        MsgButtons::YesNoCancel, MsgIcon::Question, "Save Changes?");
    if (r == MsgResult::Cancel) return true;
    if (r == MsgResult::Yes) {
        // The save acts on the active document: make sure that is this one. A save that
        // failed (or whose file dialog was cancelled) keeps the window and its edits.
        Host().ActivateDocument(this);
        if (!Host().SaveActiveDocument()) return true;
    }
    return false;
}

// ---------------------------------------------------------------- the file on disk

void frmDocument::RememberDiskFile() {
    diskFile_ = Tag;
    diskIdentity_ = Tag.isEmpty() ? std::nullopt : ReadFileIdentity(ToBytes(Tag));
}

bool frmDocument::ChangedOnDisk() const {
    // Only a file seen before can have changed; one that has gone is simply written anew.
    if (Tag.isEmpty() || Tag != diskFile_ || !diskIdentity_) return false;
    std::optional<FileIdentity> now = ReadFileIdentity(ToBytes(Tag));
    return now && *now != *diskIdentity_;
}

bool frmDocument::MayOverwriteDiskFile() {
    if (!ChangedOnDisk()) return true;
    return cDialogs::Get().MsgBox("The file " + ShownText(Tag) +
                                      " has been changed by another program since it was "
                                      "opened. Overwrite it?",
                                  MsgButtons::YesNo, MsgIcon::Exclamation,
                                  "File Changed") == MsgResult::Yes;
}

void frmDocument::OfferReloadIfChangedOnDisk() {
    if (Changed || codingInProgress_ || !ChangedOnDisk()) return;
    // Asked once per change: the answer No keeps the text and takes the new file as known.
    const bool reload = cDialogs::Get().MsgBox(
                            "The file " + ShownText(Tag) +
                                " has been changed by another program. Do you want to "
                                "load it again?",
                            MsgButtons::YesNo, MsgIcon::Question, "File Changed") == MsgResult::Yes;
    if (!reload || !ReloadFromDisk()) RememberDiskFile();
}

bool frmDocument::ReloadFromDisk() {
    if (!rtfText->LoadFile(Tag, 1, nullptr)) return false;
    // The new text is coloured at once, as a load is.
    ChangedHighLight = true;
    ColorCode();
    Changed = false;
    RememberDiskFile();
    return true;
}

void frmDocument::Form_Unload() {
    if (unloaded_) return;
    unloaded_ = true;
    tmrChanges->stop();
    Documents().Release(FormIndex);
    syntaxLoaded_ = false;
    Host().RemoveTab(TabKey());
}

// ---------------------------------------------------------------- typing aids

void frmDocument::rtfText_KeyDown(int& KeyCode, int& Shift) {
    DocumentHost& m = Host();
    if (rtfText->SelLength() != 0 && KeyCode == 9)
        m.RunCommand((Shift & 1) ? "mnuFormatUnindent" : "mnuFormatIndent");
    if (Shift == 4) {
        if (KeyCode == 39) m.RunCommand("mnuFormatIndent");
        if (KeyCode == 37) m.RunCommand("mnuFormatUnindent");
    }
    if (KeyCode == 13) {
        ChangedHighLight = true;
        CodeLine();
    }
    if ((KeyCode == 32 || KeyCode == 13) && g_EditorSettings().AutoComplete) {
        static constexpr std::string_view kWordEnds = "\n\r .,:;?!";
        int64_t p = rtfText->SelStart();
        int64_t s = p;
        if (rtfText->SelLength() == 0) {
            // The usual case, a caret: the word before it is read in place. Selecting it would
            // hand the desktop a new primary selection on every Space and Enter.
            auto wordEnd = [&](int64_t at) {
                return kWordEnds.find(char(rtfText->SendScintilla(
                           QsciScintillaBase::SCI_GETCHARAT, static_cast<unsigned long>(at)))) !=
                       std::string_view::npos;
            };
            while (s > 0 && !wordEnd(s - 1)) --s;
        } else {
            rtfText->Span(kWordEnds, false);
            s = rtfText->SelStart();
            rtfText->SetSelStart(s);
            rtfText->SetSelLength(p - s);
        }
        const int64_t length = std::max<int64_t>(p - s, 0);
        std::string word(Trim(rtfText->TextViewFrom(s).substr(0, size_t(length))));
        std::optional<QString> found;
        if (word.size() >= 3) found = m.CompletionFor(rtfText->FromDocumentBytes(word));
        // An entry that a Latin-1 document cannot hold is not put in.
        auto entry = found ? rtfText->ToDocumentBytes(*found) : std::nullopt;
        if (!entry) {
            if (rtfText->SelStart() != p || rtfText->SelLength() != 0) rtfText->SetSelStart(p);
            return;
        }
        // The typed prefix becomes the entry, in the entry's own case.
        rtfText->SetSelStart(s);
        rtfText->SetSelLength(length);
        {
            UndoGroup group(*rtfText);
            rtfText->SetSelText(*entry);
        }
        ChangedHighLight = true;
        CodePassage(s, rtfText->SelStart());
    }
}

void frmDocument::rtfText_KeyPress(int& KeyAscii) {
    const EditorSettings& g = g_EditorSettings();
    tmrLiveColour->start();
    if (StepOverCloser(KeyAscii)) return;
    if (KeyAscii == 13) {
        // Auto-indent: the new line starts with as many spaces as this one. Tabs do not count.
        int64_t a = rtfText->LineIndex(rtfText->LineFromChar(rtfText->SelStart()));
        std::string_view line = rtfText->TextViewFrom(a).substr(0, size_t(rtfText->LineLength(a)));
        size_t lead = line.size() - LTrim(line).size();
        if (lead > 0) {
            KeyAscii = 0;
            rtfText->SetSelText("\r\n" + std::string(lead, ' '));
        }
        return;
    }
    if (g.AutoBracers) {
        static const char* const pairs[][2] = {{"{", "}"}, {"[", "]"}, {"(", ")"}, {"\"", "\""}};
        for (const auto& pair : pairs) {
            if (KeyAscii != pair[0][0]) continue;
            const bool empty = rtfText->SelLength() == 0;
            rtfText->SetSelText(pair[0] + rtfText->SelText() + pair[1]);
            rtfText->SetSelStart(rtfText->SelStart() - 1);
            if (empty) {
                for (int64_t& at : autoClosers_) ++at; // the pair's closer went in before them too
                autoClosers_.push_back(rtfText->SelStart());
            } else
                autoClosers_.clear();
            KeyAscii = 0;
            return;
        }
    }
    if (KeyAscii == 9) {
        if (rtfText->SelLength() == 0)
            rtfText->SetSelText(g.RealTabs
                                    ? std::string("\t")
                                    : std::string(size_t(std::max<int>(g.TabWidth, 0)), ' '));
        KeyAscii = 0; // with a selection the block indent of KeyDown has done the work
    }
}

bool frmDocument::StepOverCloser(int& KeyAscii) {
    const int64_t caret = rtfText->SelStart();
    const bool printable = KeyAscii >= 32 && KeyAscii < 127;
    if (rtfText->SelLength() != 0 || !printable) {
        autoClosers_.clear();
        return false;
    }
    // Pairs the caret has left are done with.
    while (!autoClosers_.empty() && caret > autoClosers_.back()) autoClosers_.pop_back();
    if (autoClosers_.empty()) return false;
    const char typed = char(KeyAscii);
    std::string_view next = rtfText->TextViewFrom(caret).substr(0, 1);
    if (caret == autoClosers_.back() && next.size() == 1 && next[0] == typed &&
        (typed == ')' || typed == ']' || typed == '}' || typed == '"')) {
        rtfText->SetSelStart(caret + 1);
        autoClosers_.pop_back();
        KeyAscii = 0;
        return true;
    }
    // The character goes in before every tracked closer and moves them along.
    for (int64_t& at : autoClosers_) ++at;
    return false;
}

void frmDocument::rtfText_KeyUp(int& KeyCode, int&) {
    if ((KeyCode == 38 || KeyCode == 40) && rtfText->SelLength() == 0) {
        ChangedHighLight = true;
        CodeLine();
    }
}
