#pragma once
// frmNewFile: the New command's dialog. A blank document, or one that starts from a
// template of the template folder, whose listing is the catalogue.
#include <QDialog>
#include <QString>

class QListWidget;
class QListWidgetItem;
class QRadioButton;
class QPushButton;

class frmNewFile : public QDialog {
    Q_OBJECT
  public:
    // folder: the template folder, ending in '/'.
    explicit frmNewFile(const QString& folder, QWidget* parent = nullptr);

    // Fills the list from the folder; runs on every activation.
    void Form_Activate();
    // Makes the document asked for, then closes the dialog.
    void cmdOK_Click();
    void cmdCancel_Click();

    QRadioButton* optBlank = nullptr;
    QRadioButton* optTemplate = nullptr;
    QListWidget* lstTemplates = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

  protected:
    void showEvent(QShowEvent* e) override;

  private:
    QString folder_;
};
