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

// Written and read, a character takes the escape and the bytes of the document's encoding.
TEST_F(RichEditRtfTest, EscapesFollowTheDocumentsEncoding) {
    struct Case {
        bool utf8;
        std::string text, escaped, read;
    };
    for (const Case& c : {Case{true, "caf\xC3\xA9", "caf\\u233?", "caf\xC3\xA9 \xE2\x82\xAC"},
                          Case{false, "caf\xE9", "caf\\'e9", "caf\xE9 \x80"}}) {
        from.ResetEncoding(c.utf8);
        from.SetText(c.text);
        EXPECT_NE(from.TextRTF().find(c.escaped), std::string::npos) << c.utf8;
        from.SetTextRTF("{\\rtf1 caf\\'e9 \\u8364?}");
        EXPECT_EQ(from.Text(), c.read) << c.utf8;
    }
}
