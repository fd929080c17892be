#pragma once
// frmConfigCompilers: the list of configured compilers and viewers, and the default compiler.
#include <QDialog>

class QListWidget;
class QPushButton;

class frmConfigCompilers : public QDialog {
    Q_OBJECT
  public:
    explicit frmConfigCompilers(QWidget* parent);
    void UpdateList();
    void cmdAdd_Click();
    void cmdEdit_Click();
    void cmdRemove_Click();
    void cmdSetDefault_Click();

    QListWidget* lstUtilities = nullptr;
    QPushButton *cmdAdd = nullptr, *cmdEdit = nullptr, *cmdRemove = nullptr,
                *cmdSetDefault = nullptr, *cmdHelp = nullptr, *cmdOK = nullptr;

  private:
    QString Selected() const;
    // Shows the edit dialog (filled for an edit) and stores what it returns.
    void EditTool(const QString& name);
};
