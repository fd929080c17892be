// A whole-document colouring taken stretch by stretch: kept as a store the control takes as
// it shows the text, or written into the control stretch by stretch, the control ends up
// with the painter's colours.
#include "editor/StyleStretches.h"
#include "editor/RichEdit.h"
#include "editor/core/Painter.h"

#include <QApplication>
#include <gtest/gtest.h>

namespace {

// About 200 KB of C-like lines, with pairs that cross every stretch of 50 KB.
std::string Document() {
    std::string t;
    for (int i = 0; t.size() < 200000; ++i)
        t += i % 700 == 3 ? "/* int \"for\r\n" : "int x" + std::to_string(i) + " = \"for\"; */\r\n";
    return t;
}

EditorSettings Settings() {
    EditorSettings s = EditorSettings::Defaults();
    s.Keywords = {"int\xFF", "for\xFF", ""};
    s.Delimiters = {};
    s.Delimiters[0] = {"/*", "*/", 1};
    s.Delimiters[1] = {"\"", "\"", 2};
    return s;
}

// The slots the control holds itself, without taking any it was handed unwritten.
std::string Held(const RichEdit& e) {
    std::string s;
    for (int64_t i = 0; i < e.TextLength(); ++i)
        s += char(e.SendScintilla(QsciScintillaBase::SCI_GETSTYLEAT, i));
    return s;
}

std::string Painted(std::string_view text) {
    EditorSettings s = Settings();
    PaintFlags flags{false, true};
    SlotBuffer painted;
    PaintContext ctx{text, s, flags, painted, {}, {}};
    ColorCode(ctx);
    return std::string(reinterpret_cast<const char*>(painted.Data()), size_t(painted.Size()));
}

} // namespace

TEST(StyleStretchesTest, AStoreOrEveryStretchWrittenGivesThePaintersColours) {
    const std::string text = Document(), want = Painted(text);
    for (int64_t storeUpTo : {int64_t(0), StyleStretches::kStoreUpTo}) {
        RichEdit e;
        e.SetText(text);
        EditorSettings s = Settings();
        PaintFlags flags{false, true};
        StyleStretches target(e, 0, e.TextLength(), storeUpTo);
        PaintContext ctx{e.TextView(), s, flags, target, {}, {}};
        ctx.StretchBytes = 50000;
        ASSERT_EQ(ColorCode(ctx), PassResult::Done);
        // Written in as the pass went, or not before the store is handed over.
        if (storeUpTo == 0)
            EXPECT_TRUE(Held(e) == want);
        else
            EXPECT_FALSE(Held(e) == want);
        target.Apply();
        EXPECT_TRUE(e.Styles(0, e.TextLength()) == want) << storeUpTo;
    }
}
