#include "app/frmAbout.h"

#include "base/qt/AppGlobals.h"
#include "components/cDialogs.h"

#include <QDesktopServices>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QProcess>
#include <QPushButton>
#include <QStandardPaths>
#include <QUrl>

QString VersionText(int major, int minor, int revision) {
    return QString("Version %1.%2   Build %3").arg(major).arg(minor).arg(revision);
}

QString ProgramVersionText() {
    return VersionText(KESTRUM_VERSION_MAJOR, KESTRUM_VERSION_MINOR, ProgramBuildNumber());
}

namespace {
QLabel* Link(QWidget* parent, const QString& text) {
    auto* l = new QLabel(text, parent);
    l->setAccessibleName(text);
    l->setCursor(Qt::PointingHandCursor);
    QFont f = l->font();
    f.setUnderline(true);
    l->setFont(f);
    l->setStyleSheet("color: #1a4fb0");
    return l;
}
} // namespace

frmAbout::frmAbout(QWidget* parent) : QDialog(parent) {
    setWindowTitle(tr("About Kestrum"));
    setAccessibleName(windowTitle());
    auto* grid = new QGridLayout(this);
    lblTitle = new QLabel("Kestrum", this);
    QFont big = lblTitle->font();
    big.setPointSize(big.pointSize() + 8);
    big.setBold(true);
    lblTitle->setFont(big);
    lblVersion = new QLabel(ProgramVersionText(), this);
    lblCopyright = new QLabel(tr("Copyright \u00A9 the Kestrum developers. A programmer's text "
                                 "editor."), this);
    lblDisclaimer = new QLabel(
        tr("This program is provided \"as is\", without warranty of any kind. The authors are "
           "not liable for any damage or loss of data that may come from its use."), this);
    lblDisclaimer->setWordWrap(true);
    Label5 = Link(this, kHomePage);
    lblMirror = Link(this, kMirrorPage);
    cmdOK = new QPushButton(tr("OK"), this);
    cmdSysInfo = new QPushButton(tr("&System Info..."), this);
    cmdOK->setDefault(true);
    int row = 0;
    for (QLabel* l : {lblTitle, lblVersion, lblCopyright, lblDisclaimer, Label5, lblMirror}) {
        if (l->accessibleName().isEmpty()) l->setAccessibleName(l->text());
        grid->addWidget(l, row++, 0, 1, 2);
    }
    grid->addWidget(cmdSysInfo, row, 0);
    grid->addWidget(cmdOK, row, 1);
    for (QPushButton* b : {cmdOK, cmdSysInfo}) b->setAccessibleName(b->text());
    for (QLabel* l : {Label5, lblMirror}) l->installEventFilter(this);
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdSysInfo, &QPushButton::clicked, this, &frmAbout::cmdSysInfo_Click);
}

// A link looks pressed while the mouse is down on it and opens its page on mouse up.
bool frmAbout::eventFilter(QObject* o, QEvent* e) {
    auto* label = qobject_cast<QLabel*>(o);
    if (label && (label == Label5 || label == lblMirror)) {
        if (e->type() == QEvent::MouseButtonPress) {
            label->setFrameStyle(QFrame::Panel | QFrame::Sunken);
            return true;
        }
        if (e->type() == QEvent::MouseButtonRelease) {
            label->setFrameStyle(QFrame::NoFrame);
            QDesktopServices::openUrl(QUrl(label->text()));
            return true;
        }
    }
    return QDialog::eventFilter(o, e);
}

bool frmAbout::StartSysInfo() {
    for (const char* tool : {"hardinfo", "gnome-system-monitor", "plasma-systemmonitor",
                             "xfce4-taskmanager"}) {
        const QString exe = QStandardPaths::findExecutable(tool);
        if (!exe.isEmpty() && QProcess::startDetached(exe, {})) return true;
    }
    return false;
}

void frmAbout::cmdSysInfo_Click() {
    if (!StartSysInfo())
        cDialogs::Get().MsgBox("System Information Is Unavailable At This Time", MsgButtons::OK,
                               MsgIcon::Information, windowTitle());
}
