#include "tools/frmRunCompiler.h"

#include "base/qt/AppGlobals.h"
#include "tools/ToolForms.h"
#include "tools/ToolRunner.h"
#include "base/PathHelpers.h"
#include "tools/frmCompilerOutput.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

QString& CompilerString() {
    static QString s = GetSetting(AppTitle(), "Settings", "CompilerString");
    return s;
}

void ShowCompilerOutput(const QString& docPath,
                        const std::function<void(const QString&, int, int)>& openLocation,
                        QWidget* parent) {
    frmCompilerOutput out(ToolRunner::CaptureFile(), FromBytes(PathOf(ToBytes(docPath))), parent);
    out.OpenLocation = openLocation;
    out.exec();
}

frmRunCompiler::frmRunCompiler(const QString& docPath,
                               std::function<void(const QString&, int, int)> openLocation,
                               QWidget* parent)
    : QDialog(parent), docPath_(docPath), openLocation_(std::move(openLocation)) {
    NameForm(this, "frmRunCompiler", tr("Run Compiler/Viewer"));
    auto* v = new QVBoxLayout(this);
    v->addWidget(new QLabel(tr("Preconfigured Compilers and Viewers:"), this));
    lstCompilers = new QListWidget(this);
    lstCompilers->setAccessibleName(tr("Preconfigured Compilers and Viewers:"));
    v->addWidget(lstCompilers);
    auto* form = new QFormLayout;
    txtCmdLine = new QLineEdit(this);
    txtCmdLine->setAccessibleName(tr("Command Line:"));
    txtRunDir = new QLineEdit(this);
    txtRunDir->setAccessibleName(tr("Compiler's Working Directory"));
    form->addRow(tr("Command Line:"), txtCmdLine);
    form->addRow(tr("Compiler's Working Directory"), txtRunDir);
    v->addLayout(form);
    auto* frame = new QGroupBox(tr("Output Window"), this);
    auto* fv = new QVBoxLayout(frame);
    chkCaptureOutput = new QCheckBox(tr("Capture DOS window output"), frame);
    chkCloseWindow = new QCheckBox(tr("Keep DOS window open"), frame);
    for (QCheckBox* c : {chkCaptureOutput, chkCloseWindow}) {
        c->setAccessibleName(c->text());
        fv->addWidget(c);
    }
    v->addWidget(frame);
    cmdOK = new QPushButton(tr("OK"), this);
    cmdCancel = new QPushButton(tr("Cancel"), this);
    cmdOK->setDefault(true);
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(cmdOK, QDialogButtonBox::AcceptRole);
    buttons->addButton(cmdCancel, QDialogButtonBox::RejectRole);
    v->addWidget(buttons);
    connect(cmdOK, &QPushButton::clicked, this, &frmRunCompiler::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(lstCompilers, &QListWidget::itemSelectionChanged, this,
            &frmRunCompiler::lstCompilers_Click);
    connect(lstCompilers, &QListWidget::itemDoubleClicked, this, [this] { cmdOK_Click(); });
    Form_Load();
}

void frmRunCompiler::Form_Load() {
    std::vector<std::string> names;
    IgnoringErrors([&] { names = Tools().ToolNames(); });
    for (const auto& n : names) lstCompilers->addItem(FromBytes(n));
    // The list must not take the focus first: that would select a tool unasked.
    txtCmdLine->setFocus();
}

void frmRunCompiler::showEvent(QShowEvent* e) {
    QDialog::showEvent(e);
    Form_Activate();
}

void frmRunCompiler::Form_Activate() {
    auto [keep, capture] = Tools().RunFlags();
    chkCloseWindow->setChecked(keep);
    chkCaptureOutput->setChecked(capture);
}

void frmRunCompiler::lstCompilers_Click() {
    const auto selected = lstCompilers->selectedItems();
    if (selected.isEmpty()) return;
    QListWidgetItem* item = selected.front();
    ToolRecord t = Tools().Tool(ToBytes(item->text()));
    txtCmdLine->setText(FromBytes(t.commandLine));
    txtRunDir->setText(FromBytes(t.workingDir));
}

void frmRunCompiler::ValidateCmdLine() {
    txtCmdLine->setText(FromBytes(ExpandToolLine(ToBytes(txtCmdLine->text()), docPath_)));
}

void frmRunCompiler::cmdOK_Click() {
    SaveSetting(AppTitle(), "Settings", "CompilerString", CompilerString());
    ValidateCmdLine();
    ToolRunner::ChangeDirectory(txtRunDir->text());
    const bool c = chkCaptureOutput->isChecked(), k = chkCloseWindow->isChecked();
    const QString s = txtCmdLine->text();
    if (!c || ToolRunner::PrepareCapture()) {
        ToolRunner::Run(k ? ConsoleForm::KeepOpen : c ? ConsoleForm::Close : ConsoleForm::Bare, s,
                        c);
    }
    hide();
    if (c) ShowCompilerOutput(docPath_, openLocation_, parentWidget());
    IgnoringErrors([&] { Tools().SaveRunFlags(k, c); });
    accept();
}
