// The templates and cliptext libraries, against the test's own program folder.
#include "filetools/frmNewFile.h"
#include "support/AppTest.h"

#include <QListWidget>
#include <QRadioButton>
#include <QTimer>

struct LibraryTest : FileCommandsFixture {
    QStringList Items(QListWidget* l) {
        QStringList out;
        for (int i = 0; i < l->count(); ++i) out << l->item(i)->text();
        return out;
    }
    void ChooseLibrary(const QString& name) {
        main->RefreshClipFiles();
        auto found = main->lstClipFiles->findItems(name, Qt::MatchExactly);
        ASSERT_EQ(found.size(), 1) << name.toStdString();
        main->lstClipFiles->setCurrentItem(found.first());
        main->lstClipFiles_Click();
    }
};

TEST_F(LibraryTest, NewDocumentFromTheTemplateList) {
    tmp.write("app/template/C program", "int main(void)\n{\n}\n");
    tmp.write("app/template/tool.EXE", "MZ");
    struct Case {
        const char* choice; // empty: none selected
        bool useTemplate;
        std::string text;
    };
    const std::vector<Case> cases = {
        {"C program", true, "int main(void)\r\n{\r\n}\r\n"},
        {"C program", false, ""}, // blank chosen: the selection is not used
        {"tool", true, ""},       // a program entry cannot be read: empty document
        {"", true, ""},           // nothing selected: an empty document all the same
    };
    for (const Case& c : cases) {
        frmNewFile dlg("template", main.get());
        dlg.Form_Activate();
        ASSERT_EQ(Items(dlg.lstTemplates), (QStringList{"C program", "tool"}));
        if (*c.choice)
            dlg.lstTemplates->setCurrentItem(
                dlg.lstTemplates->findItems(c.choice, Qt::MatchExactly).first());
        (c.useTemplate ? dlg.optTemplate : dlg.optBlank)->setChecked(true);
        size_t before = OpenCount();
        dlg.cmdOK_Click();
        Settle();
        EXPECT_EQ(OpenCount(), before + 1) << c.choice;
        EXPECT_EQ(Text(Doc()), c.text) << c.choice;
        EXPECT_TRUE(Doc()->Tag.isEmpty());
        EXPECT_FALSE(Doc()->Changed);
    }
    // A missing folder lists nothing; Cancel through the menu makes nothing.
    frmNewFile none("nowhere", main.get());
    none.Form_Activate();
    EXPECT_EQ(none.lstTemplates->count(), 0);
    size_t before = OpenCount();
    QTimer::singleShot(0, [] {
        if (auto* d = qobject_cast<frmNewFile*>(QApplication::activeModalWidget()))
            d->cmdCancel_Click();
    });
    main->mnuFileNew_Click();
    EXPECT_EQ(OpenCount(), before);
}

TEST_F(LibraryTest, ExportsSaveTheActiveDocumentUnderTheGivenName) {
    Doc()->rtfText->SetText("first\n");
    dialogs.AnswerInput("Mine");
    main->mnuFileExportTPL_Click();
    EXPECT_EQ(Last().caption, "Save Template");
    EXPECT_EQ(ReadFileBytes(tmp.file("app/template/Mine")), "first\r\n");
    Doc()->rtfText->SetText("second\n");
    dialogs.AnswerInput("Mine"); // overwritten without a question
    main->mnuFileExportTPL_Click();
    EXPECT_EQ(ReadFileBytes(tmp.file("app/template/Mine")), "second\r\n");
    dialogs.AnswerInput(""); // Cancel
    main->mnuFileExportClip_Click();
    EXPECT_FALSE(FileExists(tmp.file("app/cliptext/")));
    dialogs.AnswerInput("Lib");
    main->mnuFileExportClip_Click();
    EXPECT_EQ(Last().caption, "Save Cliptext");
    EXPECT_EQ(Items(main->lstClipFiles), QStringList{"Lib"}); // listed at once
}

TEST_F(LibraryTest, SnippetsInsertAtTheCaretAndFeedCompletion) {
    tmp.write("app/cliptext/C", "printf(\"%d\\n\", x);\r\n   \r\nif (a) {\\n}\r\n  lead\r\n");
    ChooseLibrary("C");
    ASSERT_EQ(Items(main->lstClip),
              (QStringList{"printf(\"%d\\n\", x);", "if (a) {\\n}", "  lead"}));
    struct Case {
        int row;
        std::string result;
    };
    const std::vector<Case> cases = {
        {1, "<if (a) {\r\n}>"}, // the row behind a left-out blank line
        {-1, "<>"},             // nothing selected: nothing inserted
    };
    for (const Case& c : cases) {
        Doc()->rtfText->SetText("<>");
        Doc()->rtfText->SetSelStart(1);
        main->lstClip->setCurrentRow(c.row);
        main->lstClip_DblClick();
        EXPECT_EQ(Text(Doc()), c.result) << c.row;
    }
    EXPECT_EQ(main->GoClip("PRIN"), 0);
    EXPECT_EQ(main->GoClip("zzz"), -1);
    // Another library replaces the list, and an empty one empties it.
    tmp.write("app/cliptext/empty", "");
    ChooseLibrary("empty");
    EXPECT_EQ(main->lstClip->count(), 0);
}

TEST_F(LibraryTest, AHugeSnippetIsShownShortAndKeptWhole) {
    std::string huge(5 << 20, 'w');
    tmp.write("app/cliptext/big", "small\r\n" + huge + "\r\n");
    ChooseLibrary("big");
    ASSERT_EQ(main->lstClip->count(), 2);
    EXPECT_LT(main->lstClip->item(1)->text().size(), 10000);
    EXPECT_EQ(main->ClipEntry(1).size(), qsizetype(huge.size()));
    EXPECT_EQ(main->GoClip("www"), 1);
}

// An installed copy: the shipped templates and libraries are listed beside the user's own,
// and what the user saves goes to the user's folder, never into the program's.
TEST_F(LibraryTest, AnInstalledCopyReadsBothFoldersAndWritesTheUsers) {
    const std::string shipped = tmp.path() + "usr/share/kestrum/", user = tmp.path() + "home/";
    tmp.write("usr/share/kestrum/template/Shipped", "shipped\n");
    tmp.write("usr/share/kestrum/cliptext/Snippets", "from shipped\r\n");
    tmp.write("home/template/.Mine.swp", "editor leftover");
    SetDataFoldersForTesting(QString::fromStdString(shipped), QString::fromStdString(user));
    Doc()->rtfText->SetText("mine\n");
    dialogs.AnswerInput("Mine");
    main->mnuFileExportTPL_Click();
    dialogs.AnswerInput("Own");
    main->mnuFileExportClip_Click();
    EXPECT_EQ(ReadFileBytes(user + "template/Mine"), "mine\r\n");
    EXPECT_EQ(ReadFileBytes(user + "cliptext/Own"), "mine\r\n");
    EXPECT_FALSE(FileExists(shipped + "template/Mine"));

    frmNewFile dlg("template", main.get());
    dlg.Form_Activate();
    EXPECT_EQ(Items(dlg.lstTemplates), (QStringList{"Mine", "Shipped"}));
    dlg.lstTemplates->setCurrentRow(1);
    dlg.optTemplate->setChecked(true);
    dlg.cmdOK_Click();
    Settle();
    EXPECT_EQ(Text(Doc()), "shipped\r\n");
    EXPECT_EQ(Items(main->lstClipFiles), (QStringList{"Own", "Snippets"}));
    ChooseLibrary("Snippets");
    EXPECT_EQ(main->ClipEntry(0), "from shipped");
}
