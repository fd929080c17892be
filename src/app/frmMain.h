#pragma once
// frmMain: the multiple-document main window. It owns the document area, the tab strip,
// the tool bars, the status bar and the side panes, and every command of the program
// arrives here first.
#include "components/cDialogs.h"
#include "editor/DocumentHost.h"

#include <QHash>
#include <QKeySequence>
#include <QList>
#include <QMainWindow>
#include <QPointer>
#include <QString>
#include <array>
#include <vector>

class QComboBox;
class QLabel;
class QBoxLayout;
class QListWidget;
class FlipPane;
class QMdiArea;
class QMdiSubWindow;
class QMenu;
class QTabBar;
class QToolBar;
class QLocalServer;
class QAction;
class frmDocument;
class FileView;
class Subclass;
class cSysTray;

class frmMain : public QMainWindow, public DocumentHost {
    Q_OBJECT
  public:
    explicit frmMain(QWidget* parent = nullptr);
    ~frmMain() override;

    // The load step: reads every setting, builds the panes, makes one empty document and
    // opens what the command line names.
    void MDIForm_Load(const QString& commandLine);
    // The close step: writes the window and layout keys.
    void MDIForm_Unload();
    // Still loading, or a document is being coloured: a close now would be refused or cut
    // a pass short, so a request to end waits for this to pass.
    bool Busy() const;

    // The active document, or none.
    frmDocument* ActiveForm() const;

    // --- The host of the document windows ---
    frmDocument* ActiveDocument() const override { return ActiveForm(); }
    void ActivateDocument(frmDocument* doc) override;
    QSize DocumentAreaSize() const override;
    void ShowSyntaxProfile(const QString& name) override;
    void RefreshStatus() override;
    void RunCommand(const char* name) override;
    bool SaveActiveDocument() override;
    std::optional<QString> CompletionFor(const QString& word) const override;

    // --- Tab strip, kept in step with the documents by slot key "Tab<n>" ---
    void AddTab(const QString& key, const QString& caption) override;
    void RemoveTab(const QString& key) override;
    int FindTab(const QString& key) const;
    void SetTabCaption(const QString& key, const QString& caption) override;
    void SelectTab(const QString& key, const QString& toolTip) override;

    // --- Status bar panels, numbered as the program refers to them ---
    // 1 messages, 2 selection, 3 position, 4 modified state, 5 "INS", 6 "CAPS", 7 "NUM".
    void SetPanelText(int panel, const QString& text) override;
    QString PanelText(int panel) const;
    void SetPanelEnabled(int panel, bool enabled) override;
    void SetDocInfo(const QString& text) override;
    QString DocInfo() const;

    // --- File commands (frmMainFile.cpp) ---
    void mnuFileOpen_Click();
    void mnuFileOpenHex_Click();
    void mnuFileOpenImage_Click();
    void mnuFileClose_Click();
    void mnuFileSave_Click();
    void mnuFileSaveAs_Click();
    void mnuFileSaveAll_Click();
    void mnuFileExportRTF_Click();
    void mnuFileExportUnix_Click();
    void mnuEditReload_Click();
    void mnuEditInsertFile_Click();
    void mnuEditAddFiletoStart_Click();
    void mnuEditAppendFile_Click();
    void mnuFileRecent_Click(int index);
    // The one road of a file into a new document: NewDocument, the text, the backup copy
    // when one is named, caption and tab, Tag, the recent list when asked, the profile, and
    // Changed cleared. Null when a step failed (the new window stays), the reason in *error.
    frmDocument* OpenFileInNewDocument(const QString& path, const QString& backup, bool addToRecent,
                                       QString* error) override;
    // Opens each dropped file in a document of its own; the first failure ends the list.
    void MDIForm_OLEDragDrop(const QStringList& files);
    // False when the file looks binary and the user chose not to open it.
    bool MayOpenAsText(const QString& path);
    frmDocument* LoadIntoNewDocument(const QString& path, const QString& backup, bool addToRecent,
                                     bool backupFirst, QString* error);
    void mnuFileExit_Click();
    // Clears the editor settings and the language table, then exits.
    void mnuPrefsReset_Click();

    // --- Edit, view, window and help commands (frmMainCommands.cpp) ---
    void mnuEditUndo_Click();
    void mnuEditCut_Click();
    void mnuEditCopy_Click();
    void mnuEditPaste_Click();
    void mnuEditPasteNew_Click();
    void mnuEditSelectAll_Click();
    void mnuEditToggleWrap_Click();
    void mnuViewToolbarsCompiler_Click();
    void mnuViewToolbarsEdit_Click();
    void mnuViewToolbarsSearch_Click();
    void mnuViewToolbarsCursor_Click();
    void mnuViewRefresh_Click();
    void mnuViewRefreshColors_Click();
    void mnuViewFileInfo_Click();
    void mnuViewOpenDef_Click();
    void mnuAdvancedOpenViewer_Click();
    void mnuPrefsRecog_Click();
    void mnuAdvancedAssoc_Click();
    void mnuWindowNewWindow_Click();
    void mnuWindowDuplicate_Click();
    void mnuWindowCascade_Click();
    void mnuWindowTileHorizontal_Click();
    void mnuWindowTileVertical_Click();
    void mnuWindowArrangeIcons_Click();
    void mnuWindowMinAll_Click();
    void mnuWindowResAll_Click();
    void mnuWindowCloseAll_Click();
    void mnuHelpContents_Click();
    void mnuFormatCommentBlock_Click();
    void cboProfiles_Click();

