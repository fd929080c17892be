// The File menu's commands and the file commands of the Edit menu. They all work on the active
// document and go through the main window's one common dialog, whose settings stay set from
// one command to the next: a command sets only what it needs, the rest is as it was left.
#include "app/frmMain.h"

#include "base/MiscSubs.h"
#include "base/PathHelpers.h"
#include "base/TextCodec.h"
#include "base/qt/AppGlobals.h"
#include "base/qt/FilePaths.h"
#include "components/cDialogs.h"
#include "editor/DocumentArray.h"
#include "editor/SafeSave.h"
#include "editor/frmDocument.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTabBar>
#include <QUrl>

namespace {

const QString kFileFilter = QStringLiteral(
    "All Files (*.*)|*.*|Text Files (*.txt, *.doc, *.faq)|*.txt;*.doc;*.faq|Ada Files (*.ada, "
    "*.adb, *.ads)|*.ada;*.adb;*.ads|Assembler Files (*.asm, *.inc)|*.asm;*.inc|Basic Files "
    "(*.bas)|*.bas|C/C++ Files (*.c, *.cpp, *.h, *.hpp, *.dlg)|*.c;*.cpp;*.h;*.hpp;*.dlg|Clipper "
    "5 Files (*.prg, *.ch)|*.prg;*.ch|COBOL Files (*.cbl, *.cob, *.sub, *.def)|*.cbl;*.cob;*.sub;"
    "*.def|DataFlex Files (*.src, *.pkg, *.frm)|*.pkg;*.frm;*.src|Eiffel Files (*.ei)|*.ei|HTML "
    "Files|*.htm;*.html;*.shtm;*.shtml;*.dhtm;*.dhtml|Java Files|*.java;*.jav|Limbo Files (*.b, "
    "*.m)|*.b;*.m|LISP Files (*.lsp)|*.lsp|Modula 2 Files (*.mod)|*.mod|MS-DOS Batch Files "
    "(*.bat)|*.bat|Obect Pascal Files (*.pas)|*.pas|Paradox ObjectPal Files (*.sc)|*.sc|Perl "
    "Files(*.pl, *.pm, *.cgi)|*.pl;*.pm;*.cgi|PHP3 Files (*.php, *.php3)|*.php;*.php3|Progress "
    "Files(*.p, *.i, *.pp, *.ip, *.w)|*.p;*.i;*.pp;*.ip;*.w|Prolog Files (*.art)|*.art|REXX Files "
    "(*.rex)|*.rex|Smalltalk Files (*.st, *.smt)|*.st;*.smt|SQL Files (*.sql)|*.sql|VHDL Files "
    "(*.vhd, *.vhdl)|*.vhd;*.vhdl|Visual Basic Files (*.mak, *.frm, *.bas, *.cls, *.pag, *.ctl, "
    "*.vbp)|*.mak;*.frm;*.bas;*.cls;*.pag;*.ctl;*.vbp");
const QString kUntitled = QStringLiteral("Untitled ");

void SetOpenFlags(FileDialogOptions& dlg) {
    dlg.fileMustExist = true;
    dlg.overwritePrompt = false;
}

void SetSaveFlags(FileDialogOptions& dlg) {
    dlg.fileMustExist = false;
    dlg.overwritePrompt = true;
}

// Shows the dialog for opening or saving; the chosen path, or nothing for Cancel. A name once
// chosen is not offered again, so that no save dialog proposes another document's file.
std::optional<QString> Show(FileDialogOptions& dlg, bool save) {
    dlg.save = save;
    dlg.fileName.clear();
    std::optional<QString> path = cDialogs::Get().FileDialog(dlg);
    if (path && path->isEmpty()) return std::nullopt;
    return path;
}

QString FileTitle(const QString& path) {
    return FromBytes(FileNameOf(ToBytes(path)));
}
QString FolderOf(const QString& path) {
    return FromBytes(PathOf(ToBytes(path)));
}

void Report(const QString& text, const QString& caption) {
    cDialogs::Get().MsgBox(text, MsgButtons::OK, MsgIcon::Critical, caption);
}

void ReportOpenFailure(const QString& error) {
    Report("An error occurred while you were trying to open a file:\r\n" + error,
           QStringLiteral("File I/O Error"));
}

// Sets the caption of the tab at a 1-based position; false when the strip has none there.
bool SetTabCaptionAt(QTabBar* tabs, int position, const QString& caption) {
    if (position < 1 || position > tabs->count()) return false;
    tabs->setTabText(position - 1, caption);
    return true;
}
// The runtime's text for a tab position that the strip does not have.
const QString kIndexOutOfBounds = QStringLiteral("Index out of bounds");

// Starts the companion hex editor, which lies beside the executable, on one file.
void OpenInHexEditor(const QString& path) {
    QString program = AppDir() + "NIBBLER.EXE";
    QFileInfo info(program);
    if (info.isFile() && info.isExecutable() && QProcess::startDetached(program, {path})) return;
    cDialogs::Get().MsgBox("Kestrum was unable to launch its Hex Editor program, NIBBLER.EXE. "
                           "Please ensure that it exists in the Kestrum path.",
                           MsgButtons::OK, MsgIcon::Exclamation, "Error");
}

} // namespace

