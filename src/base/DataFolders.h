#pragma once
// Where the program's data lives. The shipped data (PROFILES/, template/, cliptext/, Help/,
// Kestrum.dat) is read from the program's data folder; whatever the program writes goes to
// the user's own folder, which is read first, so that a user's file shadows the shipped one
// of the same name. Run from its build folder the program keeps both in one place, beside
// the executable; installed under a prefix, the shipped data is in <prefix>/share/kestrum/
// (or <prefix>/lib/kestrum/), which the user may not write, and the user's folder is
// $XDG_DATA_HOME/kestrum/.
#include <string>
#include <string_view>
#include <vector>

struct DataFolders {
    std::string shipped; // ends in '/'
    std::string user;    // ends in '/'; equal to shipped when the program runs uninstalled
    bool Installed() const { return shipped != user; }
};

// programDir is the executable's folder (with or without its trailing '/'). xdgDataHome and
// home are the environment's values, empty when unset; a relative XDG_DATA_HOME is ignored,
// as the base directory rules ask. An uninstalled program whose folder the user cannot write
// (a copy unpacked by another user) keeps its shipped data there and the user's in the
// user's folder, as an installed one does.
DataFolders ResolveDataFolders(std::string_view programDir, std::string_view xdgDataHome,
                               std::string_view home, bool programDirWritable = true);
// The same with XDG_DATA_HOME and HOME read from the environment and the program folder's
// permissions from the system.
DataFolders ResolveDataFoldersFromEnvironment(std::string_view programDir);

// The file to read for a path relative to the data folders ("PROFILES/C/C++"): the user's
// copy when there is one, else the shipped one (which need not exist).
std::string DataPathForReading(const DataFolders& folders, std::string_view relative);
// The file to write: always in the user's folder.
std::string DataPathForWriting(const DataFolders& folders, std::string_view relative);
// Makes the user's copy of a folder ("PROFILES") with its parents. False, with the system's
// text in *error, when it cannot be made.
bool MakeUserDataFolder(const DataFolders& folders, std::string_view relativeFolder,
                        std::string* error = nullptr);
// The names of the regular files in a data folder, the user's and the shipped ones together,
// each name once, sorted without regard to case (ties by bytes). Hidden files (a name that
// starts with ".", such as an editor's leftovers) are not listed.
std::vector<std::string> DataFolderFiles(const DataFolders& folders,
                                         std::string_view relativeFolder);
