#include "base/qt/DataPaths.h"

#include "base/qt/AppGlobals.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <optional>

namespace {
std::optional<DataFolders> foldersOverride;
}

DataFolders ProgramDataFolders() {
    if (foldersOverride) return *foldersOverride;
    DataFolders f = ResolveDataFoldersFromEnvironment(ToBytes(QCoreApplication::applicationDirPath()));
    // A program folder given by a test is the one folder of an uninstalled program.
    const std::string appDir = ToBytes(AppDir());
    if (appDir != f.shipped) return {appDir, appDir};
    return f;
}

QString UserDataDir() { return FromBytes(ProgramDataFolders().user); }

QString DataFileToRead(const QString& relative) {
    return FromBytes(DataPathForReading(ProgramDataFolders(), ToBytes(relative)));
}

QString DataFileToWrite(const QString& relative) {
    const DataFolders f = ProgramDataFolders();
    const std::string rel = ToBytes(relative);
    const auto slash = rel.rfind('/');
    if (slash != std::string::npos) MakeUserDataFolder(f, rel.substr(0, slash));
    else MakeUserDataFolder(f, "");
    return FromBytes(DataPathForWriting(f, rel));
}

QStringList DataFiles(const QString& relativeFolder) {
    QStringList out;
    for (const std::string& name : DataFolderFiles(ProgramDataFolders(), ToBytes(relativeFolder)))
        out << FromBytes(name);
    return out;
}

void SetDataFoldersForTesting(const QString& shipped, const QString& user) {
    if (shipped.isEmpty() && user.isEmpty()) {
        foldersOverride.reset();
        return;
    }
    auto slash = [](QString s) { return s.endsWith('/') ? s : s + '/'; };
    foldersOverride = DataFolders{ToBytes(slash(shipped)), ToBytes(slash(user))};
}
