#pragma once
// frmRunCompiler: picks a configured tool, lets its line be edited, and runs it on the
// active document's file.
#include <QDialog>
#include <functional>

class QCheckBox;
class QLineEdit;
class QListWidget;
class QPushButton;

class frmRunCompiler : public QDialog {
    Q_OBJECT
  public:
    // docPath: the active document's Tag. openLocation: how the output window opens files.
    frmRunCompiler(const QString& docPath,
                   std::function<void(const QString&, int, int)> openLocation, QWidget* parent);

    void Form_Load();
    void Form_Activate();
    void lstCompilers_Click();
    void ValidateCmdLine();
    void cmdOK_Click();

    QListWidget* lstCompilers = nullptr;
    QLineEdit* txtCmdLine = nullptr;
    QLineEdit* txtRunDir = nullptr;
    QCheckBox* chkCaptureOutput = nullptr;
    QCheckBox* chkCloseWindow = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

  protected:
    void showEvent(QShowEvent* e) override;

  private:
    QString docPath_;
    std::function<void(const QString&, int, int)> openLocation_;
};

// Shows the capture window modally, following this instance's capture file.
void ShowCompilerOutput(const QString& docPath,
                        const std::function<void(const QString&, int, int)>& openLocation,
                        QWidget* parent);
// The value of "CompilerString", read once and written back unchanged on every run.
QString& CompilerString();
