#pragma once
// frmFindEx ("Extended Find"): a multi-line search text, looked for in the document's whole
// text as a string, so that it may span lines. Unloaded when closed.
#include <QDialog>

class QCheckBox;
class QPlainTextEdit;
class QPushButton;

class frmFindEx : public QDialog {
    Q_OBJECT
  public:
    explicit frmFindEx(QWidget* parent = nullptr);

    void cmdFind_Click();
    void cmdFindNext_Click();
    void cmdClose_Click();

    QPlainTextEdit* txtFind = nullptr;
    QCheckBox* chkCaseSensitive = nullptr;
    QPushButton* cmdFind = nullptr;
    QPushButton* cmdFindNext = nullptr;
    QPushButton* cmdClose = nullptr;

  private:
    // Steps 3 to 5 of cmdFind: from SearchPosition (1-based) through the whole text.
    void SearchFromPosition();
};
