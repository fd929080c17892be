// (c) The painter's result handed to the document's edit control holding a 10 MB C source,
// against QScintilla's own C++ lexer colouring the same text in the same process. The colours
// are deferred, as the document window hands them over: the control writes those of the first
// screen as it shows it, the rest when it comes to them. Run with QT_QPA_PLATFORM=offscreen.
// ("slots" is a Qt macro, hence the name of the slot buffer.)
#include "BenchSource.h"
#include "editor/RichEdit.h"
#include "editor/core/Painter.h"

#include <QApplication>
#include <Qsci/qscilexercpp.h>
#include <Qsci/qsciscintilla.h>

#include <cstdio>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    const std::string text = bench::GenerateCSource(10u << 20);
    EditorSettings s = EditorSettings::Defaults();
    bench::SetCProfile(s);

    RichEdit editor;
    editor.SetText(text);
    const int64_t length = editor.TextLength();
    const long firstScreen = long(editor.LineIndex(100));

    // The painter reads the control's own buffer in place, as the document window does.
    auto paint = [&] {
        SlotBuffer painted(0, length);
        PaintFlags flags{false, true};
        PaintContext ctx{editor.TextView(), s, flags, painted, {}, {}};
        ColorCode(ctx);
        return painted;
    };
    auto defer = [&] {
        SlotBuffer painted = paint();
        editor.DeferStyles(painted.Base(), painted.TakeBytes());
    };
    // A new store replaces the whole old one, so every run starts from the same state.
    double shown = bench::BestOf(5, [&] {
        defer();
        editor.SendScintilla(QsciScintillaBase::SCI_COLOURISE, 0UL, firstScreen);
    });
    double all = bench::BestOf(3, [&] {
        defer();
        editor.FlushDeferredStyles();
    });
    SlotBuffer expected = paint();
    const bool same = expected.Base() == 0 && expected.Size() == length &&
                      editor.Styles(0, length) ==
                          std::string_view(reinterpret_cast<const char*>(expected.Data()),
                                           size_t(length));

    QsciScintilla plain;
    plain.SendScintilla(QsciScintillaBase::SCI_SETTEXT, 0UL, text.c_str());
    QsciLexerCPP lexer;
    plain.setLexer(&lexer);
    double lexing =
        bench::BestOf(2, [&] { plain.SendScintilla(QsciScintillaBase::SCI_COLOURISE, 0UL, -1L); });

    std::printf("text: %.1f MB; painter + deferred styles + first screen %.1f ms, with every "
                "style written %.1f ms%s, QsciLexerCPP %.1f ms\n",
                double(length) / (1 << 20), shown * 1e3, all * 1e3,
                same ? "" : " [styles differ]", lexing * 1e3);
    std::printf("(c) lexer/(painter + first screen) = %.1f (target >= 20)\n", lexing / shown);
    std::printf("    lexer/(painter + every style) = %.1f (for reference)\n", lexing / all);
    return 0;
}
