#pragma once
// frmReplace ("Replace") and frmReplaceEx ("Extended Replace"): one logic with two faces,
// single-line boxes in the one and multi-line boxes in the other. The work happens after
// the dialog has hidden itself; a normal end unloads it, a Cancel of the prompt keeps it
// loaded (hidden) with its texts and settings for the next time.
#include <QDialog>

class QCheckBox;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;

class frmReplace : public QDialog {
    Q_OBJECT
  public:
    explicit frmReplace(QWidget* parent = nullptr) : frmReplace(false, parent) {}

    // The loaded instance, created when there is none.
    static frmReplace& Instance();
    // Whether an instance is loaded (it stays loaded only after a Cancel).
    static bool Loaded();

    void cmdReplace_Click();
    void cmdReplaceAll_Click();
    void cmdClose_Click();

    // The boxes' texts, with line breaks as CR LF.
    QString FindText() const;
    QString ReplaceWith() const;
    void SetFindText(const QString& text);
    void SetReplaceWith(const QString& text);

    // Single-line boxes in frmReplace, multi-line ones in frmReplaceEx.
    QLineEdit* txtFindLine = nullptr;
    QLineEdit* txtReplaceLine = nullptr;
    QPlainTextEdit* txtFindBox = nullptr;
    QPlainTextEdit* txtReplaceBox = nullptr;
    QCheckBox* chkCaseSensitive = nullptr;
    QCheckBox* chkAll = nullptr;
    QRadioButton* optEntireFile = nullptr;
    QRadioButton* optSelection = nullptr;
    QPushButton* cmdReplace = nullptr;
    QPushButton* cmdReplaceAll = nullptr;
    QPushButton* cmdClose = nullptr;

    // Escape and the window's close button are Cancel.
    void reject() override;

  protected:
    frmReplace(bool extended, QWidget* parent);

  private:
    void Unload();
};

class frmReplaceEx : public frmReplace {
    Q_OBJECT
  public:
    explicit frmReplaceEx(QWidget* parent = nullptr) : frmReplace(true, parent) {}
    static frmReplaceEx& Instance();
    static bool Loaded();
};
