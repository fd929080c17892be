#pragma once
// What the file browser lists: a folder's subfolders and files in name order, the parent
// entry, the "drives" (root, home and mounted file systems), and the image of each kind.
#include <string>
#include <string_view>
#include <vector>

// The row kinds of the browser, numbered as its images are.
enum BrowserImage : int {
    kImageFolder = 1,
    kImageParent = 2,
    kImageDrive = 3,
    kImageFile = 4,
    kImagePicture = 5,
    kImageText = 6,
    kImageMedia = 7,
    kImageProgram = 8,
    kImageWebPage = 9,
    kImageSystem = 10,
    kImageArchive = 11,
    kImageHelp = 12,
};

// The image of a file by the text behind the last dot of its name, upper-cased.
int FileImageIndex(std::string_view name);

// The file mask: patterns separated by ";", matched without regard to case; "*.*" and "*"
// match every name, also one without a dot.
bool MatchesPattern(std::string_view name, std::string_view pattern);

struct FolderListing {
    bool ok = false;
    std::string error;                // the system's reason when the folder can't be read
    std::vector<std::string> folders; // names, in name order
    std::vector<std::string> files;
};

struct ListingOptions {
    std::string pattern = "*.*";
    bool hidden = false; // list files whose name starts with "."
};

// Lists a folder. Entries that can't be examined (a broken link, a link loop) are skipped;
// a symbolic link counts as what it points to. Never follows into the folders.
FolderListing ListFolder(const std::string& folder, const ListingOptions& options);

// Name order: case-insensitive, then by bytes.
bool NameLess(std::string_view a, std::string_view b);

// The parent of an absolute folder path, or empty at the root ("/").
std::string ParentFolder(std::string_view folder);
// The parent row's text: ".. [" parent "]".
std::string ParentRowText(std::string_view parent);
// The folder path with one trailing "/".
std::string WithSlash(std::string_view folder);

struct Drive {
    std::string text; // what the row shows: the folder name of the mount point
    std::string path;
};
// The root, the home folder and every mount point under /media, /mnt and /run/media/<user>
// named by the mount table's text (the format of /proc/self/mounts), in table order.
std::vector<Drive> DrivesFrom(std::string_view mountTable, const std::string& home,
                              const std::string& user);

// Token index (1-based) of text split at delim; the last ends at the end of the text; an
// index beyond the end gives "".
std::string FilterToken(int index, std::string_view text, std::string_view delim);
