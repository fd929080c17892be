#include "profiles/ProfileSaving.h"

#include "base/qt/AppGlobals.h"
#include "base/qt/DataPaths.h"
#include "components/cDialogs.h"
#include "profiles/core/ProfileFile.h"

#include <QFile>
#include <QFileInfo>

bool SaveProfileAs(const EditorSettings& record) {
    QString name = cDialogs::Get().InputPrompt(
        "Enter the name of the profile you wish to save. This is the name that will appear on "
        "the 'Default Profiles' list on the Options dialog.",
        "Export Settings as Profile", QString());
    if (name.isEmpty()) return false;
    // The name is a file name in PROFILES/, never a way out of it.
    if (name.contains('/') || name == "." || name == "..") {
        cDialogs::Get().MsgBox("A profile name cannot contain \"/\" or be \".\" or \"..\".",
                               MsgButtons::OK, MsgIcon::Exclamation, "Export Settings as Profile");
        return false;
    }
    // A shipped profile of that name counts as existing: the user's copy would shadow it.
    const bool shippedExists = QFileInfo(DataFileToRead("PROFILES/" + name)).size() > 0;
    QString path = DataFileToWrite("PROFILES/" + name);
    // Opening the file creates it; one that already holds something is only overwritten on Yes.
    QFile f(path);
    if (!f.open(QIODevice::ReadWrite)) {
        cDialogs::Get().MsgBox("The profile could not be saved:\r\n" + f.errorString(),
                               MsgButtons::OK, MsgIcon::Critical, "File I/O Error");
        return false;
    }
    bool exists = f.size() > 0 || shippedExists;
    f.close();
    if (exists && cDialogs::Get().MsgBox("A profile with this name exists. Do you wish to "
                                         "overwrite the old profile?",
                                         MsgButtons::YesNo, MsgIcon::Question,
                                         "Confirm") != MsgResult::Yes)
        return false;
    std::string error = WriteProfileFile(ToBytes(path), record);
    if (!error.empty()) {
        cDialogs::Get().MsgBox("The profile could not be saved:\r\n" + FromBytes(error),
                               MsgButtons::OK, MsgIcon::Critical, "File I/O Error");
        return false;
    }
    return true;
}
