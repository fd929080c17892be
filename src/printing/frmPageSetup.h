#pragma once
// Page Setup: the four print margins in centimetres and the black-and-white switch.
#include <QDialog>

class QCheckBox;
class QLineEdit;
class QPushButton;

class frmPageSetup : public QDialog {
    Q_OBJECT
  public:
    explicit frmPageSetup(QWidget* parent = nullptr);

    void cmdOK_Click();
    void cmdCancel_Click();
    void cmdHelp_Click();

    QLineEdit* txtTop = nullptr;
    QLineEdit* txtBottom = nullptr;
    QLineEdit* txtLeft = nullptr;
    QLineEdit* txtRight = nullptr;
    QCheckBox* chkBlackAndWhite = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;
    QPushButton* cmdHelp = nullptr;

  protected:
    bool eventFilter(QObject* o, QEvent* e) override;
};