// ---------------------------------------------------------------- new, open, close

bool frmMain::MayOpenAsText(const QString& path) {
    // A NUL byte near the start marks a file that is not text; the editor can show it, but
    // a save writes its line ends anew. The user decides.
    QFile f;
    if (!OpenFileAt(f, path, QIODevice::ReadOnly) || !f.read(8192).contains('\0')) return true;
    return cDialogs::Get().MsgBox("The file " + FileTitle(path) +
                                      " holds NUL bytes, so it is probably not a text file. "
                                      "Saving it may change it. Open it anyway?",
                                  MsgButtons::YesNo, MsgIcon::Exclamation,
                                  "Binary File") == MsgResult::Yes;
}

// Open and Save As start where the user is working: the active document's folder, else the
// folder last used, else the home folder. The program's own folder means nothing to the user
// of an installed copy.
static QString DialogStartFolder(const frmDocument* active, const QString& lastDir) {
    if (active && !active->Caption().startsWith(kUntitled) && !active->Tag.isEmpty()) {
        QString folder = FolderOf(active->Tag);
        if (IsFolderPath(folder)) return folder;
    }
    if (IsFolderPath(lastDir)) return lastDir;
    return QDir::homePath() + "/";
}

void frmMain::mnuFileOpen_Click() {
    FileDialogOptions& dlg = dlgCommonDialog;
    dlg.initDir = DialogStartFolder(ActiveForm(), LastDir);
    dlg.title = QStringLiteral("Open");
    SetOpenFlags(dlg);
    dlg.filter = kFileFilter;
    std::optional<QString> path = Show(dlg, false);
    if (!path || !MayOpenAsText(*path)) return;
    // The backup holds the file as it was opened, under the name without its extension.
    QString backup;
    if (g_EditorSettings().Backup) backup = FromBytes(StripExtension(ToBytes(*path))) + ".BAK";
    QString error;
    if (!LoadIntoNewDocument(*path, backup, true, true, &error)) return ReportOpenFailure(error);
    LastDir = FolderOf(*path);
}

void frmMain::mnuFileRecent_Click(int index) {
    if (index < 1 || index > 5) return;
    // The path is what the menu item shows; the item shows a name that is not UTF-8 in a
    // readable form, and then the list holds the name itself.
    QAction* item = recentItems_[size_t(index)];
    QString path = RecentFiles[size_t(index)];
    if (item && item->text() != ShownText(path)) path = item->text();
    if (!MayOpenAsText(path)) return;
    QString error;
    if (!OpenFileInNewDocument(path, {}, false, &error)) ReportOpenFailure(error);
}

frmDocument* frmMain::OpenFileInNewDocument(const QString& path, const QString& backup,
                                            bool addToRecent, QString* error) {
    return LoadIntoNewDocument(path, backup, addToRecent, false, error);
}

frmDocument* frmMain::LoadIntoNewDocument(const QString& path, const QString& backup,
                                          bool addToRecent, bool backupFirst, QString* error) {
    // A file that is open already is shown, not loaded a second time (Duplicate Window is
    // the way to a second view of it).
    const QString canonical = CanonicalPathOf(path);
    for (frmDocument* open : Documents().OpenDocuments()) {
        if (open->Tag.isEmpty() || canonical.isEmpty() || open->Caption().endsWith(" [Copy]"))
            continue;
        if (CanonicalPathOf(open->Tag) == canonical) {
            ActivateDocument(open);
            if (addToRecent) CycleRecentFiles(path);
            return open;
        }
    }
    frmDocument* doc = NewDocument();
    if (!doc) return nullptr;
    if (!doc->rtfText->LoadFile(path, 1, error)) return nullptr;
    // Most roads name the document before the backup is tried, so that a failed backup
    // leaves a window that saves back where it came from; File > Open backs up first.
    if (backupFirst && !backup.isEmpty() && !doc->rtfText->SaveFile(backup, 1, error))
        return nullptr;
    doc->SetCaption(FileTitle(path));
    SetTabCaption(doc->TabKey(), doc->Caption());
    doc->Tag = path;
    doc->RememberDiskFile();
    if (!backupFirst && !backup.isEmpty() && !doc->rtfText->SaveFile(backup, 1, error))
        return nullptr;
    if (addToRecent) CycleRecentFiles(path);
    doc->SetSyntax();
    doc->Changed = false;
    return doc;
}

