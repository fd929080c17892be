#pragma once
// "Convert Tabs to Spaces": asks how many spaces each tab becomes. Tag is "NC" after OK and
// empty after Cancel; both only hide the dialog, so that the caller can read the box.
#include <QDialog>

class QLineEdit;
class QPushButton;

class frmTabsToSpaces : public QDialog {
    Q_OBJECT
  public:
    explicit frmTabsToSpaces(QWidget* parent = nullptr);
    QString Tag;
    QLineEdit* txtSpaces = nullptr; // digits only
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;
};
