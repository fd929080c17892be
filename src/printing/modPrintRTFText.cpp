#include "printing/modPrintRTFText.h"

#include "base/qt/AppGlobals.h"
#include "components/cDialogs.h"
#include "editor/RichEdit.h"
#include "printing/core/PageGeometry.h"
#include "printing/core/PageSetupValues.h"
#include "printing/frmPrinting.h"

#include <QApplication>
#include <QDir>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QProgressBar>
#include <memory>

namespace {
bool printingInProgress = false;

// Lines longer than this print cut at the right margin instead of wrapped: laying out a
// wrapped line of megabytes again for every page it spans would never end.
constexpr int64_t kLongestWrappedLine = 100000;

int Px(int32_t twips, int dpi) {
    return int(int64_t(twips) * dpi / 1440);
}

class PrinterPages : public PageSink {
  public:
    PrinterPages(RichEdit& rtf, QPrinter& printer, QPainter& painter, const QRect& area,
                 int64_t length, frmPrinting* window)
        : rtf_(rtf), printer_(printer), painter_(painter), area_(area), length_(length),
          window_(window) {}

    int64_t FormatPage(int64_t first) override {
        return rtf_.SendScintilla(QsciScintillaBase::SCI_FORMATRANGE, 1, &painter_, area_,
                                  long(first), long(length_));
    }
    bool NewPage() override { return printer_.newPage(); }
    bool Progress(int percent) override {
        if (!window_) return true;
        window_->ProgressBar->setValue(percent);
        window_->repaint();
        QApplication::processEvents();
        return !window_->CancelRequested();
    }

  private:
    RichEdit& rtf_;
    QPrinter& printer_;
    QPainter& painter_;
    QRect area_;
    int64_t length_;
    frmPrinting* window_;
};
} // namespace

bool PrintingInProgress() {
    return printingInProgress;
}
void ResetPrintingInProgressForTesting() {
    printingInProgress = false;
}

QPrinter& SharedPrinter() {
    static QPrinter* printer = [] {
        auto* p = new QPrinter(QPrinter::HighResolution);
        if (QPrinterInfo::availablePrinters().isEmpty()) {
            p->setOutputFormat(QPrinter::PdfFormat);
            p->setOutputFileName(QDir::homePath() + "/Kestrum.pdf");
        }
        return p;
    }();
    return *printer;
}

PrintOutcome PrintRTF(RichEdit& rtf, QPrinter& printer, int32_t leftMargin, double topMargin,
                      double rightMargin, double bottomMargin, const PrintJobOptions& options) {
    if (printingInProgress) {
        cDialogs::Get().MsgBox(
            "Kestrum is currently processing a printing job. Please wait until it has finished "
            "spooling this document before printing another.",
            MsgButtons::OK, MsgIcon::Exclamation, "Printing Error");
        return PrintOutcome::Busy;
    }

    const int dpi = printer.resolution();
    const double twipsPerPixel = 1440.0 / (dpi > 0 ? dpi : 72);
    const QRect paper = printer.paperRect(QPrinter::DevicePixel).toRect();
    const QRect printable = printer.pageRect(QPrinter::DevicePixel).toRect();
    PageMetrics page;
    page.pageWidth = paper.width() * twipsPerPixel;
    page.pageHeight = paper.height() * twipsPerPixel;
    page.printableWidth = printable.width() * twipsPerPixel;
    page.printableHeight = printable.height() * twipsPerPixel;
    page.offsetXPixels = printable.left() - paper.left();
    page.offsetYPixels = printable.top() - paper.top();
    page.twipsPerPixelX = page.twipsPerPixelY = twipsPerPixel;
    MarginTwips margins{leftMargin, topMargin, rightMargin, bottomMargin};
    const TwipRect draw = ComputeFormatRects(page, margins).draw;
    const QRect area(QPoint(Px(draw.left, dpi), Px(draw.top, dpi)),
                     QPoint(Px(draw.right, dpi) - 1, Px(draw.bottom, dpi) - 1));
    // Scintilla lays out nothing sensible in a rectangle without width or height.
    if (area.width() <= 0 || area.height() <= 0) return PrintOutcome::NoRoom;

    rtf.FlushDeferredStyles();
    const int64_t textLength = rtf.TextLength();
    const bool wrap = LongestLine(rtf.TextView()) <= kLongestWrappedLine;

    QPainter painter;
    if (!painter.begin(&printer)) return PrintOutcome::Failed;

    rtf.SendScintilla(QsciScintillaBase::SCI_SETPRINTWRAPMODE,
                      wrap ? QsciScintilla::SC_WRAP_WORD : QsciScintilla::SC_WRAP_NONE);
    rtf.SendScintilla(QsciScintillaBase::SCI_SETPRINTMAGNIFICATION, 0L);
    rtf.SendScintilla(QsciScintillaBase::SCI_SETPRINTCOLOURMODE,
                      options.blackAndWhite ? QsciScintilla::SC_PRINT_BLACKONWHITE
                                            : QsciScintilla::SC_PRINT_NORMAL);

    printingInProgress = true;
    std::unique_ptr<frmPrinting> window;
    if (options.owner) {
        window = std::make_unique<frmPrinting>(options.owner);
        window->show();
        window->raise();
    }
    PrinterPages pages(rtf, printer, painter, area, textLength, window.get());
    const PageLoopResult result = RunPageLoop(textLength, pages);
    window.reset();

    if (result.end == PageLoopEnd::Failed) {
        painter.end();
        return PrintOutcome::Failed; // the guard stays set, as after any broken job
    }
    painter.end();
    printingInProgress = false;
    rtf.SendScintilla(QsciScintillaBase::SCI_FORMATRANGE, 0UL, 0L);
    if (result.end == PageLoopEnd::Cancelled) return PrintOutcome::Cancelled;
    if (result.end == PageLoopEnd::Stalled) return PrintOutcome::NoRoom;
    return PrintOutcome::Printed;
}

PrintOutcome PrintDocument(RichEdit& rtf, QPrinter& printer, QWidget* owner) {
    const PrintMargins& m = g_PrintMargins();
    const MarginTwips t = MarginsToTwips(m.Left, m.Top, m.Right, m.Bottom);
    PrintJobOptions options;
    options.owner = owner;
    options.blackAndWhite = LoadBlackAndWhite(Store(), ToBytes(AppTitle()));
    const PrintOutcome outcome = PrintRTF(rtf, printer, t.left, t.top, t.right, t.bottom, options);
    if (outcome == PrintOutcome::Failed)
        cDialogs::Get().MsgBox("An error occurred during the printing process. Ensure that the "
                               "printer is powered up and online.",
                               MsgButtons::OK, MsgIcon::Critical, "Printer Error");
    else if (outcome == PrintOutcome::NoRoom)
        cDialogs::Get().MsgBox("The page margins leave no room for the text. Make them smaller "
                               "in Page Setup and print again.",
                               MsgButtons::OK, MsgIcon::Exclamation, "Printer Error");
    return outcome;
}
