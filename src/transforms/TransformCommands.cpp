#include "transforms/TransformCommands.h"

#include "base/qt/AppGlobals.h"
#include "components/cDialogs.h"
#include "editor/frmDocument.h"
#include "transforms/core/HtmlAssist.h"
#include "transforms/core/HtmlFormat.h"
#include "transforms/core/TextConversions.h"
#include "transforms/frmSpacestoTabs.h"
#include "transforms/frmTabsToSpaces.h"

#include <algorithm>

#include <QApplication>
#include <QDateTime>
#include <QDialog>
#include <QLineEdit>
#include <QLocale>

namespace TransformCommands {

namespace {

// A whole-text result larger than this is refused with a message instead of exhausting
// memory (a tab count in the millions, a nest thousands of levels deep).
constexpr uint64_t kMaxResult = uint64_t(1) << 30;

void TooLarge() {
    cDialogs::Get().MsgBox("The result would be too large to hold; the text was left as it was.",
                           MsgButtons::OK, MsgIcon::Exclamation, AppTitle());
}

// Recolours an edited passage as a pasted one is.
void Recolour(frmDocument& doc, int64_t start, int64_t end) {
    doc.ChangedHighLight = true;
    doc.CodePassage(start, end);
}

// Many small edits become one replacement of the span they cover, built in one pass: the
// control then moves its text once instead of once per line.
TextEdit MergeEdits(std::string_view text, const std::vector<TextEdit>& edits) {
    TextEdit merged;
    merged.start = edits.front().start;
    const TextEdit& last = edits.back();
    int64_t end = std::max(last.start + last.length, merged.start);
    size_t size = size_t(end - merged.start);
    for (const TextEdit& e : edits) size += e.text.size();
    merged.text.reserve(size);
    int64_t at = merged.start;
    for (const TextEdit& e : edits) {
        merged.text.append(text.substr(size_t(at), size_t(e.start - at)));
        merged.text.append(e.text);
        at = e.start + e.length;
    }
    merged.length = end - merged.start;
    return merged;
}

void HourglassAssign(frmDocument& doc, std::string_view text) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    AssignText(doc, text);
    QApplication::restoreOverrideCursor();
}

} // namespace

void ExecDialog(QDialog& dialog) {
    dialog.exec();
}

void RunLineStep(frmDocument& doc, LineStep step, const EditorSettings& settings) {
    RichEdit* e = doc.rtfText;
    e->SetRedraw(false);
    LineCommandResult r = LineCommand(e->TextView(), e->SelStart(), e->SelLength(), step,
                                      IndentUnit(settings.RealTabs, settings.TabWidth));
    if (r.edits.size() > 1) r.edits = {MergeEdits(e->TextView(), r.edits)};
    e->ApplyEdits(r.edits);
    e->SetSelStart(r.selStart);
    e->SetSelLength(r.selLength);
    if (!r.edits.empty()) Recolour(doc, r.selStart, r.selStart + r.selLength);
    e->SetRedraw(true);
}

void InsertPageBreak(frmDocument& doc) {
    UndoGroup group(*doc.rtfText);
    doc.rtfText->SetSelText("\f");
}

void ChangeSelectionCase(frmDocument& doc, CaseChange how) {
    RichEdit* e = doc.rtfText;
    if (e->SelLength() == 0) return;
    const int64_t s = e->SelStart();
    std::string changed = ChangeCase(e->TextView().substr(size_t(s), size_t(e->SelLength())), how,
                                     e->IsUtf8Document());
    // The new text keeps the colour of the text it replaces; the document's colours count
    // as stale until its next colouring.
    UndoGroup group(*e);
    e->SetSelText(changed);
}

void AssignText(frmDocument& doc, std::string_view text) {
    RichEdit* e = doc.rtfText;
    e->ApplyEdits({TextEdit{0, e->TextLength(), std::string(text)}});
    e->SetSelStart(0);
}

namespace {
template <class Dialog>
bool RunTabDialog(frmDocument& doc, const DialogRunner& run, bool toSpaces) {
    Dialog dialog(cDialogs::ParentWidget());
    run(dialog);
    if (dialog.Tag.isEmpty()) return false;
    const int64_t count = ReadCount(dialog.txtSpaces->text().toStdString());
    std::string_view text = doc.rtfText->TextView();
    if (toSpaces && TabsToSpacesSize(text, count) > kMaxResult) {
        TooLarge();
        return false;
    }
    AssignText(doc, toSpaces ? ::TabsToSpaces(text, count) : ::SpacesToTabs(text, count));
    if (g_EditorSettings().AutoCode) doc.ColorCode();
    return true;
}
} // namespace

