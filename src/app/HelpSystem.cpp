#include "app/HelpSystem.h"

#include "app/AppGlobals.h"
#include "app/core/HelpTopic.h"
#include "components/cDialogs.h"

#include <QDesktopServices>
#include <QUrl>

namespace {
std::function<void(const QString&)> opener;
}

void SetHelpOpenerForTesting(std::function<void(const QString&)> o) { opener = std::move(o); }

void ShowHelpTopic(const QString& topic) {
    std::string appDir = ToBytes(AppDir());
    HelpFileResult r = WriteHelpFrameset(appDir, ToBytes(topic));
    if (!r.ok) {
        cDialogs::Get().MsgBox(FromBytes(HelpWriteFailureText(r.error)), MsgButtons::OK,
                               MsgIcon::Critical, FromBytes(kHelpBoxCaption));
        return;
    }
    QString page = FromBytes(HelpFramesetPath(appDir));
    if (opener)
        opener(page);
    else
        QDesktopServices::openUrl(QUrl::fromLocalFile(page));
}
