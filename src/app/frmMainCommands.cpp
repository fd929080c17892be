// The menus and tool bars of the main window, and its Edit, View, Window and Help commands.
#include "app/CommandTable.h"
#include "app/frmMain.h"
#include "base/TextCodec.h"
#include "base/qt/AppGlobals.h"
#include "base/qt/DataPaths.h"
#include "components/HelpSystem.h"
#include "components/cDialogs.h"
#include "editor/DocumentArray.h"
#include "editor/core/LineCommand.h"
#include "editor/core/WindowPlacement.h"
#include "editor/frmDocument.h"
#include "profiles/core/ProfileFile.h"
#include "profiles/core/SyntaxAssociations.h"
#include "profiles/frmConfigAssocProfile.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDateTime>
#include <QDesktopServices>
#include <QDir>
#include <QLabel>
#include <QListWidget>
#include <QLocale>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <QUrl>

// ---------------------------------------------------------------- menus and tool bars

#if __has_include("app/ToolbarIcons.h")
#include "app/ToolbarIcons.h"
static QIcon ToolbarImage(const char* key) {
    return ToolbarIcon(QString::fromLatin1(key));
}
#else
static QIcon ToolbarImage(const char*) {
    return {};
}
#endif

QList<QKeySequence> frmMain::MenuShortcuts() const {
    QList<QKeySequence> keys;
    for (QAction* a : commands_) keys += a->shortcuts();
    return keys;
}

void frmMain::BuildMenus() {
    QMenu* top = nullptr;
    QMenu* sub = nullptr;
    auto table = MenuTable();
    for (size_t i = 0; i < table.size(); ++i) {
        const MenuEntry& e = table[i];
        bool heading = i + 1 < table.size() && table[i + 1].level > e.level;
        if (e.level == 0) {
            top = IsPopupOnly(e.name) ? new QMenu(tr(e.caption), this)
                                      : menuBar()->addMenu(tr(e.caption));
            top->setObjectName(e.name);
            commands_.insert(e.name, top->menuAction());
            sub = nullptr;
            continue;
        }
        QMenu* into = e.level == 1 ? top : sub;
        if (!into) continue;
        if (e.separatorBefore) into->addSeparator();
        if (heading) {
            sub = into->addMenu(tr(e.caption));
            sub->setObjectName(e.name);
            commands_.insert(e.name, sub->menuAction());
            continue;
        }
        QAction* a = into->addAction(tr(e.caption));
        a->setObjectName(e.name);
        if (*e.shortcut) a->setShortcut(QKeySequence(QString::fromLatin1(e.shortcut)));
        a->setCheckable(e.checkable);
        commands_.insert(e.name, a);
        if (auto handler = e.handler) {
            connect(a, &QAction::triggered, this, [this, a, handler] {
                // A check mark is flipped by the command itself, not by the menu.
                if (a->isCheckable()) a->setChecked(!a->isChecked());
                (this->*handler)();
            });
        }
        // The recent files stand behind "Reset Settings", as items of the File menu.
        if (std::string_view(e.name) == "mnuPrefsReset") {
            QMenu* file = qobject_cast<QMenu*>(Command("mnuFile")->menu());
            recentItems_[0] = file->addSeparator();
            recentItems_[0]->setObjectName("mnuFileRecent0");
            for (int r = 1; r <= 5; ++r) {
                QAction* item = file->addAction(QString());
                item->setObjectName(QStringLiteral("mnuFileRecent%1").arg(r));
                connect(item, &QAction::triggered, this, [this, r] { mnuFileRecent_Click(r); });
                recentItems_[size_t(r)] = item;
            }
            for (QAction* item : recentItems_) item->setVisible(false);
        }
    }
    for (const ExtraShortcut& x : ExtraShortcuts()) {
        QAction* a = Command(x.command);
        a->setShortcuts({a->shortcut(), QKeySequence(QString::fromLatin1(x.shortcut))});
    }
    mnuEdit = Command("mnuEdit")->menu();
    BuildUtilityItems();

    // The Window menu ends with the open documents, by caption.
    QMenu* window = Command("mnuWindow")->menu();
    connect(window, &QMenu::aboutToShow, this, [this, window] {
        for (QAction* a : window->actions())
            if (a->property("documentList").toBool()) window->removeAction(a), a->deleteLater();
        auto docs = Documents().OpenDocuments();
        if (docs.empty()) return;
        QAction* sep = window->addSeparator();
        sep->setProperty("documentList", true);
        int n = 0;
        for (frmDocument* doc : docs) {
            QAction* a = window->addAction(QStringLiteral("&%1 %2").arg(++n).arg(doc->Caption()));
            a->setProperty("documentList", true);
            a->setCheckable(true);
            a->setChecked(doc == ActiveForm());
            QPointer<frmDocument> guard(doc);
            connect(a, &QAction::triggered, this, [this, guard] {
                if (!guard || !guard->SubWindow()) return;
                if (guard->SubWindow()->isMinimized()) guard->SubWindow()->showNormal();
                mdiArea->setActiveSubWindow(guard->SubWindow());
            });
        }
    });
}