bool TabsToSpaces(frmDocument& doc, const DialogRunner& run) {
    return RunTabDialog<frmTabsToSpaces>(doc, run, true);
}

bool SpacesToTabs(frmDocument& doc, const DialogRunner& run) {
    return RunTabDialog<frmSpacestoTabs>(doc, run, false);
}

void ConvertToDos(frmDocument& doc) {
    std::string_view text = doc.rtfText->TextView();
    if (text.size() + size_t(std::count(text.begin(), text.end(), '\n')) > kMaxResult) {
        TooLarge();
        return;
    }
    HourglassAssign(doc, ToDosLineEnds(text));
    doc.rtfText->SetLineEnds(LineEndStyle::CrLf);
    cDialogs::Get().MsgBox("All linefeeds replaced with carriage return + linefeed sequences.",
                           MsgButtons::OK, MsgIcon::Information,
                           "File Converted from UNIX to DOS Format");
}

void ConvertToUnix(frmDocument& doc) {
    HourglassAssign(doc, ToUnixLineEnds(doc.rtfText->TextView()));
    doc.rtfText->SetLineEnds(LineEndStyle::Lf);
    cDialogs::Get().MsgBox("All carriage returns stripped.", MsgButtons::OK, MsgIcon::Information,
                           "File Converted from DOS to UNIX Format");
}

void DeleteLine(frmDocument& doc) {
    RichEdit* e = doc.rtfText;
    TextRange r = DeleteLineRange(e->TextView(), e->SelStart());
    e->SetSelStart(r.start);
    e->SetSelLength(r.length);
    UndoGroup group(*e);
    e->SetSelText("");
}

void SelectLine(frmDocument& doc) {
    RichEdit* e = doc.rtfText;
    TextRange r = LineAround(e->TextView(), e->SelStart());
    e->SetSelStart(r.start);
    e->SetSelLength(r.length);
}

void InsertDateTime(frmDocument& doc) {
    QLocale l;
    QDateTime now = QDateTime::currentDateTime();
    InsertText(doc, l.toString(now.date(), QLocale::ShortFormat) + " " +
                        l.toString(now.time(), QLocale::LongFormat));
}

bool FormatHtml(frmDocument& doc, HtmlLayout layout) {
    if (layout != HtmlLayout::Indented &&
        cDialogs::Get().MsgBox("Please note that using this command on non-HTML files may result "
                               "in the corruption of that file's linebreak structure. Continue?",
                               MsgButtons::YesNo, MsgIcon::Exclamation,
                               "Warining!") != MsgResult::Yes)
        return false;
    std::string_view text = doc.rtfText->TextView();
    std::optional<std::string> result;
    if (layout == HtmlLayout::Compact) result = HTMLCompact(text);
    if (layout == HtmlLayout::Loose) result = HTMLLoose(text);
    if (layout == HtmlLayout::Indented) result = HTMLIndent(text, size_t(kMaxResult));
    if (!result) {
        TooLarge();
        return false;
    }
    AssignText(doc, *result);
    return true;
}

void InsertTag(frmDocument& doc, std::string_view entry) {
    RichEdit* e = doc.rtfText;
    const int64_t s = e->SelStart();
    TagInsertion r =
        WrapSelection(entry, e->TextView().substr(size_t(s), size_t(e->SelLength())), s);
    {
        UndoGroup group(*e);
        e->SetSelText(r.text);
    }
    e->SetSelStart(r.selStart);
    e->SetSelLength(r.selLength);
    Recolour(doc, r.selStart, r.selStart + r.selLength);
    e->setFocus();
}

void InsertText(frmDocument& doc, const QString& text) {
    RichEdit* e = doc.rtfText;
    std::optional<std::string> bytes = e->ToDocumentBytes(text);
    if (!bytes) return; // a character a Latin-1 document cannot hold
    const int64_t s = e->SelStart();
    {
        UndoGroup group(*e);
        e->SetSelText(*bytes);
    }
    Recolour(doc, s, s + int64_t(bytes->size()));
}

} // namespace TransformCommands
