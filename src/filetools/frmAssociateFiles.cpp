#include "filetools/frmAssociateFiles.h"

#include "base/qt/AppGlobals.h"
#include "components/cDialogs.h"
#include "filetools/cRegistry.h"
#include "filetools/core/DesktopAssociations.h"
#include "profiles/core/SyntaxAssociations.h"

#include <QCoreApplication>
#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <memory>

QString ProgramPath() {
    return QDir(QCoreApplication::applicationDirPath()).filePath("kestrum");
}

frmAssociateFiles::frmAssociateFiles(QWidget* parent) : QDialog(parent) {
    setWindowTitle(tr("Associate File Types with Kestrum"));
    setAccessibleName(windowTitle());
    auto* layout = new QVBoxLayout(this);
    auto* label = new QLabel(tr("File Extensions to Associate with Kestrum:"), this);
    layout->addWidget(label);
    lstExtensions = new QListWidget(this);
    lstExtensions->setAccessibleName(label->text());
    lstExtensions->setSelectionMode(QAbstractItemView::MultiSelection);
    lstExtensions->setMinimumSize(260, 240);
    layout->addWidget(lstExtensions);
    auto* buttons = new QHBoxLayout;
    cmdOK = new QPushButton(tr("OK"), this);
    cmdCancel = new QPushButton(tr("Cancel"), this);
    for (QPushButton* b : {cmdOK, cmdCancel}) {
        b->setAccessibleName(b->text());
        buttons->addWidget(b);
    }
    layout->addLayout(buttons);
    connect(cmdOK, &QPushButton::clicked, this, &frmAssociateFiles::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    Form_Load();
}

void frmAssociateFiles::Form_Load() {
    lstExtensions->clear();
    std::vector<std::string> keys;
    try {
        for (const auto& [ext, profile] :
             Store().GetAllSettings(ToBytes(AppTitle()), kSyntaxAssocSection))
            keys.push_back(ext);
    } catch (const std::exception&) {
        // An unreadable table offers the workspace extension alone.
    }
    for (const std::string& ext : ExtensionsToOffer(keys)) lstExtensions->addItem(FromBytes(ext));
}

void frmAssociateFiles::cmdOK_Click() {
    const MsgResult answer = cDialogs::Get().MsgBox(
        "Note that changing file associations here is a one-way process. If you wish to remove "
        "or change any of the associations you make using this dialog, you will have to make "
        "them manually, using the 'File Types' dialog or by editing the registry.\r\n\r\n"
        "Do you wish to continue?",
        MsgButtons::OKCancel, MsgIcon::Exclamation, "Warning:");
    if (answer == MsgResult::Cancel) {
        reject();
        return;
    }
    std::unique_ptr<cRegistry> reg;
    try {
        for (int i = 0; i < lstExtensions->count(); ++i) {
            if (!lstExtensions->item(i)->isSelected()) continue;
            if (!reg) reg = std::make_unique<cRegistry>();
            reg->CreateEXEAssociation(ProgramPath(), "Kestrum.Document", "Source Code",
                                      lstExtensions->item(i)->text(), "&Open in Kestrum", false,
                                      "&Print", false, "&New", false, QString(), 1);
        }
    } catch (const cRegistryError& e) {
        // What was written before the failure stays: each file is whole.
        cDialogs::Get().MsgBox(e.Description(), MsgButtons::OK, MsgIcon::Critical, e.Source());
    }
    if (reg) {
        const QString note = reg->Finish();
        if (!note.isEmpty())
            cDialogs::Get().MsgBox(note, MsgButtons::OK, MsgIcon::Information, windowTitle());
    }
    accept();
}
