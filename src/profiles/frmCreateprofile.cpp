#include "profiles/frmCreateprofile.h"

#include "components/HelpSystem.h"
#include "profiles/DelimiterRowsBox.h"
#include "profiles/KeywordPage.h"
#include "profiles/ProfileSaving.h"
#include "profiles/core/OptionsTranslation.h"
#include "profiles/core/ProfileFile.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

frmCreateprofile::frmCreateprofile(QWidget* parent) : QDialog(parent) {
    setWindowTitle("Create Syntax Profile");
    setAccessibleName(windowTitle());
    auto* tabs = new QTabWidget(this);
    keywords = new KeywordPage(KeywordImportRule::CreateProfile);
    tabs->addTab(keywords, "Keywords");
    auto* delimPage = new QWidget;
    auto* dl = new QVBoxLayout(delimPage);
    delimiters = new DelimiterRowsBox;
    const char* order =
        "Code Keywords first, then delimiters (leave unchecked to code delimiters first.)";
    chkCodeOrder = new QCheckBox(order);
    chkCodeOrder->setAccessibleName(order);
    chkCaseSensitive = new QCheckBox("Case Sensitive Color Coding");
    chkCaseSensitive->setAccessibleName(chkCaseSensitive->text());
    dl->addWidget(delimiters);
    dl->addWidget(chkCodeOrder);
    dl->addWidget(chkCaseSensitive);
    tabs->addTab(delimPage, "Delimiters");
    for (int i = 0; i < tabs->count(); ++i) tabs->widget(i)->setAccessibleName(tabs->tabText(i));
    delimiters->SelectFirstEntries();

    cmdOK = new QPushButton("Save");
    cmdCancel = new QPushButton("Cancel");
    cmdHelp = new QPushButton("Help");
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    for (QPushButton* b : {cmdOK, cmdCancel, cmdHelp}) {
        b->setAccessibleName(b->text());
        buttons->addWidget(b);
    }
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs);
    layout->addLayout(buttons);
    connect(cmdOK, &QPushButton::clicked, this, &frmCreateprofile::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmCreateprofile::cmdCancel_Click);
    connect(cmdHelp, &QPushButton::clicked, this, [] { ShowHelpTopic("util_editor_options"); });
}

void frmCreateprofile::LoadRecord(const EditorSettings& record, const QString& bareName) {
    KeywordEntries e;
    for (size_t i = 0; i < 3; ++i) e[i] = SplitKeywordList(record.Keywords[i]);
    keywords->SetEntries(e);
    chkCodeOrder->setChecked(record.CodeOrder);
    chkCaseSensitive->setChecked(record.CaseSensitive);
    delimiters->SetRows(RowsFromDelimiters(record.Delimiters));
    setWindowTitle("Edit Existing Profile - [" + bareName + "]");
    setAccessibleName(windowTitle());
}

void frmCreateprofile::cmdOK_Click() {
    std::array<std::string, 3> lists;
    const KeywordEntries e = keywords->Entries();
    for (size_t i = 0; i < 3; ++i) lists[i] = JoinKeywordList(e[i]);
    const EditorSettings record =
        NewProfileRecord(lists, DelimitersFromRows(delimiters->Rows(), true),
                         chkCodeOrder->isChecked(), chkCaseSensitive->isChecked());
    if (!SaveProfileAs(record)) return;
    if (onSaved) onSaved();
    accept();
}

void frmCreateprofile::cmdCancel_Click() {
    reject();
}