void frmMain::BuildToolbars() {
    QHash<QString, QToolBar*> bars{
        {"tbFile", tbFile}, {"tbAdvanced", tbAdvanced}, {"tbEdit", tbEdit}, {"tbSearch", tbSearch}};
    for (const ToolButtonEntry& b : ToolbarTable()) {
        QToolBar* bar = bars.value(b.toolbar);
        QAction* command = Command(b.command);
        if (!bar || !command) continue;
        QAction* button = bar->addAction(ToolbarImage(b.image), tr(b.toolTip));
        button->setObjectName(QStringLiteral("%1:%2").arg(b.toolbar, b.key));
        button->setToolTip(tr(b.toolTip));
        if (QMenu* popup = command->menu()) {
            // Buttons for a submenu pop it up under themselves.
            connect(button, &QAction::triggered, this, [bar, button, popup] {
                QWidget* w = bar->widgetForAction(button);
                popup->popup(w ? w->mapToGlobal(QPoint(0, w->height())) : QCursor::pos());
            });
        } else {
            connect(button, &QAction::triggered, command, &QAction::trigger);
        }
    }
    auto check = [this](const char* item, QToolBar* band) {
        QAction* mark = Command(item);
        mark->setChecked(!band->isHidden());
        // The bars' own context menu hides and shows them too; the marks follow either way.
        // The toggle action follows explicit hides only, not a minimised main window.
        connect(band->toggleViewAction(), &QAction::toggled, mark, &QAction::setChecked);
    };
    check("mnuViewToolbarsCompiler", tbAdvanced);
    check("mnuViewToolbarsEdit", tbEdit);
    check("mnuViewToolbarsSearch", tbSearch);
    check("mnuViewToolbarsCursor", picDOcInfo);
}

QAction* frmMain::Command(const QString& name) const {
    return commands_.value(name);
}

// ---------------------------------------------------------------- recent files

void frmMain::CycleRecentFiles(const QString& name) {
    // Each path stands once: one already listed moves to the top, the rest close up.
    int last = 5;
    for (int i = 1; i <= 5; ++i)
        if (RecentFiles[size_t(i)] == name) last = i;
    for (int i = last - 1; i >= 1; --i) RecentFiles[size_t(i + 1)] = RecentFiles[size_t(i)];
    RecentFiles[1] = name;
    RefreshRecentFiles();
}

void frmMain::RefreshRecentFiles() {
    if (!recentItems_[0]) return;
    if (RecentFiles[1].isEmpty()) {
        for (QAction* a : recentItems_) a->setVisible(false);
        return;
    }
    // An empty slot keeps its visibility; only its caption follows the slot.
    for (int i = 1; i <= 5; ++i) {
        if (!RecentFiles[size_t(i)].isEmpty()) recentItems_[size_t(i)]->setVisible(true);
        recentItems_[size_t(i)]->setText(ShownText(RecentFiles[size_t(i)]));
    }
    recentItems_[0]->setVisible(true);
}

// ---------------------------------------------------------------- profiles

void frmMain::RefreshControls() {
    for (QWidget* w : findChildren<QWidget*>()) w->update();
    QSignalBlocker block(cboProfiles);
    QString selected = cboProfiles->currentText();
    cboProfiles->clear();
    cboProfiles->addItems(DataFiles("PROFILES"));
    cboProfiles->setCurrentIndex(cboProfiles->findText(selected));
}

void frmMain::ShowSyntaxProfile(const QString& name) {
    QSignalBlocker block(cboProfiles);
    if (cboProfiles->count() == 0) cboProfiles->addItems(DataFiles("PROFILES"));
    cboProfiles->setCurrentIndex(cboProfiles->findText(name));
}

void frmMain::CreateSyntaxAssocs() {
    try {
        ::CreateSyntaxAssocs(Store(), ToBytes(AppTitle()));
    } catch (const std::exception&) {
        // The store reports nothing of its own; the table is simply written next time.
    }
}

