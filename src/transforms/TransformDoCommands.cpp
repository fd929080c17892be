// kestrum-do's text transforms and HTML layouts. The options set the settings the menu
// commands read and answer their dialogs; the commands themselves are the menus' own.
#include "transforms/TransformDoCommands.h"

#include "base/qt/AppGlobals.h"
#include "editor/frmDocument.h"
#include "transforms/TransformCommands.h"
#include "transforms/frmSpacestoTabs.h"
#include "transforms/frmTabsToSpaces.h"

#include <QLineEdit>
#include <QPushButton>

#include <ostream>

namespace TC = TransformCommands;

namespace {

bool AllDigits(const std::string& s) {
    for (char c : s)
        if (c < '0' || c > '9') return false;
    return true;
}

// The settings options every transform takes; returns the parsed options.
struct TransformOptions {
    DoOptions options;
    explicit TransformOptions(DoRun& r, bool tabDialog)
        : options(r.args,
                  tabDialog ? std::initializer_list<const char*>{"--real-tabs",
                                                                 "--report-selection", "--cancel"}
                            : std::initializer_list<const char*>{"--real-tabs",
                                                                 "--report-selection"},
                  tabDialog ? std::initializer_list<const char*>{"--tab-width", "--spaces"}
                            : std::initializer_list<const char*>{"--tab-width"}) {
        options.Positional(0);
        EditorSettings& s = g_EditorSettings();
        s.TabWidth = 4;
        if (auto w = options.Value("--tab-width")) {
            if (w->empty() || w->size() > 5 || !AllDigits(*w) || std::stoi(*w) > 32767)
                throw DoUsageError("--tab-width takes a whole number of 0 or more");
            s.TabWidth = int16_t(std::stoi(*w));
        }
        s.RealTabs = options.Has("--real-tabs");
    }
    void Finish(DoRun& r) const {
        WriteDocument(r);
        if (options.Has("--report-selection")) {
            *r.err << "selection " << r.doc->rtfText->SelStart() << ' '
                   << r.doc->rtfText->SelLength() << '\n';
        }
    }
};

using Step = void (*)(frmDocument&);

template <Step step> void Simple(DoRun& r) {
    TransformOptions o(r, false);
    step(*r.doc);
    o.Finish(r);
}

template <LineStep step> void Lines(DoRun& r) {
    TransformOptions o(r, false);
    TC::RunLineStep(*r.doc, step, g_EditorSettings());
    o.Finish(r);
}

template <CaseChange how> void Case(DoRun& r) {
    TransformOptions o(r, false);
    TC::ChangeSelectionCase(*r.doc, how);
    o.Finish(r);
}

// Answers the tab dialog as the options say: the box's text, then OK or Cancel.
template <class Dialog, bool digitsOnly> void TabDialog(DoRun& r) {
    TransformOptions o(r, true);
    std::optional<std::string> spaces = o.options.Value("--spaces");
    if (spaces && digitsOnly && !AllDigits(*spaces))
        throw DoUsageError("--spaces takes only the digits 0-9 here");
    const bool cancel = o.options.Has("--cancel");
    auto answer = [&](QDialog& d) {
        auto& dialog = static_cast<Dialog&>(d);
        if (spaces) dialog.txtSpaces->setText(QString::fromStdString(*spaces));
        (cancel ? dialog.cmdCancel : dialog.cmdOK)->click();
    };
    if constexpr (digitsOnly)
        TC::TabsToSpaces(*r.doc, answer);
    else
        TC::SpacesToTabs(*r.doc, answer);
    o.Finish(r);
}

template <TC::HtmlLayout layout> void Html(DoRun& r) {
    DoOptions o(r.args, {}, {"--answer"});
    o.Positional(0);
    std::string answer = o.Value("--answer").value_or("yes");
    if (layout == TC::HtmlLayout::Indented && o.Value("--answer"))
        throw DoUsageError("unknown option --answer");
    if (answer != "yes" && answer != "no") throw DoUsageError("--answer takes yes or no");
    r.dialogs->answers.push_back(answer == "yes" ? MsgResult::Yes : MsgResult::No);
    TC::FormatHtml(*r.doc, layout);
    WriteDocument(r);
}

} // namespace

std::vector<DoCommand> TransformDoCommands() {
    return {
        {"indent-selection", true, Lines<LineStep::Indent>},
        {"unindent-selection", true, Lines<LineStep::Unindent>},
        {"trim-trailing-spaces", true, Lines<LineStep::TrimTrailing>},
        {"trim-preceding-spaces", true, Lines<LineStep::TrimPreceding>},
        {"trim-spaces", true, Lines<LineStep::Trim>},
        {"insert-page-break", true, Simple<TC::InsertPageBreak>},
        {"to-upper-case", true, Case<CaseChange::Upper>},
        {"to-lower-case", true, Case<CaseChange::Lower>},
        {"capitalize-first-letter", true, Case<CaseChange::Capitalize>},
        {"tabs-to-spaces", true, TabDialog<frmTabsToSpaces, true>},
        {"spaces-to-tabs", true, TabDialog<frmSpacestoTabs, false>},
        {"unix-to-dos", true, Simple<TC::ConvertToDos>},
        {"dos-to-unix", true, Simple<TC::ConvertToUnix>},
        {"delete-line", true, Simple<TC::DeleteLine>},
        {"select-line", true, Simple<TC::SelectLine>},
        {"html-compact", true, Html<TC::HtmlLayout::Compact>},
        {"html-loose", true, Html<TC::HtmlLayout::Loose>},
        {"html-indent", true, Html<TC::HtmlLayout::Indented>},
    };
}
