#pragma once
// "Insert Special Characters": collects characters of codes 160-255 and puts them in place
// of the active document's selection at one go.
#include <QDialog>

class QLineEdit;
class QListWidget;
class QPushButton;
class frmDocument;

class frmSpecialChar : public QDialog {
    Q_OBJECT
  public:
    explicit frmSpecialChar(frmDocument& doc, QWidget* parent = nullptr);

    QListWidget* lstChars = nullptr;
    QLineEdit* txtChars = nullptr;
    QPushButton* cmdAdd = nullptr;
    QPushButton* cmdClear = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

    void cmdAdd_Click();

  private:
    frmDocument& doc_;
};
