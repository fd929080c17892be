#pragma once
// "Spaces to Tabs": asks how many spaces make a tab; the box starts at TabWidth and takes
// any key. Tag as in frmTabsToSpaces.
#include <QDialog>

class QLineEdit;
class QPushButton;

class frmSpacestoTabs : public QDialog {
    Q_OBJECT
  public:
    explicit frmSpacestoTabs(QWidget* parent = nullptr);
    QString Tag;
    QLineEdit* txtSpaces = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;
};
