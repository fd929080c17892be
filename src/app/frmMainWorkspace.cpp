// Workspaces, the two roll-up panes, templates and cliptext libraries. A workspace file lists
// the open documents, caption and path, so that one command reopens them all; templates and
// libraries are plain files in two folders beside the program, listed as their catalogue.
#include "app/core/WorkspaceFile.h"
#include "app/frmMain.h"
#include "base/PathHelpers.h"
#include "base/qt/AppGlobals.h"
#include "base/qt/FilePaths.h"
#include "base/qt/DataPaths.h"
#include "components/FlipPane.h"
#include "components/cDialogs.h"
#include "editor/DocumentArray.h"
#include "editor/RichEdit.h"
#include "editor/frmDocument.h"
#include "filetools/core/ClipLibrary.h"
#include "filetools/frmNewFile.h"

#include <QAction>
#include <QApplication>
#include <QBoxLayout>
#include <QDir>
#include <QFile>
#include <QListWidget>
#include <QMdiArea>

namespace {

const QString kWorkspaceFilter = QStringLiteral("Kestrum Project Files (*.kws)|*.kws");
// A list row shows at most this much of a snippet; the whole of it stays behind the row.
constexpr int kShownSnippetChars = 2000;

} // namespace

// ---------------------------------------------------------------- panes

void frmMain::BuildPanes(QBoxLayout* row) {
    picBrowser = new FlipPane(FlipPane::Left, QStringLiteral("File Browser"), this);
    picBrowser->setObjectName("picBrowser");
    picClipParent = new FlipPane(FlipPane::Right, QStringLiteral("ClipText"), this);
    picClipParent->setObjectName("picClipParent");

    picClip = new QWidget(picClipParent);
    picClip->setObjectName("picClip");
    auto* v = new QVBoxLayout(picClip);
    v->setContentsMargins(0, 0, 0, 4); // 60 twips kept free at the bottom
    v->setSpacing(2);
    lstClipFiles = new QListWidget(picClip);
    lstClipFiles->setObjectName("lstClipFiles");
    lstClipFiles->setAccessibleName(QStringLiteral("Cliptext Libraries"));
    lstClipFiles->setMaximumHeight(110);
    lstClip = new QListWidget(picClip);
    lstClip->setObjectName("lstClip");
    lstClip->setAccessibleName(QStringLiteral("Cliptext"));
    lstClip->setUniformItemSizes(true);
    v->addWidget(lstClipFiles);
    v->addWidget(lstClip, 1);
    picClipParent->SetHostedWidget(picClip);

    row->addWidget(picBrowser);
    row->addWidget(mdiArea, 1);
    row->addWidget(picClipParent);

    connect(lstClipFiles, &QListWidget::itemClicked, this, [this] { lstClipFiles_Click(); });
    connect(lstClip, &QListWidget::itemDoubleClicked, this, [this] { lstClip_DblClick(); });
    connect(picBrowser, &FlipPane::UserRollup, this,
            [this] { Command("mnuViewBrowser")->setChecked(false); });
    connect(picBrowser, &FlipPane::UserUnroll, this,
            [this] { Command("mnuViewBrowser")->setChecked(true); });
    connect(picClipParent, &FlipPane::UserRollup, this,
            [this] { Command("mnuViewCliptext")->setChecked(false); });
    connect(picClipParent, &FlipPane::UserUnroll, this,
            [this] { Command("mnuViewCliptext")->setChecked(true); });
}

// The load step's part: each pane as the settings left it, with no animation at start.
void frmMain::RestorePanes(bool browserOpen, bool clipOpen) {
    for (auto [pane, open] : {std::pair{picBrowser, browserOpen}, {picClipParent, clipOpen}}) {
        bool animate = pane->UseAnimation;
        pane->UseAnimation = false;
        open ? pane->Unroll() : pane->Rollup();
        pane->UseAnimation = animate;
    }
    RefreshClipFiles();
}

void frmMain::mnuViewBrowser_Click() {
    QAction* a = Command("mnuViewBrowser");
    a->setChecked(picBrowser->RolledUp());
    a->isChecked() ? picBrowser->Unroll() : picBrowser->Rollup();
}

void frmMain::mnuViewCliptext_Click() {
    QAction* a = Command("mnuViewCliptext");
    a->setChecked(picClipParent->RolledUp());
    a->isChecked() ? picClipParent->Unroll() : picClipParent->Rollup();
}

// ---------------------------------------------------------------- folders