void frmMain::mnuFileClose_Click() {
    // The document's own close step asks about unsaved changes.
    if (frmDocument* doc = ActiveForm()) doc->CloseWith(frmDocument::vbFormCode);
}

void frmMain::mnuEditReload_Click() {
    frmDocument* doc = ActiveForm();
    if (!doc) return;
    if (doc->Tag.isEmpty()) {
        cDialogs::Get().MsgBox(
            "This file has not been saved, and does not exist on disk to be re-loaded.",
            MsgButtons::OK, MsgIcon::Critical, "Unable to Reload File");
        return;
    }
    if (doc->Changed &&
        cDialogs::Get().MsgBox(
            "The contents of this document have changed. Re-loading the file will revert this "
            "document to the state that currently exists on disk. Do you want to reload the file "
            "anyway?",
            MsgButtons::YesNo, MsgIcon::Question, "Confirm") != MsgResult::Yes)
        return;
    // A file that cannot be read is passed over: the text stays and counts as unchanged.
    if (!doc->ReloadFromDisk()) doc->Changed = false;
}

// ---------------------------------------------------------------- save

void frmMain::mnuFileSave_Click() {
    frmDocument* doc = ActiveForm();
    if (!doc) return;
    QString error;
    auto fail = [&] {
        Report("An error occurred trying to save the file " + doc->Caption() + ".\r\n" + error,
               AppTitle());
    };
    if (!doc->Caption().startsWith(kUntitled) && !doc->Tag.isEmpty()) {
        if (!doc->MayOverwriteDiskFile()) return;
        if (!doc->rtfText->SaveFile(doc->Tag, 1, &error)) return fail();
        doc->Changed = false;
        doc->RememberDiskFile();
        return;
    }
    FileDialogOptions& dlg = dlgCommonDialog;
    // Save takes the folder the last dialog left, unless none has been shown yet.
    if (dlg.initDir.isEmpty()) dlg.initDir = DialogStartFolder(nullptr, LastDir);
    dlg.title = QStringLiteral("Save");
    SetSaveFlags(dlg);
    dlg.filter = kFileFilter;
    std::optional<QString> path = Show(dlg, true);
    if (!path) return;
    if (!doc->rtfText->SaveFile(*path, 1, &error)) return fail();
    doc->Tag = *path;
    doc->SetCaption(FileTitle(*path));
    doc->Changed = false;
    doc->RememberDiskFile();
    // The tab is found by its position, which is the slot's only while no lower slot has
    // closed; a position past the last tab fails like the rest of the command.
    if (!SetTabCaptionAt(tabFiles, doc->FormIndex, doc->Caption())) {
        error = kIndexOutOfBounds;
        fail();
    }
}

void frmMain::mnuFileSaveAs_Click() {
    frmDocument* doc = ActiveForm();
    if (!doc) return;
    FileDialogOptions& dlg = dlgCommonDialog;
    dlg.initDir = DialogStartFolder(doc, LastDir);
    dlg.title = QStringLiteral("Save As");
    dlg.filter = kFileFilter;
    SetSaveFlags(dlg);
    std::optional<QString> path = Show(dlg, true);
    if (!path) return;
    QString error;
    auto saved = [&] { return doc->rtfText->SaveFile(*path, 1, &error); };
    if (saved()) {
        doc->Tag = *path;
        doc->SetCaption(FileTitle(*path));
        doc->Changed = false;
        SetTabCaption(doc->TabKey(), doc->Caption());
        // Written a second time once the document carries its new name.
        if (saved()) {
            doc->RememberDiskFile();
            LastDir = FolderOf(*path);
            return;
        }
    }
    Report("An error occurred when saving the file " + doc->Caption() + ".\r" + error +
               "\r\nForm Index " + QString::number(doc->FormIndex),
           AppTitle());
}

void frmMain::mnuFileSaveAll_Click() {
    for (int i = 1; i <= Documents().UpperBound(); ++i) {
        frmDocument* doc = Documents().IsFree(i) ? nullptr : Documents().Document(i);
        if (!doc) continue;
        bool ok = true;
        if (!doc->Caption().startsWith(kUntitled)) {
            if (!doc->MayOverwriteDiskFile()) continue;
            ok = doc->rtfText->SaveFile(doc->Tag, 1, nullptr);
            if (ok) doc->Changed = false;
            if (ok) doc->RememberDiskFile();
        } else {
            FileDialogOptions& dlg = dlgCommonDialog;
            if (dlg.initDir.isEmpty()) dlg.initDir = DialogStartFolder(nullptr, LastDir);
            dlg.title = "Save " + doc->Caption();
            dlg.filter = kFileFilter;
            std::optional<QString> path = Show(dlg, true);
            if (!path) return;
            ok = doc->rtfText->SaveFile(*path, 1, nullptr);
            if (ok) {
                doc->Tag = *path;
                doc->SetCaption(FileTitle(*path));
                doc->Changed = false;
                doc->RememberDiskFile();
                ok = SetTabCaptionAt(tabFiles, doc->FormIndex, doc->Caption());
            }
        }
        if (!ok) {
            Report(QStringLiteral("An error occurred during the save process."),
                   QStringLiteral("File I/O Error"));
            return;
        }
    }
}

