#include "app/CommandTable.h"
#include "components/FlipPane.h"
#include "support/AppTest.h"

#include <QClipboard>
#include <QMenuBar>
#include <QTabBar>
#include <QToolBar>

namespace {
struct MenuCommandsTest : FileCommandsFixture {
    QStringList RecentCaptions() {
        QStringList out;
        for (int i = 1; i <= 5; ++i) {
            QAction* a = main->findChild<QAction*>(QStringLiteral("mnuFileRecent%1").arg(i));
            out << (a->isVisible() ? a->text() : QStringLiteral("-"));
        }
        return out;
    }
};
} // namespace

TEST_F(MenuCommandsTest, TheMenuBarFollowsTheTable) {
    QStringList bar;
    for (QAction* a : main->menuBar()->actions()) bar << a->text();
    EXPECT_EQ(bar, (QStringList{"&File", "&Edit", "&Search", "Fo&rmat", "&View", "&Advanced",
                                "&Utilities", "&Window", "&Help"}));
    for (const MenuEntry& e : MenuTable()) {
        QAction* a = main->Command(e.name);
        ASSERT_TRUE(a) << e.name;
        EXPECT_EQ(a->text(), e.caption) << e.name;
        if (*e.shortcut) {
            EXPECT_EQ(a->shortcut(), QKeySequence(QString::fromLatin1(e.shortcut))) << e.name;
        }
    }
}

TEST_F(MenuCommandsTest, EditCommandsActOnTheActiveDocument) {
    Edit()->SetText("first line\r\nsecond\r\nthird");
    Edit()->SetSelStart(14);
    Run("mnuEditSelectLine");
    EXPECT_EQ(Edit()->SelText(), "second");
    main->findChild<QAction*>("tbEdit:Copy")->trigger(); // a button is its menu item
    EXPECT_EQ(QApplication::clipboard()->text(), "second");
    QApplication::clipboard()->clear();
    Run("mnuEditCut");
    EXPECT_EQ(QApplication::clipboard()->text(), "second");
    EXPECT_EQ(Edit()->Text(), "first line\r\n\r\nthird");
    Run("mnuEditUndo");
    EXPECT_EQ(Edit()->Text(), "first line\r\nsecond\r\nthird");
    Edit()->SetSelStart(2);
    Run("mnuEditDeleteLine");
    EXPECT_EQ(Edit()->Text(), "second\r\nthird");
    Run("mnuEditSelectAll");
    EXPECT_EQ(Edit()->SelLength(), 13);
    Edit()->SetSelStart(0);
    Run("mnuEditDateTime");
    EXPECT_GT(Edit()->TextLength(), 13);

    QApplication::clipboard()->setText("from the clipboard");
    Run("mnuEditPasteNew");
    EXPECT_EQ(Documents().OpenDocuments().size(), 2u);
    EXPECT_EQ(Edit()->Text(), "from the clipboard");
    EXPECT_EQ(main->ActiveForm()->Caption(), "Untitled 2");
}

TEST_F(MenuCommandsTest, NothingHappensWithoutADocument) {
    main->ActiveForm()->CloseWith(frmDocument::vbFormCode);
    Settle();
    ASSERT_EQ(main->ActiveForm(), nullptr);
    for (const char* name :
         {"mnuEditUndo", "mnuEditCut", "mnuEditCopy", "mnuEditPaste", "mnuEditSelectLine",
          "mnuEditSelectAll", "mnuEditDateTime", "mnuEditDeleteLine", "mnuEditToggleWrap",
          "mnuViewRefreshColors", "mnuViewFileInfo", "mnuWindowDuplicate", "mnuFormatIndent",
          "mnuFormatUnindent", "mnuFormatCommentBlock", "mnuWindowCloseAll"})
        Run(name);
    EXPECT_TRUE(dialogs.asked.empty());
    Run("mnuWindowNewWindow");
    EXPECT_EQ(Documents().OpenDocuments().size(), 1u);
}

TEST_F(MenuCommandsTest, RecentFilesCycleFiveSlots) {
    EXPECT_EQ(RecentCaptions(), (QStringList{"-", "-", "-", "-", "-"}));
    for (int i = 1; i <= 5; ++i) main->CycleRecentFiles(QStringLiteral("/f%1").arg(i));
    EXPECT_EQ(RecentCaptions(), (QStringList{"/f5", "/f4", "/f3", "/f2", "/f1"}));
    main->CycleRecentFiles("/f6");
    EXPECT_EQ(RecentCaptions(), (QStringList{"/f6", "/f5", "/f4", "/f3", "/f2"}));
    main->CycleRecentFiles("/f6"); // each path stands once: what follows shows it
    main->CycleRecentFiles("/f3"); // moves up; those above it close up behind
    EXPECT_EQ(RecentCaptions(), (QStringList{"/f3", "/f6", "/f5", "/f4", "/f2"}));
    // An empty slot keeps its item as it was and empties its caption.
    main->RecentFiles[3].clear();
    main->RefreshRecentFiles();
    EXPECT_EQ(RecentCaptions(), (QStringList{"/f3", "/f6", "", "/f4", "/f2"}));
}

