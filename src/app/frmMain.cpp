#include "app/frmMain.h"

#include "app/KeyboardLocks.h"
#include "app/SingleInstance.h"
#include "app/ToolbarIcons.h"
#include "app/core/WorkspaceFile.h"
#include "base/PathHelpers.h"
#include "base/qt/AppGlobals.h"
#include "components/FlipPane.h"
#include "components/cDialogs.h"
#include "components/cSysTray.h"
#include "editor/DocumentArray.h"
#include "editor/core/WindowPlacement.h"
#include "editor/frmDocument.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QScreen>
#include <QStatusBar>
#include <QTabBar>
#include <QTimer>
#include <QToolBar>
#include <QVBoxLayout>
#include <optional>

namespace {
frmMain* theMainForm = nullptr;
constexpr int kMinimumWidth = 4000 / 15; // 4000 twips
} // namespace

frmMain* MainForm() {
    return theMainForm;
}

frmMain::frmMain(QWidget* parent) : QMainWindow(parent) {
    theMainForm = this;
    SetDocumentHost(this);
    setWindowTitle(QStringLiteral("Kestrum"));
    BuildWindow();
}

frmMain::~frmMain() {
    // Documents that go with the window must not call back into a half-destroyed one.
    theMainForm = nullptr;
    SetDocumentHost(nullptr);
}

void frmMain::BuildWindow() {
    // Set for the whole program, so that document windows show it instead of the toolkit's.
    QApplication::setWindowIcon(ProgramIcon());
    auto* central = new QWidget(this);
    auto* v = new QVBoxLayout(central);
    v->setContentsMargins(0, 0, 0, 0);
    v->setSpacing(0);

    // picTabs: the syntax profile box and the tab strip of the open documents.
    auto* picTabs = new QWidget(central);
    auto* h = new QHBoxLayout(picTabs);
    h->setContentsMargins(4, 2, 4, 2);
    auto* Label2 = new QLabel(tr("Syntax Profile:"), picTabs);
    cboProfiles = new QComboBox(picTabs);
    cboProfiles->setObjectName("cboProfiles");
    cboProfiles->setMinimumWidth(200);
    lblOpenFiles = new QLabel(tr("Documents:"), picTabs);
    tabFiles = new QTabBar(picTabs);
    tabFiles->setObjectName("tabFiles");
    tabFiles->setExpanding(false);
    tabFiles->setDocumentMode(true);
    tabFiles->setUsesScrollButtons(true);
    h->addWidget(Label2);
    h->addWidget(cboProfiles);
    h->addSpacing(8);
    h->addWidget(lblOpenFiles);
    h->addWidget(tabFiles, 1);
    v->addWidget(picTabs);

    connect(cboProfiles, &QComboBox::activated, this, [this] { cboProfiles_Click(); });

    mdiArea = new QMdiArea(central);
    mdiArea->setObjectName("mdiArea");
    mdiArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    mdiArea->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    auto* row = new QHBoxLayout;
    row->setSpacing(0);
    v->addLayout(row, 1);
    BuildPanes(row);
    setCentralWidget(central);
    setAcceptDrops(true); // files dropped anywhere outside a document open in new ones

    connect(mdiArea, &QMdiArea::subWindowActivated, this, &frmMain::OnSubWindowActivated);
    connect(tabFiles, &QTabBar::tabBarClicked, this, &frmMain::tabFiles_Click);

    // The cool bar's bands.
    auto band = [this](const QString& name, const QString& key) {
        auto* tb = new QToolBar(name, this);
        tb->setObjectName(key);
        addToolBar(Qt::TopToolBarArea, tb);
        return tb;
    };
    tbFile = band(tr("File"), "File");
    tbFile->toggleViewAction()->setEnabled(false); // the first band cannot be hidden
    tbAdvanced = band(tr("Compiler"), "Compiler");
    picDOcInfo = band(tr("Cursor"), "Cursor");
    lblDocInfo = new QLabel(picDOcInfo);
    lblDocInfo->setMinimumWidth(140);
    picDOcInfo->addWidget(lblDocInfo);
    addToolBarBreak(); // two rows, so that no band hides its buttons behind a chevron
    tbEdit = band(tr("Edit"), "Edit");
    tbSearch = band(tr("Search"), "Search");

    // Status bar panels.
    auto* sb = statusBar();
    sb->setObjectName("sbStatusBar");
    for (int i = 1; i <= 7; ++i) {
        panels_[size_t(i)] = new QLabel(sb);
        panels_[size_t(i)]->setObjectName(QStringLiteral("panel%1").arg(i));
        panels_[size_t(i)]->setContentsMargins(6, 0, 6, 0);
        if (i == 1)
            sb->addWidget(panels_[1], 1);
        else
            sb->addPermanentWidget(panels_[size_t(i)]);
    }
    panels_[5]->setText("INS");
    panels_[6]->setText("CAPS");
    panels_[7]->setText("NUM");
    // The lock panels follow the keyboard's lights; where the lights cannot be read they
    // stay grey rather than claim a state.
    auto* locks = new QTimer(this);
    locks->setInterval(250);
    connect(locks, &QTimer::timeout, this, &frmMain::RefreshLockPanels);
    locks->start();
    RefreshLockPanels();

    BuildMenus();
    BuildBrowserPane();
    BuildToolbars();
    // "Documents:" pops up the Window menu with the open documents at its end.
    lblOpenFiles->installEventFilter(this);
    lblOpenFiles->setCursor(Qt::PointingHandCursor);
    mdiArea->viewport()->installEventFilter(this);
}

