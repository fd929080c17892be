// Typing in a large document must cost what it costs in a small one: a key press, an Enter
// (which recolours the line left) and an Up arrow, timed in a 10 MB and a 10 KB C document.
// Prints the ratios with their targets.
#include "BenchSource.h"
#include "base/qt/AppGlobals.h"
#include "app/frmMain.h"
#include "editor/DocumentArray.h"
#include "editor/frmDocument.h"

#include <QApplication>
#include <QTest>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace {
using Clock = std::chrono::steady_clock;

struct Costs {
    double key, enter, up; // microseconds per key
};

Costs Measure(frmDocument* doc, const std::string& text, int rounds) {
    RichEdit* e = doc->rtfText;
    e->SetText(text);
    doc->ChangedHighLight = true;
    doc->ColorCode();
    int64_t middle = e->LineIndex(e->GetLineCount() / 2);
    e->SetSelStart(middle);
    // The first key there writes the colours held back since the pass up to the caret (what
    // showing that place would do); that belongs to the colouring, not to typing.
    QTest::keyClick(e, Qt::Key_W);
    auto time = [&](auto&& step) {
        auto t0 = Clock::now();
        for (int i = 0; i < rounds; ++i) step();
        return std::chrono::duration<double, std::micro>(Clock::now() - t0).count() / rounds;
    };
    Costs c;
    c.key = time([&] { QTest::keyClick(e, Qt::Key_X); });
    c.enter = time([&] {
        QTest::keyClick(e, Qt::Key_Y);
        QTest::keyClick(e, Qt::Key_Return);
    });
    c.up = time([&] {
        QTest::keyClick(e, Qt::Key_Z);
        QTest::keyClick(e, Qt::Key_Up);
    });
    return c;
}
} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    std::string dir = std::filesystem::temp_directory_path() / "kestrum-typing-bench";
    SetStoreDirectoryForTesting(dir);
    frmMain main;
    main.MDIForm_Load({});
    main.show();
    EditorSettings& g = g_EditorSettings();
    g.Keywords = {"int\xFF" "char\xFF" "return\xFF" "for\xFF" "while\xFF" "if\xFF" "else\xFF",
                  "printf\xFF" "malloc\xFF" "free\xFF", "#include\xFF"};
    g.Delimiters[0] = {"/*", "*/", 1};
    g.Delimiters[1] = {"//", "\r\n", 1};
    g.Delimiters[2] = {"\"", "\"", 2};
    frmDocument* doc = main.ActiveForm();
    doc->Settings() = g;
    const int rounds = std::getenv("ROUNDS") ? std::atoi(std::getenv("ROUNDS")) : 200;
    Costs small = Measure(doc, bench::GenerateCSource(10 << 10), rounds);
    Costs large = Measure(doc, bench::GenerateCSource(10 << 20), rounds);
    std::printf("key press 10 MB / 10 KB = %.2f (target <= 2)  [%.1f us vs %.1f us]\n",
                large.key / small.key, large.key, small.key);
    std::printf("key + Enter 10 MB / 10 KB = %.2f (target <= 2)  [%.1f us vs %.1f us]\n",
                large.enter / small.enter, large.enter, small.enter);
    std::printf("key + Up 10 MB / 10 KB = %.2f (target <= 2)  [%.1f us vs %.1f us]\n",
                large.up / small.up, large.up, small.up);
    for (frmDocument* d : Documents().OpenDocuments()) d->Changed = false;
    std::filesystem::remove_all(dir);
    return 0;
}
