// The main window's commands of compilers, viewers, utilities and the DOS command.
#include "base/qt/AppGlobals.h"
#include "app/frmMain.h"
#include "editor/DocumentArray.h"
#include "editor/RichEdit.h"
#include "editor/frmDocument.h"
#include "tools/ToolForms.h"
#include "tools/ToolRunner.h"
#include "tools/frmConfigCompilers.h"
#include "tools/frmConfigUtilities.h"
#include "tools/frmDOSCommand.h"
#include "tools/frmDefaultCompiler.h"
#include "tools/frmRunCompiler.h"

#include <QAction>
#include <QFileInfo>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPointer>

namespace {
// The save guard of both compiler commands: the active document once it has a file, else null.
frmDocument* SavedActiveDocument(frmMain* main) {
    frmDocument* doc = main->ActiveForm();
    if (!doc) return nullptr;
    if (doc->Tag.isEmpty()) {
        if (cDialogs::Get().MsgBox("You must must save the file before you can process it using a "
                                   "compiler. Do you wish to save the file now?",
                                   MsgButtons::YesNo, MsgIcon::Question, "Confirm") != MsgResult::Yes)
            return nullptr;
        main->mnuFileSave_Click();
    }
    return doc->Tag.isEmpty() ? nullptr : doc;
}
} // namespace

void frmMain::mnuAdvancedConfigure_Click() {
    frmConfigCompilers dlg(this);
    dlg.exec();
}

void frmMain::mnuPrefsCompilerSetup_Click() { mnuAdvancedConfigure_Click(); }

void frmMain::mnuConfigDefCompiler_Click() {
    frmDefaultCompiler dlg(this);
    dlg.exec();
}

void frmMain::OpenToolLocation(const QString& path, int line, int column) {
    const QString wanted = QFileInfo(path).absoluteFilePath();
    frmDocument* target = nullptr;
    for (frmDocument* doc : Documents().OpenDocuments())
        if (!doc->Tag.isEmpty() && QFileInfo(doc->Tag).absoluteFilePath() == wanted) target = doc;
    if (target) {
        for (QMdiSubWindow* w : mdiArea->subWindowList())
            if (w->widget() == target) mdiArea->setActiveSubWindow(w);
    } else {
        QString error;
        target = OpenFileInNewDocument(wanted, {}, true, &error);
        if (!target) {
            cDialogs::Get().MsgBox(error, MsgButtons::OK, MsgIcon::Exclamation, "File I/O Error");
            return;
        }
    }
    target->rtfText->setCursorPosition(std::max(0, line - 1), std::max(0, column - 1));
    target->rtfText->ensureCursorVisible();
    target->rtfText->setFocus();
}

void frmMain::mnuAdvancedRunCompiler_Click() {
    frmDocument* doc = SavedActiveDocument(this);
    if (!doc) return;
    frmRunCompiler dlg(doc->Tag, [this](const QString& p, int l, int c) { OpenToolLocation(p, l, c); },
                       this);
    dlg.exec();
}

void frmMain::mnuAdvancedRunDefCompiler_Click() {
    frmDocument* doc = SavedActiveDocument(this);
    if (!doc) return;
    DefaultCompiler d;
    IgnoringErrors([&] { d = Tools().LoadDefault(); });
    const QString s = FromBytes(ExpandToolLine(d.commandLine, doc->Tag));
    QString dir = FromBytes(d.workingDir);
    if (GetSetting(AppTitle(), "Settings", "Default Compiler Dir").isNull() || dir.isEmpty())
        dir = AppDir().chopped(1);
    ToolRunner::ChangeDirectory(dir);
    const bool c = d.capture, k = d.keepOpen;
    if (c && !ToolRunner::PrepareCapture()) return;
    if (k) ToolRunner::Run(ConsoleForm::KeepOpen, s, c);
    else if (c) ToolRunner::Run(ConsoleForm::Close, QString(), true); // only empties the file
    else ToolRunner::Run(ConsoleForm::Bare, s, false);
    // Then, in every case, the line once more in a console that closes.
    ToolRunner::Run(ConsoleForm::Close, s, false);
    if (Tools().LoadDefault().capture)
        ShowCompilerOutput(doc->Tag, [this](const QString& p, int l, int col) {
            OpenToolLocation(p, l, col);
        }, this);
}

void frmMain::mnuAdvancedDOSCmd_Click() {
    // The form stays loaded between uses, with the line it last ran.
    static QPointer<frmDOSCommand> form;
    if (!form) form = new frmDOSCommand(this);
    frmDocument* doc = ActiveForm();
    form->SetDocument(doc ? doc->Tag : QString());
    form->exec();
}

void frmMain::BuildUtilityItems() {
    QMenu* menu = Command("mnuUtilities")->menu();
    UtilsSeparator = menu->addSeparator();
    UtilsSeparator->setObjectName("UtilsSeparator");
    UtilsSeparator->setVisible(false);
    for (int i = 0; i <= 20; ++i) {
        QAction* a = menu->addAction(QString());
        a->setObjectName(QStringLiteral("mnuUtilityCmds%1").arg(i));
        a->setVisible(false);
        connect(a, &QAction::triggered, this, [this, i] { mnuUtilityCmds_Click(i); });
        mnuUtilityCmds[size_t(i)] = a;
    }
    connect(menu, &QMenu::aboutToShow, this, &frmMain::mnuUtilities_Click);
    RefreshUtils();
}

void frmMain::RefreshUtils() {
    std::vector<std::pair<std::string, std::string>> rows;
    IgnoringErrors([&] { rows = Tools().Utilities(); });
    for (int i = 1; i <= 20; ++i) mnuUtilityCmds[size_t(i)]->setVisible(false);
    UtilsSeparator->setVisible(false);
    // An empty section leaves entry 0 as it last was; rows past the last entry are dropped.
    for (size_t i = 0; i < rows.size() && i < mnuUtilityCmds.size(); ++i) {
        if (rows[i].first.empty()) continue;
        mnuUtilityCmds[i]->setVisible(true);
        mnuUtilityCmds[i]->setText(FromBytes(rows[i].first));
        UtilsSeparator->setVisible(true);
    }
}

void frmMain::mnuUtilities_Click() { RefreshUtils(); }

void frmMain::mnuUtilityCmds_Click(int index) {
    if (index < 0 || index > 20) return;
    std::string line;
    IgnoringErrors([&] { line = Tools().UtilityCommand(ToBytes(mnuUtilityCmds[size_t(index)]->text())); });
    if (!line.empty()) ToolRunner::Run(ConsoleForm::Bare, FromBytes(line), false);
}

void frmMain::mnuUtilitiesConfig_Click() {
    frmConfigUtilities dlg(this);
    dlg.exec();
    RefreshUtils();
}

void frmMain::mnuPrefsUtils_Click() { mnuUtilitiesConfig_Click(); }
