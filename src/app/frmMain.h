#pragma once
// frmMain: the multiple-document main window. It owns the document area, the tab strip,
// the tool bars, the status bar and the side panes, and every command of the program
// arrives here first.
#include "components/cDialogs.h"

#include <QMainWindow>
#include <QPointer>
#include <QString>
#include <array>

class QComboBox;
class QLabel;
class QListWidget;
class QMdiArea;
class QMdiSubWindow;
class QMenu;
class QTabBar;
class QToolBar;
class QLocalServer;
class frmDocument;
class Subclass;
class cSysTray;

class frmMain : public QMainWindow {
    Q_OBJECT
  public:
    explicit frmMain(QWidget* parent = nullptr);
    ~frmMain() override;

    // The load step: reads every setting, builds the panes, makes one empty document and
    // opens what the command line names.
    void MDIForm_Load(const QString& commandLine);
    // The close step: writes the window and layout keys.
    void MDIForm_Unload();

    // The active document, or none.
    frmDocument* ActiveForm() const;

    // --- Tab strip, kept in step with the documents by slot key "Tab<n>" ---
    void AddTab(const QString& key, const QString& caption);
    void RemoveTab(const QString& key);
    int FindTab(const QString& key) const;
    void SetTabCaption(const QString& key, const QString& caption);
    void SelectTab(const QString& key, const QString& toolTip);

    // --- Status bar panels, numbered as the program refers to them ---
    // 1 messages, 2 selection, 3 position, 4 modified state, 5 "INS", 6 "CAPS", 7 "NUM".
    void SetPanelText(int panel, const QString& text);
    QString PanelText(int panel) const;
    void SetDocInfo(const QString& text);
    QString DocInfo() const;

    // --- Commands used by the documents ---
    void mnuFileSave_Click();
    void mnuFileExit_Click();
    // Clears the editor settings and the language table, then exits.
    void mnuPrefsReset_Click();
    void CycleRecentFiles(const QString& name);
    void RefreshRecentFiles();
    int GoClip(const QString& word) const;
    void mnuFormatIndent_Click();
    void mnuFormatUnindent_Click();
    void PopupEditMenu(const QPoint& globalPos);

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
    bool BrowserRolledUp = false;
    bool ClipRolledUp = false;
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
    void tabFiles_Click(int index);
    void OnSubWindowActivated(QMdiSubWindow* w);
    void LoadCommandLine(const QString& commandLine);

    std::array<QLabel*, 8> panels_{};
    QPointer<QMdiSubWindow> lastActive_;
    bool unloaded_ = false;
};

// The one main window of this process.
frmMain* MainForm();
