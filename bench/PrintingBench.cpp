// Printing a 3,000-line C source into a PDF file through the editor's print code against a
// plain QPainter listing of the same lines into the same kind of file, with the longest wait
// of the event loop meanwhile; and opening Editor Options with 65,000 bytes of keywords
// against a dialog that only lists the same words.
#include "BenchSource.h"
#include "base/qt/AppGlobals.h"
#include "editor/DocumentArray.h"
#include "editor/frmDocument.h"
#include "printing/modPrintRTFText.h"
#include "profiles/frmOptions.h"

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QFile>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPainter>
#include <QPrinter>
#include <QRegularExpression>
#include <QTimer>
#include <cstdio>
#include <cstdlib>

namespace {

int PdfPages(const QString& path) {
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) return 0;
    return int(QString::fromLatin1(f.readAll()).count(QRegularExpression("/Type\\s*/Page(?!s)")));
}

void SetUpPdf(QPrinter& printer, const QString& path) {
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(path);
}

// The baseline: each line drawn with drawText, a new page when the next would not fit.
double PlainListingMs(const std::string& text, const QFont& font, const QString& path) {
    QElapsedTimer clock;
    clock.start();
    QPrinter printer(QPrinter::HighResolution);
    SetUpPdf(printer, path);
    QPainter p(&printer);
    p.setFont(font);
    const int lineHeight = p.fontMetrics().height();
    const int bottom = printer.pageRect(QPrinter::DevicePixel).toRect().height();
    int y = lineHeight;
    size_t start = 0;
    while (start < text.size()) {
        size_t end = text.find("\r\n", start);
        if (end == std::string::npos) end = text.size();
        if (y > bottom) {
            printer.newPage();
            y = lineHeight;
        }
        p.drawText(0, y, QString::fromLatin1(text.data() + start, qsizetype(end - start)));
        y += lineHeight;
        start = end + 2;
    }
    p.end();
    return double(clock.nsecsElapsed()) / 1e6;
}

void PrintBench() {
    std::string text = bench::GenerateCSource(1 << 20);
    size_t at = 0;
    for (int line = 0; line < 3000 && at != std::string::npos; ++line)
        at = text.find("\r\n", at) + 2;
    text.resize(at);

    Documents().Reset(nullptr);
    g_EditorSettings() = EditorSettings::Defaults();
    bench::SetCProfile(g_EditorSettings());
    frmDocument* doc = NewDocument();
    doc->rtfText->SetText(text);
    doc->Settings() = g_EditorSettings();
    doc->Form_Activate();
    QApplication::processEvents();

    const QString base = "/tmp/kestrum-print-bench-base.pdf", ours = "/tmp/kestrum-print-bench.pdf";
    const double baseMs =
        PlainListingMs(text, QFontDatabase::systemFont(QFontDatabase::FixedFont), base);
    const int basePages = PdfPages(base);

    // The longest wait of a 5 ms timer while the job runs with its progress window.
    QWidget owner;
    owner.show();
    QElapsedTimer gap;
    qint64 longest = 0;
    QTimer tick;
    tick.setInterval(5);
    QObject::connect(&tick, &QTimer::timeout, [&] { longest = std::max(longest, gap.restart()); });
    tick.start();
    gap.start();
    QPrinter printer(QPrinter::HighResolution);
    SetUpPdf(printer, ours);
    QElapsedTimer clock;
    clock.start();
    const PrintOutcome outcome = PrintDocument(*doc->rtfText, printer, &owner);
    const double oursMs = double(clock.nsecsElapsed()) / 1e6;
    longest = std::max(longest, gap.elapsed());
    tick.stop();
    const int pages = PdfPages(ours);

    std::printf("Printing %d lines (%zu bytes) to PDF: %s, %d pages in %.1f ms = %.1f ms a page "
                "(target <= 50)\n",
                3000, text.size(), outcome == PrintOutcome::Printed ? "printed" : "FAILED", pages,
                oursMs, oursMs / std::max(pages, 1));
    std::printf(
        "  plain drawText listing: %d pages in %.1f ms = %.1f ms a page; ratio a page %.2f\n",
        basePages, baseMs, baseMs / std::max(basePages, 1),
        (oursMs / std::max(pages, 1)) / (baseMs / std::max(basePages, 1)));
    std::printf("  longest wait of the event loop during the job: %lld ms\n",
                static_cast<long long>(longest));
    doc->Changed = false;
    QFile::remove(base);
    QFile::remove(ours);
}

void OptionsBench() {
    // 65,000 bytes of keywords, a third in each list.
    g_EditorSettings() = EditorSettings::Defaults();
    QStringList words;
    size_t bytes = 0;
    for (int i = 0; bytes < 65000; ++i) {
        EditorSettings& s = g_EditorSettings();
        const std::string w = "keyword_" + std::to_string(i);
        s.Keywords[size_t(i % 3)] += w + kKeywordSeparator;
        bytes += w.size() + 1;
        words << QString::fromStdString(w);
    }

    QElapsedTimer clock;
    clock.start();
    {
        QDialog plain;
        auto* row = new QHBoxLayout(&plain);
        for (int l = 0; l < 3; ++l) {
            auto* list = new QListWidget;
            QStringList part;
            for (qsizetype i = l; i < words.size(); i += 3) part << words[i];
            list->addItems(part);
            row->addWidget(list);
        }
        plain.show();
        QApplication::processEvents();
    }
    const double baseMs = double(clock.nsecsElapsed()) / 1e6;

    clock.restart();
    {
        frmOptions dlg;
        dlg.show();
        QApplication::processEvents();
    }
    const double oursMs = double(clock.nsecsElapsed()) / 1e6;
    std::printf("Editor Options with %zu bytes of keywords (%lld words): %.1f ms (target <= 300)\n",
                bytes, static_cast<long long>(words.size()), oursMs);
    std::printf("  a dialog of three plain lists of the same words: %.1f ms; ratio %.2f\n", baseMs,
                oursMs / baseMs);
}

} // namespace

int main(int argc, char** argv) {
    if (!std::getenv("QT_QPA_PLATFORM")) setenv("QT_QPA_PLATFORM", "offscreen", 1);
    QApplication app(argc, argv);
    PrintBench();
    OptionsBench();
    return 0;
}