    // --- Text transforms and HTML assistants (frmMainTransforms.cpp) ---
    void mnuFormatIndent_Click();
    void mnuFormatUnindent_Click();
    void mnuFormatTrimTrailing_Click();
    void mnuFormatTrimPreceding_Click();
    void mnuFOrmatTrim_Click();
    void mnuFormatPageBreak_Click();
    void mnuFOrmatUpper_Click();
    void mnuFormatLower_Click();
    void mnuFormatCapSentence_Click();
    void mnuFormatTabsToSpaces_Click();
    void mnuFormatSpacestoTabs_Click();
    void mnuEditConvertToDOS_Click();
    void mnuEditConvertToUnix_Click();
    void mnuEditDeleteLine_Click();
    void mnuEditSelectLine_Click();
    void mnuEditDateTime_Click();
    void mnuFormatHTMLCompact_Click();
    void mnuFormatHTMLLoose_Click();
    void FormatHTMLIndented();
    void mnuFormatHTML_Click();
    void mnuEditInsertSpecialChars_Click();

    // --- Compilers, viewers, utilities and the DOS command (frmMainTools.cpp) ---
    void mnuAdvancedConfigure_Click();
    void mnuPrefsCompilerSetup_Click();
    void mnuConfigDefCompiler_Click();
    void mnuAdvancedRunCompiler_Click();
    void mnuAdvancedRunDefCompiler_Click();
    void mnuAdvancedDOSCmd_Click();
    void mnuUtilitiesConfig_Click();
    void mnuPrefsUtils_Click();
    void mnuUtilities_Click();
    void mnuUtilityCmds_Click(int index);
    void RefreshUtils();
    // Adds the hidden utility entries and their separator to the Utilities menu.
    void BuildUtilityItems();
    // Opens a file (or activates its open document) with the caret at line and column.
    void OpenToolLocation(const QString& path, int line, int column);
    std::array<QAction*, 21> mnuUtilityCmds{};
    QAction* UtilsSeparator = nullptr;

    // --- File tools: comparison, file information, the browser pane (frmMainFiles.cpp) ---
    void mnuFileCompare_Click();
    void BuildBrowserPane();
    void lstFiles_FileDblClick(const QString& path);
    void lstFiles_MouseUp(Qt::MouseButton button);
    void mnuBrowserOpen_Click();
    void mnuBrowserDefault_Click();
    void mnuBrowserHexEditor_Click();
    FileView* lstFiles = nullptr;
    QMenu* mnuBrowser = nullptr;

    // --- Search commands (frmMainSearch.cpp) ---
    void mnuSearchFind_Click();
    void mnuSearchFindNext_Click();
    void mnuSearchReplace_Click();
    void mnuSearchFindEx_Click();
    void mnuSearchFindInFiles_Click();
    void mnuSearchReplaceEx_Click();
    void mnuSearchFindPattern_Click();
    void mnuSearchGotoLine_Click();
    void mnuSearchGotoChar_Click();

    // --- Shared by the commands ---
    void CycleRecentFiles(const QString& name);
    void RefreshRecentFiles();
    void RefreshControls();
    void CreateSyntaxAssocs();
    void PopupEditMenu(const QPoint& globalPos) override;
    // The menu item of a command by its name ("mnuFileSave"); null when there is none.
    QAction* Command(const QString& name) const;
    // Every shortcut of the menus: the edit controls leave these keys to the menus.
    QList<QKeySequence> MenuShortcuts() const override;

    // --- Desktop integration and the small windows of the shell (frmMainDesktop.cpp) ---
    void mnuFileChDir_Click();
    void mnuAdvancedFileAssocs_Click();
    void mnuHelpAuthor_Click();
    void mnuHelpBugs_Click();
    void mnuHelpTipofDay_Click();
    void mnuHelpAbout_Click();
    // The start-up tip: the tip window, modal, while Options/"Show Tips at Startup" is not 0.
    void ShowStartupTip();
    // --- Print commands (frmMainPrinting.cpp) ---
    void mnuFilePrint_Click();
    void mnuFilePrinterSetup_Click();
    void mnuFilePageSetup_Click();