TEST_F(MenuCommandsTest, ToolbarItemsAndPanesAreRememberedAcrossStarts) {
    Run("mnuViewToolbarsCompiler");
    EXPECT_TRUE(main->tbAdvanced->isHidden());
    Run("mnuViewCliptext");
    EXPECT_TRUE(main->picClipParent->RolledUp());
    // A click on the browser's title rolls it up and clears its menu mark.
    main->picBrowser->cmdMenu_Click();
    EXPECT_FALSE(main->Command("mnuViewBrowser")->isChecked());
    Restart();
    EXPECT_TRUE(main->tbAdvanced->isHidden());
    EXPECT_TRUE(main->picBrowser->RolledUp());
    EXPECT_TRUE(main->picClipParent->RolledUp());
    for (const char* off : {"mnuViewToolbarsCompiler", "mnuViewBrowser", "mnuViewCliptext"})
        EXPECT_FALSE(main->Command(off)->isChecked()) << off;
    EXPECT_TRUE(main->Command("mnuViewToolbarsEdit")->isChecked());
    Run("mnuViewCliptext");
    EXPECT_FALSE(main->picClipParent->RolledUp());
    // Hidden and shown again through the bars' own context menu: the mark follows.
    main->tbEdit->toggleViewAction()->trigger();
    EXPECT_TRUE(main->tbEdit->isHidden());
    EXPECT_FALSE(main->Command("mnuViewToolbarsEdit")->isChecked());
    main->tbEdit->toggleViewAction()->trigger();
    EXPECT_TRUE(main->Command("mnuViewToolbarsEdit")->isChecked());
}

TEST_F(MenuCommandsTest, WindowCommandsAndTabs) {
    frmDocument* one = main->ActiveForm();
    one->rtfText->SetText("original");
    one->Tag = Path("orig.txt");
    one->SetCaption("orig.txt");
    Run("mnuWindowDuplicate");
    frmDocument* copy = main->ActiveForm();
    ASSERT_NE(copy, one);
    EXPECT_EQ(copy->Caption(), "orig.txt [Copy]");
    EXPECT_EQ(copy->Tag, one->Tag);
    EXPECT_EQ(copy->rtfText->Text(), "original");
    EXPECT_GE(main->FindTab(copy->TabKey()), 0);
    EXPECT_TRUE(copy->Changed); // the copied text is an edit of the new window

    Run("mnuWindowNewWindow"); // slot 3
    copy->Changed = false;
    copy->CloseWith(frmDocument::vbFormCode);
    Settle();
    Run("mnuWindowNewWindow"); // takes slot 2, its tab goes to the end
    QStringList keys;
    for (int i = 0; i < main->tabFiles->count(); ++i) keys << main->tabFiles->tabData(i).toString();
    EXPECT_EQ(keys, (QStringList{"Tab1", "Tab3", "Tab2"}));

    Run("mnuWindowMinAll");
    for (frmDocument* d : Documents().OpenDocuments()) EXPECT_TRUE(d->SubWindow()->isMinimized());
    // A click on the tab of a minimised document restores it.
    main->tabFiles->tabBarClicked(0);
    EXPECT_FALSE(one->SubWindow()->isMinimized());
    Run("mnuWindowResAll");

    one->Changed = true;
    dialogs.AnswerMsgBox(MsgResult::Cancel);
    Run("mnuWindowCloseAll"); // Cancel keeps that one, the others close
    EXPECT_EQ(Documents().OpenDocuments().size(), 1u);
    EXPECT_EQ(main->ActiveForm(), one);
}

// The line steps themselves are LineCommand's; here, which delimiter the comment takes.
TEST_F(MenuCommandsTest, CommentBlockTakesTheProfilesFirstDelimiter) {
    frmDocument* d = main->ActiveForm();
    d->Settings().Delimiters[0] = {"//", "\r\n", 1};
    Edit()->SetText("a\r\nb\r\nc");
    Select(0, 4);
    Run("mnuFormatCommentBlock");
    EXPECT_EQ(Edit()->Text(), "// a\r\n// b\r\nc");
    d->Settings().Delimiters[0] = {"/*", "*/", 1};
    Select(12, 1);
    Run("mnuFormatCommentBlock");
    EXPECT_EQ(Edit()->Text(), "// a\r\n// b\r\n/*c*/");
}

// An unsaved document's file information is the file tools' test.
TEST_F(MenuCommandsTest, TheViewerAsksFirstForAnUnsavedDocument) {
    dialogs.AnswerMsgBox(MsgResult::No);
    Run("mnuAdvancedOpenViewer");
    ASSERT_EQ(dialogs.asked.size(), 1u);
    EXPECT_EQ(dialogs.asked[0].caption, "Confirm");
}