// The folders the user's own templates and libraries are saved in; they are read together
// with the shipped ones of the program's folder.
QString frmMain::TemplateFolder() const {
    return UserDataDir() + "template/";
}

QString frmMain::ClipTextFolder() const {
    return UserDataDir() + "cliptext/";
}

// ---------------------------------------------------------------- workspaces

void frmMain::mnuAdvancedSaveProject_Click() {
    if (!ActiveForm()) return;
    if (cDialogs::Get().MsgBox("Before saving a workspace file, all currently opened files in the "
                               "workspace must be saved.\r\n\nDo you wish to continue?",
                               MsgButtons::YesNo, MsgIcon::Question,
                               QStringLiteral("Confirm")) != MsgResult::Yes)
        return;
    mnuFileSaveAll_Click();
    if (!ActiveForm()) return;
    FileDialogOptions& dlg = dlgCommonDialog;
    dlg.title = QStringLiteral("Save As");
    dlg.filter = kWorkspaceFilter;
    dlg.defaultExt = QStringLiteral("kws");
    dlg.save = true;
    dlg.fileName.clear();
    std::optional<QString> path = cDialogs::Get().FileDialog(dlg);
    dlg.defaultExt.clear();
    if (!path || path->isEmpty()) return;

    std::vector<WorkspaceEntry> entries;
    for (frmDocument* doc : Documents().OpenDocuments())
        entries.push_back({ToBytes(doc->Caption()), ToBytes(doc->Tag)});
    std::string bytes = WriteWorkspace(entries);
    QFile f;
    QString why;
    if (!OpenFileAt(f, *path, QIODevice::WriteOnly | QIODevice::Truncate, &why) ||
        f.write(bytes.data(), qint64(bytes.size())) != qint64(bytes.size()) || !f.flush()) {
        cDialogs::Get().MsgBox("An error occurred when saving the file " + ShownText(*path) +
                                   ".\r" + (f.isOpen() ? f.errorString() : why),
                               MsgButtons::OK, MsgIcon::Critical, AppTitle());
        return;
    }
    f.close();
    // The active document now stands under the workspace file's name; its tab keeps the old
    // caption. A later Save of it writes over the workspace file: that is how it has always
    // behaved, and users rely on it.
    if (frmDocument* doc = ActiveForm()) {
        doc->Tag = *path;
        doc->SetCaption(FromBytes(FileNameOf(ToBytes(*path))));
    }
}

void frmMain::mnuAdvancedRestoreProject_Click() {
    if (ActiveForm() &&
        cDialogs::Get().MsgBox("Before loading a workspace file, all currently opened files in "
                               "the workspace must be closed.\r\n\nDo you wish to continue?",
                               MsgButtons::YesNo, MsgIcon::Question,
                               QStringLiteral("Confirm")) != MsgResult::Yes)
        return;
    // Each document may ask about its changes; one kept open by Cancel stays beside the rest.
    for (frmDocument* doc : Documents().OpenDocuments()) doc->CloseWith(frmDocument::vbFormCode);

    FileDialogOptions& dlg = dlgCommonDialog;
    dlg.title = QStringLiteral("Open");
    dlg.filter = kWorkspaceFilter;
    dlg.save = false;
    dlg.fileName.clear();
    std::optional<QString> path = cDialogs::Get().FileDialog(dlg);
    if (!path || path->isEmpty()) return;
    QString error;
    if (!LoadWorkspace(*path, false, &error))
        cDialogs::Get().MsgBox("There was an error when trying to load the files contained in " +
                                   ShownText(*path) + ".\r\n" + error,
                               MsgButtons::OK, MsgIcon::Critical, QStringLiteral("File I/O Error"));
}

bool frmMain::LoadWorkspace(const QString& path, bool fromCommandLine, QString* error) {
    QFile f;
    if (!OpenFileAt(f, path, QIODevice::ReadOnly, error)) return false;
    QByteArray bytes = f.readAll();
    f.close();
    WorkspaceRead read = ReadWorkspace(std::string_view(bytes.constData(), size_t(bytes.size())));
    for (const WorkspaceEntry& e : read.entries) {
        frmDocument* doc = NewDocument();
        if (!doc) {
            *error = QStringLiteral("No document could be made.");
            return false;
        }
        // The blank document made for an entry that cannot be read stays.
        QString file = FromBytes(e.path);
        if (!doc->rtfText->LoadFile(file, 1, error)) {
            if (!error->contains(ShownText(file)))
                *error += QStringLiteral(" (") + ShownText(file) + ")";
            return false;
        }
        doc->SetCaption(FromBytes(e.caption));
        SetTabCaption(doc->TabKey(), doc->Caption());
        doc->Tag = file;
        doc->RememberDiskFile();
        if (fromCommandLine || g_EditorSettings().AutoCode) doc->SetSyntax();
        doc->Changed = false;
        // The window stays responsive while a long workspace comes in.
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    }
    if (read.error) {
        *error = QString::fromStdString(*read.error);
        return false;
    }
    return true;
}

