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

// Each case types into a document holding `text`, with the caret at its end or the whole text
// selected.
TEST_F(TypingAidsTest, TypedKeysGetTheirAids) {
    main->SetClipEntries({"printf(\"%d\\n\", x);", "Println", "while"});
    struct Case {
        const char* name;
        QString text, typed;
        Qt::Key key; // pressed after the typed text
        std::string want;
        bool selectAll = false, autoBracers = true;
    };
    const Qt::Key none = Qt::Key_unknown;
    const std::vector<Case> cases = {
        {"Enter keeps leading spaces", "    indented", "", Qt::Key_Return, "    indented\r\n    "},
        {"but not tabs", "\ttabbed", "", Qt::Key_Return, "\ttabbed\r\n"},
        {"Tab gives TabWidth spaces whatever the column", "a", "", Qt::Key_Tab, "a    "},
        {"openers get their closers", "", "{\"", none, "{\"\"}"},
        {"an opener wraps the selection, whose closer is then just a character", "x", "()", none,
         "(x))", true},
        // A closer typed right before the one that typing put in steps over it, once.
        {"closers step over", "", "f(a))", none, "f(a))"},
        {"quotes step over", "", "s(\"x\")", none, "s(\"x\")"},
        {"no closers when not asked", "", "[", none, "[", false, false},
        {"completion from the list", "", "pri", Qt::Key_Space, "printf(\"%d\\n\", x); "},
        {"two letters: no search", "", "wh", Qt::Key_Space, "wh "},
        {"no entry", "", "zzz", Qt::Key_Space, "zzz "},
        {"Enter completes before the line break", "", "  WHI", Qt::Key_Return, "  while\r\n  "},
    };
    for (const Case& c : cases) {
        g_EditorSettings().AutoBracers = c.autoBracers;
        Edit()->SetText(c.text.toStdString());
        Edit()->SetSelStart(c.selectAll ? 0 : Edit()->TextLength());
        Edit()->SetSelLength(c.selectAll ? Edit()->TextLength() : 0);
        Type(c.typed);
        if (c.key != none) Key(c.key);
        EXPECT_EQ(Edit()->Text(), c.want) << c.name;
        EXPECT_EQ(Edit()->SelLength(), 0) << c.name;
    }
}

TEST_F(TypingAidsTest, TabInsertsATabIfAskedAndIndentsBlocks) {
    Edit()->SetText("ab");
    Edit()->SetSelStart(1);
    g_EditorSettings().RealTabs = true;
    Key(Qt::Key_Tab);
    EXPECT_EQ(Edit()->Text(), "a\tb");
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