bool frmMain::eventFilter(QObject* o, QEvent* e) {
    if (o == lblOpenFiles && e->type() == QEvent::MouseButtonRelease) {
        if (QMenu* w = Command("mnuWindow")->menu())
            w->popup(lblOpenFiles->mapToGlobal(QPoint(0, lblOpenFiles->height())));
        return true;
    }
    if (o == mdiArea->viewport() && e->type() == QEvent::Resize) KeepWindowsInView();
    return QMainWindow::eventFilter(o, e);
}

void frmMain::RefreshLockPanels() {
    std::optional<KeyboardLocks> locks = ReadKeyboardLocks();
    panels_[6]->setEnabled(locks && locks->caps);
    panels_[7]->setEnabled(locks && locks->num);
}

void frmMain::KeepWindowsInView() {
    // The area shrinks when the window is restored or a pane opens; a document window it
    // held must not end up partly outside it, reachable only by scrolling.
    QSize area = mdiArea->viewport()->size();
    if (area.width() < 100 || area.height() < 100) return;
    for (QMdiSubWindow* w : mdiArea->subWindowList()) {
        if (w->isMinimized() || w->isMaximized()) continue;
        QRect g = w->geometry();
        WindowRect r =
            KeepInside({g.x(), g.y(), g.width(), g.height()}, area.width(), area.height());
        if (r != WindowRect{g.x(), g.y(), g.width(), g.height()})
            w->setGeometry(r.x, r.y, r.width, r.height);
    }
}

// ---------------------------------------------------------------- load and unload

