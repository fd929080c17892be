#pragma once
// frmAbout: the program's name, version, copyright and disclaimer, with links to its web
// page and a mirror, and a button that starts the system's information tool.
#include <QDialog>

class QLabel;
class QPushButton;

// The addresses behind the About box's links and the Help menu's mail commands.
inline constexpr const char* kHomePage = "https://kestrum.example.org/";
inline constexpr const char* kMirrorPage = "https://mirror.kestrum.example.net/";
inline constexpr const char* kAuthorMail = "author@kestrum.example.org";

// "Version <major>.<minor>   Build <revision>".
QString VersionText(int major, int minor, int revision);
// The same for this program: its project version and build number.
QString ProgramVersionText();

class frmAbout : public QDialog {
    Q_OBJECT
  public:
    explicit frmAbout(QWidget* parent = nullptr);

    void cmdSysInfo_Click();
    // Starts the first system information tool found; false when none starts.
    static bool StartSysInfo();

    QLabel* lblTitle = nullptr;
    QLabel* lblVersion = nullptr;
    QLabel* lblCopyright = nullptr;
    QLabel* lblDisclaimer = nullptr;
    QLabel* Label5 = nullptr;     // the web page
    QLabel* lblMirror = nullptr;  // the mirror
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdSysInfo = nullptr;

  protected:
    bool eventFilter(QObject* o, QEvent* e) override;
};
