#pragma once
// frmCompareFiles: the modal dialog that names two files and the comparison's options, and
// opens a results window for them.
#include <QDialog>
#include <functional>

class QCheckBox;
class QLineEdit;
class QPushButton;
class frmComparison;

class frmCompareFiles : public QDialog {
    Q_OBJECT
  public:
    explicit frmCompareFiles(QWidget* parent = nullptr);

    QLineEdit* txtFirstFile = nullptr;
    QLineEdit* txtSecondFile = nullptr;
    QPushButton* BrowseButton1 = nullptr;
    QPushButton* BrowseButton2 = nullptr;
    QCheckBox* chkCaseSensitive = nullptr;
    QCheckBox* chkOpenFiles = nullptr;
    QCheckBox* chkShowDifferent = nullptr;
    QCheckBox* chkIgnoreBlanks = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;
    QPushButton* cmdHelp = nullptr;

    // Opens the two files as documents side by side; set by the main window.
    std::function<void(const QString& first, const QString& second)> openFilesForViewing;
    // The window that owns the results windows.
    QWidget* resultsOwner = nullptr;

    // The comparison: stores both paths, compares and shows a new results window (returned;
    // it deletes itself when closed). The dialog is then closed.
    frmComparison* cmdOK_Click();

  private:
    void Form_Load();
    void BrowseButton_Click(QLineEdit* box, const QString& title);
};
