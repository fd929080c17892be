#include "app/frmTip.h"

#include "base/qt/AppGlobals.h"
#include "base/qt/DataPaths.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

bool ShowTipsAtStartup() {
    return GetSetting(AppTitle(), "Options", "Show Tips at Startup", "1").trimmed().toLong() != 0;
}

frmTip::frmTip(QWidget* parent) : QDialog(parent) {
    setWindowTitle(tr("Tip of the Day"));
    setAccessibleName(windowTitle());
    auto* layout = new QVBoxLayout(this);
    auto* heading = new QLabel(tr("Did you know..."), this);
    QFont bold = heading->font();
    bold.setBold(true);
    bold.setPointSize(bold.pointSize() + 2);
    heading->setFont(bold);
    layout->addWidget(heading);
    lblTipText = new QLabel(this);
    lblTipText->setAccessibleName(tr("Tip"));
    lblTipText->setWordWrap(true);
    lblTipText->setMinimumSize(380, 120);
    lblTipText->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    lblTipText->setTextInteractionFlags(Qt::TextSelectableByMouse);
    layout->addWidget(lblTipText, 1);
    auto* row = new QHBoxLayout;
    chkLoadTipsAtStartup = new QCheckBox(tr("&Show Tips at Startup"), this);
    cmdNextTip = new QPushButton(tr("&Next Tip"), this);
    cmdOK = new QPushButton(tr("OK"), this);
    cmdOK->setDefault(true);
    chkLoadTipsAtStartup->setAccessibleName(chkLoadTipsAtStartup->text());
    cmdNextTip->setAccessibleName(cmdNextTip->text());
    cmdOK->setAccessibleName(cmdOK->text());
    row->addWidget(chkLoadTipsAtStartup);
    row->addStretch();
    row->addWidget(cmdNextTip);
    row->addWidget(cmdOK);
    layout->addLayout(row);
    Form_Load();
    // Connected after the load, so that setting the box from the store writes nothing.
    connect(chkLoadTipsAtStartup, &QCheckBox::toggled, this, &frmTip::chkLoadTipsAtStartup_Click);
    connect(cmdNextTip, &QPushButton::clicked, this, &frmTip::cmdNextTip_Click);
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
}

void frmTip::Form_Load() {
    chkLoadTipsAtStartup->setChecked(ShowTipsAtStartup());
    // The tips start at the file's first one every time: nothing random is drawn.
    const QString file = DataFileToRead(FromBytes(kTipFileName));
    if (!LoadTips(file)) lblTipText->setText(FromBytes(TipFileNotFoundText()));
}

bool frmTip::LoadTips(const QString& fileName) {
    if (!tips_.LoadTips(ToBytes(fileName))) return false;
    DisplayCurrentTip();
    return true;
}

void frmTip::DoNextTip() {
    tips_.DoNextTip();
    DisplayCurrentTip();
}

void frmTip::DisplayCurrentTip() {
    if (auto tip = tips_.CurrentTip()) lblTipText->setText(FromBytes(*tip));
}

void frmTip::chkLoadTipsAtStartup_Click() {
    SaveSetting(AppTitle(), "Options", "Show Tips at Startup",
                chkLoadTipsAtStartup->isChecked() ? "1" : "0");
}
