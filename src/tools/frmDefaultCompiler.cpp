#include "tools/frmDefaultCompiler.h"

#include "base/qt/AppGlobals.h"
#include "components/HelpSystem.h"
#include "components/cDialogs.h"
#include "tools/ToolForms.h"
#include "tools/frmAddCompiler.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

frmDefaultCompiler::frmDefaultCompiler(QWidget* parent) : QDialog(parent) {
    NameForm(this, "frmDefaultCompiler", tr("Setup Default Compiler"));
    auto* v = new QVBoxLayout(this);
    auto* form = new QFormLayout;
    txtCommandLine = new QLineEdit(this);
    txtWorkingDir = new QLineEdit(this);
    txtCommandLine->setAccessibleName(tr("Command Line and Parameters"));
    txtWorkingDir->setAccessibleName(tr("Compiler/Viewer Working Directory"));
    cmdBrowse = new QPushButton(tr("..."), this);
    cmdBrowse2 = new QPushButton(tr("..."), this);
    for (auto [e, b, label] : {std::tuple{txtCommandLine, cmdBrowse, txtCommandLine->accessibleName()},
                               std::tuple{txtWorkingDir, cmdBrowse2, txtWorkingDir->accessibleName()}}) {
        auto* h = new QHBoxLayout;
        h->addWidget(e, 1);
        h->addWidget(b);
        form->addRow(label, h);
    }
    v->addLayout(form);
    chkShort = new QCheckBox(tr("Return Command Line as Short Filename (for 16-bit Programs)"), this);
    auto* frame = new QGroupBox(tr("Output Window"), this);
    auto* fv = new QVBoxLayout(frame);
    chkCloseWindow = new QCheckBox(tr("Keep DOS window open"), frame);
    chkCaptureOutput = new QCheckBox(tr("Capture DOS window output"), frame);
    fv->addWidget(chkCloseWindow);
    fv->addWidget(chkCaptureOutput);
    for (QCheckBox* c : {chkShort, chkCloseWindow, chkCaptureOutput}) c->setAccessibleName(c->text());
    v->addWidget(chkShort);
    v->addWidget(frame);
    v->addWidget(MacroHelpFrame(tr("Parameters (use lower case for short filenames)"), this));
    auto* h = new QHBoxLayout;
    cmdOK = new QPushButton(tr("OK"), this);
    cmdCancel = new QPushButton(tr("Cancel"), this);
    cmdHelp = new QPushButton(tr("Help"), this);
    for (auto* b : {cmdOK, cmdCancel, cmdHelp}) h->addWidget(b);
    v->addLayout(h);
    connect(cmdOK, &QPushButton::clicked, this, &frmDefaultCompiler::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    auto browse = [this] {
        BrowseForProgram("Executables|*.EXE;*.COM", chkShort, txtCommandLine, txtWorkingDir);
    };
    connect(cmdBrowse, &QPushButton::clicked, this, browse);
    connect(cmdBrowse2, &QPushButton::clicked, this, browse);
    connect(cmdHelp, &QPushButton::clicked, this, [] { ShowHelpTopic("advanced_setup_default"); });
    HelpOnF1(this, "advanced_setup_default");
    DefaultCompiler d;
    IgnoringErrors([&] { d = Tools().LoadDefault(); });
    txtCommandLine->setText(FromBytes(d.commandLine));
    txtWorkingDir->setText(FromBytes(d.workingDir));
    chkCloseWindow->setChecked(d.keepOpen);
    chkCaptureOutput->setChecked(d.capture);
}

void frmDefaultCompiler::cmdOK_Click() {
    if (txtCommandLine->text().isEmpty()) {
        cDialogs::Get().MsgBox("To invoke a command, you must have a command line.",
                               MsgButtons::OK, MsgIcon::Information, "No Command Line.");
        txtCommandLine->setFocus();
        return;
    }
    IgnoringErrors([&] {
        Tools().SaveDefault({ToBytes(txtCommandLine->text()), ToBytes(txtWorkingDir->text()),
                             chkCloseWindow->isChecked(), chkCaptureOutput->isChecked()});
    });
    accept();
}
