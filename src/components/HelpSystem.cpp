#include "components/HelpSystem.h"

#include "base/HelpTopic.h"
#include "base/qt/AppGlobals.h"
#include "base/qt/DataPaths.h"
#include "components/cDialogs.h"

#include <QDesktopServices>
#include <QUrl>

namespace {
std::function<bool(const QString&)> opener;
}

void SetHelpOpenerForTesting(std::function<bool(const QString&)> o) {
    opener = std::move(o);
}

void ShowHelpTopic(const QString& topic) {
    // The frameset is written to the user's Help folder; installed, that is not where the
    // pages are, so it points at them by their address.
    const DataFolders folders = ProgramDataFolders();
    const std::string appDir = folders.user;
    std::string pagesBase;
    if (folders.Installed()) {
        MakeUserDataFolder(folders, "Help");
        pagesBase = ToBytes(
            QUrl::fromLocalFile(FromBytes(folders.shipped + "Help/")).toString(QUrl::FullyEncoded));
    }
    HelpFileResult r = WriteHelpFrameset(appDir, ToBytes(topic), pagesBase);
    if (!r.ok) {
        cDialogs::Get().MsgBox(FromBytes(HelpWriteFailureText(r.error)), MsgButtons::OK,
                               MsgIcon::Critical, FromBytes(kHelpBoxCaption));
        return;
    }
    QString page = FromBytes(HelpFramesetPath(appDir));
    const bool shown = opener ? opener(page) : QDesktopServices::openUrl(QUrl::fromLocalFile(page));
    // Without a browser the page was written for nothing: the user is told, as for a page
    // that could not be written.
    if (!shown)
        cDialogs::Get().MsgBox(
            FromBytes(HelpWriteFailureText("no program to show web pages could be started for " +
                                           ToBytes(page))),
            MsgButtons::OK, MsgIcon::Critical, FromBytes(kHelpBoxCaption));
}
