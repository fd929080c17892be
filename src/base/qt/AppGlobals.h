#pragma once
// Process-wide state of the application shell: the application title, the program folder,
// the settings store and the global records every window reads.
#include "base/EditorSettings.h"
#include "base/SettingsStore.h"

#include <QColor>
#include <QString>

// "Kestrum" in the first instance; a later instance becomes "Previstance" at once.
QString& AppTitle();
// The folder of the shipped data, ending in '/': the program's own folder, or the data folder
// under the prefix of an installed program.
QString AppDir();
// Tests point the program at a folder of their own.
void SetAppDirForTesting(const QString& dir);

// The build (revision) number compared with Version/Build at every start.
int ProgramBuildNumber();

// The store behind GetSetting and friends; tests may point it at a folder of their own.
SettingsStore& Store();
void SetStoreDirectoryForTesting(const std::string& dir);

QString GetSetting(const QString& app, const QString& section, const QString& key,
                   const QString& def = {});
// Writes the value; a store that cannot be written is reported on standard error only,
// since no operation of the store shows a message.
void SaveSetting(const QString& app, const QString& section, const QString& key,
                 const QString& value);
// Returns false when there was nothing to delete.
bool DeleteSetting(const QString& app, const QString& section, const QString& key = {});

// The global active record, the profile picked in the main window, and the print margins.
EditorSettings& g_EditorSettings();
EditorSettings& g_SelectedProfile();
PrintMargins& g_PrintMargins();

// A stored colour: an RGB long or one of the two system colour codes.
QColor ColorFromLong(int32_t c);
int32_t LongFromColor(const QColor& c);

// Bytes of a setting, a file name or a keyword list as the program keeps them. The round trip
// is exact: bytes that are not UTF-8 are held as lone surrogates (see NameCodec.h), so a path
// must reach the system through ToBytes, never through Qt's own file name encoding.
QString FromBytes(std::string_view b);
std::string ToBytes(const QString& s);
// Text fit to show (captions, tabs, messages): bytes held as escapes shown as Latin-1, or as
// U+FFFD where that would be a control character. Never turned back into a path.
QString ShownText(const QString& s);
