#pragma once
// frmAssociateFiles: the user picks the extensions that the desktop is to open with this
// program; cRegistry writes the associations.
#include <QDialog>

class QListWidget;
class QPushButton;

class frmAssociateFiles : public QDialog {
    Q_OBJECT
  public:
    explicit frmAssociateFiles(QWidget* parent = nullptr);

    // Fills the list from the language table; failures leave what was listed.
    void Form_Load();
    // Warns that nothing is ever undone, then associates each selected extension.
    void cmdOK_Click();

    QListWidget* lstExtensions = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;
};

// The program's own path, as the associations name it.
QString ProgramPath();