void frmMain::MDIForm_Load(const QString& commandLine) {
    CommandLine = commandLine;
    const QString app = AppTitle();
    // The start's writes (upgrade rule, first load, association table) in one save: a large
    // settings file is not rewritten for each of them.
    auto batch = std::make_optional<SettingsStore::Batch>(Store());
    AttachSubclass();
    LoadSysTray(); // reads "SysTray" before the upgrade rule may reset it

    // The upgrade rule: a changed build number resets the editor settings.
    bool ok = false;
    int stored = GetSetting(app, "Version", "Build", "0").toInt(&ok);
    if (!ok || stored != ProgramBuildNumber()) {
        DeleteSetting(app, "Settings");
        DeleteSetting(app, "Syntax Associations");
        SaveSetting(app, "Version", "Build", QString::number(ProgramBuildNumber()));
    }

    while (tabFiles->count() > 0) tabFiles->removeTab(0);
    Documents().Reset(mdiArea);

    QRect screen = QApplication::primaryScreen()
                       ? QApplication::primaryScreen()->availableGeometry()
                       : QRect(0, 0, 1024, 768);
    // A stored value that does not convert leaves the default, as for every setting.
    // Held to what a window system can place, so that no stored value is out of int's range.
    auto single = [&](const char* key, double def) {
        return settings_convert::ToDoubleIn(ToBytes(GetSetting(app, "Settings", key)), -32768,
                                            32767)
            .value_or(def);
    };
    int left = int(single("MainLeft", 0)), top = int(single("MainTop", 0));
    int w = int(single("MainWidth", screen.width() * 0.9));
    int hgt = int(single("MainHeight", screen.height() * 0.9));
    move(left, top);
    resize(std::max(w, kMinimumWidth), std::max(hgt, 100));

    LoadEditorSettings(Store(), ToBytes(app), g_EditorSettings());
    LoadPrintMargins(Store(), ToBytes(app), g_PrintMargins());

    auto flag = [&](const char* key, bool def) {
        return settings_convert::ToBool(ToBytes(GetSetting(app, "Settings", key))).value_or(def);
    };
    tbAdvanced->setVisible(flag("CompilerToolBar", true));
    picDOcInfo->setVisible(flag("CursorToolBar", true));
    tbEdit->setVisible(flag("EditToolBar", true));
    tbSearch->setVisible(flag("SearchToolBar", true));
    statusBar()->setVisible(flag("StatusBar", true));
    bool browserOpen = flag("FileBrowser", true), clipOpen = flag("ClipText", true);
    RestorePanes(browserOpen, clipOpen);
    LastDir = GetSetting(app, "Settings", "LastDir", QDir::homePath() + "/");

    for (int i = 1; i <= 5; ++i)
        RecentFiles[size_t(i)] = GetSetting(app, "Settings", QStringLiteral("RecentFile%1").arg(i));
    RefreshRecentFiles();

    Command("mnuViewBrowser")->setChecked(browserOpen);
    Command("mnuViewCliptext")->setChecked(clipOpen);
    for (auto [item, band] : {std::pair{"mnuViewToolbarsCompiler", tbAdvanced},
                              {"mnuViewToolbarsEdit", tbEdit},
                              {"mnuViewToolbarsSearch", tbSearch},
                              {"mnuViewToolbarsCursor", picDOcInfo}})
        Command(item)->setChecked(!band->isHidden());

    if (flag("First Load", true)) {
        SaveSetting(app, "Settings", "First Load", "False");
        setWindowState(windowState() | Qt::WindowMaximized);
    }
    CreateSyntaxAssocs();
    RefreshControls();
    batch.reset(); // before anything can show a message box and wait

    NewDocument();
    if (!commandLine.isEmpty()) LoadCommandLine(commandLine);
    loaded_ = true;
}

bool frmMain::Busy() const {
    if (!loaded_) return true;
    for (frmDocument* doc : Documents().OpenDocuments())
        if (doc->CodingInProgress()) return true;
    return false;
}

void frmMain::LoadCommandLine(const QString& commandLine) {
    QString name = FromBytes(StripQuotes(ToBytes(commandLine)));
    auto fail = [&](const QString& why) {
        cDialogs::Get().MsgBox("An error occurred while processing the file " +
                                   ShownText(commandLine) +
                                   ", specified in the command line.\r\n" + why,
                               MsgButtons::OK, MsgIcon::Exclamation, AppTitle());
    };
    if (IsWorkspaceName(ToBytes(name))) {
        // The "Untitled 1" document made before stays beside the loaded ones.
        QString error;
        if (!LoadWorkspace(name, true, &error)) fail(error);
        return;
    }
    frmDocument* doc = ActiveForm();
    if (!doc) return;
    QString error;
    if (!doc->rtfText->LoadFile(name, 1, &error)) return fail(error);
    if (g_EditorSettings().Backup && !doc->rtfText->SaveFile(name + "~", 1, &error))
        return fail(error);
    doc->SetCaption(FromBytes(FileNameOf(ToBytes(name))));
    SetTabCaption(doc->TabKey(), doc->Caption());
    doc->Tag = name;
    doc->RememberDiskFile();
    doc->Changed = false;
    CycleRecentFiles(name);
    doc->SetSyntax();
}

