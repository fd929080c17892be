#pragma once
// The keyword page that the options dialog and the profile editor share: three lists on
// tabs with the buttons to add, remove, clear, import and export.
#include "profiles/core/KeywordListFile.h"
#include "profiles/core/OptionsTranslation.h"

#include <QWidget>
#include <array>

class QListWidget;
class QPushButton;
class QTabWidget;

class KeywordPage : public QWidget {
    Q_OBJECT
  public:
    KeywordPage(KeywordImportRule importRule, QWidget* parent = nullptr);

    QTabWidget* tabKeywords = nullptr;
    std::array<QListWidget*, 3> lstKeywords{};
    QPushButton* cmdAdd = nullptr;
    QPushButton* cmdRemove = nullptr;
    QPushButton* cmdClear = nullptr;
    QPushButton* cmdImport = nullptr;
    QPushButton* cmdExportList = nullptr;

    void cmdAdd_Click();
    void cmdRemove_Click();
    void cmdClear_Click();
    void cmdImport_Click();
    void cmdExportList_Click();

    KeywordEntries Entries() const;
    void SetEntries(const KeywordEntries& entries);

  private:
    QListWidget* Current() const;
    KeywordImportRule rule_;
};
