#pragma once
// The one road to the program's data folders (PROFILES/, template/, cliptext/, Help/,
// Kestrum.dat): every reader and writer of them goes through here. A user's own file is read
// before the shipped one of the same name; whatever the program writes goes to the user's
// folder, which is the program's own folder when it runs from where it was built.
#include "base/DataFolders.h"

#include <QString>
#include <QStringList>

DataFolders ProgramDataFolders();
// The user's folder, ending in '/'.
QString UserDataDir();
// The file to read for a path relative to the data folders ("PROFILES/C").
QString DataFileToRead(const QString& relative);
// The file to write for such a path; its folder in the user's data folder is made first. A
// folder that cannot be made shows when the caller's write fails.
QString DataFileToWrite(const QString& relative);
// The regular files of a data folder ("PROFILES"), user's and shipped together, each once,
// sorted without regard to case; hidden ones left out.
QStringList DataFiles(const QString& relativeFolder);

// Tests give the two folders of an installed program; empty strings go back to AppDir.
void SetDataFoldersForTesting(const QString& shipped, const QString& user);
