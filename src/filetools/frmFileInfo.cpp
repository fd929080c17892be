#include "filetools/frmFileInfo.h"

#include "base/qt/AppGlobals.h"
#include "filetools/core/FileInfoMod.h"
#include "base/MiscSubs.h"

#include <QCheckBox>
#include <QEvent>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

frmFileInfo::frmFileInfo(QWidget* parent) : QDialog(parent) {
    setObjectName("frmFileInfo");
    setWindowTitle("File Information");
    setAccessibleName(windowTitle());
    auto* layout = new QVBoxLayout(this);
    auto* top = new QFormLayout;
    auto field = [&](const char* name, const char* caption) {
        auto* edit = new QLineEdit(this);
        edit->setObjectName(name);
        edit->setAccessibleName(QString(caption).chopped(1));
        edit->setReadOnly(true);
        top->addRow(caption, edit);
        return edit;
    };
    txtname = field("txtname", "Name:");
    txtsize = field("txtsize", "Size:");
    layout->addLayout(top);

    auto* dates = new QGroupBox("Dates", this);
    dates->setAccessibleName("Dates");
    auto* dateForm = new QFormLayout(dates);
    static const char* const kDateCaptions[] = {"Created:", "Last Modified:", "Last Accessed:"};
    for (size_t i = 0; i < 3; ++i) {
        lbldate[i] = new QLabel(dates);
        lbldate[i]->setObjectName(QString("lbldate%1").arg(i));
        lbldate[i]->setAccessibleName(QString(kDateCaptions[i]).chopped(1));
        dateForm->addRow(kDateCaptions[i], lbldate[i]);
    }
    layout->addWidget(dates);

    auto* attrs = new QGroupBox("Attributes", this);
    attrs->setAccessibleName("Attributes");
    auto* attrLayout = new QVBoxLayout(attrs);
    for (size_t i = 1; i <= 7; ++i) {
        auto* box = new QCheckBox(kAttributeBoxes[i - 1].caption, attrs);
        box->setObjectName(QString("attributes%1").arg(i));
        box->setAccessibleName(kAttributeBoxes[i - 1].caption);
        // The state is only ever set by updatestats: a click or the focus goes to OK.
        box->setAttribute(Qt::WA_TransparentForMouseEvents);
        box->installEventFilter(this);
        attrLayout->addWidget(box);
        attributes[i] = box;
    }
    layout->addWidget(attrs);

    lblMod = new QLabel("NOTE: This file has been modified. As a result, this information will "
                        "not be up to date until the changes are saved.",
                        this);
    lblMod->setObjectName("lblMod");
    lblMod->setWordWrap(true);
    lblMod->setAccessibleName("Modified note");
    lblMod->setVisible(false);
    layout->addWidget(lblMod);

    cmdOK = new QPushButton("OK", this);
    cmdOK->setObjectName("cmdOK");
    cmdOK->setAccessibleName("OK");
    cmdOK->setDefault(true);
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    layout->addWidget(cmdOK, 0, Qt::AlignRight);
}

bool frmFileInfo::eventFilter(QObject* o, QEvent* e) {
    if (e->type() == QEvent::FocusIn) cmdOK->setFocus(); // attributes_GotFocus
    return QDialog::eventFilter(o, e);
}

void frmFileInfo::updatestats(const QString& path, bool changed) {
    lblMod->setVisible(changed);
    const FileInfoRecord r = FileInfoMod(ToBytes(path));
    txtname->setText(path);
    txtsize->setText(QString::fromStdString(SizeText(DisplayedSize(r))));
    const int64_t times[3] = {r.creationTime, r.lastWriteTime, r.lastAccessTime};
    for (size_t i = 0; i < 3; ++i) lbldate[i]->setText(QString::fromStdString(DateText(times[i])));
    for (size_t i = 1; i <= 7; ++i)
        attributes[i]->setChecked((r.attributes & kAttributeBoxes[i - 1].flag) != 0);
}
