// The main window's file tools: the comparison, file information and the browser pane.
#include "app/frmMain.h"
#include "base/PathHelpers.h"
#include "base/qt/AppGlobals.h"
#include "base/qt/FilePaths.h"
#include "components/FlipPane.h"
#include "components/cDialogs.h"
#include "editor/DocumentArray.h"
#include "editor/frmDocument.h"
#include "filetools/FileView.h"
#include "filetools/frmCompareFiles.h"
#include "filetools/frmFileInfo.h"

#include <QAction>
#include <QCursor>
#include <QDesktopServices>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QMenu>
#include <QMimeData>
#include <QProcess>
#include <QUrl>

void frmMain::mnuFileCompare_Click() {
    frmCompareFiles dialog(this);
    dialog.resultsOwner = this;
    dialog.openFilesForViewing = [this](const QString& first, const QString& second) {
        // Not coloured here: the two files are only for reading side by side.
        mnuWindowCloseAll_Click();
        for (const QString& path : {first, second}) {
            frmDocument* doc = NewDocument();
            if (!doc) continue;
            doc->rtfText->LoadFile(path, 1, nullptr);
            doc->Tag = path;
            doc->RememberDiskFile();
            doc->SetCaption(FromBytes(FileNameOf(ToBytes(path))));
            SetTabCaption(doc->TabKey(), doc->Caption());
            doc->Changed = false;
        }
        mnuWindowTileVertical_Click();
    };
    dialog.exec();
}

void frmMain::mnuViewFileInfo_Click() {
    frmDocument* doc = ActiveForm();
    if (!doc) return;
    if (doc->Tag.isEmpty()) {
        cDialogs::Get().MsgBox(
            "No information is available on the current file, as it has not been saved.",
            MsgButtons::OK, MsgIcon::Exclamation, "Information Unavailable.");
        return;
    }
    frmFileInfo info(this);
    info.updatestats(doc->Tag, doc->Changed);
    info.exec();
}

// ---------------------------------------------------------------- the browser pane

void frmMain::BuildBrowserPane() {
    lstFiles = new FileView(picBrowser);
    lstFiles->setObjectName("lstFiles");
    lstFiles->SetMultiSelect(false);
    picBrowser->SetHostedWidget(lstFiles);
    if (QAction* menu = Command("mnuBrowser")) mnuBrowser = menu->menu();
    connect(lstFiles, &FileView::FileDblClick, this, &frmMain::lstFiles_FileDblClick);
    connect(lstFiles, &FileView::MouseUp, this,
            [this](Qt::MouseButton button) { lstFiles_MouseUp(button); });
}

// ---------------------------------------------------------------- files dropped on the window

void frmMain::dragEnterEvent(QDragEnterEvent* e) {
    if (e->mimeData()->hasUrls()) e->acceptProposedAction();
}

void frmMain::dropEvent(QDropEvent* e) {
    QStringList files;
    for (const QUrl& url : e->mimeData()->urls())
        if (url.isLocalFile()) files << LocalPathOfUrl(url);
    if (files.isEmpty()) return;
    e->acceptProposedAction();
    MDIForm_OLEDragDrop(files);
}

void frmMain::MDIForm_OLEDragDrop(const QStringList& files) {
    for (const QString& file : files) {
        if (!MayOpenAsText(file)) continue;
        QString error;
        const QString backup = g_EditorSettings().Backup ? file + "~" : QString();
        frmDocument* doc = OpenFileInNewDocument(file, backup, true, &error);
        if (!doc) {
            cDialogs::Get().MsgBox("An error occurred while you were trying to open a file:\r\n" +
                                       error,
                                   MsgButtons::OK, MsgIcon::Critical, "File I/O Error");
            return;
        }
        doc->RefreshDisplay();
    }
}

void frmMain::lstFiles_FileDblClick(const QString& path) {
    QString backup;
    if (g_EditorSettings().Backup) backup = FromBytes(StripExtension(ToBytes(path))) + ".BAK";
    OpenFileInNewDocument(path, backup, true, nullptr); // failures leave silently
}

void frmMain::lstFiles_MouseUp(Qt::MouseButton button) {
    if (button != Qt::RightButton || !mnuBrowser) return;
    const QString selected = lstFiles->SelectedFiles();
    if (selected.isEmpty()) return;
    const QString name = FromBytes(FileNameOf(ToBytes(selected)));
    Command("mnuBrowserOpen")->setText("Open '" + name + "'");
    Command("mnuBrowserDefault")->setText("Open '" + name + "' in Default Viewer");
    Command("mnuBrowserHexEditor")->setText("Open '" + name + "' in Hex editor");
    mnuBrowser->popup(QCursor::pos());
}

void frmMain::mnuBrowserOpen_Click() {
    const QString path = lstFiles->SelectedFiles();
    if (path.isEmpty()) return;
    // This road's backup is the path with "~" behind it.
    const QString backup = g_EditorSettings().Backup ? path + "~" : QString();
    OpenFileInNewDocument(path, backup, true, nullptr);
}

void frmMain::mnuBrowserDefault_Click() {
    const QString path = lstFiles->SelectedFiles();
    if (!path.isEmpty()) QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

void frmMain::mnuBrowserHexEditor_Click() {
    const QString path = lstFiles->SelectedFiles();
    if (path.isEmpty()) return;
    const QString program = AppDir() + "NIBBLER.EXE";
    const QFileInfo info(program);
    if (info.isFile() && info.isExecutable() && QProcess::startDetached(program, {path})) return;
    cDialogs::Get().MsgBox("Kestrum was unable to launch its Hex Editor program, NIBBLER.EXE. "
                           "Please ensure that it exists in the Kestrum path.",
                           MsgButtons::OK, MsgIcon::Exclamation, "Error");
}
