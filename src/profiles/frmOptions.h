#pragma once
// Editor Options: the global settings record in a tabbed dialog, and the way to apply a
// profile to it or export it as one. What happens to open documents on OK is left to the
// caller (onApplied), which knows the windows.
#include "profiles/core/OptionsTranslation.h"

#include <QDialog>
#include <array>
#include <functional>

class ColorButton;
class DelimiterRowsBox;
class KeywordPage;
class QCheckBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;
class QTabWidget;

class frmOptions : public QDialog {
    Q_OBJECT
  public:
    explicit frmOptions(QWidget* parent = nullptr);

    void UpdateDisplayElements();
    void TranslateSettings();
    void RefreshProfiles();
    void cmdChooseFont_Click();
    void cmdApplyProfile_Click();
    void cmdExportProfile_Click();
    void cmdOK_Click();
    void cmdCancel_Click();

    // The dialog's controls as one value, and back.
    OptionsDialogValues Values() const;
    void SetValues(const OptionsDialogValues& v);

    // Run after OK has stored the settings (the documents take them) and after Cancel.
    std::function<void(bool accepted)> onClosed;
    // The tray icon takes the box's state at once.
    std::function<void(bool inTray)> onSysTray;

    QTabWidget* tabs = nullptr;
    QCheckBox *chkAutoBracer = nullptr, *chkBackup = nullptr, *chkAutoCode = nullptr;
    QCheckBox *chkWordWrap = nullptr, *chkAutoComplete = nullptr, *chkSysTray = nullptr;
    QCheckBox *chkCaseSensitive = nullptr, *chkCodeOrder = nullptr;
    QRadioButton *optHardTabs = nullptr, *optSoftTabs = nullptr;
    QLineEdit* txtTabWidth = nullptr;
    QPushButton* cmdChooseFont = nullptr;
    QLabel* lblFontPreview = nullptr;
    std::array<ColorButton*, 6> lblKeywordColor{};
    ColorButton* lblTextColor = nullptr;
    ColorButton* lblBGColor = nullptr;
    KeywordPage* keywords = nullptr;
    DelimiterRowsBox* delimiters = nullptr;
    QListWidget* lstProfiles = nullptr;
    QPushButton *cmdApplyProfile = nullptr, *cmdExportProfile = nullptr;
    QPushButton *cmdOK = nullptr, *cmdCancel = nullptr, *cmdHelp = nullptr;

  private:
    // The stored colour values as shown: a system colour code stays a code unless changed.
    std::array<int32_t, 8> shown_{};
    int32_t ColorValue(const ColorButton* b, size_t slot) const;

  protected:
    void showEvent(QShowEvent* e) override;
    bool eventFilter(QObject* o, QEvent* e) override;
    void keyReleaseEvent(QKeyEvent* e) override;
};