void frmMain::cboProfiles_Click() {
    for (frmDocument* doc : Documents().OpenDocuments()) {
        if (doc->CodingInProgress()) {
            cDialogs::Get().MsgBox("You cannot change the current syntax profile while Kestrum is "
                                   "still color coding documents.",
                                   MsgButtons::OKCancel, MsgIcon::Exclamation,
                                   "Noncritical Error:");
            return;
        }
    }
    QString name = cboProfiles->currentText();
    if (name.isEmpty()) return;
    // A failed or short read leaves what was read; errors are not reported here.
    ReadProfileFile(ToBytes(DataFileToRead("PROFILES/" + name)), g_SelectedProfile());
    frmDocument* doc = ActiveForm();
    if (!doc) return;
    doc->ReflectSettings();
    doc->ChangedHighLight = true;
    doc->ColorCode();
}

void frmMain::mnuPrefsRecog_Click() {
    frmConfigAssocProfile dlg(this);
    dlg.exec();
}

void frmMain::mnuAdvancedAssoc_Click() {
    mnuPrefsRecog_Click();
}

// ---------------------------------------------------------------- edit commands

namespace {
// Clipboard text as the document's bytes, with CR LF line ends. Nothing when a Latin-1
// document cannot hold it.
std::optional<std::string> ClipboardBytes(const RichEdit& edit) {
    auto bytes = edit.ToDocumentBytes(QApplication::clipboard()->text());
    if (bytes) *bytes = ToCrLf(*bytes);
    return bytes;
}

QString SelectedText(const RichEdit& edit) {
    return edit.FromDocumentBytes(edit.SelText());
}
} // namespace

void frmMain::mnuEditUndo_Click() {
    // Steps back through the editor's whole history, one command at a time.
    if (frmDocument* doc = ActiveForm()) doc->rtfText->Undo();
}

void frmMain::mnuEditCut_Click() {
    frmDocument* doc = ActiveForm();
    if (!doc) return;
    QApplication::clipboard()->setText(SelectedText(*doc->rtfText));
    doc->rtfText->SetSelText("");
}

void frmMain::mnuEditCopy_Click() {
    if (frmDocument* doc = ActiveForm())
        QApplication::clipboard()->setText(SelectedText(*doc->rtfText));
}

void frmMain::mnuEditPaste_Click() {
    frmDocument* doc = ActiveForm();
    if (!doc) return;
    auto bytes = ClipboardBytes(*doc->rtfText);
    if (!bytes) {
        QApplication::beep();
        SetPanelText(1, tr("This file is not UTF-8: it cannot hold the clipboard's text."));
        return;
    }
    int64_t p = doc->rtfText->SelStart();
    {
        UndoGroup group(*doc->rtfText);
        doc->rtfText->SetSelText(*bytes);
    }
    doc->CodePassage(p, p + int64_t(bytes->size()));
}

void frmMain::mnuEditPasteNew_Click() {
    if (QApplication::clipboard()->text().isEmpty()) return;
    frmDocument* doc = NewDocument();
    if (!doc) return;
    if (auto bytes = ClipboardBytes(*doc->rtfText)) doc->rtfText->SetSelText(*bytes);
}

void frmMain::mnuEditSelectAll_Click() {
    frmDocument* doc = ActiveForm();
    if (!doc) return;
    doc->rtfText->SetSelStart(0);
    doc->rtfText->SetSelLength(doc->rtfText->TextLength());
}

void frmMain::mnuEditToggleWrap_Click() {
    if (frmDocument* doc = ActiveForm()) doc->ToggleWrap();
}

// ---------------------------------------------------------------- view commands

namespace {
// Flips the item's check mark and shows the band from it.
void ToggleBand(QAction* item, QToolBar* band) {
    item->setChecked(!item->isChecked());
    band->setVisible(item->isChecked());
}
} // namespace

void frmMain::mnuViewToolbarsCompiler_Click() {
    ToggleBand(Command("mnuViewToolbarsCompiler"), tbAdvanced);
}
void frmMain::mnuViewToolbarsEdit_Click() {
    ToggleBand(Command("mnuViewToolbarsEdit"), tbEdit);
}
void frmMain::mnuViewToolbarsSearch_Click() {
    ToggleBand(Command("mnuViewToolbarsSearch"), tbSearch);
}
void frmMain::mnuViewToolbarsCursor_Click() {
    ToggleBand(Command("mnuViewToolbarsCursor"), picDOcInfo);
}

void frmMain::mnuViewRefresh_Click() {
    RefreshControls();
    for (frmDocument* doc : Documents().OpenDocuments()) {
        doc->SetSyntax();
        doc->RefreshDisplay();
    }
}

void frmMain::mnuViewRefreshColors_Click() {
    frmDocument* doc = ActiveForm();
    if (!doc) return;
    doc->ChangedHighLight = true;
    doc->ColorCode();
}

