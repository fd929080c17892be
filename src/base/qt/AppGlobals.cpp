#include "base/qt/AppGlobals.h"

#include "base/DataFolders.h"
#include "base/NameCodec.h"
#include "base/PathHelpers.h"
#include "base/TextCodec.h"

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

// Settings, paths and keyword lists are bytes; the user interface shows them as UTF-8. Bytes
// that are not UTF-8 are carried as escapes (see NameCodec.h), so that a name goes back to
// the system as the very bytes it came as.
QString FromBytes(std::string_view b) {
    if (IsValidUtf8(b)) return QString::fromUtf8(b.data(), qsizetype(b.size()));
    std::u16string u = DecodeNameBytes(b);
    return QString(reinterpret_cast<const QChar*>(u.data()), qsizetype(u.size()));
}

std::string ToBytes(const QString& s) {
    const char16_t* u = reinterpret_cast<const char16_t*>(s.utf16());
    const std::u16string_view text(u, size_t(s.size()));
    for (char16_t c : text)
        if (c >= 0xD800 && c <= 0xDFFF) return EncodeNameText(text);
    QByteArray b = s.toUtf8();
    return std::string(b.constData(), size_t(b.size()));
}

QString ShownText(const QString& s) {
    QString shown = s;
    for (QChar& c : shown) {
        if (!IsEscapedByte(c.unicode())) continue;
        // Latin-1 reads well for the usual 8-bit names; its control range shows as U+FFFD.
        const char16_t byte = char16_t(c.unicode() - 0xDC00);
        c = byte >= 0xA0 ? QChar(byte) : QChar::ReplacementCharacter;
    }
    return shown;
}
