#include "support/AppFixture.h"

#include <QListWidget>

namespace {
struct TypingAidsTest : AppFixture {
    RichEdit* Edit() { return main->ActiveForm()->rtfText; }
    void SetUp() override {
        AppFixture::SetUp();
        Start();
    }
    void Type(const QString& s) { QTest::keyClicks(Edit(), s); }
    void Key(Qt::Key k, Qt::KeyboardModifiers m = Qt::NoModifier) { QTest::keyClick(Edit(), k, m); }
};
} // namespace

TEST_F(TypingAidsTest, EnterKeepsTheLeadingSpacesOnly) {
    Edit()->SetText("    indented");
    Edit()->SetSelStart(12);
    Key(Qt::Key_Return);
    EXPECT_EQ(Edit()->Text(), "    indented\r\n    ");
    Edit()->SetText("\ttabbed");
    Edit()->SetSelStart(7);
    Key(Qt::Key_Return);
    EXPECT_EQ(Edit()->Text(), "\ttabbed\r\n");
}

TEST_F(TypingAidsTest, BracketsAndQuotesWrapTheSelection) {
    Edit()->SetText("x");
    Edit()->SetSelStart(0);
    Edit()->SetSelLength(1);
    Type("(");
    EXPECT_EQ(Edit()->Text(), "(x)");
    EXPECT_EQ(Edit()->SelStart(), 2);
    EXPECT_EQ(Edit()->SelLength(), 0);
    Type(")"); // a closer is just a character
    EXPECT_EQ(Edit()->Text(), "(x))");
    Edit()->SetText("");
    Type("{\"");
    EXPECT_EQ(Edit()->Text(), "{\"\"}");
    g_EditorSettings().AutoBracers = false;
    Edit()->SetText("");
    Type("[");
    EXPECT_EQ(Edit()->Text(), "[");
}

TEST_F(TypingAidsTest, TabInsertsSpacesOrATabAndIndentsBlocks) {
    Edit()->SetText("ab");
    Edit()->SetSelStart(1);
    Key(Qt::Key_Tab);
    EXPECT_EQ(Edit()->Text(), "a    b"); // TabWidth spaces, whatever the column
    g_EditorSettings().RealTabs = true;
    Key(Qt::Key_Tab);
    EXPECT_EQ(Edit()->Text(), "a    \tb");
    g_EditorSettings().RealTabs = false;

    Edit()->SetText("one\r\ntwo\r\nthree");
    Edit()->SetSelStart(0);
    Edit()->SetSelLength(8);
    Key(Qt::Key_Tab);
    EXPECT_EQ(Edit()->Text(), "    one\r\n    two\r\nthree");
    EXPECT_EQ(Edit()->SelText(), "    one\r\n    two");
    Key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(Edit()->Text(), "one\r\ntwo\r\nthree");
    main->Command("mnuEditUndo")->trigger(); // the block indent was one step
    EXPECT_EQ(Edit()->Text(), "    one\r\n    two\r\nthree");
    Edit()->SetSelStart(0);
    Key(Qt::Key_Right, Qt::AltModifier); // Alt+Right indents without a selection too
    EXPECT_EQ(Edit()->Text(), "        one\r\n    two\r\nthree");
}

TEST_F(TypingAidsTest, CompletionReplacesThePrefixWithTheListsEntry) {
    main->lstClip->addItems({"printf(\"%d\\n\", x);", "Println", "while"});
    Edit()->SetText("");
    Type("pri");
    Key(Qt::Key_Space);
    EXPECT_EQ(Edit()->Text(), "printf(\"%d\\n\", x); ");
    Edit()->SetText("");
    Type("wh");
    Key(Qt::Key_Space); // two letters: no search
    EXPECT_EQ(Edit()->Text(), "wh ");
    Edit()->SetText("");
    Type("zzz");
    Key(Qt::Key_Space);
    EXPECT_EQ(Edit()->Text(), "zzz ");
    EXPECT_EQ(Edit()->SelLength(), 0);
    // Enter completes before the line break.
    Edit()->SetText("");
    Type("  WHI");
    Key(Qt::Key_Return);
    EXPECT_EQ(Edit()->Text(), "  while\r\n  ");
}
