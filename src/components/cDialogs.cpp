#include "components/cDialogs.h"

#include "components/frmInputBox.h"

#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>
#include <QFontDialog>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QRegularExpression>

namespace {
cDialogs* installed = nullptr;
} // namespace

cDialogs& cDialogs::Get() {
    static cDialogs real;
    return installed ? *installed : real;
}

void cDialogs::Install(cDialogs* dialogs) { installed = dialogs; }

QWidget* cDialogs::ParentWidget() {
    if (QWidget* w = QApplication::activeModalWidget()) return w;
    if (QWidget* w = QApplication::activeWindow()) return w;
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w->isVisible() && w->inherits("QMainWindow")) return w;
    return nullptr;
}

MsgResult cDialogs::MsgBox(const QString& text, MsgButtons buttons, MsgIcon icon,
                           const QString& caption) {
    QMessageBox box(ParentWidget());
    box.setWindowTitle(caption);
    box.setText(text);
    switch (icon) {
    case MsgIcon::None: box.setIcon(QMessageBox::NoIcon); break;
    case MsgIcon::Information: box.setIcon(QMessageBox::Information); break;
    case MsgIcon::Question: box.setIcon(QMessageBox::Question); break;
    case MsgIcon::Exclamation: box.setIcon(QMessageBox::Warning); break;
    case MsgIcon::Critical: box.setIcon(QMessageBox::Critical); break;
    }
    switch (buttons) {
    case MsgButtons::OK: box.setStandardButtons(QMessageBox::Ok); break;
    case MsgButtons::OKCancel: box.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel); break;
    case MsgButtons::YesNo: box.setStandardButtons(QMessageBox::Yes | QMessageBox::No); break;
    case MsgButtons::YesNoCancel:
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
        break;
    }
    switch (box.exec()) {
    case QMessageBox::Yes: return MsgResult::Yes;
    case QMessageBox::No: return MsgResult::No;
    case QMessageBox::Ok: return MsgResult::OK;
    default:
        // Escape on a Yes/No box answers No, as there is no Cancel to give.
        return buttons == MsgButtons::YesNo ? MsgResult::No
               : buttons == MsgButtons::OK  ? MsgResult::OK
                                            : MsgResult::Cancel;
    }
}

QStringList FilterToQt(const QString& filter) {
    QStringList parts = filter.split('|');
    QStringList out;
    for (int i = 0; i + 1 < parts.size(); i += 2) {
        QString patterns = parts[i + 1];
        patterns.replace(';', ' ');
        QString desc = parts[i];
        // Qt reads the patterns from the parentheses; add them when the description has none.
        QString entry = desc.contains('(') ? desc : desc + " (" + patterns + ")";
        // "*.*" means every file, but Qt would show only names with a dot: profiles, Makefile
        // and other names without an extension would be missing.
        static const QRegularExpression allFiles(
            QStringLiteral("(^|[\\s(])\\*\\.\\*(?=[\\s)]|$)"));
        entry.replace(allFiles, QStringLiteral("\\1*"));
        out << entry;
    }
    return out;
}

std::optional<QString> cDialogs::FileDialog(const FileDialogOptions& o) {
    QFileDialog dlg(ParentWidget(), o.title, o.initDir);
    dlg.setAcceptMode(o.save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dlg.setFileMode(o.save || !o.fileMustExist ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    QStringList filters = FilterToQt(o.filter);
    if (!filters.isEmpty()) {
        dlg.setNameFilters(filters);
        if (o.filterIndex >= 1 && o.filterIndex <= filters.size())
            dlg.selectNameFilter(filters[o.filterIndex - 1]);
    }
    if (!o.defaultExt.isEmpty()) dlg.setDefaultSuffix(o.defaultExt);
    if (!o.fileName.isEmpty()) dlg.selectFile(o.fileName);
    dlg.setOption(QFileDialog::DontConfirmOverwrite, !o.overwritePrompt);
    if (dlg.exec() != QDialog::Accepted || dlg.selectedFiles().isEmpty()) return std::nullopt;
    return dlg.selectedFiles().first();
}

std::optional<QFont> cDialogs::FontDialog(const QFont& initial, const QString& title) {
    bool ok = false;
    QFont f = QFontDialog::getFont(&ok, initial, ParentWidget(), title);
    if (!ok) return std::nullopt;
    return f;
}

std::optional<QColor> cDialogs::ColorDialog(const QColor& initial) {
    QColor c = QColorDialog::getColor(initial, ParentWidget());
    if (!c.isValid()) return std::nullopt;
    return c;
}

bool cDialogs::PrintDialog(QPrinter& printer) {
    QPrintDialog dlg(&printer, ParentWidget());
    return dlg.exec() == QDialog::Accepted;
}

QString cDialogs::InputPrompt(const QString& prompt, const QString& title,
                              const QString& defaultText) {
    return frmInputBox::Prompt(prompt, title, defaultText, ParentWidget());
}
