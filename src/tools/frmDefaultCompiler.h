#pragma once
// frmDefaultCompiler: the default compiler's line, directory and run flags.
#include <QDialog>

class QCheckBox;
class QLineEdit;
class QPushButton;

class frmDefaultCompiler : public QDialog {
    Q_OBJECT
  public:
    explicit frmDefaultCompiler(QWidget* parent);
    void cmdOK_Click();

    QLineEdit* txtCommandLine = nullptr;
    QLineEdit* txtWorkingDir = nullptr;
    QCheckBox *chkShort = nullptr, *chkCloseWindow = nullptr, *chkCaptureOutput = nullptr;
    QPushButton *cmdBrowse = nullptr, *cmdBrowse2 = nullptr, *cmdOK = nullptr,
                *cmdCancel = nullptr, *cmdHelp = nullptr;
};
