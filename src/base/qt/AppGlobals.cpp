#include "base/qt/AppGlobals.h"

#include "base/DataFolders.h"
#include "base/PathHelpers.h"

#include <QApplication>
#include <QPalette>
#include <cstdio>
#include <memory>

namespace {
QString appDirOverride;
std::unique_ptr<SettingsStore> store;
} // namespace

QString& AppTitle() {
    static QString title = QStringLiteral("Kestrum");
    return title;
}

QString AppDir() {
    if (!appDirOverride.isEmpty()) return appDirOverride;
    // Installed, the shipped data is under the prefix rather than beside the executable.
    const std::string programDir = AppDirFrom(ToBytes(QCoreApplication::applicationDirPath()));
    return FromBytes(ResolveDataFoldersFromEnvironment(programDir).shipped);
}

void SetAppDirForTesting(const QString& dir) {
    appDirOverride = dir.isEmpty() ? QString() : FromBytes(AppDirFrom(ToBytes(dir)));
}

int ProgramBuildNumber() { return KESTRUM_BUILD_NUMBER; }

SettingsStore& Store() {
    if (!store) store = std::make_unique<SettingsStore>(SettingsStore::DefaultDirectory());
    return *store;
}

void SetStoreDirectoryForTesting(const std::string& dir) {
    store = std::make_unique<SettingsStore>(dir);
}

QString GetSetting(const QString& app, const QString& section, const QString& key,
                   const QString& def) {
    return FromBytes(Store().GetSetting(ToBytes(app), ToBytes(section), ToBytes(key), ToBytes(def)));
}

void SaveSetting(const QString& app, const QString& section, const QString& key,
                 const QString& value) {
    try {
        Store().SaveSetting(ToBytes(app), ToBytes(section), ToBytes(key), ToBytes(value));
    } catch (const std::exception& e) {
        std::fprintf(stderr, "kestrum: %s\n", e.what());
    }
}

bool DeleteSetting(const QString& app, const QString& section, const QString& key) {
    try {
        if (key.isNull())
            Store().DeleteSetting(ToBytes(app), ToBytes(section));
        else
            Store().DeleteSetting(ToBytes(app), ToBytes(section), ToBytes(key));
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

EditorSettings& g_EditorSettings() {
    static EditorSettings s = EditorSettings::Defaults();
    return s;
}

EditorSettings& g_SelectedProfile() {
    static EditorSettings s = EditorSettings::Defaults();
    return s;
}

PrintMargins& g_PrintMargins() {
    static PrintMargins m;
    return m;
}

QColor ColorFromLong(int32_t c) {
    if (c == kSysColorWindow) return QApplication::palette().color(QPalette::Base);
    if (c == kSysColorWindowText) return QApplication::palette().color(QPalette::Text);
    if (c < 0) return QApplication::palette().color(QPalette::Text);
    return QColor(c & 0xFF, (c >> 8) & 0xFF, (c >> 16) & 0xFF);
}

int32_t LongFromColor(const QColor& c) { return RGB(c.red(), c.green(), c.blue()); }

// Settings, paths and keyword lists are bytes; the user interface shows them as UTF-8 where
// they are valid UTF-8, otherwise byte for byte as Latin-1, and turns them back likewise.
QString FromBytes(std::string_view b) {
    QString s = QString::fromUtf8(b.data(), qsizetype(b.size()));
    if (!s.contains(QChar::ReplacementCharacter)) return s;
    return QString::fromLatin1(b.data(), qsizetype(b.size()));
}

std::string ToBytes(const QString& s) {
    QByteArray b = s.toUtf8();
    return std::string(b.constData(), size_t(b.size()));
}
