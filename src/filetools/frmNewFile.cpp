#include "filetools/frmNewFile.h"

#include "base/qt/AppGlobals.h"
#include "base/qt/DataPaths.h"
#include "editor/DocumentArray.h"
#include "editor/RichEdit.h"
#include "editor/frmDocument.h"
#include "filetools/core/ClipLibrary.h"

#include <QDialogButtonBox>
#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QVBoxLayout>

frmNewFile::frmNewFile(const QString& dataFolder, QWidget* parent)
    : QDialog(parent), folder_(dataFolder) {
    setWindowTitle(tr("New File"));
    setAccessibleName(windowTitle());
    setObjectName("frmNewFile");
    auto* v = new QVBoxLayout(this);
    optBlank = new QRadioButton(QStringLiteral("Create Blank File"), this);
    optTemplate = new QRadioButton(QStringLiteral("Use a Template:"), this);
    optBlank->setChecked(true);
    lstTemplates = new QListWidget(this);
    lstTemplates->setObjectName("lstTemplates");
    lstTemplates->setAccessibleName(QStringLiteral("Available Templates"));
    auto* header = new QLabel(QStringLiteral("Available Templates"), this);
    cmdOK = new QPushButton(tr("OK"), this);
    cmdCancel = new QPushButton(tr("Cancel"), this);
    cmdOK->setDefault(true);
    for (QWidget* w : std::initializer_list<QWidget*>{optBlank, optTemplate, cmdOK, cmdCancel})
        w->setAccessibleName(static_cast<QAbstractButton*>(w)->text());
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(cmdOK, QDialogButtonBox::AcceptRole);
    buttons->addButton(cmdCancel, QDialogButtonBox::RejectRole);
    v->addWidget(optBlank);
    v->addWidget(optTemplate);
    v->addWidget(header);
    v->addWidget(lstTemplates, 1);
    v->addWidget(buttons);
    resize(360, 340);

    connect(lstTemplates, &QListWidget::itemClicked, this,
            [this] { optTemplate->setChecked(true); });
    connect(lstTemplates, &QListWidget::itemDoubleClicked, this, [this] { cmdOK_Click(); });
    connect(cmdOK, &QPushButton::clicked, this, [this] { cmdOK_Click(); });
    connect(cmdCancel, &QPushButton::clicked, this, [this] { cmdCancel_Click(); });
}

void frmNewFile::showEvent(QShowEvent* e) {
    QDialog::showEvent(e);
    Form_Activate();
}

void frmNewFile::Form_Activate() {
    lstTemplates->clear();
    const QIcon text = style()->standardIcon(QStyle::SP_FileIcon);
    const QIcon program = style()->standardIcon(QStyle::SP_ComputerIcon);
    std::vector<std::string> names;
    for (const QString& name : DataFiles(folder_)) names.push_back(ToBytes(name));
    for (const TemplateItem& t : TemplateCatalogue(names)) {
        auto* item = new QListWidgetItem(t.image == 2 ? program : text, FromBytes(t.text));
        lstTemplates->addItem(item);
    }
}

void frmNewFile::cmdOK_Click() {
    hide();
    QListWidgetItem* chosen = lstTemplates->currentItem();
    frmDocument* doc = NewDocument();
    // With no template chosen the new document stays empty; a template that cannot be read
    // (a program entry, shown without its extension) leaves it empty as well.
    if (doc && optTemplate->isChecked() && chosen) {
        doc->rtfText->LoadFile(DataFileToRead(folder_ + "/" + chosen->text()), 1, nullptr);
        doc->ColorCode();
    }
    // The document is untitled, so a later save never overwrites the template.
    if (doc) doc->Changed = false;
    accept();
}

void frmNewFile::cmdCancel_Click() {
    hide();
    reject();
}
