#pragma once
// Create Syntax Profile: edits what a profile really carries (keywords, delimiters, the
// coding order and case) and saves it under a name in PROFILES/.
#include <QDialog>
#include <functional>

class DelimiterRowsBox;
class KeywordPage;
class QCheckBox;
class QPushButton;
struct EditorSettings;

class frmCreateprofile : public QDialog {
    Q_OBJECT
  public:
    explicit frmCreateprofile(QWidget* parent = nullptr);

    // Fills the dialog from a profile read for editing, and names it in the caption.
    void LoadRecord(const EditorSettings& record, const QString& bareName);
    void cmdOK_Click();
    void cmdCancel_Click();

    // Run after a profile was saved, so that the main window refreshes its profile list.
    std::function<void()> onSaved;

    KeywordPage* keywords = nullptr;
    DelimiterRowsBox* delimiters = nullptr;
    QCheckBox* chkCodeOrder = nullptr;
    QCheckBox* chkCaseSensitive = nullptr;
    QPushButton *cmdOK = nullptr, *cmdCancel = nullptr, *cmdHelp = nullptr;
};
