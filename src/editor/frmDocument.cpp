#include "editor/frmDocument.h"

#include "app/AppGlobals.h"
#include "app/core/PathHelpers.h"
#include "app/frmMain.h"
#include "components/cDialogs.h"
#include "editor/DocumentArray.h"

#include <QApplication>
#include <QCloseEvent>
#include <QCursor>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QStatusBar>
#include <QTimer>

namespace {
constexpr int kTwipsPerPixel = 15;
} // namespace

frmDocument::frmDocument(int16_t formIndex, QWidget* parent) : QWidget(parent), FormIndex(formIndex) {
    setWindowTitle(QStringLiteral("Untitled "));
    lblColors = new QLabel(this);
    lblColors->setAlignment(Qt::AlignCenter);
    lblColors->setMinimumWidth(320);
    rtfText = new RichEdit(this);
    rtfText->SetEvents(this);
    rtfText->raise(); // the label is seen only while the control is hidden
    tmrChanges = new QTimer(this);
    tmrChanges->setInterval(200);
    connect(tmrChanges, &QTimer::timeout, this, &frmDocument::tmrChanges_Timer);
    connect(rtfText, &RichEdit::CharacterRefused, this, [] {
        QApplication::beep();
        if (frmMain* m = MainForm())
            m->SetPanelText(1, QObject::tr("This file is not UTF-8: it cannot hold that character."));
    });
    tmrChanges->start();
}

frmDocument::~frmDocument() { Form_Unload(); }

QMdiSubWindow* frmDocument::SubWindow() const {
    return qobject_cast<QMdiSubWindow*>(parentWidget());
}

void frmDocument::SetCaption(const QString& caption) {
    setWindowTitle(caption);
    if (QMdiSubWindow* w = SubWindow()) w->setWindowTitle(caption);
}

void frmDocument::Form_Load() {
    frmMain* m = MainForm();
    if (QMdiSubWindow* w = SubWindow(); w && m) {
        QSize area = m->mdiArea->viewport()->size();
        w->resize(int(area.width() * 0.9), int(area.height() * 0.9));
    }
    const EditorSettings& g = g_EditorSettings();
    rtfText->SetBackColor(ColorFromLong(g.BGColor));
    Form_Resize();
    rtfText->SetSelIndent(255);
    rtfText->SetSelFontName(FromBytes(g.EditorFont));
    rtfText->SetSelBold(g.EditorBold);
    rtfText->SetSelItalic(g.EditorItalic);
    if (m) m->AddTab(TabKey(), Caption());
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

void frmDocument::ToggleWrap() {
    settings_.WordWrap = !settings_.WordWrap;
    Form_Resize();
}

void frmDocument::ReflectSettings() { settings_ = g_SelectedProfile(); }

void frmDocument::RefreshDisplay() {
    Form_Resize();
    bool changed = Changed;
    if (frmMain* m = MainForm()) m->SetTabCaption(TabKey(), Caption());
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
    RefreshDisplay();
    if (g_EditorSettings().AutoCode) ColorCode();
}

void frmDocument::Form_GotFocus() {
    Form_Resize();
    frmMain* m = MainForm();
    if (!m) return;
    m->SetPanelText(2, QString::number(rtfText->SelLength()) + " bytes selected.");
    m->SelectTab(TabKey(), Tag);
}

void frmDocument::rtfText_SelChange() {
    if (SelChangeMuted || !rtfText->isVisible()) return;
    if (frmMain* m = MainForm())
        m->SetPanelText(2, QString::number(rtfText->SelLength()) + " selected.");
    // The control keeps one font for all text, so a caret can never land in foreign
    // formatting and the typing attributes need no reset here.
}

void frmDocument::tmrChanges_Timer() {
    frmMain* m = MainForm();
    if (!m || m->ActiveForm() != this || codingInProgress_) return;
    int64_t sel = rtfText->SelStart();
    int line = rtfText->LineFromChar(sel);
    QString pos = QStringLiteral("Line %1 : Col %2")
                      .arg(line + 1)
                      .arg(sel + 1 - rtfText->LineIndex(line));
    m->SetPanelText(3, pos);
    m->SetPanelText(4, Changed ? QStringLiteral("MODIFIED") : QStringLiteral("UNMODIFIED"));
    m->SetDocInfo(pos);
}

void frmDocument::rtfText_Change() {
    Changed = true;
    ChangedHighLight = true;
}

void frmDocument::rtfText_KeyDown(int&, int&) {}
void frmDocument::rtfText_KeyPress(int&) {}
void frmDocument::rtfText_KeyUp(int&, int&) {}

void frmDocument::rtfText_MouseUp(int Button, int, int, int) {
    if (Button == 2)
        if (frmMain* m = MainForm()) m->PopupEditMenu(QCursor::pos());
}

void frmDocument::rtfText_OLEDragDrop(const QStringList& files) {
    frmMain* m = MainForm();
    for (const QString& file : files) {
        frmDocument* doc = NewDocument();
        if (!doc) return;
        QString error;
        if (!doc->rtfText->LoadFile(file, 1, &error)) {
            cDialogs::Get().MsgBox("An error occurred while you were trying to open a file:\n" + error,
                                   MsgButtons::OK, MsgIcon::Critical, "File I/O Error");
            return;
        }
        doc->SetCaption(FromBytes(FileNameOf(ToBytes(file))));
        doc->Tag = file;
        if (g_EditorSettings().Backup && !doc->rtfText->SaveFile(file + "~", 1, &error)) {
            cDialogs::Get().MsgBox("An error occurred while you were trying to open a file:\n" + error,
                                   MsgButtons::OK, MsgIcon::Critical, "File I/O Error");
            return;
        }
        if (m) m->CycleRecentFiles(file);
        doc->SetSyntax();
        doc->Changed = false;
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
        if (frmMain* m = MainForm()) {
            // The save acts on the active document: make sure that is this one.
            if (QMdiSubWindow* w = SubWindow()) m->mdiArea->setActiveSubWindow(w);
            m->mnuFileSave_Click();
        }
    }
    return false;
}

void frmDocument::Form_Unload() {
    if (unloaded_) return;
    unloaded_ = true;
    tmrChanges->stop();
    Documents().Release(FormIndex);
    syntaxLoaded_ = false;
    if (frmMain* m = MainForm()) m->RemoveTab(TabKey());
}

// ---------------------------------------------------------------- colouring seams

void frmDocument::ColorCode() {}
void frmDocument::CodeLine() {}
void frmDocument::CodePassage(int64_t, int64_t) {}
void frmDocument::CommentBlock() {}
void frmDocument::SetSyntax() {}