void frmMain::mnuViewOpenDef_Click() {
    frmDocument* doc = ActiveForm();
    if (!doc) return;
    QString name = SelectedText(*doc->rtfText);
    if (!name.isEmpty()) QDesktopServices::openUrl(QUrl::fromLocalFile(name));
}

void frmMain::mnuAdvancedOpenViewer_Click() {
    frmDocument* doc = ActiveForm();
    if (!doc) return;
    if (doc->Tag.isEmpty()) {
        if (cDialogs::Get().MsgBox(
                "You must first save the file before you can view it in its "
                "currently associated program. Do you wish to save the file now?",
                MsgButtons::YesNo, MsgIcon::Question, "Confirm") != MsgResult::Yes)
            return;
        mnuFileSave_Click();
    }
    if (!doc->Tag.isEmpty()) QDesktopServices::openUrl(QUrl::fromLocalFile(doc->Tag));
}

// ---------------------------------------------------------------- window commands

void frmMain::mnuWindowNewWindow_Click() {
    NewDocument();
}

void frmMain::mnuWindowDuplicate_Click() {
    frmDocument* doc = ActiveForm();
    if (!doc) return;
    QString tag = doc->Tag, caption = doc->Caption();
    RichEdit* source = doc->rtfText;
    frmDocument* copy = NewDocument();
    if (!copy) return;
    copy->Tag = tag;
    copy->SetCaption(caption + " [Copy]");
    // Text and colours in one step; the copy's tab keeps "Untitled n".
    copy->rtfText->CopyFrom(*source);
    copy->SetSyntax();
}

namespace {
// The windows that an arrangement moves: all but the minimised ones, in the area's order.
std::vector<QMdiSubWindow*> ArrangedWindows(QMdiArea* area) {
    std::vector<QMdiSubWindow*> out;
    for (QMdiSubWindow* w : area->subWindowList())
        if (!w->isMinimized() && w->isVisible()) out.push_back(w);
    return out;
}

void Arrange(const std::vector<QMdiSubWindow*>& windows, const std::vector<WindowRect>& rects) {
    for (size_t i = 0; i < windows.size() && i < rects.size(); ++i) {
        windows[i]->showNormal();
        windows[i]->setGeometry(rects[i].x, rects[i].y, rects[i].width, rects[i].height);
    }
}
} // namespace

void frmMain::mnuWindowCascade_Click() {
    auto windows = ArrangedWindows(mdiArea);
    if (windows.empty()) return;
    QSize area = mdiArea->viewport()->size();
    Arrange(windows, CascadeAll(windows.size(), area.width(), area.height(),
                                DocumentArray::CascadeStep(windows.front())));
    // The active window stays in front, as the last of the cascade would be.
    if (QMdiSubWindow* a = mdiArea->activeSubWindow()) a->raise();
}
void frmMain::mnuWindowTileHorizontal_Click() {
    auto windows = ArrangedWindows(mdiArea);
    QSize area = mdiArea->viewport()->size();
    Arrange(windows, TileRows(windows.size(), area.width(), area.height()));
}
void frmMain::mnuWindowTileVertical_Click() {
    auto windows = ArrangedWindows(mdiArea);
    QSize area = mdiArea->viewport()->size();
    Arrange(windows, TileColumns(windows.size(), area.width(), area.height()));
}
void frmMain::mnuWindowArrangeIcons_Click() {
    // Lines the minimised windows up along the bottom edge.
    QSize area = mdiArea->viewport()->size();
    int x = 0;
    for (QMdiSubWindow* w : mdiArea->subWindowList()) {
        if (!w->isMinimized()) continue;
        w->move(x, area.height() - w->height());
        x += w->width();
    }
}

void frmMain::mnuWindowMinAll_Click() {
    for (frmDocument* doc : Documents().OpenDocuments())
        if (QMdiSubWindow* w = doc->SubWindow()) w->showMinimized();
}

void frmMain::mnuWindowResAll_Click() {
    for (frmDocument* doc : Documents().OpenDocuments())
        if (QMdiSubWindow* w = doc->SubWindow()) w->showNormal();
}

void frmMain::mnuWindowCloseAll_Click() {
    // A Cancel keeps that document open, and the loop goes on with the next.
    for (int i = 1; i <= Documents().UpperBound(); ++i)
        if (!Documents().IsFree(i))
            if (frmDocument* doc = Documents().Document(i)) doc->CloseWith(frmDocument::vbFormCode);
}

void frmMain::mnuHelpContents_Click() {
    ShowHelpTopic("basic_editing");
}

// ---------------------------------------------------------------- format commands

void frmMain::mnuFormatCommentBlock_Click() {
    if (frmDocument* doc = ActiveForm()) doc->CommentBlock();
}
