#pragma once
// frmConfigUtilities and frmAddUtility: the user's list of up to 20 programs of the
// Utilities menu.
#include <QDialog>

class QLineEdit;
class QListWidget;
class QPushButton;

class frmAddUtility : public QDialog {
    Q_OBJECT
  public:
    explicit frmAddUtility(QWidget* parent);
    void cmdOK_Click();
    void cmdBrowse_Click();
    QLineEdit* txtName = nullptr;
    QLineEdit* txtCommandLine = nullptr;
    QPushButton *cmdBrowse = nullptr, *cmdOK = nullptr, *cmdCancel = nullptr;
};

class frmConfigUtilities : public QDialog {
    Q_OBJECT
  public:
    explicit frmConfigUtilities(QWidget* parent);
    void UpdateList();
    void cmdAdd_Click();
    void cmdEdit_Click();
    void cmdRemove_Click();

    QListWidget* lstUtilities = nullptr;
    QPushButton *cmdAdd = nullptr, *cmdEdit = nullptr, *cmdRemove = nullptr, *cmdOK = nullptr;

  private:
    void Store(frmAddUtility& dlg);
};