// ---------------------------------------------------------------- templates

void frmMain::mnuFileNew_Click() {
    frmNewFile dlg(QStringLiteral("template"), this);
    dlg.exec();
    update();
}

namespace {

// Saves the active document's text as a file of the folder under a name the user gives.
// Failures are silent, as for every save into the two libraries; the folder is made first,
// so that a fresh per-user copy can take its first template or library.
bool ExportInto(frmDocument* doc, const QString& folder, const QString& prompt,
                const QString& title) {
    QString name = cDialogs::Get().InputPrompt(prompt, title, QString());
    if (name.isEmpty()) return false;
    QDir().mkpath(folder);
    return doc->rtfText->SaveFile(folder + name, 1, nullptr);
}

} // namespace

void frmMain::mnuFileExportTPL_Click() {
    if (frmDocument* doc = ActiveForm())
        ExportInto(doc, TemplateFolder(),
                   "Please enter a descriptive name for your template. This name will appear on "
                   "the 'Templates' list on the New File dialog.",
                   QStringLiteral("Save Template"));
    update();
}

void frmMain::mnuFileExportClip_Click() {
    if (frmDocument* doc = ActiveForm()) {
        ExportInto(doc, ClipTextFolder(),
                   "Please enter a descriptive name for your cliptext library. This name will "
                   "appear on the 'Cliptext Libraries' list on the main window.",
                   QStringLiteral("Save Cliptext"));
        RefreshClipFiles();
    }
    update();
}

// ---------------------------------------------------------------- cliptext

void frmMain::RefreshClipFiles() {
    QString current = lstClipFiles->currentItem() ? lstClipFiles->currentItem()->text() : QString();
    lstClipFiles->clear();
    lstClipFiles->addItems(DataFiles(QStringLiteral("cliptext")));
    if (!current.isEmpty())
        if (auto found = lstClipFiles->findItems(current, Qt::MatchExactly); !found.isEmpty())
            lstClipFiles->setCurrentItem(found.first());
}

void frmMain::lstClipFiles_Click() {
    QListWidgetItem* chosen = lstClipFiles->currentItem();
    if (!chosen) return;
    QFile f(DataFileToRead("cliptext/" + chosen->text()));
    if (!f.open(QIODevice::ReadOnly)) return;
    QByteArray bytes = f.readAll();
    QStringList entries;
    for (const std::string& line :
         ParseClipLibrary(std::string_view(bytes.constData(), size_t(bytes.size()))))
        entries << FromBytes(line);
    SetClipEntries(entries);
}

void frmMain::SetClipEntries(const QStringList& entries) {
    lstClip->clear();
    clipEntries_.assign(entries.begin(), entries.end());
    QStringList shown;
    shown.reserve(entries.size());
    // A very long line would cost the list its speed to draw; the row shows its start.
    for (const QString& text : entries)
        shown << (text.size() > kShownSnippetChars ? text.left(kShownSnippetChars) + QChar(0x2026)
                                                   : text);
    lstClip->addItems(shown);
}

QString frmMain::ClipEntry(int index) const {
    return index >= 0 && size_t(index) < clipEntries_.size() ? clipEntries_[size_t(index)]
                                                             : QString();
}

void frmMain::lstClip_DblClick() {
    frmDocument* doc = ActiveForm();
    if (!doc) return;
    int row = lstClip->currentRow();
    QString text = row < 0 ? QString() : ClipEntry(row);
    std::optional<std::string> bytes = doc->rtfText->ToDocumentBytes(text);
    if (bytes && !bytes->empty()) {
        UndoGroup group(*doc->rtfText);
        doc->rtfText->SetSelText(ExpandSnippet(*bytes));
    }
    doc->rtfText->setFocus();
}

int frmMain::GoClip(const QString& word) const {
    // The entries beside the list, not the list's rows: a key must not wait on the widget.
    for (size_t i = 0; i < clipEntries_.size(); ++i)
        if (clipEntries_[i].startsWith(word, Qt::CaseInsensitive)) return int(i);
    return -1;
}
