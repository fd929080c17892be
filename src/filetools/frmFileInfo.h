#pragma once
// frmFileInfo: a read-only view of what the file system says about a saved file: name, size,
// three dates and seven attributes.
#include <QDialog>
#include <array>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

class frmFileInfo : public QDialog {
    Q_OBJECT
  public:
    explicit frmFileInfo(QWidget* parent = nullptr);

    // Fills the dialog for the file at path; changed shows the note that the document has
    // unsaved changes.
    void updatestats(const QString& path, bool changed);

    QLineEdit* txtname = nullptr;
    QLineEdit* txtsize = nullptr;
    std::array<QLabel*, 3> lbldate{};       // created, last modified, last accessed
    std::array<QCheckBox*, 8> attributes{}; // 1 to 7 used, as the boxes are numbered
    QLabel* lblMod = nullptr;
    QPushButton* cmdOK = nullptr;

  protected:
    bool eventFilter(QObject* o, QEvent* e) override;
};
