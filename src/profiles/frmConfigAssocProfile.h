#pragma once
// The language recognition dialogs: the table of extensions and their syntax profiles, and
// the dialog that adds or edits one row.
#include <QDialog>
#include <functional>

class QLineEdit;
class QListWidget;
class QPushButton;

class frmConfigAssocProfile : public QDialog {
    Q_OBJECT
  public:
    explicit frmConfigAssocProfile(QWidget* parent = nullptr);

    void UpdateList();
    void cmdAdd_Click();
    void cmdEdit_Click();
    void cmdRemove_Click();
    void cmdReset_Click();

    QListWidget* lstUtilities = nullptr;
    QPushButton* cmdAdd = nullptr;
    QPushButton* cmdEdit = nullptr;
    QPushButton* cmdRemove = nullptr;
    QPushButton* cmdReset = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdHelp = nullptr;

  protected:
    void keyReleaseEvent(QKeyEvent* e) override;
};

class frmAddAssocProfile : public QDialog {
    Q_OBJECT
  public:
    explicit frmAddAssocProfile(QWidget* parent = nullptr);

    void cmdOK_Click();

    QLineEdit* txtComplete = nullptr;
    QListWidget* lstFiles = nullptr; // the files of PROFILES/
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

  protected:
    bool eventFilter(QObject* o, QEvent* e) override;
};

// Shows a modal dialog; tests replace this to drive the dialog without an event loop.
void ShowModal(QDialog& dialog);
void SetModalRunnerForTesting(std::function<void(QDialog&)> runner);
