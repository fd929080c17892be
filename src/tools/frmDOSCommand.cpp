#include "tools/frmDOSCommand.h"

#include "base/qt/AppGlobals.h"
#include "components/HelpSystem.h"
#include "components/cDialogs.h"
#include "tools/ToolForms.h"
#include "tools/ToolRunner.h"
#include "tools/frmAddCompiler.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

frmDOSCommand::frmDOSCommand(QWidget* parent) : QDialog(parent) {
    NameForm(this, "frmDOSCommand", tr("Invoke DOS Command"));
    auto* v = new QVBoxLayout(this);
    auto* form = new QFormLayout;
    txtCommandLine = new QLineEdit(this);
    txtWorkingDir = new QLineEdit(this);
    txtCommandLine->setAccessibleName(tr("Command Line and Parameters"));
    txtWorkingDir->setAccessibleName(tr("Working Directory"));
    cmdBrowse = new QPushButton(tr("..."), this);
    cmdBrowse2 = new QPushButton(tr("..."), this);
    for (auto [e, b] : {std::pair{txtCommandLine, cmdBrowse}, std::pair{txtWorkingDir, cmdBrowse2}}) {
        auto* h = new QHBoxLayout;
        h->addWidget(e, 1);
        h->addWidget(b);
        form->addRow(e->accessibleName(), h);
    }
    v->addLayout(form);
    chkShort = new QCheckBox(tr("Return Command Line as Short Filename (for 16-bit Programs)"), this);
    chkShort->setAccessibleName(chkShort->text());
    v->addWidget(chkShort);
    v->addWidget(MacroHelpFrame(tr("Insertable Command Parameters"), this));
    auto* h = new QHBoxLayout;
    cmdOK = new QPushButton(tr("OK"), this);
    cmdCancel = new QPushButton(tr("Cancel"), this);
    cmdHelp = new QPushButton(tr("Help"), this);
    for (auto* b : {cmdOK, cmdCancel, cmdHelp}) h->addWidget(b);
    v->addLayout(h);
    cmdOK->setDefault(true);
    connect(cmdOK, &QPushButton::clicked, this, &frmDOSCommand::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::hide);
    auto browse = [this] {
        BrowseForProgram("Executables|*.EXE;*.COM", chkShort, txtCommandLine, txtWorkingDir);
    };
    connect(cmdBrowse, &QPushButton::clicked, this, browse);
    connect(cmdBrowse2, &QPushButton::clicked, this, browse);
    connect(cmdHelp, &QPushButton::clicked, this, [] { ShowHelpTopic("advanced_dos_command"); });
    HelpOnF1(this, "advanced_dos_command");
}

void frmDOSCommand::ValidateCommandLine() {
    // With no active document the expansion stops before it starts: the line runs as typed.
    if (docPath_.isNull()) return;
    txtCommandLine->setText(FromBytes(ExpandToolLine(ToBytes(txtCommandLine->text()), docPath_,
                                                     MacroQuoting::QuoteFileAndLineEnd)));
}

void frmDOSCommand::cmdOK_Click() {
    if (txtCommandLine->text().isEmpty()) {
        cDialogs::Get().MsgBox("To invoke a command, you must have a command line.",
                               MsgButtons::OK, MsgIcon::Information, "No Command Line.");
        txtCommandLine->setFocus();
        return;
    }
    ValidateCommandLine();
    ToolRunner::ChangeDirectory(txtWorkingDir->text());
    ToolRunner::Run(ConsoleForm::KeepOpen, txtCommandLine->text(), false);
    hide();
}
