// The main window's commands of the desktop: file associations, the current folder, the tip
// of the day, the About box and the mail links.
#include "app/frmAbout.h"
#include "app/frmChDir.h"
#include "app/frmMain.h"
#include "app/frmTip.h"
#include "filetools/frmAssociateFiles.h"
#include "profiles/frmConfigAssocProfile.h"

#include <QDesktopServices>
#include <QUrl>
#include <QUrlQuery>

void frmMain::mnuFileChDir_Click() {
    frmChDir dlg(this);
    ShowModal(dlg);
}

void frmMain::mnuAdvancedFileAssocs_Click() {
    frmAssociateFiles dlg(this);
    ShowModal(dlg);
}

namespace {
void OpenMail(const QString& subject) {
    QUrl url(QStringLiteral("mailto:") + kAuthorMail);
    if (!subject.isEmpty()) {
        QUrlQuery q;
        q.addQueryItem("subject", subject);
        url.setQuery(q);
    }
    QDesktopServices::openUrl(url);
}
} // namespace

void frmMain::mnuHelpAuthor_Click() { OpenMail({}); }

void frmMain::mnuHelpBugs_Click() { OpenMail("Bug Reports and Suggestions"); }

void frmMain::mnuHelpTipofDay_Click() {
    frmTip dlg(this);
    ShowModal(dlg);
}

void frmMain::mnuHelpAbout_Click() {
    frmAbout dlg(this);
    ShowModal(dlg);
}

void frmMain::ShowStartupTip() {
    if (ShowTipsAtStartup()) mnuHelpTipofDay_Click();
}
