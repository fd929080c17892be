#include "components/ColorButton.h"
#include "profiles/DelimiterRowsBox.h"
#include "profiles/KeywordPage.h"
#include "profiles/core/ProfileFile.h"
#include "profiles/frmConfigAssocProfile.h"
#include "profiles/frmCreateprofile.h"
#include "profiles/frmOptions.h"

#include "support/AppFixture.h"
#include "support/KeywordLists.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>

class ProfileDialogs : public AppFixture {
  protected:
    EditorSettings Stored() {
        EditorSettings s = EditorSettings::Defaults();
        LoadEditorSettings(Store(), "Kestrum", s);
        return s;
    }
};

TEST_F(ProfileDialogs, OptionsReachTheStoreOnOKAndNotOnCancel) {
    Start();
    EditorSettings& g = g_EditorSettings();
    g.Keywords[0] = KeywordList({"if", "while"});
    // Every colour box shows an entry, so unused rows come back as the first class.
    for (auto& d : g.Delimiters) d.DelimiterColor = 1;
    g.Delimiters[0] = {"//", "\r\n", 1};
    auto run = [&](bool ok, std::function<void(frmOptions&)> edit) {
        SetModalRunnerForTesting([&](QDialog& dlg) {
            auto& d = static_cast<frmOptions&>(dlg);
            d.show();
            EXPECT_EQ(d.keywords->lstKeywords[0]->count(), 2);
            EXPECT_EQ(d.delimiters->txtDelimEnd[0]->text(), "\\n");
            edit(d);
            (ok ? d.cmdOK : d.cmdCancel)->click();
        });
        main->Command("mnuPrefsEditorSetup")->trigger();
    };
    run(false, [](frmOptions& d) { d.chkWordWrap->setChecked(true); });
    EXPECT_EQ(Setting("WordWrap"), "<none>");

    EditorSettings want = g_EditorSettings();
    run(true, [this](frmOptions& d) {
        d.chkWordWrap->setChecked(true);
        d.optHardTabs->setChecked(true);
        d.txtTabWidth->setText("");
        QTest::keyClicks(d.txtTabWidth, "1x2"); // letters are refused
        d.lblKeywordColor[4]->ChooseCell(38);
        d.delimiters->txtDelimEnd[1]->setText("\\n");
        d.delimiters->txtDelimStart[1]->setText("'");
        d.delimiters->cboDelimColor[1]->setCurrentIndex(2);
        d.keywords->tabKeywords->setCurrentIndex(1);
        dialogs.AnswerInput("int");
        d.keywords->cmdAdd->click();
    });
    want.WordWrap = want.RealTabs = true;
    want.TabWidth = 12;
    want.KeywordColor[4] = RGB(255, 0, 0);
    want.Delimiters[1] = {"'", "\r\n", 3};
    want.Keywords[1] = KeywordList({"int"});
    want.KeywordCount = 3;
    EXPECT_EQ(g_EditorSettings(), want);
    EXPECT_EQ(Stored(), want);
    EXPECT_EQ(Setting("SysTray"), "1");
}

TEST_F(ProfileDialogs, SetColorsShowsTheColourPageAlone) {
    Start();
    SetModalRunnerForTesting([](QDialog& dlg) {
        auto& d = static_cast<frmOptions&>(dlg);
        EXPECT_EQ(d.tabs->currentIndex(), 3);
        for (int i = 0; i < d.tabs->count(); ++i) EXPECT_EQ(d.tabs->isTabEnabled(i), i == 3) << i;
        d.cmdCancel->click();
    });
    main->Command("mnuViewSetColors")->trigger();
}

TEST_F(ProfileDialogs, KeywordListsExportAndImport) {
    Start();
    frmOptions options;
    frmCreateprofile editor;
    const QString kwd = Path("lists.kwd");
    options.keywords->SetEntries({{{"if", "~tilde"}, {}, {"#x"}}});
    dialogs.AnswerFile(kwd);
    options.keywords->cmdExportList->click();
    struct Case {
        KeywordPage* page;
        std::vector<std::string> first;
    };
    for (const Case& c :
         std::vector<Case>{{options.keywords, {"if", "~tilde"}}, {editor.keywords, {"if"}}}) {
        c.page->SetEntries({{{"old"}, {"old"}, {"old"}}});
        dialogs.AnswerFile(kwd);
        c.page->cmdImport->click();
        KeywordEntries e = c.page->Entries();
        EXPECT_EQ(e[0], c.first);
        EXPECT_TRUE(e[1].empty());
        EXPECT_EQ(e[2], std::vector<std::string>{"#x"});
    }
    // An unreadable file: the lists are emptied and the box says why.
    dialogs.AnswerFile(Path("missing.kwd")).AnswerMsgBox(MsgResult::OK);
    options.keywords->cmdImport->click();
    EXPECT_TRUE(options.keywords->Entries()[0].empty());
    EXPECT_EQ(dialogs.asked.back().caption, "File I/O Error");
    dialogs.AnswerFile(std::nullopt); // Cancel is silent
    options.keywords->cmdExportList->click();
}

TEST_F(ProfileDialogs, ProfileEditorSavesWhatAProfileCarries) {
    Start();
    SetModalRunnerForTesting([this](QDialog& dlg) {
        auto& d = static_cast<frmCreateprofile&>(dlg);
        EXPECT_EQ(d.windowTitle(), "Create Syntax Profile");
        dialogs.AnswerInput("Rust");
        d.keywords->cmdAdd->click();
        d.delimiters->txtDelimStart[0]->setText("//");
        d.delimiters->txtDelimEnd[0]->setText("\\n");
        d.delimiters->cboDelimColor[2]->setCurrentIndex(2); // no start: stored as class 0
        d.chkCaseSensitive->setChecked(true);
        dialogs.AnswerInput("../escape"); // refused
        dialogs.AnswerMsgBox(MsgResult::OK);
        d.cmdOK->click();
        EXPECT_TRUE(d.isVisible() || d.result() != QDialog::Accepted);
        dialogs.AnswerInput("My Rust");
        d.cmdOK->click();
    });
    main->Command("mnuAdvancedNewProfile")->trigger();
    EXPECT_FALSE(FileExists(tmp.path() + "escape"));
    std::array<DelimiterPair, 8> delims;
    delims[0] = {"//", "\r\n", 1};
    EditorSettings want = NewProfileRecord({KeywordList({"Rust"}), "", ""}, delims, false, true);
    EditorSettings read;
    ASSERT_EQ(ReadProfileFile(tmp.path() + "app/PROFILES/My Rust", read).status,
              ProfileReadStatus::Complete);
    EXPECT_EQ(read, want);

    // Editing it again shows what was saved; Cancel writes nothing.
    dialogs.AnswerFile(Path("app/PROFILES/My Rust"));
    SetModalRunnerForTesting([](QDialog& dlg) {
        auto& d = static_cast<frmCreateprofile&>(dlg);
        EXPECT_EQ(d.windowTitle(), "Edit Existing Profile - [My Rust]");
        EXPECT_EQ(d.keywords->Entries()[0], std::vector<std::string>{"Rust"});
        EXPECT_EQ(d.delimiters->txtDelimEnd[0]->text(), "\\n");
        EXPECT_TRUE(d.chkCaseSensitive->isChecked());
        d.cmdCancel->click();
    });
    main->Command("mnuAdvancedEditProfile")->trigger();
}
