#include "profiles/KeywordPage.h"

#include "base/qt/AppGlobals.h"
#include "components/cDialogs.h"

#include <QGridLayout>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace {
const char* kListFilter = "Keyword Lists (*.kwd)|*.kwd|All Files (*.*)|*.*";
}

KeywordPage::KeywordPage(KeywordImportRule importRule, QWidget* parent)
    : QWidget(parent), rule_(importRule) {
    setAccessibleName("Keywords and Identifiers to Hightlight");
    tabKeywords = new QTabWidget(this);
    tabKeywords->setAccessibleName("tabKeywords");
    for (int i = 0; i < 3; ++i) {
        lstKeywords[size_t(i)] = new QListWidget(tabKeywords);
        QString caption = QStringLiteral("Keyword List %1").arg(i + 1);
        lstKeywords[size_t(i)]->setAccessibleName(caption);
        tabKeywords->addTab(lstKeywords[size_t(i)], caption);
        connect(lstKeywords[size_t(i)], &QListWidget::itemDoubleClicked, this,
                &KeywordPage::cmdRemove_Click);
    }
    auto button = [this](const char* caption) {
        auto* b = new QPushButton(caption, this);
        b->setAccessibleName(caption);
        return b;
    };
    cmdAdd = button("Add Keyword");
    cmdRemove = button("Remove Keyword");
    cmdClear = button("Clear List");
    cmdImport = button("Import Keyword Lists...");
    cmdExportList = button("Export Keyword Lists...");
    auto* buttons = new QVBoxLayout;
    for (QPushButton* b : {cmdAdd, cmdRemove, cmdClear, cmdImport, cmdExportList})
        buttons->addWidget(b);
    buttons->addStretch();
    auto* layout = new QGridLayout(this);
    layout->addWidget(tabKeywords, 0, 0);
    layout->addLayout(buttons, 0, 1);
    connect(cmdAdd, &QPushButton::clicked, this, &KeywordPage::cmdAdd_Click);
    connect(cmdRemove, &QPushButton::clicked, this, &KeywordPage::cmdRemove_Click);
    connect(cmdClear, &QPushButton::clicked, this, &KeywordPage::cmdClear_Click);
    connect(cmdImport, &QPushButton::clicked, this, &KeywordPage::cmdImport_Click);
    connect(cmdExportList, &QPushButton::clicked, this, &KeywordPage::cmdExportList_Click);
}

QListWidget* KeywordPage::Current() const {
    int i = std::clamp(tabKeywords->currentIndex(), 0, 2);
    return lstKeywords[size_t(i)];
}

void KeywordPage::cmdAdd_Click() {
    QString word = cDialogs::Get().InputPrompt("Enter the Keyword of Phrase to add to the list",
                                               "Add Keyword", QString());
    if (!word.isEmpty()) Current()->addItem(word);
}

void KeywordPage::cmdRemove_Click() {
    QListWidget* l = Current();
    if (l->currentRow() >= 0) delete l->takeItem(l->currentRow());
}

void KeywordPage::cmdClear_Click() {
    if (cDialogs::Get().MsgBox("Are you sure you want to clear this keyword list?",
                               MsgButtons::YesNo, MsgIcon::Question, "Confirm.") == MsgResult::Yes)
        Current()->clear();
}

KeywordEntries KeywordPage::Entries() const {
    KeywordEntries e;
    for (size_t i = 0; i < 3; ++i)
        for (int r = 0; r < lstKeywords[i]->count(); ++r)
            e[i].push_back(ToBytes(lstKeywords[i]->item(r)->text()));
    return e;
}

void KeywordPage::SetEntries(const KeywordEntries& entries) {
    for (size_t i = 0; i < 3; ++i) {
        lstKeywords[i]->clear();
        for (const auto& w : entries[i]) lstKeywords[i]->addItem(FromBytes(w));
    }
}

void KeywordPage::cmdExportList_Click() {
    FileDialogOptions o;
    o.save = true;
    o.title = "Export Keyword List";
    o.filter = kListFilter;
    o.defaultExt = "kwd";
    auto path = cDialogs::Get().FileDialog(o);
    if (!path || path->isEmpty()) return;
    KeywordLists lists;
    KeywordEntries e = Entries();
    for (size_t i = 0; i < 3; ++i) lists[i] = JoinKeywordList(e[i]);
    std::string error;
    if (!WriteKeywordListFile(ToBytes(*path), lists, error))
        cDialogs::Get().MsgBox("There was an error when trying to export the keyword file.\r\n" +
                                   FromBytes(error),
                               MsgButtons::OK, MsgIcon::Critical, "File I/O Error");
}

void KeywordPage::cmdImport_Click() {
    FileDialogOptions o;
    o.title = "Import Keyword List";
    o.filter = kListFilter;
    auto path = cDialogs::Get().FileDialog(o);
    if (!path || path->isEmpty()) return;
    KeywordLists lists;
    std::string error;
    const bool ok = ReadKeywordListFile(ToBytes(*path), lists, error, rule_);
    // The lists are split at the separator as the file gave them, entry by entry and
    // untrimmed: an imported entry stays as it stood in the file.
    KeywordEntries e;
    for (size_t i = 0; i < 3; ++i) {
        std::string_view s = lists[i];
        for (size_t at; (at = s.find(kKeywordSeparator)) != std::string_view::npos;
             s.remove_prefix(at + 1))
            e[i].emplace_back(s.substr(0, at));
    }
    SetEntries(e);
    if (!ok)
        cDialogs::Get().MsgBox("There was an error when trying to open the keyword file.\r\n" +
                                   FromBytes(error),
                               MsgButtons::OK, MsgIcon::Critical, "File I/O Error");
}
