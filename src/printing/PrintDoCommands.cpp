#include "printing/PrintDoCommands.h"

#include "base/qt/AppGlobals.h"
#include "base/qt/DataPaths.h"
#include "editor/frmDocument.h"
#include "printing/core/PageSetupValues.h"
#include "printing/modPrintRTFText.h"
#include "profiles/core/ProfileFile.h"
#include "profiles/core/SyntaxAssociations.h"

#include <QFile>
#include <QPrinter>

namespace {

// Reads PROFILES/NAME into the document's own settings, as a window does with the profile
// its file's extension names; the word wrap stays the editor's.
void UseProfile(frmDocument& doc, const std::string& name) {
    if (name.empty() || name == "." || name == ".." || name.find('/') != std::string::npos)
        throw DoUsageError("--profile wants the name of a file in PROFILES/, not \"" + name + "\"");
    EditorSettings profile;
    const QString path = DataFileToRead("PROFILES/" + FromBytes(name));
    if (ReadProfileFile(ToBytes(path), profile).status == ProfileReadStatus::NotOpened)
        throw DoUsageError("no profile \"" + name + "\" in PROFILES/");
    profile.WordWrap = doc.Settings().WordWrap;
    doc.Settings() = profile;
}

void Print(DoRun& run) {
    DoOptions o(run.args, {}, {"--pdf", "--profile"});
    o.Positional(0);
    const std::optional<std::string> pdf = o.Value("--pdf");
    if (!pdf || pdf->empty()) throw DoUsageError("print wants --pdf OUT");
    if (auto name = o.Value("--profile")) {
        UseProfile(*run.doc, *name);
    } else {
        // A first start of the editor writes its table of extensions before it opens a file;
        // the frame opened FILE without one, so the window looks its profile up again.
        CreateSyntaxAssocs(Store(), ToBytes(AppTitle()));
        run.doc->SetSyntax();
    }

    // The page as the user set it up in the editor: margins and black and white come from the
    // user's own settings (only read), everything else stays a first start's.
    SettingsStore user(SettingsStore::DefaultDirectory());
    const std::string app = ToBytes(AppTitle());
    for (const auto& [key, value] : user.GetAllSettings(app, kPrinterSection))
        Store().SaveSetting(app, kPrinterSection, key, value);
    LoadPrintMargins(Store(), app, g_PrintMargins());
    // The first activation of a window shows its font and colours and colours the text.
    run.doc->Form_Activate();

    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(QFile::decodeName(pdf->c_str()));
    PrintDocument(*run.doc->rtfText, printer, nullptr);
}

} // namespace

std::vector<DoCommand> PrintDoCommands() {
    return {{"print", true, &Print}};
}