void frmMain::MDIForm_Unload() {
    if (unloaded_) return;
    unloaded_ = true;
    const QString app = AppTitle();
    SettingsStore::Batch batch(Store());
    if (!(windowState() & Qt::WindowMinimized)) {
        SaveSetting(app, "Settings", "MainLeft", QString::number(x()));
        SaveSetting(app, "Settings", "MainTop", QString::number(y()));
        SaveSetting(app, "Settings", "MainWidth", QString::number(width()));
        SaveSetting(app, "Settings", "MainHeight", QString::number(height()));
    }
    for (int i = 1; i <= 5; ++i)
        SaveSetting(app, "Settings", QStringLiteral("RecentFile%1").arg(i), RecentFiles[size_t(i)]);
    auto b = [](bool v) { return v ? QStringLiteral("True") : QStringLiteral("False"); };
    // isHidden, not isVisible: a band is "shown" even while the window itself is not.
    SaveSetting(app, "Settings", "CompilerToolBar", b(!tbAdvanced->isHidden()));
    SaveSetting(app, "Settings", "SearchToolBar", b(!tbSearch->isHidden()));
    SaveSetting(app, "Settings", "EditToolBar", b(!tbEdit->isHidden()));
    SaveSetting(app, "Settings", "CursorToolBar", b(!picDOcInfo->isHidden()));
    SaveSetting(app, "Settings", "StatusBar", b(!statusBar()->isHidden()));
    SaveSetting(app, "Settings", "FileBrowser", b(!picBrowser->RolledUp()));
    SaveSetting(app, "Settings", "ClipText", b(!picClipParent->RolledUp()));
    SaveSetting(app, "Settings", "LastDir", LastDir);
    if (sysTray) sysTray->SetInTray(false);
    SingleInstance::Stop();
}

void frmMain::closeEvent(QCloseEvent* e) {
    // The documents close first, each asking about unsaved changes; one that stays open
    // keeps the whole program open.
    for (frmDocument* doc : Documents().OpenDocuments()) {
        if (!doc->CloseWith(frmDocument::vbFormMDIForm)) {
            e->ignore();
            return;
        }
    }
    MDIForm_Unload();
    e->accept();
}

void frmMain::resizeEvent(QResizeEvent* e) {
    QMainWindow::resizeEvent(e);
    if (width() < kMinimumWidth && !(windowState() & Qt::WindowMinimized))
        resize(kMinimumWidth, height());
}

frmDocument* frmMain::ActiveForm() const {
    QMdiSubWindow* w = mdiArea->activeSubWindow();
    if (!w) w = mdiArea->currentSubWindow();
    return w ? qobject_cast<frmDocument*>(w->widget()) : nullptr;
}

void frmMain::ActivateDocument(frmDocument* doc) {
    if (QMdiSubWindow* w = doc ? doc->SubWindow() : nullptr) mdiArea->setActiveSubWindow(w);
}

QSize frmMain::DocumentAreaSize() const {
    QSize area = mdiArea->viewport()->size();
    // Before the main window is first shown its area has no size yet.
    if (area.width() < 200 || area.height() < 150)
        area = (size() - QSize(0, 160)).expandedTo(QSize(400, 300));
    return area;
}

void frmMain::RefreshStatus() {
    statusBar()->update();
}

void frmMain::RunCommand(const char* name) {
    if (QAction* a = Command(QString::fromLatin1(name))) a->trigger();
}

bool frmMain::SaveActiveDocument() {
    mnuFileSave_Click();
    frmDocument* doc = ActiveForm();
    return doc && !doc->Changed;
}

std::optional<QString> frmMain::CompletionFor(const QString& word) const {
    int i = GoClip(word);
    if (i < 0) return std::nullopt;
    return ClipEntry(i);
}

