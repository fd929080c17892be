#include "editor/RichEdit.h"
#include "support/TempDir.h"

#include <QApplication>
#include <QKeyEvent>
#include <QSignalSpy>
#include <QTest>
#include <cstring>
#include <gtest/gtest.h>

namespace {
// Types characters that have no key of their own on a test keyboard.
void TypeUnicode(QWidget* w, const QString& text) {
    for (QChar c : text) {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
        QKeyEvent release(QEvent::KeyRelease, 0, Qt::NoModifier, QString(c));
        QApplication::sendEvent(w, &press);
        QApplication::sendEvent(w, &release);
    }
}

struct RichEditTest : ::testing::Test {
    TempDir dir;
    RichEdit edit;
    RichEditTest() {
        edit.resize(400, 300);
        edit.show();
    }
    void Load(std::string_view bytes) {
        QString err;
        EXPECT_TRUE(edit.LoadFile(QString::fromStdString(dir.write("in.txt", bytes)), 1, &err))
            << err.toStdString();
    }
    std::string SaveAndRead() {
        std::string p = dir.file("out.txt");
        QString err;
        EXPECT_TRUE(edit.SaveFile(QString::fromStdString(p), 1, &err)) << err.toStdString();
        return ReadFileBytes(p);
    }
};
} // namespace

// A load holds every line end as CR LF and every other byte as it was; a save writes what is held.
TEST_F(RichEditTest, LoadKeepsTheBytesAndMakesEveryLineEndCrLf) {
    struct Case {
        std::string bytes, held;
        bool utf8;
    };
    const std::string nul("nul\0byte\r\n", 10);
    for (const Case& c : std::vector<Case>{
             {"caf\xE9 \xFF\xFE\r\n", "caf\xE9 \xFF\xFE\r\n", false},
             {"gr\xC3\xBC\xC3\x9F \xE2\x82\xAC\r\n", "gr\xC3\xBC\xC3\x9F \xE2\x82\xAC\r\n", true},
             {nul, nul, true},
             {"int a;\nchar b;\rlong c;\r\nend", "int a;\r\nchar b;\r\nlong c;\r\nend", true}}) {
        Load(c.bytes);
        EXPECT_EQ(edit.IsUtf8Document(), c.utf8) << c.held;
        EXPECT_EQ(edit.Text(), c.held);
        EXPECT_EQ(SaveAndRead(), c.held);
    }
    // Positions count the CR LF of the last document as two bytes.
    EXPECT_EQ(edit.GetLineCount(), 4);
    EXPECT_EQ(edit.LineIndex(1), 8);
    EXPECT_EQ(edit.LineFromChar(8), 1);
    EXPECT_EQ(edit.LineFromChar(7), 0); // the LF of line 0
    EXPECT_EQ(edit.LineLength(9), 7);   // "char b;" without its line end
    EXPECT_EQ(edit.LineLength(edit.TextLength()), 3);
}

// A load is one change of the text however many pieces the file is read in, so that the
// owner sees it once, and none when an empty control takes an empty file.
TEST_F(RichEditTest, ALoadIsReportedAsOneChange) {
    QSignalSpy changes(&edit, &QsciScintilla::textChanged);
    std::string line = "a line of text that ends with LF\n";
    std::string big;
    while (big.size() < (9u << 20)) big += line; // more than two reading chunks
    Load(big);
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(edit.TextLength(), int64_t(big.size() + big.size() / line.size()));
    EXPECT_EQ(edit.Text().substr(0, line.size() + 1), line.substr(0, line.size() - 1) + "\r\n");
    // Typing is reported again after the load.
    edit.SetSelText("x");
    EXPECT_EQ(changes.count(), 2);

    Load("");
    EXPECT_EQ(changes.count(), 3); // the text went
    Load("");
    EXPECT_EQ(changes.count(), 3); // nothing changed
}

TEST_F(RichEditTest, ALatin1DocumentRefusesCharactersItCannotHold) {
    Load("caf\xE9");
    EXPECT_EQ(edit.text(), QString::fromUtf8("café")); // shown as Latin-1
    QSignalSpy refused(&edit, &RichEdit::CharacterRefused);
    edit.SetSelStart(edit.TextLength());
    TypeUnicode(&edit, QString::fromUtf8("λ"));
    EXPECT_EQ(refused.count(), 1);
    EXPECT_EQ(edit.Text(), "caf\xE9");
    TypeUnicode(&edit, QString::fromUtf8("ü"));
    EXPECT_EQ(edit.Text(), "caf\xE9\xFC"); // Latin-1 can hold this one
}

// Inserted text shows in the colour at the caret until it is recoloured: the colour before
// it, at a line's start the colour after it, for a replaced selection that of its first
// character; a whole new text is plain.
TEST_F(RichEditTest, InsertedTextTakesTheColourAtTheCaret) {
    const std::string text = "int a; // note\r\nb\r\n";
    std::string colours = std::string(3, '\1') + std::string(4, '\0') + std::string(9, '\4');
    colours.resize(text.size(), '\0');
    struct Case {
        int64_t at, selected;
        const char* typed;
        bool stored; // the colours still held back in the store
        ColorSlot want;
    } cases[] = {
        {12, 0, "X", false, ColorSlot::Comment},    // inside a comment
        {12, 0, "X", true, ColorSlot::Comment},     // the same, its colours not written yet
        {3, 0, "x", false, ColorSlot::Keywords0},   // behind a keyword
        {16, 0, "y", true, ColorSlot::Text},        // the line after the comment's line end
        {10, 4, "NOTE", false, ColorSlot::Comment}, // a selection replaced
    };
    for (const Case& c : cases) {
        edit.SetText(text);
        EXPECT_EQ(edit.Styles(0, edit.TextLength()), std::string(text.size(), '\0'));
        if (c.stored)
            edit.DeferStyles(0, std::vector<uint8_t>(colours.begin(), colours.end()));
        else
            edit.PaintStyles(0, colours);
        edit.SetSelStart(c.at);
        edit.SetSelLength(c.selected);
        if (c.selected)
            edit.SetSelText(c.typed);
        else
            QTest::keyClicks(&edit, c.typed);
        const int64_t n = int64_t(std::strlen(c.typed));
        for (int64_t i = c.at; i < c.at + n; ++i) EXPECT_EQ(edit.SlotAt(i), c.want) << c.at;
        EXPECT_EQ(edit.SlotAt(c.at + n), ColorSlot(colours[size_t(c.at + c.selected)])) << c.at;
    }
}

TEST_F(RichEditTest, SpanSelectsAWordAndSelectedTextIsReplaced) {
    edit.SetText("Alpha beta alphabet\nBETA");
    edit.SetSelStart(19); // behind "alphabet"
    edit.Span(std::string_view("\r\n .,:;?!"), false);
    EXPECT_EQ(edit.SelStart(), 11);
    EXPECT_EQ(edit.SelText(), "alphabet");
    edit.SetSelText("x\r\ny");
    EXPECT_EQ(edit.Text(), "Alpha beta x\r\ny\r\nBETA");
    EXPECT_EQ(edit.SelStart(), 15); // the caret lands behind the new text
    EXPECT_EQ(edit.SelLength(), 0);
}
