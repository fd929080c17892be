#include "tools/frmConfigCompilers.h"

#include "base/qt/AppGlobals.h"
#include "components/HelpSystem.h"
#include "components/cDialogs.h"
#include "tools/ToolForms.h"
#include "tools/frmAddCompiler.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

frmConfigCompilers::frmConfigCompilers(QWidget* parent) : QDialog(parent) {
    NameForm(this, "frmConfigCompilers", tr("Configure Compilers and Viewers"));
    auto* g = new QGridLayout(this);
    g->addWidget(new QLabel(tr("Currently Specified Compilers and Viewers"), this), 0, 1);
    lstUtilities = new QListWidget(this);
    lstUtilities->setAccessibleName(tr("Currently Specified Compilers and Viewers"));
    g->addWidget(lstUtilities, 1, 1, 6, 1);
    cmdAdd = new QPushButton(tr("Add Program"), this);
    cmdEdit = new QPushButton(tr("Edit Program"), this);
    cmdRemove = new QPushButton(tr("Remove Program"), this);
    cmdSetDefault = new QPushButton(tr("<< Set as Default"), this);
    cmdHelp = new QPushButton(tr("Help"), this);
    cmdOK = new QPushButton(tr("OK"), this);
    int r = 1;
    for (auto* b : {cmdAdd, cmdEdit, cmdRemove, cmdSetDefault, cmdHelp, cmdOK})
        g->addWidget(b, r++, 0);
    connect(cmdAdd, &QPushButton::clicked, this, &frmConfigCompilers::cmdAdd_Click);
    connect(cmdEdit, &QPushButton::clicked, this, &frmConfigCompilers::cmdEdit_Click);
    connect(cmdRemove, &QPushButton::clicked, this, &frmConfigCompilers::cmdRemove_Click);
    connect(cmdSetDefault, &QPushButton::clicked, this, &frmConfigCompilers::cmdSetDefault_Click);
    connect(cmdHelp, &QPushButton::clicked, this, [] { ShowHelpTopic("util_compiler_setup"); });
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    HelpOnF1(this, "util_compiler_setup");
    UpdateList();
}

void frmConfigCompilers::UpdateList() {
    lstUtilities->clear();
    IgnoringErrors([&] {
        for (const auto& n : Tools().ToolNames()) lstUtilities->addItem(FromBytes(n));
    });
}

QString frmConfigCompilers::Selected() const {
    auto* item = lstUtilities->currentItem();
    return item && item->isSelected() ? item->text() : QString();
}

void frmConfigCompilers::EditTool(const QString& name) {
    frmAddCompiler dlg(this);
    if (!name.isNull()) {
        dlg.txtName->setText(name);
        dlg.txtName->setReadOnly(true); // the name is the key: it can't change
        ToolRecord t = Tools().Tool(ToBytes(name));
        dlg.txtCommandLine->setText(FromBytes(t.commandLine));
        dlg.txtWorkingDir->setText(FromBytes(t.workingDir));
    }
    dlg.exec();
    if (!dlg.txtName->text().isEmpty()) {
        IgnoringErrors([&] {
            Tools().SaveTool(ToBytes(dlg.txtName->text()), ToBytes(dlg.txtCommandLine->text()),
                             ToBytes(dlg.txtWorkingDir->text()));
        });
    }
    UpdateList();
}

void frmConfigCompilers::cmdAdd_Click() { EditTool(QString()); }

void frmConfigCompilers::cmdEdit_Click() { EditTool(Selected().isNull() ? "" : Selected()); }

void frmConfigCompilers::cmdRemove_Click() {
    IgnoringErrors([&] { Tools().RemoveTool(ToBytes(Selected())); });
    UpdateList();
}

void frmConfigCompilers::cmdSetDefault_Click() {
    const QString name = Selected();
    IgnoringErrors([&] { Tools().SetDefault(ToBytes(name)); });
    cDialogs::Get().MsgBox(name + " set as default compiler.", MsgButtons::OK,
                           MsgIcon::Information, "Information");
}
