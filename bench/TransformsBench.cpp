// Text transforms: each transform on a 10 MB text against the same on 1 MB (linear: at most
// 12 times), and, in the editor, Indent Selection over every line and To Upper Case of the
// whole text against a memcpy rewrite of the same bytes plus SCI_SETTEXT of the result
// (at most 5 times). One measurement each, best of three runs.
#include "BenchSource.h"
#include "base/qt/AppGlobals.h"
#include "editor/frmDocument.h"
#include "transforms/TransformCommands.h"
#include "transforms/core/CaseTransforms.h"
#include "transforms/core/HtmlFormat.h"
#include "editor/core/LineCommand.h"
#include "transforms/core/TextConversions.h"

#include <QApplication>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <functional>

namespace {

constexpr size_t kMB = 1 << 20;

double Seconds(const std::function<void()>& f) {
    double best = 1e9;
    for (int i = 0; i < 3; ++i) {
        auto t0 = std::chrono::steady_clock::now();
        f();
        best = std::min(
            best, std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count());
    }
    return best;
}

// Generated HTML: nested blocks with text, attributes, tabs and CR LF line ends.
std::string GenerateHtml(size_t size) {
    std::string s;
    s.reserve(size + 256);
    s += "<html>\r\n<body>\r\n";
    for (int i = 0; s.size() < size; ++i) {
        s += "\t<div class=\"row\">\r\n\t\t<p>Item ";
        s += std::to_string(i);
        s += " costs <b>";
        s += std::to_string(i % 97);
        s += "</b> pounds.</p>\r\n\t\t<img src=\"a.png\" >  <br>\r\n\t</div>\r\n";
    }
    s += "</body>\r\n</html>\r\n";
    return s;
}

size_t g_sink = 0;

void Linear(const char* name, const std::function<size_t(const std::string&)>& f,
            const std::string& small, const std::string& large) {
    double a = Seconds([&] { g_sink += f(small); });
    double b = Seconds([&] { g_sink += f(large); });
    std::printf("%-28s 1 MB %8.2f ms  10 MB %8.2f ms  ratio %5.2f (target <= 12)\n", name, a * 1e3,
                b * 1e3, b / a);
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    const std::string c1 = bench::GenerateCSource(kMB), c10 = bench::GenerateCSource(10 * kMB);
    const std::string h1 = GenerateHtml(kMB), h10 = GenerateHtml(10 * kMB);
    auto lines = [](LineStep step, std::string_view unit) {
        return [step, unit](const std::string& t) {
            return LineCommand(t, 0, int64_t(t.size()), step, unit).edits.size();
        };
    };
    Linear("indent (edits)", lines(LineStep::Indent, "    "), c1, c10);
    Linear("unindent (edits)", lines(LineStep::Unindent, "    "), c1, c10);
    Linear("trim spaces (edits)", lines(LineStep::Trim, ""), c1, c10);
    Linear(
        "to upper case",
        [](const std::string& t) { return ChangeCase(t, CaseChange::Upper, false).size(); }, c1,
        c10);
    Linear(
        "capitalize (UTF-8)",
        [](const std::string& t) { return ChangeCase(t, CaseChange::Capitalize, true).size(); }, c1,
        c10);
    Linear(
        "tabs to spaces", [](const std::string& t) { return TabsToSpaces(t, 4).size(); }, h1, h10);
    Linear(
        "spaces to tabs", [](const std::string& t) { return SpacesToTabs(t, 4).size(); }, c1, c10);
    Linear(
        "unix to dos", [](const std::string& t) { return ToDosLineEnds(t).size(); }, c1, c10);
    Linear(
        "dos to unix", [](const std::string& t) { return ToUnixLineEnds(t).size(); }, c1, c10);
    Linear(
        "html compact", [](const std::string& t) { return HTMLCompact(t).size(); }, h1, h10);
    Linear(
        "html loose", [](const std::string& t) { return HTMLLoose(t).size(); }, h1, h10);
    Linear(
        "html indented", [](const std::string& t) { return HTMLIndent(t)->size(); }, h1, h10);

    // In the editor: the command against a plain rewrite of the same bytes plus loading them.
    g_EditorSettings() = EditorSettings::Defaults();
    frmDocument doc(1);
    RichEdit* e = doc.rtfText;
    e->SendScintilla(QsciScintillaBase::SCI_SETUNDOCOLLECTION, 0UL);
    auto baseline = [&](size_t outSize) {
        std::string out(outSize, '\0');
        return Seconds([&] {
            std::memcpy(out.data(), c10.data(), std::min(outSize, c10.size()));
            e->SendScintilla(QsciScintillaBase::SCI_SETTEXT, 0UL, out.c_str());
        });
    };
    auto editor = [&](const std::function<void()>& command) {
        double best = 1e9;
        for (int i = 0; i < 3; ++i) {
            e->SetText(c10);
            e->SetSelStart(0);
            e->SetSelLength(e->TextLength());
            auto t0 = std::chrono::steady_clock::now();
            command();
            best = std::min(
                best, std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count());
        }
        return best;
    };
    e->SendScintilla(QsciScintillaBase::SCI_SETUNDOCOLLECTION, 1UL);
    const size_t lineCount = size_t(std::count(c10.begin(), c10.end(), '\n')) + 1;
    double indent =
        editor([&] { TransformCommands::RunLineStep(doc, LineStep::Indent, g_EditorSettings()); });
    double indentBase = baseline(c10.size() + 4 * lineCount);
    double upper = editor([&] { TransformCommands::ChangeSelectionCase(doc, CaseChange::Upper); });
    double upperBase = baseline(c10.size());
    std::printf(
        "editor indent selection 10 MB %8.2f ms  baseline %8.2f ms  ratio %5.2f (target <= 5)\n",
        indent * 1e3, indentBase * 1e3, indent / indentBase);
    std::printf(
        "editor to upper case 10 MB    %8.2f ms  baseline %8.2f ms  ratio %5.2f (target <= 5)\n",
        upper * 1e3, upperBase * 1e3, upper / upperBase);
    return g_sink == 0;
}
