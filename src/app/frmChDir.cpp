#include "app/frmChDir.h"

#include "components/HelpSystem.h"

#include <QComboBox>
#include <QDir>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>

DirListBox::DirListBox(QWidget* parent) : QListWidget(parent) {
    connect(this, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* item) {
        SetPath(QDir(path_).absoluteFilePath(item->text()));
    });
}

bool DirListBox::SetPath(const QString& path) {
    QDir dir(path);
    if (!dir.exists() || !dir.isReadable()) return false;
    path_ = QDir::cleanPath(dir.absolutePath());
    clear();
    if (!dir.isRoot()) addItem("..");
    addItems(dir.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase));
    return true;
}

QStringList DriveList() {
    QStringList drives{"/", QDir::homePath()};
    const QString user = qEnvironmentVariable("USER");
    for (const QString& base : {QString("/media"), QString("/mnt"), "/run/media/" + user}) {
        if (base.endsWith("/")) continue; // no user name
        QDir d(base);
        for (const QString& sub : d.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name))
            drives << d.absoluteFilePath(sub);
    }
    drives.removeDuplicates();
    return drives;
}

frmChDir::frmChDir(QWidget* parent) : QDialog(parent) {
    setWindowTitle(tr("Change Directory"));
    setAccessibleName(windowTitle());
    auto* grid = new QGridLayout(this);
    auto* label = new QLabel(tr("Current Directory:"), this);
    lblCurrentDir = new QLabel(this);
    lblCurrentDir->setAccessibleName(label->text());
    lstDrives = new QComboBox(this);
    lstDrives->setAccessibleName(tr("Drives"));
    lstDrives->addItems(DriveList());
    lstDirs = new DirListBox(this);
    lstDirs->setAccessibleName(tr("Directories"));
    lstDirs->setMinimumSize(300, 220);
    cmdOK = new QPushButton(tr("OK"), this);
    cmdCancel = new QPushButton(tr("Cancel"), this);
    cmdHelp = new QPushButton(tr("Help"), this);
    for (QPushButton* b : {cmdOK, cmdCancel, cmdHelp}) b->setAccessibleName(b->text());
    grid->addWidget(label, 0, 0);
    grid->addWidget(lblCurrentDir, 0, 1, 1, 2);
    grid->addWidget(lstDrives, 1, 0, 1, 3);
    grid->addWidget(lstDirs, 2, 0, 1, 3);
    grid->addWidget(cmdOK, 3, 0);
    grid->addWidget(cmdCancel, 3, 1);
    grid->addWidget(cmdHelp, 3, 2);
    lstDirs->SetPath(QDir::currentPath());
    connect(lstDrives, &QComboBox::currentIndexChanged, this, &frmChDir::lstDrives_Change);
    connect(cmdOK, &QPushButton::clicked, this, &frmChDir::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(cmdHelp, &QPushButton::clicked, this, [] { ShowHelpTopic("file_change_dir"); });
}

void frmChDir::showEvent(QShowEvent* e) {
    Form_Activate();
    QDialog::showEvent(e);
}

void frmChDir::Form_Activate() { lblCurrentDir->setText(QDir::currentPath()); }

// A drive that cannot be listed leaves the folder list as it was.
void frmChDir::lstDrives_Change() { lstDirs->SetPath(lstDrives->currentText()); }

// A folder that cannot be entered leaves the current one; the dialog closes all the same.
void frmChDir::cmdOK_Click() {
    QDir::setCurrent(lstDirs->Path());
    accept();
}

void frmChDir::keyReleaseEvent(QKeyEvent* e) {
    if (e->key() == Qt::Key_F1) ShowHelpTopic("file_change_dir");
    QDialog::keyReleaseEvent(e);
}
