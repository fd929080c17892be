#include "app/cli/DoFrame.h"

#include "base/qt/AppGlobals.h"
#include "editor/DocumentArray.h"
#include "editor/DocumentHost.h"
#include "editor/frmDocument.h"

#include <QTemporaryDir>
#include <charconv>
#include <ostream>
#include <sstream>

namespace {

int64_t ParsePosition(const std::string& text) {
    int64_t n = 0;
    auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), n);
    if (ec != std::errc() || end != text.data() + text.size() || n < 0)
        throw DoUsageError("--select wants two whole numbers, not " + text);
    return n;
}

void CloseDocuments() {
    for (frmDocument* d : Documents().OpenDocuments()) {
        d->Changed = false;
        d->CloseWith(frmDocument::vbAppWindows);
    }
}

} // namespace

int RunKestrumDo(const std::vector<std::string>& args, std::span<const DoCommand> table,
                 std::ostream& out, std::ostream& err) {
    std::ostringstream result; // nothing reaches `out` unless the run succeeds
    DoDialogs dialogs(err);
    // Settings of a first start, in a store of this run's own.
    QTemporaryDir config;
    SetStoreDirectoryForTesting(config.path().toStdString() + "/");
    g_EditorSettings() = EditorSettings::Defaults();
    g_SelectedProfile() = g_EditorSettings();
    cDialogs::Install(&dialogs);
    Documents().Reset(nullptr);
    int status = 0;
    try {
        size_t i = 0;
        std::optional<std::pair<int64_t, int64_t>> select;
        if (i < args.size() && args[i] == "--select") {
            if (i + 2 >= args.size()) throw DoUsageError("--select wants START and LENGTH");
            select = std::pair(ParsePosition(args[i + 1]), ParsePosition(args[i + 2]));
            i += 3;
        }
        if (i >= args.size()) throw DoUsageError("no subcommand");
        const DoCommand* command = nullptr;
        for (const DoCommand& c : table)
            if (args[i] == c.name) command = &c;
        if (!command) throw DoUsageError("unknown subcommand " + args[i]);
        DoRun run;
        run.args.assign(args.begin() + std::ptrdiff_t(i + 1), args.end());
        run.dialogs = &dialogs;
        run.out = &result;
        run.err = &err;
        if (command->opensDocument) {
            if (run.args.empty()) throw DoUsageError("missing FILE");
            run.file = run.args.back();
            run.args.pop_back();
            QString error;
            run.doc = Host().OpenFileInNewDocument(FromBytes(run.file), {}, false, &error);
            if (!run.doc) throw DoUsageError(run.file + ": " + error.toStdString());
            if (select) {
                run.doc->rtfText->SetSelStart(select->first);
                run.doc->rtfText->SetSelLength(select->second);
            }
        }
        command->run(run);
    } catch (const DoUsageError& e) {
        err << "kestrum-do: " << e.what() << '\n';
        status = 2;
    }
    CloseDocuments();
    cDialogs::Install(nullptr);
    if (status == 0) out << result.str();
    out.flush();
    return status;
}
