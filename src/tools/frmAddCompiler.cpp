#include "tools/frmAddCompiler.h"

#include "base/qt/AppGlobals.h"
#include "components/HelpSystem.h"
#include "base/PathHelpers.h"
#include "components/cDialogs.h"
#include "tools/ToolForms.h"
#include "tools/core/ToolMacros.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

void BrowseForProgram(const QString& filter, QCheckBox* chkShort, QLineEdit* commandLine,
                      QLineEdit* workingDir) {
    FileDialogOptions o;
    o.title = "Select a Utility";
    // Programs here seldom carry an extension: every file is offered besides the filter.
    o.filter = filter + "|All Files|*";
    o.fileMustExist = true;
    auto chosen = cDialogs::Get().FileDialog(o);
    if (!chosen) return;
    std::string f = ToBytes(*chosen);
    if (chkShort->isChecked()) f = ShortPathOf(f);
    commandLine->setText(FromBytes(FileNameOf(f)));
    workingDir->setText(FromBytes(PathOf(f)));
}

frmAddCompiler::frmAddCompiler(QWidget* parent) : QDialog(parent) {
    NameForm(this, "frmAddCompiler", tr("Add/Edit Compiler or Viewer"));
    auto* v = new QVBoxLayout(this);
    auto* form = new QFormLayout;
    txtName = new QLineEdit(this);
    txtCommandLine = new QLineEdit(this);
    txtWorkingDir = new QLineEdit(this);
    cmdBrowse = new QPushButton(tr("..."), this);
    cmdBrowse2 = new QPushButton(tr("..."), this);
    auto row = [this](QLineEdit* e, QPushButton* b) {
        auto* h = new QHBoxLayout;
        h->addWidget(e, 1);
        h->addWidget(b);
        return h;
    };
    const std::pair<QLineEdit*, QString> labels[] = {
        {txtName, tr("Program Name / Description:")},
        {txtCommandLine, tr("Command Line and Parameters")},
        {txtWorkingDir, tr("Compiler/Viewer Working Directory")}};
    for (auto& [e, label] : labels) e->setAccessibleName(label);
    form->addRow(labels[0].second, txtName);
    form->addRow(labels[1].second, row(txtCommandLine, cmdBrowse));
    form->addRow(labels[2].second, row(txtWorkingDir, cmdBrowse2));
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
    connect(cmdOK, &QPushButton::clicked, this, &frmAddCompiler::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmAddCompiler::cmdCancel_Click);
    connect(this, &QDialog::rejected, this, [this] { txtName->clear(); });
    connect(cmdBrowse, &QPushButton::clicked, this, &frmAddCompiler::cmdBrowse_Click);
    connect(cmdBrowse2, &QPushButton::clicked, this, &frmAddCompiler::cmdBrowse_Click);
    connect(cmdHelp, &QPushButton::clicked, this, [] { ShowHelpTopic("util_compiler_setup"); });
    HelpOnF1(this, "util_compiler_setup");
}

void frmAddCompiler::cmdOK_Click() {
    if (txtCommandLine->text().isEmpty() || txtName->text().isEmpty()) {
        cDialogs::Get().MsgBox(
            "All configured compilers MUST have both a menu title and a command line.",
            MsgButtons::OK, MsgIcon::None, "Error.");
        return;
    }
    accept();
}

void frmAddCompiler::cmdCancel_Click() {
    txtName->clear();
    reject();
}

void frmAddCompiler::cmdBrowse_Click() {
    BrowseForProgram("Executables and Batch Files|*.EXE;*.COM;*.BAT", chkShort, txtCommandLine,
                     txtWorkingDir);
}
