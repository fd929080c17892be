#include "tools/frmConfigUtilities.h"

#include "base/qt/AppGlobals.h"
#include "components/cDialogs.h"
#include "tools/ToolForms.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

frmAddUtility::frmAddUtility(QWidget* parent) : QDialog(parent) {
    NameForm(this, "frmAddUtility", tr("Add/Edit Utility"));
    auto* v = new QVBoxLayout(this);
    auto* form = new QFormLayout;
    txtName = new QLineEdit(this);
    txtCommandLine = new QLineEdit(this);
    txtName->setAccessibleName(tr("Utility Name"));
    txtCommandLine->setAccessibleName(tr("Command Line"));
    cmdBrowse = new QPushButton(tr("..."), this);
    form->addRow(txtName->accessibleName(), txtName);
    auto* h = new QHBoxLayout;
    h->addWidget(txtCommandLine, 1);
    h->addWidget(cmdBrowse);
    form->addRow(txtCommandLine->accessibleName(), h);
    v->addLayout(form);
    auto* b = new QHBoxLayout;
    cmdOK = new QPushButton(tr("OK"), this);
    cmdCancel = new QPushButton(tr("Cancel"), this);
    b->addWidget(cmdOK);
    b->addWidget(cmdCancel);
    v->addLayout(b);
    connect(cmdOK, &QPushButton::clicked, this, &frmAddUtility::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(this, &QDialog::rejected, this, [this] { txtName->clear(); });
    connect(cmdBrowse, &QPushButton::clicked, this, &frmAddUtility::cmdBrowse_Click);
}

void frmAddUtility::cmdOK_Click() {
    if (txtName->text().isEmpty() || txtCommandLine->text().isEmpty()) {
        cDialogs::Get().MsgBox(
            "All configured utilities MUST have both a menu title and a command line.",
            MsgButtons::OK, MsgIcon::None, "Error.");
        return;
    }
    accept();
}

void frmAddUtility::cmdBrowse_Click() {
    FileDialogOptions o;
    o.title = "Select a Utility";
    o.filter = "Executables|*.EXE;*.COM|All Files|*";
    o.fileMustExist = true;
    if (auto f = cDialogs::Get().FileDialog(o)) txtCommandLine->setText(*f);
}

frmConfigUtilities::frmConfigUtilities(QWidget* parent) : QDialog(parent) {
    NameForm(this, "frmConfigUtilities", tr("Configure Utilities"));
    auto* g = new QGridLayout(this);
    g->addWidget(new QLabel(tr("Currently Configured Utilities"), this), 0, 1);
    lstUtilities = new QListWidget(this);
    lstUtilities->setAccessibleName(tr("Currently Configured Utilities"));
    g->addWidget(lstUtilities, 1, 1, 4, 1);
    cmdAdd = new QPushButton(tr("Add Program"), this);
    cmdEdit = new QPushButton(tr("Edit Program"), this);
    cmdRemove = new QPushButton(tr("Remove Program"), this);
    cmdOK = new QPushButton(tr("Close"), this);
    int r = 1;
    for (auto* b : {cmdAdd, cmdEdit, cmdRemove, cmdOK}) g->addWidget(b, r++, 0);
    connect(cmdAdd, &QPushButton::clicked, this, &frmConfigUtilities::cmdAdd_Click);
    connect(cmdEdit, &QPushButton::clicked, this, &frmConfigUtilities::cmdEdit_Click);
    connect(cmdRemove, &QPushButton::clicked, this, &frmConfigUtilities::cmdRemove_Click);
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    UpdateList();
}

void frmConfigUtilities::UpdateList() {
    lstUtilities->clear();
    IgnoringErrors([&] {
        for (const auto& [name, line] : Tools().Utilities()) lstUtilities->addItem(FromBytes(name));
    });
}

void frmConfigUtilities::Store(frmAddUtility& dlg) {
    dlg.exec();
    if (!dlg.txtName->text().isEmpty()) {
        IgnoringErrors([&] {
            Tools().SaveUtility(ToBytes(dlg.txtName->text()), ToBytes(dlg.txtCommandLine->text()));
        });
    }
    UpdateList();
}

void frmConfigUtilities::cmdAdd_Click() {
    if (lstUtilities->count() >= kMaxUtilities) {
        cDialogs::Get().MsgBox("You can only have a maximum of 20 Utilities configured.",
                               MsgButtons::OK, MsgIcon::None, AppTitle());
        return;
    }
    frmAddUtility dlg(this);
    Store(dlg);
}

void frmConfigUtilities::cmdEdit_Click() {
    auto* item = lstUtilities->currentItem();
    const QString name = item && item->isSelected() ? item->text() : QString("");
    frmAddUtility dlg(this);
    dlg.txtName->setText(name);
    dlg.txtName->setReadOnly(true);
    dlg.txtCommandLine->setText(FromBytes(Tools().UtilityCommand(ToBytes(name))));
    Store(dlg);
}

void frmConfigUtilities::cmdRemove_Click() {
    auto* item = lstUtilities->currentItem();
    const QString name = item && item->isSelected() ? item->text() : QString();
    IgnoringErrors([&] { Tools().RemoveUtility(ToBytes(name)); });
    UpdateList();
}
