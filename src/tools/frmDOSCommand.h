#pragma once
// frmDOSCommand: one command line, macros expanded in their quoting form, run in a console
// that stays open. The form stays loaded between uses and keeps the expanded line.
#include <QDialog>

class QCheckBox;
class QLineEdit;
class QPushButton;

class frmDOSCommand : public QDialog {
    Q_OBJECT
  public:
    explicit frmDOSCommand(QWidget* parent);
    // docPath: the active document's Tag; null when no document is active.
    void SetDocument(const QString& docPath) { docPath_ = docPath; }
    void ValidateCommandLine();
    void cmdOK_Click();

    QLineEdit* txtCommandLine = nullptr;
    QLineEdit* txtWorkingDir = nullptr;
    QCheckBox* chkShort = nullptr;
    QPushButton *cmdBrowse = nullptr, *cmdBrowse2 = nullptr, *cmdOK = nullptr,
                *cmdCancel = nullptr, *cmdHelp = nullptr;

  private:
    QString docPath_;
};
