#pragma once
// The print job: the document's edit control formats the text page by page into the
// printer, through its own range formatting, while frmPrinting shows how far it has gone.
#include <QString>
#include <cstdint>

class QPrinter;
class QWidget;
class RichEdit;

enum class PrintOutcome {
    Printed,
    Busy,      // another job was running; the "Printing Error" box was shown
    Cancelled, // the user stopped the job
    NoRoom,    // the margins leave no room for text on the page
    Failed,    // the printer could not be opened or refused a page
};

struct PrintJobOptions {
    bool blackAndWhite = false; // colours print as black; bold and italic stay
    QWidget* owner = nullptr;   // owner of frmPrinting; none shows no progress window
};

// Prints the whole text of rtf. The left margin is whole twips, the others fractional twips.
PrintOutcome PrintRTF(RichEdit& rtf, QPrinter& printer, int32_t leftMargin, double topMargin,
                      double rightMargin, double bottomMargin, const PrintJobOptions& options);

// Prints rtf with the stored margins and black-and-white switch, and shows the boxes for a
// job that could not be done. What the menu command and the script command share.
PrintOutcome PrintDocument(RichEdit& rtf, QPrinter& printer, QWidget* owner);

// True while a job runs, and after a job that broke off on a printer failure: the guard then
// turns every further job away until the program starts again.
bool PrintingInProgress();
void ResetPrintingInProgressForTesting();

// The printer the print dialogs set up, kept between uses. With no printer installed it
// prints into a PDF file.
QPrinter& SharedPrinter();
