#pragma once
// frmChDir: sets the process's current folder, which the configured tools run in.
#include <QDialog>
#include <QListWidget>

class QComboBox;
class QLabel;
class QPushButton;

// The folder list: ".." and the subfolders of its path; a double click goes into one.
class DirListBox : public QListWidget {
    Q_OBJECT
  public:
    explicit DirListBox(QWidget* parent = nullptr);
    QString Path() const { return path_; }
    // False, with the path unchanged, for a folder that cannot be listed.
    bool SetPath(const QString& path);

  private:
    QString path_;
};

// The drives: the root, the home folder and what is mounted under /media, /mnt and
// /run/media/<user>.
QStringList DriveList();

class frmChDir : public QDialog {
    Q_OBJECT
  public:
    explicit frmChDir(QWidget* parent = nullptr);

    void Form_Activate();
    void lstDrives_Change();
    void cmdOK_Click();

    QLabel* lblCurrentDir = nullptr;
    QComboBox* lstDrives = nullptr;
    DirListBox* lstDirs = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;
    QPushButton* cmdHelp = nullptr;

  protected:
    void showEvent(QShowEvent* e) override;
    void keyReleaseEvent(QKeyEvent* e) override;
};
