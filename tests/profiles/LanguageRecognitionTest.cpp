#include "components/HelpSystem.h"
#include "profiles/ProfileSaving.h"
#include "profiles/core/ProfileFile.h"
#include "profiles/frmConfigAssocProfile.h"
#include "support/AppFixture.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <filesystem>

namespace {
struct LanguageRecognitionTest : AppFixture {
    void SetUp() override {
        AppFixture::SetUp();
        Start();
    }
    frmDocument* Named(const std::string& name) {
        frmDocument* doc = NewDocument();
        doc->Tag = QString::fromStdString(tmp.file(name));
        doc->SetSyntax();
        return doc;
    }
    static const std::string& List(frmDocument* d) { return d->Settings().Keywords[0]; }
};
} // namespace

// Which extension gives which profile is the resolver's, and what each profile colours the
// golden colourings'; here the window loads what the resolver names.
TEST_F(LanguageRecognitionTest, EachExtensionGetsItsLanguage) {
    frmDocument* sql = Named("x.sql");
    EXPECT_TRUE(sql->SyntaxLoaded());
    EXPECT_FALSE(List(sql).empty());
    // The profile's switches come with its lists: the global record is not case-sensitive.
    EXPECT_TRUE(Named("x.c")->Settings().CaseSensitive);
    frmDocument* txt = Named("notes.txt");
    EXPECT_TRUE(txt->SyntaxLoaded());
    EXPECT_TRUE(List(txt).empty() && txt->Settings().Delimiters[0].DelimiterStart.empty());

    g_EditorSettings().Keywords[0] = "global\xFF";
    frmDocument* unknown = Named("x.unknownext");
    EXPECT_FALSE(unknown->SyntaxLoaded());
    EXPECT_EQ(List(unknown), "global\xFF");

    // A window keeps the language it found.
    frmDocument* c = Named("y.c");
    c->Tag = Path("y.sql");
    c->SetSyntax();
    EXPECT_EQ(List(c), List(Named("x.c")));
    EXPECT_NE(List(c), List(sql));
}

TEST_F(LanguageRecognitionTest, AMissingProfileIsCreatedEmptyAndAMissingFolderIsAnError) {
    SaveSetting("Kestrum", "Syntax Associations", "ZZ", "Made Up Profile");
    frmDocument* d = Named("a.zz");
    EXPECT_TRUE(d->SyntaxLoaded());
    EXPECT_TRUE(List(d).empty());
    EXPECT_TRUE(FileExists(tmp.path() + "app/PROFILES/Made Up Profile"));

    std::filesystem::remove_all(tmp.path() + "app/PROFILES");
    dialogs.AnswerMsgBox(MsgResult::OK);
    frmDocument* e = Named("b.c");
    EXPECT_FALSE(e->SyntaxLoaded());
    ASSERT_EQ(dialogs.asked.size(), 1u);
    EXPECT_EQ(dialogs.asked[0].caption, "Error");
    EXPECT_TRUE(dialogs.asked[0].text.contains("\n\nTo remedy this problem"));
}

TEST_F(LanguageRecognitionTest, TheProfileBoxRecoloursTheActiveDocument) {
    EXPECT_GE(main->cboProfiles->count(), 55);
    frmDocument* d = Named("plain.txt");
    d->rtfText->SetText("SELECT x FROM t");
    main->cboProfiles->setCurrentText("SQL Default Profile");
    main->cboProfiles_Click();
    EXPECT_EQ(d->Settings().Keywords, g_SelectedProfile().Keywords);
    EXPECT_NE(d->rtfText->SlotAt(0), ColorSlot::Text);
}

