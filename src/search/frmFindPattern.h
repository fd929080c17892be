#pragma once
// frmFindPattern ("Find Pattern"): search by a wildcard expression. Kept for the run like
// frmFind, with a history of its own; only the first character of a match is selected.
#include <QDialog>

class QComboBox;
class QPushButton;

class frmFindPattern : public QDialog {
    Q_OBJECT
  public:
    explicit frmFindPattern(QWidget* parent = nullptr);
    static frmFindPattern& Instance();

    void cmdFind_Click();
    void cmdFindNext_Click();
    void cmdClose_Click();

    QComboBox* cboFind = nullptr;
    QPushButton* cmdFind = nullptr;
    QPushButton* cmdFindNext = nullptr;
    QPushButton* cmdHelp = nullptr;
    QPushButton* cmdClose = nullptr;

  private:
    // FindPatternPos from SearchPosition; 0 or -1 when nothing was selected.
    int64_t SearchFromPosition();
};
