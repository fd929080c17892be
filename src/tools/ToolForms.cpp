#include "tools/ToolForms.h"

#include "base/qt/AppGlobals.h"
#include "components/HelpSystem.h"

#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QShortcut>
#include <QVBoxLayout>

ToolStore Tools() { return ToolStore(Store(), AppTitle().toStdString()); }

std::string ExpandToolLine(std::string_view line, const QString& tag, MacroQuoting quoting) {
    return ToolMacros(line, ToBytes(tag), quoting);
}

QGroupBox* MacroHelpFrame(const QString& title, QWidget* parent) {
    auto* box = new QGroupBox(title, parent);
    box->setAccessibleName(title);
    auto* v = new QVBoxLayout(box);
    for (const char* line : {"%F - Inserts the filename of the current file",
                             "%P - Inserts the pathname of the current file",
                             "%N - Inserts the filename [no path] of the current file",
                             "%T - Inserts the filename [no path or ext] of the current file",
                             "%L - Inserts the filename [no ext] of the current file"})
        v->addWidget(new QLabel(QString::fromLatin1(line), box));
    return box;
}

void HelpOnF1(QDialog* dialog, const QString& topic) {
    auto* f1 = new QShortcut(QKeySequence(Qt::Key_F1), dialog);
    QObject::connect(f1, &QShortcut::activated, dialog, [topic] { ShowHelpTopic(topic); });
}

void NameForm(QDialog* dialog, const char* name, const QString& caption) {
    dialog->setObjectName(name);
    dialog->setWindowTitle(caption);
    dialog->setAccessibleName(caption);
}
