#include "editor/RichEdit.h"

#include <gtest/gtest.h>

namespace {

// Two controls showing the same slot colours, as two documents under one set of settings.
struct RichEditRtfTest : ::testing::Test {
    RichEdit from, to;
    RichEditRtfTest() {
        const QColor colours[] = {Qt::black,  QColor(0, 0, 128), QColor(0, 128, 128),
                                  Qt::gray,   QColor(0, 128, 0), QColor(128, 0, 0),
                                  Qt::magenta};
        for (int i = 0; i < kColorSlotCount; ++i) {
            from.SetSlotColor(ColorSlot(i), colours[i]);
            to.SetSlotColor(ColorSlot(i), colours[i]);
        }
    }
};

} // namespace

TEST_F(RichEditRtfTest, TheWholeTextComesBackWithItsColours) {
    from.SetText("int x; /* note */\nreturn x;\n");
    from.PaintRange(0, 3, ColorSlot::Keywords0);
    from.PaintRange(7, 10, ColorSlot::Comment);
    from.PaintRange(19, 6, ColorSlot::Keywords2);
    std::string rtf = from.TextRTF();
    EXPECT_NE(rtf.find("\\red0\\green0\\blue128;"), std::string::npos); // slot 1's colour
    to.SetTextRTF(rtf);
    EXPECT_EQ(to.Text(), from.Text());
    EXPECT_EQ(to.Styles(0, to.TextLength()).substr(0, 17), from.Styles(0, 17));
    EXPECT_EQ(to.SlotAt(19), ColorSlot::Keywords2);
    EXPECT_EQ(to.SlotAt(26), ColorSlot::Text);
}

TEST_F(RichEditRtfTest, TheSelectionAloneGoesOutAndReplacesTheOtherSelection) {
    from.SetText("alpha beta gamma");
    from.PaintRange(6, 4, ColorSlot::Delimiter1);
    from.SetSelStart(4);
    from.SetSelLength(7); // "a beta "
    to.SetText("[xx]");
    to.PaintRange(0, 4, ColorSlot::Keywords1);
    to.SetSelStart(1);
    to.SetSelLength(2);
    to.SetSelRTF(from.SelRTF());
    EXPECT_EQ(to.Text(), "[a beta ]");
    std::string want = {char(ColorSlot::Keywords1), 0, 0, 5, 5, 5, 5, 0,
                        char(ColorSlot::Keywords1)};
    EXPECT_EQ(to.Styles(0, to.TextLength()), want);
    EXPECT_EQ(to.SelStart(), 8); // the caret behind the inserted text
}

TEST_F(RichEditRtfTest, EscapesFollowTheDocumentsEncoding) {
    from.SetText("caf\xC3\xA9");
    EXPECT_NE(from.TextRTF().find("caf\\u233?"), std::string::npos);
    from.ResetEncoding(false);
    from.SetText("caf\xE9");
    EXPECT_NE(from.TextRTF().find("caf\\'e9"), std::string::npos);
    // Read into a document of each kind, the same character takes that document's bytes.
    to.SetTextRTF("{\\rtf1 caf\\'e9 \\u8364?}");
    EXPECT_EQ(to.Text(), "caf\xC3\xA9 \xE2\x82\xAC");
    to.ResetEncoding(false);
    to.SetTextRTF("{\\rtf1 caf\\'e9 \\u8364?}");
    EXPECT_EQ(to.Text(), "caf\xE9 \x80");
}