    // --- Editor options and the profile editor (frmMainOptions.cpp) ---
    void mnuPrefsEditorSetup_Click();
    void mnuViewSetColors_Click();
    void mnuAdvancedNewProfile_Click();
    void mnuAdvancedEditProfile_Click();

    // --- Requests from other processes and the window's focus (InterProcess.cpp) ---
    // The first step of loading: the watcher of the window's focus.
    void AttachSubclass();
    // One request from another process: an eight-character word and its argument.
    void Subclass_WndProc(const QByteArray& request);
    // The main window itself got the focus: it goes on to the active document.
    void Subclass_GotFocus();
    // Puts the focus in the active document's edit control, if there is a document.
    void FocusActiveDocument();

    // --- Tray icon and its menu (frmMainTray.cpp) ---
    // Puts the icon in the tray while "SysTray" is 1; makes the icon and its menu first.
    void LoadSysTray();
    void cSysTray_MouseDblClick(int button);
    void cSysTray_MouseUp(int button);
    void mnuHiddenShowKestrum_Click();
    void mnuHiddenCloseKestrum_Click();
    void mnuHiddenOpenFile_Click();
    void mnuHiddenHexEditFile_Click();

    // --- Workspaces, roll-up panes, templates and cliptext (frmMainWorkspace.cpp) ---
    void mnuAdvancedSaveProject_Click();
    void mnuAdvancedRestoreProject_Click();
    // Opens every document a workspace file lists, in its order. false at the first entry
    // that fails (its blank document stays), or at a read past the end after the last pair;
    // the reason in *error. From the command line the profile is always set.
    bool LoadWorkspace(const QString& path, bool fromCommandLine, QString* error);
    // Shows the New dialog: a blank document or one from a template.
    void mnuFileNew_Click();
    void mnuFileExportTPL_Click();
    void mnuFileExportClip_Click();
    void mnuViewBrowser_Click();
    void mnuViewCliptext_Click();
    void lstClipFiles_Click();
    void lstClip_DblClick();
    // Lists the libraries of the cliptext folder again.
    void RefreshClipFiles();
    // The first entry of the cliptext list that begins with the word, ignoring case; -1.
    int GoClip(const QString& word) const;
    // The whole text of an entry of the cliptext list.
    QString ClipEntry(int index) const;
    // Fills the cliptext list (and so the completion words) with these entries.
    void SetClipEntries(const QStringList& entries);
    QString TemplateFolder() const;
    QString ClipTextFolder() const;
    FlipPane* picBrowser = nullptr;
    FlipPane* picClipParent = nullptr;
    QWidget* picClip = nullptr;
    QListWidget* lstClipFiles = nullptr;

    Subclass* subclass = nullptr;
    cSysTray* sysTray = nullptr;
    QMenu* mnuHidden = nullptr; // the tray's popup

    QMdiArea* mdiArea = nullptr;
    QTabBar* tabFiles = nullptr;
    QComboBox* cboProfiles = nullptr;
    QLabel* lblOpenFiles = nullptr;
    QLabel* lblDocInfo = nullptr;
    QListWidget* lstClip = nullptr;
    QMenu* mnuEdit = nullptr;

    // The four bands of the cool bar that the View menu shows and hides.
    QToolBar* tbFile = nullptr;
    QToolBar* tbAdvanced = nullptr; // "Compiler"
    QToolBar* picDOcInfo = nullptr; // "Cursor"
    QToolBar* tbEdit = nullptr;     // "Edit"
    QToolBar* tbSearch = nullptr;   // "Search"

    std::array<QString, 6> RecentFiles; // 1 to 5 used
    QString LastDir;
    // The one common dialog of the file commands; what a command sets stays for the next.
    FileDialogOptions dlgCommonDialog;

    // The command line as this instance was started with it.
    QString CommandLine;

  protected:
    void closeEvent(QCloseEvent* e) override;
    void resizeEvent(QResizeEvent* e) override;

  private:
    void BuildWindow();
    void BuildMenus();
    void BuildToolbars();
    void BuildPanes(QBoxLayout* row);
    void RestorePanes(bool browserOpen, bool clipOpen);
    void tabFiles_Click(int index);
    void OnSubWindowActivated(QMdiSubWindow* w);
    void LoadCommandLine(const QString& commandLine);
    bool eventFilter(QObject* o, QEvent* e) override;
    void dragEnterEvent(QDragEnterEvent* e) override;
    void dropEvent(QDropEvent* e) override;
    void KeepWindowsInView();
    void RefreshLockPanels();
    void UpdateTitle();

    std::array<QLabel*, 8> panels_{};
    QHash<QString, QAction*> commands_;
    std::array<QAction*, 6> recentItems_{}; // 0 is the separator
    QPointer<QMdiSubWindow> lastActive_;
    bool unloaded_ = false;
    std::vector<QString> clipEntries_; // lstClip's entries, whole
    bool loaded_ = false;
};

// The one main window of this process.
frmMain* MainForm();
