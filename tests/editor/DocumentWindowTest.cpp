#include "support/AppFixture.h"

#include <QLabel>
#include <QTabBar>

namespace {
struct DocumentWindowTest : AppFixture {
    void SetUp() override {
        AppFixture::SetUp();
        Start();
    }
    frmDocument* Active() { return main->ActiveForm(); }
};
} // namespace

// The tabs that go with the slots are followed in the window commands' tests.
TEST_F(DocumentWindowTest, SlotsAreReusedWhileUntitledNumbersOnlyGrow) {
    ASSERT_TRUE(Active());
    EXPECT_EQ(Active()->Caption(), "Untitled 1");
    frmDocument* two = NewDocument();
    frmDocument* three = NewDocument();
    ASSERT_TRUE(three->CloseWith(frmDocument::vbFormControlMenu));
    ASSERT_TRUE(two->CloseWith(frmDocument::vbFormControlMenu));
    Settle();
    frmDocument* four = NewDocument();
    EXPECT_EQ(four->FormIndex, 2); // the lowest free slot
    EXPECT_EQ(four->Caption(), "Untitled 4");
    EXPECT_EQ(Documents().UpperBound(), 3);
}

// An unchanged document closes without a question (see the window commands' Close All).
TEST_F(DocumentWindowTest, TheCloseQuestionHasThreeAnswers) {
    frmDocument* doc = Active();
    doc->rtfText->SetText("edited");
    ASSERT_TRUE(doc->Changed);
    dialogs.AnswerMsgBox(MsgResult::Cancel);
    EXPECT_FALSE(doc->CloseWith(frmDocument::vbFormControlMenu));
    ASSERT_EQ(dialogs.asked.size(), 1u);
    EXPECT_EQ(dialogs.asked[0].caption, "Save Changes?");
    EXPECT_EQ(dialogs.asked[0].text,
              "Do you wish to save the changes you have made to the file Untitled 1?");
    EXPECT_EQ(dialogs.asked[0].buttons, MsgButtons::YesNoCancel);
    EXPECT_FALSE(Documents().IsFree(1));

    dialogs.AnswerMsgBox(MsgResult::No);
    EXPECT_TRUE(doc->CloseWith(frmDocument::vbFormControlMenu));
    Settle();
    EXPECT_TRUE(Documents().IsFree(1));
    EXPECT_EQ(main->tabFiles->count(), 0);

    // Yes saves first: an untitled document through the save dialog.
    frmDocument* third = NewDocument();
    third->rtfText->SetText("keep me");
    dialogs.AnswerMsgBox(MsgResult::Yes).AnswerFile(Path("kept.txt"));
    EXPECT_TRUE(third->CloseWith(frmDocument::vbFormControlMenu));
    EXPECT_EQ(ReadFileBytes(tmp.file("kept.txt")), "keep me");
}

TEST_F(DocumentWindowTest, StatusPanelsFollowTheCaretAndTheModifiedState) {
    frmDocument* doc = Active();
    doc->tmrChanges_Timer();
    EXPECT_EQ(main->PanelText(3), "Line 1 : Col 1");
    EXPECT_EQ(main->PanelText(4), "UNMODIFIED");
    QTest::keyClicks(doc->rtfText, "abc");
    QTest::keyClick(doc->rtfText, Qt::Key_Return);
    QTest::keyClicks(doc->rtfText, "de");
    doc->tmrChanges_Timer();
    EXPECT_EQ(main->PanelText(3), "Line 2 : Col 3");
    EXPECT_EQ(main->PanelText(4), "MODIFIED");
    EXPECT_EQ(main->DocInfo(), "Line 2 : Col 3");
    QTest::keyClick(doc->rtfText, Qt::Key_Insert); // overtype greys "INS"
    doc->tmrChanges_Timer();
    EXPECT_FALSE(main->findChild<QLabel*>("panel5")->isEnabled());
    doc->rtfText->SetSelStart(0);
    doc->rtfText->SetSelLength(3);
    Settle(); // the control reports selection changes when it next updates
    EXPECT_EQ(main->PanelText(2), "3 selected.");
    doc->Form_GotFocus();
    EXPECT_EQ(main->PanelText(2), "3 bytes selected.");
    // Only the active document's timer writes the panels.
    frmDocument* other = NewDocument();
    Settle();
    other->tmrChanges_Timer();
    EXPECT_EQ(main->PanelText(4), "UNMODIFIED");
    doc->tmrChanges_Timer();
    EXPECT_EQ(main->PanelText(4), "UNMODIFIED");
}

TEST_F(DocumentWindowTest, WrapAndDisplayRefreshStayInTheirWindow) {
    frmDocument* a = Active();
    frmDocument* b = NewDocument();
    b->ToggleWrap();
    EXPECT_TRUE(b->rtfText->Wrapping());
    EXPECT_FALSE(a->rtfText->Wrapping());
    EXPECT_FALSE(g_EditorSettings().WordWrap);
    a->Changed = false;
    g_EditorSettings().EditorSize = 14;
    a->RefreshDisplay();
    EXPECT_FALSE(a->Changed);
    EXPECT_FLOAT_EQ(a->rtfText->SelFontSize(), 14);
}

TEST_F(DocumentWindowTest, DroppedFilesOpenEachInItsOwnWindowWithBackup) {
    g_EditorSettings().Backup = true;
    std::string a = tmp.write("a.txt", "alpha\n");
    std::string b = tmp.write("b.c", "int b;");
    Active()->rtfText_OLEDragDrop({QString::fromStdString(a), QString::fromStdString(b)});
    Settle();
    auto docs = Documents().OpenDocuments();
    ASSERT_EQ(docs.size(), 3u);
    EXPECT_EQ(docs[1]->Caption(), "a.txt"); // the load step's other marks: FileOpenTest
    EXPECT_EQ(ReadFileBytes(a + "~"), "alpha\n");
    EXPECT_EQ(docs[2]->rtfText->Text(), "int b;");

    // A file that cannot be read stops the list; its window stays.
    dialogs.AnswerMsgBox(MsgResult::OK);
    Active()->rtfText_OLEDragDrop({Path("missing.txt"), QString::fromStdString(a)});
    ASSERT_EQ(dialogs.asked.size(), 1u);
    EXPECT_EQ(dialogs.asked[0].caption, "File I/O Error");
    EXPECT_TRUE(dialogs.asked[0].text.startsWith(
        "An error occurred while you were trying to open a file:\n"));
    EXPECT_EQ(Documents().OpenDocuments().size(), 4u);
}
