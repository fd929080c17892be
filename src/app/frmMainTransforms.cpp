// The Format and Edit menu commands that change text, and the HTML assistants. Each hands
// the active document to the transform commands; with no document active each does nothing.
#include "base/qt/AppGlobals.h"
#include "app/frmMain.h"
#include "editor/frmDocument.h"
#include "transforms/TransformCommands.h"
#include "transforms/frmHTMLTags.h"
#include "transforms/frmSpecialChar.h"

namespace TC = TransformCommands;

namespace {
template <class F> void OnActive(frmMain& m, F&& f) {
    if (frmDocument* doc = m.ActiveForm()) f(*doc);
}
} // namespace

void frmMain::mnuFormatIndent_Click() {
    OnActive(*this,
             [](frmDocument& d) { TC::RunLineStep(d, LineStep::Indent, g_EditorSettings()); });
}
void frmMain::mnuFormatUnindent_Click() {
    OnActive(*this,
             [](frmDocument& d) { TC::RunLineStep(d, LineStep::Unindent, g_EditorSettings()); });
}
void frmMain::mnuFormatTrimTrailing_Click() {
    OnActive(*this, [](frmDocument& d) {
        TC::RunLineStep(d, LineStep::TrimTrailing, g_EditorSettings());
    });
}
void frmMain::mnuFormatTrimPreceding_Click() {
    OnActive(*this, [](frmDocument& d) {
        TC::RunLineStep(d, LineStep::TrimPreceding, g_EditorSettings());
    });
}
void frmMain::mnuFOrmatTrim_Click() {
    OnActive(*this, [](frmDocument& d) { TC::RunLineStep(d, LineStep::Trim, g_EditorSettings()); });
}
void frmMain::mnuFormatPageBreak_Click() {
    OnActive(*this, TC::InsertPageBreak);
}
void frmMain::mnuFOrmatUpper_Click() {
    OnActive(*this, [](frmDocument& d) { TC::ChangeSelectionCase(d, CaseChange::Upper); });
}
void frmMain::mnuFormatLower_Click() {
    OnActive(*this, [](frmDocument& d) { TC::ChangeSelectionCase(d, CaseChange::Lower); });
}
void frmMain::mnuFormatCapSentence_Click() {
    OnActive(*this, [](frmDocument& d) { TC::ChangeSelectionCase(d, CaseChange::Capitalize); });
}
void frmMain::mnuFormatTabsToSpaces_Click() {
    OnActive(*this, [](frmDocument& d) { TC::TabsToSpaces(d); });
}
void frmMain::mnuFormatSpacestoTabs_Click() {
    OnActive(*this, [](frmDocument& d) { TC::SpacesToTabs(d); });
}
void frmMain::mnuEditConvertToDOS_Click() {
    OnActive(*this, TC::ConvertToDos);
}
void frmMain::mnuEditConvertToUnix_Click() {
    OnActive(*this, TC::ConvertToUnix);
}
void frmMain::mnuEditDeleteLine_Click() {
    OnActive(*this, TC::DeleteLine);
}
void frmMain::mnuEditSelectLine_Click() {
    OnActive(*this, TC::SelectLine);
}
void frmMain::mnuEditDateTime_Click() {
    OnActive(*this, TC::InsertDateTime);
}
void frmMain::mnuFormatHTMLCompact_Click() {
    OnActive(*this, [](frmDocument& d) { TC::FormatHtml(d, TC::HtmlLayout::Compact); });
}
void frmMain::mnuFormatHTMLLoose_Click() {
    OnActive(*this, [](frmDocument& d) { TC::FormatHtml(d, TC::HtmlLayout::Loose); });
}
void frmMain::FormatHTMLIndented() {
    OnActive(*this, [](frmDocument& d) { TC::FormatHtml(d, TC::HtmlLayout::Indented); });
}

void frmMain::mnuFormatHTML_Click() {
    if (!ActiveForm()) return;
    // One picker, kept beside the documents until closed.
    auto* tags = findChild<frmHTMLTags*>(QString(), Qt::FindDirectChildrenOnly);
    if (!tags) {
        tags = new frmHTMLTags([this] { return ActiveForm(); }, this);
        tags->setAttribute(Qt::WA_DeleteOnClose);
    }
    tags->show();
    tags->raise();
}

void frmMain::mnuEditInsertSpecialChars_Click() {
    frmDocument* doc = ActiveForm();
    if (!doc) return;
    frmSpecialChar dialog(*doc, this);
    dialog.exec();
}
