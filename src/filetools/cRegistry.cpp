#include "filetools/cRegistry.h"

#include "base/qt/AppGlobals.h"
#include "filetools/core/DesktopAssociations.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMimeDatabase>
#include <QProcess>
#include <QSaveFile>
#include <QStandardPaths>

namespace {

QString BaseDirectory(const char* variable, const QString& fallback) {
    const QString value = qEnvironmentVariable(variable);
    // A relative value is not a base directory and is ignored.
    if (!value.isEmpty() && QDir::isAbsolutePath(value)) return QDir::cleanPath(value);
    return QDir::homePath() + "/" + fallback;
}

QString Exec(const QString& program, const QString& arguments) {
    return FromBytes(QuoteExecArgument(ToBytes(program))) + " " + arguments;
}

// The passed program path, trimmed; the quoting is the Exec line's own.
QString VerbExec(const QString& exePath, const QString& switchText) {
    return Exec(exePath.trimmed(), switchText + " %f");
}

std::vector<std::string> ToStd(const QStringList& list) {
    std::vector<std::string> out;
    for (const QString& s : list) out.push_back(ToBytes(s));
    return out;
}

// Runs a desktop tool; false when it is missing, fails or hangs.
bool RunTool(const QString& name, const QStringList& arguments) {
    const QString exe = QStandardPaths::findExecutable(name);
    if (exe.isEmpty()) return false;
    QProcess p;
    p.start(exe, arguments);
    if (!p.waitForFinished(30000)) {
        p.kill();
        p.waitForFinished(1000);
        return false;
    }
    return p.exitStatus() == QProcess::NormalExit && p.exitCode() == 0;
}

} // namespace

cRegistryError::cRegistryError(long number, const QString& description)
    : std::runtime_error(ToBytes(description)), number_(number), description_(description) {}

QString cRegistryError::Source() const {
    return QFileInfo(QCoreApplication::applicationFilePath()).fileName() + ".cRegistry";
}

cRegistry::cRegistry()
    : dataHome_(BaseDirectory("XDG_DATA_HOME", ".local/share")),
      configHome_(BaseDirectory("XDG_CONFIG_HOME", ".config")) {}

QString cRegistry::DesktopEntryPath(const QString& className) const {
    return dataHome_ + "/applications/" + className + ".desktop";
}

QString cRegistry::MimeAppsPath() const { return configHome_ + "/mimeapps.list"; }

bool cRegistry::KeyExists(const QString& className) const {
    return QFileInfo(DesktopEntryPath(className)).isFile();
}

void cRegistry::WriteFile(const QString& path, const QByteArray& bytes) {
    auto fail = [&](const QString& why) {
        throw cRegistryError(kRegistryWriteError, "Failed to write '" + path + "': " + why);
    };
    const QFileInfo info(path);
    if (!QDir().mkpath(info.absolutePath())) fail("the folder cannot be made");
    // QSaveFile would replace a read-only file through its folder; the user's protection
    // holds, for a superuser too.
    if (info.exists() && (!info.isWritable() || !(info.permissions() & QFileDevice::WriteOwner)))
        fail("the file is write-protected");
    QSaveFile f(path);
    if (!f.open(QIODevice::WriteOnly)) fail(f.errorString());
    if (f.write(bytes) != bytes.size()) fail(f.errorString());
    if (!f.commit()) fail(f.errorString());
}

void cRegistry::CreateEXEAssociation(const QString& exePath, const QString& className,
                                     const QString& classDescription, const QString& extension,
                                     const QString& openMenuText, bool supportPrint,
                                     const QString& printMenuText, bool supportNew,
                                     const QString& newMenuText, bool supportInstall,
                                     const QString& installMenuText, int defaultIconIndex) {
    const QString ext = extension.trimmed();
    if (!IsAssociableExtension(ToBytes(ext)))
        throw cRegistryError(kRegistryWriteError,
                             "The extension '" + extension +
                                 "' cannot be associated: a file type may only hold letters, "
                                 "digits, '_', '-', '+' and dots between them.");

    // The desktop's own type for the extension, else one of this program's.
    QString mimeType;
    const QMimeType known =
        QMimeDatabase().mimeTypeForFile("x." + ext.toLower(), QMimeDatabase::MatchExtension);
    if (known.isValid() && !known.isDefault()) {
        mimeType = known.name();
    } else {
        mimeType = FromBytes(OwnMimeType(ToBytes(ext)));
        const QString package =
            dataHome_ + "/mime/packages/" + FromBytes(MimePackageFileName(ToBytes(ext)));
        WriteFile(package, QByteArray::fromStdString(MimePackageXml(
                               ToBytes(mimeType), ToBytes(ext), ToBytes(classDescription))));
        mimeDatabaseStale_ = true;
    }

    QStringList verbs;
    if (supportPrint)
        verbs << "print" << (printMenuText.isEmpty() ? "&Print" : printMenuText)
              << VerbExec(exePath, "/p");
    if (supportInstall)
        verbs << "add" << (installMenuText.isEmpty() ? "&Install " + ext : installMenuText)
              << VerbExec(exePath, "/a");
    if (supportNew)
        verbs << "new" << (newMenuText.isEmpty() ? "&New" : newMenuText)
              << VerbExec(exePath, "/n");
    // Opening takes the program of this very folder, not the path passed in.
    const QString openExec = Exec(QCoreApplication::applicationDirPath() + "/kestrum", "%f");
    // The entry's name is the open text, which the desktop shows in its Open With lists.
    WriteDesktopEntry(className, openMenuText.isEmpty() ? "&Open in Kestrum" : openMenuText,
                      classDescription, openExec,
                      defaultIconIndex >= 0 ? QStringLiteral("kestrum") : QString(), {mimeType},
                      verbs);
    SetDefaultApplication(mimeType, className + ".desktop");
}

