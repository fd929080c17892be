#pragma once
// frmFind ("Find"): the single-line search of the active document through its control's
// Find. Created at first use and only hidden afterwards, so that its texts, check boxes and
// history (the drop-down's list) last the run.
#include <QDialog>

class QCheckBox;
class QComboBox;
class QPushButton;

class frmFind : public QDialog {
    Q_OBJECT
  public:
    explicit frmFind(QWidget* parent = nullptr);

    // The one instance of the run.
    static frmFind& Instance();

    void cmdFind_Click();
    void cmdFindNext_Click();
    void cmdClose_Click();

    QComboBox* cboFind = nullptr;
    QCheckBox* chkWholeWord = nullptr;
    QCheckBox* chkCaseSensitive = nullptr;
    QPushButton* cmdFind = nullptr;
    QPushButton* cmdFindNext = nullptr;
    QPushButton* cmdClose = nullptr;

  private:
    // Steps shared by both buttons: search from SearchPosition, remember the text.
    void SearchFromPosition();
};

// Centred across the screen, its top at a fifth of the screen's height.
void PlaceSearchDialog(QWidget& dialog);
