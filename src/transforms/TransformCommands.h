#pragma once
// The text commands of the Format and Edit menus, run on one document. Each works out its
// result with the byte-string routines of transforms/core and applies it as one undo step.
// The main window's handlers and kestrum-do both call these.
#include "transforms/core/CaseTransforms.h"
#include "editor/core/LineCommand.h"

#include <functional>
#include <string>
#include <string_view>

#include <QString>

class frmDocument;
class QDialog;
struct EditorSettings;

namespace TransformCommands {

// Shows a dialog modally; tests and kestrum-do answer it in place of the user.
using DialogRunner = std::function<void(QDialog&)>;
void ExecDialog(QDialog& dialog);

// Indent, Unindent and the trims on the lines the selection touches; afterwards those lines
// are selected, from the start of the first to the end of the last without its line end.
void RunLineStep(frmDocument& doc, LineStep step, const EditorSettings& settings);
// A form feed in place of the selection.
void InsertPageBreak(frmDocument& doc);
void ChangeSelectionCase(frmDocument& doc, CaseChange how);

// Puts text in place of the whole text as one undo step; the caret goes to 0.
void AssignText(frmDocument& doc, std::string_view text);
// The dialog commands; false when cancelled.
bool TabsToSpaces(frmDocument& doc, const DialogRunner& run = ExecDialog);
bool SpacesToTabs(frmDocument& doc, const DialogRunner& run = ExecDialog);
void ConvertToDos(frmDocument& doc);
void ConvertToUnix(frmDocument& doc);

void DeleteLine(frmDocument& doc);
void SelectLine(frmDocument& doc);
void InsertDateTime(frmDocument& doc);

enum class HtmlLayout { Compact, Loose, Indented };
// Compact and Loose ask first; false when the answer was not Yes.
bool FormatHtml(frmDocument& doc, HtmlLayout layout);

// A tag entry of the tag picker around the selection; the tags and what they wrap end up
// selected.
void InsertTag(frmDocument& doc, std::string_view entry);
// Text typed or picked in the special character dialog, in place of the selection.
void InsertText(frmDocument& doc, const QString& text);

} // namespace TransformCommands