// ---------------------------------------------------------------- exports

void frmMain::mnuFileExportRTF_Click() {
    frmDocument* doc = ActiveForm();
    if (!doc) return;
    doc->ColorCode(); // the export carries the colours of the text as it is now
    FileDialogOptions& dlg = dlgCommonDialog;
    dlg.title = QStringLiteral("Export as RTF");
    dlg.filter = QStringLiteral("Rich Text Format (*.rtf)|*.rtf|All Files (*.*)|*.*");
    dlg.defaultExt = QStringLiteral("rtf");
    std::optional<QString> path = Show(dlg, true);
    dlg.defaultExt.clear();
    if (!path) return;
    QString error;
    if (!doc->rtfText->SaveFile(*path, 0, &error))
        Report("An error occurred when saving the file " + doc->Caption() + ".\r" + error,
               AppTitle());
}

void frmMain::mnuFileExportUnix_Click() {
    frmDocument* doc = ActiveForm();
    if (!doc) return;
    FileDialogOptions& dlg = dlgCommonDialog;
    dlg.title = QStringLiteral("Save As UNIX File...");
    dlg.filter = kFileFilter;
    SetSaveFlags(dlg);
    std::optional<QString> path = Show(dlg, true);
    if (!path) return;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    // Written whole and then put in place: emptying the file first would lose it if the
    // write then failed.
    QString error;
    bool ok = SaveBytesSafely(*path, RemoveChar(doc->rtfText->TextView(), '\r'), &error);
    QApplication::restoreOverrideCursor();
    if (!ok)
        Report("An error occurred when saving the file " + doc->Caption() + ".\r" + error,
               AppTitle());
}

// ---------------------------------------------------------------- inserts

namespace {

// Shows the dialog of an insert command and reads the chosen file; nothing for Cancel or a
// file that cannot be read. Line ends come into the text as the control holds them.
std::optional<std::string> ChooseFileToInsert(FileDialogOptions& dlg, const QString& title) {
    dlg.title = title;
    SetOpenFlags(dlg);
    dlg.filter = QStringLiteral("All Files (*.*)|*.*");
    std::optional<QString> path = Show(dlg, false);
    if (!path) return std::nullopt;
    std::string text, error;
    if (!ReadFileCrLf(ToBytes(*path), text, error)) return std::nullopt;
    return text;
}

} // namespace

void frmMain::mnuEditInsertFile_Click() {
    frmDocument* doc = ActiveForm();
    if (!doc) return;
    if (auto t = ChooseFileToInsert(dlgCommonDialog, QStringLiteral("Select File to Insert")))
        doc->rtfText->SetSelText(*t);
}

void frmMain::mnuEditAddFiletoStart_Click() {
    frmDocument* doc = ActiveForm();
    if (!doc) return;
    if (auto t = ChooseFileToInsert(dlgCommonDialog, QStringLiteral("Select File to Insert")))
        doc->rtfText->SetText(*t + doc->rtfText->Text());
}

void frmMain::mnuEditAppendFile_Click() {
    frmDocument* doc = ActiveForm();
    if (!doc) return;
    // The file goes behind the selection, which is at the caret when nothing is selected.
    if (auto t = ChooseFileToInsert(dlgCommonDialog, QStringLiteral("Select File to Append")))
        doc->rtfText->SetSelText(doc->rtfText->SelText() + *t);
}

// ---------------------------------------------------------------- launches

void frmMain::mnuFileOpenHex_Click() {
    FileDialogOptions& dlg = dlgCommonDialog;
    dlg.title = QStringLiteral("Open");
    SetOpenFlags(dlg);
    dlg.filter = QStringLiteral("All Files|*.*");
    dlg.filterIndex = 0;
    std::optional<QString> path = Show(dlg, false);
    if (!path) return;
    OpenInHexEditor(*path);
}

void frmMain::mnuFileOpenImage_Click() {
    FileDialogOptions& dlg = dlgCommonDialog;
    dlg.title = QStringLiteral("Open");
    dlg.filter = QStringLiteral("Standard Format Images|*.bmp;*.gif;*.jpg");
    dlg.filterIndex = 0;
    std::optional<QString> path = Show(dlg, false);
    if (!path) return;
    // Whatever the desktop does with it is its own affair.
    QDesktopServices::openUrl(QUrl::fromLocalFile(*path));
}
