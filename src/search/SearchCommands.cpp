#include "search/SearchCommands.h"

#include "base/qt/AppGlobals.h"
#include "components/cDialogs.h"
#include "editor/DocumentHost.h"
#include "editor/frmDocument.h"
#include "search/DocumentSearch.h"
#include "search/SearchState.h"
#include "search/core/GotoNumber.h"
#include "search/frmFind.h"
#include "search/frmFindEx.h"
#include "search/frmFindInFiles.h"
#include "search/frmFindPattern.h"
#include "search/frmReplace.h"

#include <QCoreApplication>
#include <QObject>

namespace {
QString tr(const char* s) { return QCoreApplication::translate("SearchCommands", s); }
} // namespace

void SearchFind() {
    if (!Host().ActiveDocument()) return;
    ShowSearchDialog(frmFind::Instance());
}

void SearchFindEx() {
    if (!Host().ActiveDocument()) return;
    frmFindEx dialog(cDialogs::ParentWidget());
    ShowSearchDialog(dialog);
}

void SearchFindNext() {
    frmDocument* doc = Host().ActiveDocument();
    if (!doc) return;
    RichEdit& rtf = *doc->rtfText;
    // Always whole word and case-insensitive, whatever the dialog's boxes say.
    const std::string text = DocumentBytes(rtf, LastSearchText());
    if (FindInDocument(rtf, text, rtf.SelStart() + 1, -1, true, false) == -1)
        cDialogs::Get().MsgBox(tr("No more occurrences after cursor."), MsgButtons::OK,
                               MsgIcon::None, AppTitle());
    else
        rtf.SetSelLength(int64_t(text.size()));
}

void SearchReplace() {
    if (!Host().ActiveDocument()) return;
    ShowSearchDialog(frmReplace::Instance());
}

void SearchReplaceEx() {
    if (!Host().ActiveDocument()) return;
    ShowSearchDialog(frmReplaceEx::Instance());
}

void SearchFindPattern() {
    if (!Host().ActiveDocument()) return;
    ShowSearchDialog(frmFindPattern::Instance());
}

void SearchGotoLine() {
    frmDocument* doc = Host().ActiveDocument();
    if (!doc) return;
    RichEdit& rtf = *doc->rtfText;
    const int count = rtf.GetLineCount();
    const QString answer = cDialogs::Get().InputPrompt(
        tr("Enter the number of the line you wish to jump to. There are currently ") +
            QString::number(count) + tr(" lines displayed."),
        tr("Go To Line"), QString());
    auto line = GotoLineIndex(answer.toStdString(), count);
    if (!line) {
        cDialogs::Get().MsgBox(tr("That line does not exist in the current file."),
                               MsgButtons::OK, MsgIcon::None, tr("Go To Line"));
        return;
    }
    const int64_t start = rtf.LineIndex(int(*line));
    rtf.SetSelStart(start);
    rtf.SetSelLength(rtf.LineLength(start));
    rtf.setFocus();
}

void SearchGotoChar() {
    frmDocument* doc = Host().ActiveDocument();
    if (!doc) return;
    RichEdit& rtf = *doc->rtfText;
    const QString answer = cDialogs::Get().InputPrompt(
        tr("Enter the index of the character you want to jump to."), tr("Go To Character"),
        QString());
    auto sel = GotoCharSelection(answer.toStdString(), rtf.TextLength());
    if (!sel) {
        cDialogs::Get().MsgBox(tr("That character does not exist in the current file."),
                               MsgButtons::OK, MsgIcon::None, tr("Error"));
        return;
    }
    rtf.SetSelStart(sel->start);
    rtf.SetSelLength(sel->length);
    rtf.setFocus();
}

void SearchFindInFiles() { frmFindInFiles::ShowDialog(); }