void frmMain::OnSubWindowActivated(QMdiSubWindow* w) {
    if (!w) return;
    auto* doc = qobject_cast<frmDocument*>(w->widget());
    if (!doc || w == lastActive_) return;
    lastActive_ = w;
    // Activation reaches the document from the event loop, after the command that made the
    // window has loaded its text, so that the first activation colours what was loaded.
    QPointer<frmDocument> guard(doc);
    QTimer::singleShot(0, this, [guard] {
        if (!guard) return;
        guard->Form_Activate();
        guard->Form_GotFocus();
    });
}

void frmMain::mnuFileExit_Click() {
    close();
}

void frmMain::mnuPrefsReset_Click() {
    if (cDialogs::Get().MsgBox("To reset Kestrum's settings, Kestrum must be restarted. Do you "
                               "wish to continue?",
                               MsgButtons::YesNo, MsgIcon::Question, "Confirm.") != MsgResult::Yes)
        return;
    // The close step then writes the window and layout keys into the emptied section, so
    // geometry, recent files and bars survive while editor keys and "First Load" do not.
    DeleteSetting(AppTitle(), "Settings");
    DeleteSetting(AppTitle(), "Syntax Associations");
    mnuFileExit_Click();
}

// ---------------------------------------------------------------- tabs

int frmMain::FindTab(const QString& key) const {
    for (int i = 0; i < tabFiles->count(); ++i)
        if (tabFiles->tabData(i).toString() == key) return i;
    return -1;
}

void frmMain::AddTab(const QString& key, const QString& caption) {
    int i = tabFiles->addTab(caption);
    tabFiles->setTabData(i, key);
}

void frmMain::RemoveTab(const QString& key) {
    if (int i = FindTab(key); i >= 0) tabFiles->removeTab(i);
    // Once the closing window has gone, the title names the next document, or none.
    QTimer::singleShot(0, this, [this] { UpdateTitle(); });
}

void frmMain::SetTabCaption(const QString& key, const QString& caption) {
    if (int i = FindTab(key); i >= 0) tabFiles->setTabText(i, caption);
    UpdateTitle();
}

void frmMain::UpdateTitle() {
    // The title names the document at work, as the task bar and window lists show it.
    frmDocument* doc = ActiveForm();
    setWindowTitle(doc ? doc->Caption() + " - " + AppTitle() : AppTitle());
}

void frmMain::SelectTab(const QString& key, const QString& toolTip) {
    UpdateTitle();
    if (int i = FindTab(key); i >= 0) {
        QSignalBlocker block(tabFiles);
        tabFiles->setCurrentIndex(i);
        tabFiles->setTabToolTip(i, toolTip);
    }
}

void frmMain::tabFiles_Click(int index) {
    if (index < 0) return;
    QString key = tabFiles->tabData(index).toString();
    for (frmDocument* doc : Documents().OpenDocuments()) {
        if (doc->TabKey() != key) continue;
        QMdiSubWindow* w = doc->SubWindow();
        if (!w) return;
        if (w->isMinimized()) w->showNormal();
        mdiArea->setActiveSubWindow(w);
        doc->rtfText->setFocus();
        return;
    }
}

// ---------------------------------------------------------------- status bar

void frmMain::SetPanelText(int panel, const QString& text) {
    if (panel >= 1 && panel <= 7) panels_[size_t(panel)]->setText(text);
}

void frmMain::SetPanelEnabled(int panel, bool enabled) {
    if (panel >= 1 && panel <= 7) panels_[size_t(panel)]->setEnabled(enabled);
}

QString frmMain::PanelText(int panel) const {
    return panel >= 1 && panel <= 7 ? panels_[size_t(panel)]->text() : QString();
}

void frmMain::SetDocInfo(const QString& text) {
    lblDocInfo->setText(text);
}
QString frmMain::DocInfo() const {
    return lblDocInfo->text();
}

void frmMain::PopupEditMenu(const QPoint& globalPos) {
    if (mnuEdit && !mnuEdit->isEmpty()) mnuEdit->popup(globalPos);
}
