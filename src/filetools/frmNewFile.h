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
    // dataFolder: the data folder of the templates ("template"); the user's templates and
    // the shipped ones are listed together.
    explicit frmNewFile(const QString& dataFolder, QWidget* parent = nullptr);

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
