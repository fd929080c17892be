#include "tools/ToolDoCommands.h"

#include "editor/frmDocument.h"
#include "tools/ToolForms.h"

#include <QDir>
#include <QFile>
#include <ostream>

namespace {

// expand-macros [--dos-command] [--unsaved] COMMANDLINE FILE: the command line as the run
// dialog and the default compiler expand it (or the DOS command dialog, with --dos-command)
// for FILE as the active document.
void ExpandMacros(DoRun& run) {
    DoOptions o(run.args, {"--dos-command", "--unsaved"});
    const std::string line = o.Positional(1)[0];
    // The document's Tag: FILE as given, made absolute; empty for a document never saved.
    run.doc->Tag = o.Has("--unsaved")
                       ? QString()
                       : QDir::current().absoluteFilePath(QFile::decodeName(run.file.c_str()));
    const std::string expanded = ExpandToolLine(
        line, run.doc->Tag,
        o.Has("--dos-command") ? MacroQuoting::QuoteFileAndLineEnd : MacroQuoting::None);
    run.out->write(expanded.data(), std::streamsize(expanded.size()));
    *run.out << '\n';
}

} // namespace

std::vector<DoCommand> ToolDoCommands() {
    return {{"expand-macros", true, &ExpandMacros}};
}
