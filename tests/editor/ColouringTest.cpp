#include "support/AppFixture.h"

#include <QClipboard>
#include <QLabel>

namespace {
struct ColouringTest : AppFixture {
    void SetUp() override {
        AppFixture::SetUp();
        Start();
    }
    // The slots of a stretch as digits, one per byte.
    static std::string Slots(frmDocument* d, int64_t from, int64_t n) {
        std::string s;
        for (int64_t i = from; i < from + n; ++i) s += char('0' + int(d->rtfText->SlotAt(i)));
        return s;
    }
};
} // namespace

TEST_F(ColouringTest, ActivationColoursALoadedFileByItsLanguage) {
    frmDocument* c = OpenFile("x.c", "int main() { /* note */ return 0; } // end\n");
    EXPECT_FALSE(c->ChangedHighLight);
    EXPECT_FALSE(c->Changed); // colouring is not an edit
    EXPECT_FALSE(c->CodingInProgress());
    std::string text = c->rtfText->Text();
    auto at = [&](const char* what) { return int64_t(text.find(what)); };
    EXPECT_NE(Slots(c, at("int"), 3), "000");                        // a keyword
    EXPECT_EQ(Slots(c, at("main"), 4), "0000");                      // not a keyword
    EXPECT_EQ(Slots(c, at("/* note */"), 10), std::string(10, '4')); // comment class
    EXPECT_EQ(Slots(c, at("// end"), 6), std::string(6, '4'));
    EXPECT_FALSE(c->rtfText->isUndoAvailable());
}

TEST_F(ColouringTest, TypingMarksStaleAndEnterOrUpRecoloursTheLine) {
    frmDocument* c = OpenFile("y.c", "x\n");
    c->rtfText->SetSelStart(0);
    QTest::keyClicks(c->rtfText, "return ");
    EXPECT_TRUE(c->ChangedHighLight);
    EXPECT_EQ(Slots(c, 0, 6), "000000"); // typing paints nothing
    QTest::keyClick(c->rtfText, Qt::Key_Up);
    EXPECT_NE(Slots(c, 0, 6), "000000");
    c->rtfText->PaintRange(0, 6, ColorSlot::Text);
    QTest::keyClick(c->rtfText, Qt::Key_Return);
    EXPECT_NE(Slots(c, 0, 6), "000000");
    EXPECT_TRUE(c->Changed);
}

TEST_F(ColouringTest, RefreshColourCodingRepaintsAndKeepsChanged) {
    frmDocument* c = OpenFile("z.c", "int a;\n");
    c->rtfText->PaintRange(0, 3, ColorSlot::Text);
    c->Changed = true;
    main->Command("mnuViewRefreshColors")->trigger();
    EXPECT_NE(Slots(c, 0, 3), "000");
    EXPECT_TRUE(c->Changed);
}

TEST_F(ColouringTest, ALongPassShowsItsProgressAndStaysResponsive) {
    std::string big;
    while (big.size() < (3u << 20))
        big += "for (int i = 0; i < n; i++) { /* body */ x = \"s\"; }\n";
    frmDocument* c = OpenFile("big.c", big);
    EXPECT_TRUE(c->rtfText->isVisible());
    EXPECT_TRUE(c->lblColors->text().endsWith("Keywords/Identifiers Coded...") ||
                c->lblColors->text() == "Coding Bracers and Delimiters...");
    std::string text = c->rtfText->Text();
    int64_t body = int64_t(text.rfind("body"));
    EXPECT_EQ(Slots(c, body, 4), "4444") << c->ChangedHighLight;
}

TEST_F(ColouringTest, PasteColoursThePastedStretch) {
    frmDocument* c = OpenFile("p.c", "\n");
    QApplication::clipboard()->setText("while (1) {}\n// done");
    c->rtfText->SetSelStart(0);
    main->Command("mnuEditPaste")->trigger();
    EXPECT_EQ(c->rtfText->Text(), "while (1) {}\r\n// done\r\n");
    EXPECT_NE(Slots(c, 0, 5), "00000");
    EXPECT_EQ(Slots(c, 14, 7), std::string(7, '4'));
    main->Command("mnuEditUndo")->trigger(); // one step takes the whole paste back
    EXPECT_EQ(c->rtfText->Text(), "\r\n");
}