void cRegistry::CreateAdditionalEXEAssociations(const QString& className,
                                                const QStringList& items) {
    if (items.size() % 3 != 0)
        throw cRegistryError(kRegistryBadVerbList, "Invalid parameter list passed to "
                                                   "CreateAdditionalEXEAssociations - expected "
                                                   "Name/Text/Command");
    if (!KeyExists(className))
        throw cRegistryError(kRegistryNoClass, "Error - attempt to create additional "
                                               "associations before class defined.");
    WriteDesktopEntry(className, {}, {}, {}, {}, {}, items);
}

// Merges into the class's entry: its types and verbs stay, new ones join them; fields left
// empty keep what the entry had.
void cRegistry::WriteDesktopEntry(const QString& className, const QString& name,
                                  const QString& description,
                                  const QString& openExec, const QString& icon,
                                  const QStringList& mimeTypes, const QStringList& verbTriples) {
    const QString path = DesktopEntryPath(className);
    std::string old;
    QFile in(path);
    if (in.open(QIODevice::ReadOnly)) old = in.readAll().toStdString();

    DesktopEntryFields f;
    f.name = ToBytes(name);
    f.comment = ToBytes(description);
    f.exec = ToBytes(openExec);
    f.icon = ToBytes(icon);
    // Fields that this call leaves empty keep what the entry had.
    if (f.name.empty())
        f.name = ToBytes(FromBytes(DesktopEntryValue(old, "Name")).replace("&", "&&"));
    if (f.comment.empty()) f.comment = DesktopEntryValue(old, "Comment");
    if (f.exec.empty()) f.exec = DesktopEntryValue(old, "Exec");
    if (f.icon.empty()) f.icon = DesktopEntryValue(old, "Icon");
    f.mimeTypes = MimeTypesOfDesktopEntry(old);
    AddMissing(f.mimeTypes, ToStd(mimeTypes));
    f.verbs = VerbsOfDesktopEntry(old);
    for (qsizetype i = 0; i + 2 < verbTriples.size(); i += 3) {
        DesktopVerb v{ToBytes(verbTriples[i]), ToBytes(verbTriples[i + 1]),
                      ToBytes(verbTriples[i + 2])};
        auto same = std::find_if(f.verbs.begin(), f.verbs.end(),
                                 [&](const DesktopVerb& o) { return o.name == v.name; });
        if (same != f.verbs.end()) *same = v;
        else f.verbs.push_back(v);
    }
    WriteFile(path, QByteArray::fromStdString(DesktopEntryText(f)));
}

void cRegistry::SetDefaultApplication(const QString& mimeType, const QString& desktopId) {
    if (RunTool("xdg-mime", {"default", desktopId, mimeType})) return;
    const QString path = MimeAppsPath();
    QFile in(path);
    std::string old;
    if (in.exists()) {
        if (!in.open(QIODevice::ReadOnly))
            throw cRegistryError(kRegistryWriteError,
                                 "Failed to read '" + path + "': " + in.errorString());
        old = in.readAll().toStdString();
    }
    MimeAppsResult r = MergeMimeApps(old, {ToBytes(mimeType)}, ToBytes(desktopId));
    if (!r.ok)
        throw cRegistryError(kRegistryWriteError,
                             "Failed to set the default application in '" + path + "': " +
                                 FromBytes(r.error));
    WriteFile(path, QByteArray::fromStdString(r.text));
}

QString cRegistry::Finish() {
    RunTool("update-desktop-database", {dataHome_ + "/applications"});
    if (!mimeDatabaseStale_) return {};
    mimeDatabaseStale_ = false;
    if (QStandardPaths::findExecutable("update-mime-database").isEmpty())
        return "The program update-mime-database was not found. The new file types are "
               "written to " + dataHome_ + "/mime/packages and take effect when the desktop's "
               "MIME database is next rebuilt.";
    if (!RunTool("update-mime-database", {dataHome_ + "/mime"}))
        return "update-mime-database could not rebuild " + dataHome_ + "/mime. The new file "
               "types take effect when the desktop's MIME database is next rebuilt.";
    return {};
}
