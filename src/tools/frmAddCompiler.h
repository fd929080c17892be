#pragma once
// frmAddCompiler: the name, command line and directory of one tool. OK hides it; the caller
// reads the fields, and an empty txtName means Cancel.
#include <QDialog>

class QCheckBox;
class QLineEdit;
class QPushButton;

class frmAddCompiler : public QDialog {
    Q_OBJECT
  public:
    explicit frmAddCompiler(QWidget* parent);
    void cmdOK_Click();
    void cmdCancel_Click();
    void cmdBrowse_Click();

    QLineEdit* txtName = nullptr;
    QLineEdit* txtCommandLine = nullptr;
    QLineEdit* txtWorkingDir = nullptr;
    QCheckBox* chkShort = nullptr;
    QPushButton *cmdBrowse = nullptr, *cmdBrowse2 = nullptr, *cmdOK = nullptr,
                *cmdCancel = nullptr, *cmdHelp = nullptr;
};

// The browse of the tool dialogs: the chosen program's bare name goes to the command line and
// its folder to the directory (both of its short path with chkShort set).
void BrowseForProgram(const QString& filter, QCheckBox* chkShort, QLineEdit* commandLine,
                      QLineEdit* workingDir);
