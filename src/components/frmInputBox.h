#pragma once
// frmInputBox: the prompt for one line of text. Only letters, digits, blanks and a few
// signs can be typed, which keeps the answer safe as a file name.
#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;

class frmInputBox : public QDialog {
    Q_OBJECT
  public:
    explicit frmInputBox(QWidget* parent = nullptr);

    // The typed text, or the empty string for Cancel (an empty OK looks the same).
    static QString Prompt(const QString& prompt, const QString& title, const QString& def,
                          QWidget* parent);
    // True for the characters that may be typed (and backspace, code 8).
    static bool AcceptsKey(int keyAscii);

    QLabel* lblCaption = nullptr;
    QLineEdit* txtResponse = nullptr;
    QPushButton* Command1 = nullptr; // OK
    QPushButton* Command2 = nullptr; // Cancel
    QString Tag;

  protected:
    bool eventFilter(QObject* o, QEvent* e) override;
};
