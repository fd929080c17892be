#include "profiles/frmConfigAssocProfile.h"

#include "base/qt/AppGlobals.h"
#include "base/qt/DataPaths.h"
#include "components/HelpSystem.h"
#include "components/cDialogs.h"
#include "profiles/core/SyntaxAssociations.h"

#include <QDir>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
std::function<void(QDialog&)> modalRunner;
}

void ShowModal(QDialog& dialog) {
    if (modalRunner)
        modalRunner(dialog);
    else
        dialog.exec();
}

void SetModalRunnerForTesting(std::function<void(QDialog&)> runner) {
    modalRunner = std::move(runner);
}

// ---------------------------------------------------------------- the table

frmConfigAssocProfile::frmConfigAssocProfile(QWidget* parent) : QDialog(parent) {
    setWindowTitle(tr("Configure Language Recognition"));
    auto* grid = new QGridLayout(this);
    grid->addWidget(new QLabel(tr("Currently Associated File Extensions"), this), 0, 0);
    lstUtilities = new QListWidget(this);
    lstUtilities->setMinimumSize(360, 260);
    grid->addWidget(lstUtilities, 1, 0, 7, 1);
    auto button = [this, grid](const QString& caption, int row) {
        auto* b = new QPushButton(caption, this);
        grid->addWidget(b, row, 1);
        return b;
    };
    cmdAdd = button(tr("Add Extension"), 1);
    cmdEdit = button(tr("Edit Extension"), 2);
    cmdRemove = button(tr("Remove Extension"), 3);
    cmdReset = button(tr("Restore Defaults"), 4);
    cmdOK = button(tr("OK"), 6);
    cmdHelp = button(tr("Help"), 7);
    connect(cmdAdd, &QPushButton::clicked, this, &frmConfigAssocProfile::cmdAdd_Click);
    connect(cmdEdit, &QPushButton::clicked, this, &frmConfigAssocProfile::cmdEdit_Click);
    connect(cmdRemove, &QPushButton::clicked, this, &frmConfigAssocProfile::cmdRemove_Click);
    connect(cmdReset, &QPushButton::clicked, this, &frmConfigAssocProfile::cmdReset_Click);
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdHelp, &QPushButton::clicked, this, [] { ShowHelpTopic("util_language_setup"); });
    UpdateList();
}

void frmConfigAssocProfile::UpdateList() {
    lstUtilities->clear();
    for (const auto& [ext, profile] : Store().GetAllSettings(ToBytes(AppTitle()), kSyntaxAssocSection))
        lstUtilities->addItem(FromBytes(AssocListLine(ext, profile)));
}

void frmConfigAssocProfile::cmdAdd_Click() {
    frmAddAssocProfile add(this);
    ShowModal(add);
    UpdateList();
}

void frmConfigAssocProfile::cmdEdit_Click() {
    QListWidgetItem* item = lstUtilities->currentItem();
    if (!item) return;
    frmAddAssocProfile add(this);
    add.txtComplete->setText(FromBytes(AssocListExtension(ToBytes(item->text()))));
    add.txtComplete->setReadOnly(true);
    ShowModal(add);
    UpdateList();
}

void frmConfigAssocProfile::cmdRemove_Click() {
    QListWidgetItem* item = lstUtilities->currentItem();
    if (!item) return;
    // The whole line is passed as the key. It holds the tabs and the profile name, so it
    // names no key and nothing is removed; the list shows the table as it stands.
    DeleteSetting(AppTitle(), "Syntax Associations", item->text());
}

void frmConfigAssocProfile::cmdReset_Click() {
    if (cDialogs::Get().MsgBox("This will restore the original language recognition setup, and "
                               "may override some of your own user settings. Do you wish to "
                               "continue?",
                               MsgButtons::YesNo, MsgIcon::Question,
                               "Restore Defaults") != MsgResult::Yes)
        return;
    try {
        RestoreDefaultSyntaxAssocs(Store(), ToBytes(AppTitle()));
    } catch (const std::exception&) {
    }
    UpdateList();
}

void frmConfigAssocProfile::keyReleaseEvent(QKeyEvent* e) {
    if (e->key() == Qt::Key_F1) ShowHelpTopic("util_language_setup");
    QDialog::keyReleaseEvent(e);
}

// ---------------------------------------------------------------- one row

frmAddAssocProfile::frmAddAssocProfile(QWidget* parent) : QDialog(parent) {
    setWindowTitle(tr("Add/Edit Syntax Association"));
    auto* v = new QVBoxLayout(this);
    v->addWidget(new QLabel(tr("Extension to be Associated (NO WILDCARDS):"), this));
    txtComplete = new QLineEdit(this);
    txtComplete->installEventFilter(this);
    v->addWidget(txtComplete);
    v->addWidget(new QLabel(tr("Associate with Syntax Profile:"), this));
    lstFiles = new QListWidget(this);
    lstFiles->addItems(DataFiles("PROFILES"));
    v->addWidget(lstFiles);
    auto* h = new QHBoxLayout;
    cmdOK = new QPushButton(tr("OK"), this);
    cmdCancel = new QPushButton(tr("Cancel"), this);
    h->addStretch();
    h->addWidget(cmdOK);
    h->addWidget(cmdCancel);
    v->addLayout(h);
    connect(cmdOK, &QPushButton::clicked, this, &frmAddAssocProfile::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

bool frmAddAssocProfile::eventFilter(QObject* o, QEvent* e) {
    // No wildcards and no dot can be typed.
    if (o == txtComplete && e->type() == QEvent::KeyPress) {
        QString t = static_cast<QKeyEvent*>(e)->text();
        if (t.size() == 1 && QStringLiteral("*?.").contains(t[0])) return true;
    }
    return QDialog::eventFilter(o, e);
}

void frmAddAssocProfile::cmdOK_Click() {
    QString ext = txtComplete->text().trimmed();
    QString profile = lstFiles->currentItem() ? lstFiles->currentItem()->text() : QString();
    SaveSetting(AppTitle(), "Syntax Associations", ext, profile);
    accept();
}
