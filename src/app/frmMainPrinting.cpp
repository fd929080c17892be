// The print commands of the main window.
#include "app/frmMain.h"

#include "components/cDialogs.h"
#include "editor/frmDocument.h"
#include "printing/frmPageSetup.h"
#include "printing/modPrintRTFText.h"
#include "profiles/frmConfigAssocProfile.h"

void frmMain::mnuFilePageSetup_Click() {
    frmPageSetup dlg(this);
    ShowModal(dlg);
}

void frmMain::mnuFilePrinterSetup_Click() {
    // Cancel is silent, and Qt's dialog reports no failure of its own to show.
    cDialogs::Get().PrintDialog(SharedPrinter());
}

void frmMain::mnuFilePrint_Click() {
    frmDocument* doc = ActiveForm();
    if (!doc) return;
    if (!cDialogs::Get().PrintDialog(SharedPrinter())) return;
    PrintDocument(*doc->rtfText, SharedPrinter(), this);
    doc->Form_Resize();
}
