#include "search/SearchDoCommands.h"

#include "editor/frmDocument.h"
#include "search/DocumentSearch.h"
#include "search/SearchCommands.h"
#include "search/SearchState.h"
#include "search/core/FileSearch.h"
#include "search/frmFind.h"
#include "search/frmFindEx.h"
#include "search/frmFindPattern.h"
#include "search/frmReplace.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <algorithm>
#include <ostream>
#include <tuple>

namespace {

QString Box(const DoRun& run, const std::string& bytes) {
    return run.doc->rtfText->FromDocumentBytes(bytes);
}

// The buttons to press, in order: 'F' cmdFind, 'N' cmdFindNext.
std::string Presses(const DoOptions& o) {
    std::string p = o.Value("--press").value_or("F");
    if (p.empty()) throw DoUsageError("--press wants at least one of F and N");
    for (char& c : p) {
        c = char(std::toupper(static_cast<unsigned char>(c)));
        if (c != 'F' && c != 'N') throw DoUsageError("--press takes F and N only");
    }
    return p;
}

template <typename Dialog>
void PressAll(DoRun& run, Dialog& dialog, const std::string& presses) {
    for (char c : presses) {
        (c == 'F' ? dialog.cmdFind : dialog.cmdFindNext)->click();
        WriteSelection(run);
    }
}

void Find(DoRun& run) {
    DoOptions o(run.args, {"--whole-word", "--case-sensitive"}, {"--press"});
    const std::string text = o.Positional(1)[0];
    const std::string presses = Presses(o);
    frmFind dialog;
    dialog.cboFind->setEditText(Box(run, text));
    dialog.chkWholeWord->setChecked(o.Has("--whole-word"));
    dialog.chkCaseSensitive->setChecked(o.Has("--case-sensitive"));
    PressAll(run, dialog, presses);
}

void FindEx(DoRun& run) {
    DoOptions o(run.args, {"--case-sensitive"}, {"--press"});
    const std::string text = o.Positional(1)[0];
    const std::string presses = Presses(o);
    frmFindEx dialog;
    dialog.txtFind->setPlainText(CrLfToBox(Box(run, text)));
    dialog.chkCaseSensitive->setChecked(o.Has("--case-sensitive"));
    PressAll(run, dialog, presses);
}

void FindNextMenu(DoRun& run) {
    DoOptions o(run.args, {}, {"--last", "--times"});
    o.Positional(0);
    const int times = ParseCount(o.Value("--times").value_or("1"), "--times");
    LastSearchText() = Box(run, o.Value("--last").value_or(""));
    for (int i = 0; i < times; ++i) {
        SearchFindNext();
        WriteSelection(run);
    }
}

void FindPattern(DoRun& run) {
    DoOptions o(run.args, {}, {"--press"});
    const std::string expression = o.Positional(1)[0];
    const std::string presses = Presses(o);
    frmFindPattern dialog;
    dialog.cboFind->setEditText(Box(run, expression));
    PressAll(run, dialog, presses);
}

// frmReplace, or frmReplaceEx when a text holds a line break, filled from the options.
void Replace(DoRun& run, bool all) {
    DoOptions o(run.args, {"--case-sensitive", "--in-selection", "--all-open-files"},
                all ? std::initializer_list<const char*>{}
                    : std::initializer_list<const char*>{"--answers"});
    const auto& pos = o.Positional(2);
    if (!all) {
        for (char c : o.Value("--answers").value_or("")) {
            switch (std::toupper(static_cast<unsigned char>(c))) {
            case 'Y': run.dialogs->answers.push_back(MsgResult::Yes); break;
            case 'N': run.dialogs->answers.push_back(MsgResult::No); break;
            case 'C': run.dialogs->answers.push_back(MsgResult::Cancel); break;
            default: throw DoUsageError("--answers takes Y, N and C only");
            }
        }
        run.dialogs->fallback = MsgResult::Cancel;
    }
    auto multiLine = [](const std::string& s) { return s.find_first_of("\r\n") != s.npos; };
    frmReplace* dialog = multiLine(pos[0]) || multiLine(pos[1])
                             ? static_cast<frmReplace*>(&frmReplaceEx::Instance())
                             : &frmReplace::Instance();
    dialog->SetFindText(Box(run, pos[0]));
    dialog->SetReplaceWith(Box(run, pos[1]));
    dialog->chkCaseSensitive->setChecked(o.Has("--case-sensitive"));
    (o.Has("--in-selection") ? dialog->optSelection : dialog->optEntireFile)->setChecked(true);
    dialog->chkAll->setChecked(o.Has("--all-open-files"));
    (all ? dialog->cmdReplaceAll : dialog->cmdReplace)->click();
    if (frmReplace::Loaded()) delete &frmReplace::Instance(); // kept after a Cancel
    if (frmReplaceEx::Loaded()) delete &frmReplaceEx::Instance();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    WriteDocument(run);
}

void ReplaceAll(DoRun& run) { Replace(run, true); }
void ReplacePrompting(DoRun& run) { Replace(run, false); }

void Goto(DoRun& run, void (*command)()) {
    DoOptions o(run.args, {});
    run.dialogs->inputs.push_back(QString::fromUtf8(o.Positional(1)[0]));
    command();
    WriteSelection(run);
}
void GotoLine(DoRun& run) { Goto(run, &SearchGotoLine); }
void GotoChar(DoRun& run) { Goto(run, &SearchGotoChar); }

void FindInFiles(DoRun& run) {
    DoOptions o(run.args, {"--case-sensitive", "--whole-word"}, {"--filter"});
    const auto& pos = o.Positional(2);
    FileSearchOptions options;
    options.matchCase = o.Has("--case-sensitive");
    options.wholeWord = o.Has("--whole-word");
    options.filter = o.Value("--filter").value_or("*.*");
    std::vector<std::tuple<std::string, int64_t, int64_t>> rows;
    std::string error;
    if (!SearchFolder(pos[1], pos[0], options, nullptr,
                      [&](std::vector<FileMatch>&& ms) {
                          for (FileMatch& m : ms)
                              rows.emplace_back(std::move(m.path), m.line, m.column);
                      },
                      error))
        throw DoUsageError(error);
    std::sort(rows.begin(), rows.end());
    for (const auto& [path, line, column] : rows) *run.out << path << ':' << line << ':' << column << '\n';
}

} // namespace

std::vector<DoCommand> SearchDoCommands() {
    return {
        {"find", true, &Find},
        {"find-ex", true, &FindEx},
        {"find-next-menu", true, &FindNextMenu},
        {"replace-all", true, &ReplaceAll},
        {"replace", true, &ReplacePrompting},
        {"find-pattern", true, &FindPattern},
        {"goto-line", true, &GotoLine},
        {"goto-char", true, &GotoChar},
        {"find-in-files", false, &FindInFiles},
    };
}
