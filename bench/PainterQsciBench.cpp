// (c) The painter's result applied to a QScintilla editor holding a 10 MB C source, against
// QScintilla's own C++ lexer colouring the same buffer in the same process. Run with
// QT_QPA_PLATFORM=offscreen. ("slots" is a Qt macro, hence the name of the slot buffer.)
#include "BenchSource.h"
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

    QsciScintilla editor;
    editor.SendScintilla(QsciScintillaBase::SCI_SETTEXT, 0UL, text.c_str());
    const long length = editor.SendScintilla(QsciScintillaBase::SCI_GETLENGTH);

    // The painter reads the editor's own buffer in place and styles the painted stretches.
    double painter = bench::BestOf(3, [&] {
        const char* buffer = reinterpret_cast<const char*>(
            editor.SendScintilla(QsciScintillaBase::SCI_GETCHARACTERPOINTER));
        SlotBuffer painted(0, length);
        PaintFlags flags{false, true};
        PaintContext ctx{std::string_view(buffer, size_t(length)), s, flags, painted, {}, {}};
        ColorCode(ctx);
        painted.ForEachSpan([&](int64_t start, const uint8_t* styles, int64_t n) {
            editor.SendScintilla(QsciScintillaBase::SCI_STARTSTYLING,
                                 static_cast<unsigned long>(start), 0L);
            editor.SendScintilla(QsciScintillaBase::SCI_SETSTYLINGEX, static_cast<unsigned long>(n),
                                 reinterpret_cast<const char*>(styles));
        });
    });
    const long styleAt = editor.SendScintilla(QsciScintillaBase::SCI_GETSTYLEAT, 0UL);

    QsciLexerCPP lexer;
    editor.setLexer(&lexer);
    double lexing =
        bench::BestOf(2, [&] { editor.SendScintilla(QsciScintillaBase::SCI_COLOURISE, 0UL, -1L); });
    std::printf(
        "text: %.1f MB; painter + styling %.1f ms (first style %ld), QsciLexerCPP %.1f ms\n",
        double(length) / (1 << 20), painter * 1e3, styleAt, lexing * 1e3);
    std::printf("(c) lexer/painter = %.1f (target >= 20)\n", lexing / painter);
    return 0;
}