TEST_F(LanguageRecognitionTest, TheAssociationDialogsEditTheTable) {
    frmConfigAssocProfile dlg;
    int rows = dlg.lstUtilities->count();
    EXPECT_EQ(dlg.lstUtilities->item(0)->text(), "ASP\t\tASP Default Profile");

    SetModalRunnerForTesting([](QDialog& d) {
        auto& add = static_cast<frmAddAssocProfile&>(d);
        QTest::keyClicks(add.txtComplete, "*.qq?");
        add.lstFiles->setCurrentRow(add.lstFiles->count() - 1);
        add.cmdOK_Click();
    });
    dlg.cmdAdd_Click();
    EXPECT_EQ(dlg.lstUtilities->count(), rows + 1);
    EXPECT_TRUE(dlg.lstUtilities->item(rows)->text().startsWith("qq\t\t"));

    // Remove passes the whole line as the key and so removes nothing.
    dlg.lstUtilities->setCurrentRow(0);
    dlg.cmdRemove_Click();
    EXPECT_EQ(Setting("ASP", "Syntax Associations"), "ASP Default Profile");

    SaveSetting("Kestrum", "Syntax Associations", "C", "Mine");
    dialogs.AnswerMsgBox(MsgResult::Yes);
    dlg.cmdReset_Click();
    EXPECT_EQ(Setting("C", "Syntax Associations"), "C and C++ Default Profile");
    EXPECT_EQ(Setting("qq", "Syntax Associations"), dlg.lstUtilities->item(rows)->text().mid(4));
}

TEST_F(LanguageRecognitionTest, HelpThatCannotBeWrittenSaysSo) {
    // No Help folder in this program folder, then one but no browser to show the page: both
    // are told in the same box, and the browser is not opened without a page.
    for (bool folder : {false, true}) {
        if (folder) std::filesystem::create_directories(tmp.path() + "app/Help");
        SetHelpOpenerForTesting([folder](const QString&) {
            EXPECT_TRUE(folder) << "browser opened";
            return false;
        });
        dialogs.AnswerMsgBox(MsgResult::OK);
        main->Command("mnuHelpContents")->trigger();
        ASSERT_EQ(dialogs.asked.size(), folder ? 2u : 1u);
        EXPECT_EQ(dialogs.asked.back().caption, "Kestrum Help SubSystem");
    }
    EXPECT_TRUE(dialogs.asked[1].text.contains("\r\n\r\nError : no program to show web pages"));
}

TEST_F(LanguageRecognitionTest, SavingAProfileAsksForANameAndBeforeOverwriting) {
    EditorSettings record = NewProfileRecord({"alpha\xFF", "", ""}, {}, true, false);
    dialogs.AnswerInput("");
    EXPECT_FALSE(SaveProfileAs(record)); // Cancel
    dialogs.AnswerInput("Mine");
    ASSERT_TRUE(SaveProfileAs(record));
    EXPECT_EQ(dialogs.asked.back().caption, "Export Settings as Profile");
    std::string path = tmp.path() + "app/PROFILES/Mine";
    EditorSettings back;
    EXPECT_EQ(ReadProfileFile(path, back).status, ProfileReadStatus::Complete);
    EXPECT_EQ(back.Keywords[0], "alpha\xFF");

    record.Keywords[0] = "beta\xFF";
    dialogs.AnswerInput("Mine").AnswerMsgBox(MsgResult::No);
    EXPECT_FALSE(SaveProfileAs(record));
    EXPECT_EQ(dialogs.asked.back().caption, "Confirm");
    ReadProfileFile(path, back);
    EXPECT_EQ(back.Keywords[0], "alpha\xFF");
    dialogs.AnswerInput("Mine").AnswerMsgBox(MsgResult::Yes);
    EXPECT_TRUE(SaveProfileAs(record));
    ReadProfileFile(path, back);
    EXPECT_EQ(back.Keywords[0], "beta\xFF");

    // A list too long for the file format is refused with a message (the file is untouched).
    record.Keywords[1] = std::string(70000, 'k');
    dialogs.AnswerInput("Mine").AnswerMsgBox(MsgResult::Yes).AnswerMsgBox(MsgResult::OK);
    EXPECT_FALSE(SaveProfileAs(record));
    EXPECT_EQ(dialogs.asked.back().caption, "File I/O Error");
}
