#pragma once
// The window that stays up while a job prints: a line of text, the progress from 0 to 100,
// and a button that stops the job between pages.
#include <QWidget>

class QLabel;
class QProgressBar;
class QPushButton;

class frmPrinting : public QWidget {
    Q_OBJECT
  public:
    explicit frmPrinting(QWidget* owner);

    QLabel* lblMessage = nullptr;
    QProgressBar* ProgressBar = nullptr;
    QPushButton* cmdCancel = nullptr;

    bool CancelRequested() const { return cancelled_; }

  protected:
    void closeEvent(QCloseEvent* e) override;

  private:
    bool cancelled_ = false;
};
