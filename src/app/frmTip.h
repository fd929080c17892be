#pragma once
// frmTip: the tip of the day, stepping through the tips file from its first tip.
#include "app/core/TipFile.h"

#include <QDialog>

class QCheckBox;
class QLabel;
class QPushButton;

class frmTip : public QDialog {
    Q_OBJECT
  public:
    explicit frmTip(QWidget* parent = nullptr);

    void Form_Load();
    bool LoadTips(const QString& fileName);
    void DoNextTip();
    void DisplayCurrentTip();
    void cmdNextTip_Click() { DoNextTip(); }
    void chkLoadTipsAtStartup_Click();

    QLabel* lblTipText = nullptr;
    QCheckBox* chkLoadTipsAtStartup = nullptr;
    QPushButton* cmdNextTip = nullptr;
    QPushButton* cmdOK = nullptr;

  private:
    TipOfTheDay tips_;
};

// True while Options/"Show Tips at Startup" (default 1) is not 0.
bool ShowTipsAtStartup();
