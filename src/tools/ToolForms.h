#pragma once
// Pieces the tool dialogs share: the macro help lines, F1 for help, the store of tools.
#include "tools/core/ToolMacros.h"
#include "tools/core/ToolStore.h"

#include <QString>
#include <string>
#include <string_view>

class QDialog;
class QGroupBox;
class QWidget;

// The store of tools behind the program's settings.
ToolStore Tools();
// Runs a store operation; the tool dialogs ignore store failures.
template <class F> void IgnoringErrors(F&& f) {
    try {
        f();
    } catch (const SettingsStoreError&) {
    }
}
// The line a tool run starts: the macros of `line` expanded for the path of the active
// document, its Tag (empty for a document never saved). Bytes in and out, so a line is never
// re-encoded. The run dialog and the default compiler use the plain form, the DOS command
// dialog the quoting one; kestrum-do's expand-macros shows what they start.
std::string ExpandToolLine(std::string_view line, const QString& tag,
                           MacroQuoting quoting = MacroQuoting::None);
// The frame of the five lines that explain the macros.
QGroupBox* MacroHelpFrame(const QString& title, QWidget* parent);
// F1 anywhere in the dialog opens the help topic.
void HelpOnF1(QDialog* dialog, const QString& topic);
// Caption as accessible name, object name as given.
void NameForm(QDialog* dialog, const char* name, const QString& caption);
