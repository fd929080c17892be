// Requests from other processes: a later start of the editor hands over the file named on its
// command line, and outside tools (kestrum-send) hand over text for a new document or call the
// window back. They arrive through the local channel in the event loop, so also while a modal
// dialog is open, and are acknowledged once handled here.
#include "app/frmMain.h"

#include "base/qt/AppGlobals.h"
#include "components/Subclass.h"
#include "components/cDialogs.h"
#include "editor/DocumentArray.h"
#include "base/TextCodec.h"
#include "editor/frmDocument.h"

#include <QApplication>
#include <QMdiArea>
#include <QTimer>

namespace {
constexpr qsizetype kWordLength = 8;

// On this desktop a sender cannot bring another process's window forward, so the window
// comes forward itself for every request: out of the minimised state into the one it had
// before. An open modal dialog stays in front of it.
void ComeForward(frmMain& m) {
    if (m.isMinimized()) m.setWindowState(m.windowState() & ~Qt::WindowMinimized);
    m.show();
    m.raise();
    m.activateWindow();
    if (QWidget* modal = QApplication::activeModalWidget()) {
        modal->raise();
        modal->activateWindow();
    }
}

void ShowEnabled(frmMain& m) {
    m.show();
    m.setEnabled(true);
}

// Shown after the acknowledgement, so that the sender is not kept waiting on the user.
void ReportOpenFailure(frmMain& m, const QString& error) {
    QTimer::singleShot(0, &m, [error] {
        cDialogs::Get().MsgBox("An error occurred while you were trying to open a file:\r\n" +
                                   error,
                               MsgButtons::OK, MsgIcon::Critical, "File I/O Error");
    });
}

// "LOADFILE": a new document with the file's text. The name is not split or tested for a
// workspace; a blank one opens nothing. A file that cannot be read leaves the new blank
// document open.
void LoadFileCommand(frmMain& m, const QString& name) {
    if (name.trimmed().isEmpty()) return;
    QString error;
    QString backup = g_EditorSettings().Backup ? name + "~" : QString();
    if (!m.OpenFileInNewDocument(name, backup, true, &error)) ReportOpenFailure(m, error);
}

// "MAKEFILE": a new document holding the text.
void MakeFileCommand(frmMain& m, std::string_view text) {
    if (frmDocument* doc = NewDocument()) {
        // Text that is not UTF-8 is kept byte for byte, as a file of it would be.
        if (!IsValidUtf8(text)) doc->rtfText->ResetEncoding(false);
        doc->rtfText->SetText(text);
    }
    ShowEnabled(m);
}
} // namespace

void frmMain::AttachSubclass() {
    if (!subclass) {
        subclass = new Subclass(this);
        connect(subclass, &Subclass::WndProc, this, [this](QEvent*) { Subclass_GotFocus(); });
    }
    subclass->setHwnd(this);
    // The main window as a whole gets the focus when it is activated.
    subclass->setMessages(QEvent::WindowActivate, true);
}

void frmMain::Subclass_WndProc(const QByteArray& request) {
    ComeForward(*this);
    const QByteArray word = request.left(kWordLength);
    const std::string_view rest(request.constData() + word.size(),
                                size_t(request.size() - word.size()));
    if (word == "LOADFILE")
        LoadFileCommand(*this, FromBytes(rest));
    else if (word == "MAKEFILE")
        MakeFileCommand(*this, rest);
    else if (word == "ABORTCMD")
        ShowEnabled(*this);
}

void frmMain::Subclass_GotFocus() {
    FocusActiveDocument();
}

void frmMain::FocusActiveDocument() {
    frmDocument* doc = ActiveForm();
    if (!doc) {
        // The document area can come out of a minimised window with no document active; the
        // one used last is taken up again.
        const auto windows = mdiArea->subWindowList(QMdiArea::ActivationHistoryOrder);
        if (!windows.isEmpty()) mdiArea->setActiveSubWindow(windows.last());
        doc = ActiveForm();
    }
    if (doc) doc->rtfText->setFocus();
}
