#include "base/MiscSubs.h"
#include "filetools/core/FileInfoMod.h"
#include "filetools/core/FolderListing.h"

#include "support/TempDir.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

TEST(FileInfo, SizeText) {
    const std::pair<double, const char*> cases[] = {
        {0, " Bytes"},          {1023, "1,023 Bytes"},
        {1024, "1.000 KB"},     {1048575, "1,023.999 KB"},
        {1048576, "1.000 MB"},  {1073741824, "1.000 GB"},
        {999999, "976.562 KB"},
    };
    for (auto [size, text] : cases) EXPECT_EQ(SizeText(size), text) << size;
}

// Sizes, dates, hidden and read-only files are shown by the dialog's test.
TEST(FileInfo, RecordsOfRealFiles) {
    EXPECT_EQ(DateText(0), "1/1/1970 0:0:0");
    TempDir dir;
    const std::string f = dir.write(".hid", "12345");
    FileInfoRecord r = FileInfoMod(f);
    EXPECT_EQ(r.fileName, ".hid");
    r.sizeHigh = 2; // the high half alone, as the dialog shows it; the low one is the dialog's
    EXPECT_EQ(DisplayedSize(r), 2);
    ASSERT_EQ(::symlink(f.c_str(), dir.file("ln").c_str()), 0);
    EXPECT_EQ(FileInfoMod(dir.file("ln")).attributes & kAttrReparse, kAttrReparse);
    EXPECT_EQ(FileInfoMod(dir.path()).attributes & kAttrDirectory, kAttrDirectory);
    EXPECT_EQ(FileInfoMod(dir.file("missing")).fileName, "");
}

TEST(FolderListing, ImagesAndPatterns) {
    const std::pair<const char*, int> images[] = {
        {"p.JPEG", kImagePicture}, {"v.it", kImageMedia},   {"t.txt", kImageText},
        {"s.bat", kImageProgram},  {"l.lnk", kImageSystem}, {"h.hlp", kImageHelp},
        {"x.ht", kImageFile},      {"x.", kImageFile},      {"x.t", kImageFile},
    };
    for (auto [name, image] : images) EXPECT_EQ(FileImageIndex(name), image) << name;

    struct Case {
        const char *name, *pattern;
        bool match;
    } cases[] = {
        {"noext", "*.*", true}, {"a.h", "*.c;*.h", true}, {"a.cpp", "*.c", false},
        {"b.txt", "a*", false}, {"a.txt", "", true},
    };
    for (auto& c : cases)
        EXPECT_EQ(MatchesPattern(c.name, c.pattern), c.match) << c.name << " " << c.pattern;
}

TEST(FolderListing, PathsDrivesAndTokens) {
    const std::pair<const char*, const char*> parents[] = {
        {"/", ""}, {"/home", "/"}, {"/home/u/", "/home"}, {"/a/b/c", "/a/b"}};
    for (auto [path, parent] : parents) EXPECT_EQ(ParentFolder(path), parent) << path;
    EXPECT_EQ(ParentRowText("/home"), ".. [/home]");

    const std::string table = "proc /proc proc rw 0 0\n"
                              "/dev/sdb1 /media/u/My\\040Stick vfat rw 0 0\n"
                              "/dev/sdc1 /mnt/data ext4 rw 0 0\n"
                              "/dev/sdd1 /run/media/u/CAM vfat rw 0 0\n"
                              "/dev/sde1 /run/media/other/X vfat rw 0 0\n"
                              "/dev/sdc1 /mnt/data ext4 rw 0 0\n";
    std::vector<std::string> got;
    for (const Drive& d : DrivesFrom(table, "/home/u", "u")) got.push_back(d.text + "=" + d.path);
    EXPECT_EQ(got, (std::vector<std::string>{"/=/", "u=/home/u", "My Stick=/media/u/My Stick",
                                             "data=/mnt/data", "CAM=/run/media/u/CAM"}));

    const char* filters = "Text|*.txt|All Files|*.*";
    const std::pair<int, const char*> tokens[] = {
        {1, "Text"}, {2, "*.txt"}, {4, "*.*"}, {5, ""}, {0, ""}};
    for (auto [i, token] : tokens) EXPECT_EQ(FilterToken(i, filters, "|"), token) << i;
}

TEST(FolderListing, ListsAFolder) {
    TempDir dir;
    for (const char* f : {"b.txt", "A.c", "a.h", ".hidden", "bad\xff\nname"}) dir.write(f, "");
    ::mkdir(dir.file("Zdir").c_str(), 0755);
    ::mkdir(dir.file("adir").c_str(), 0755);
    ::symlink("loop", dir.file("loop").c_str());                 // a link to itself: skipped
    ::symlink(dir.file("adir").c_str(), dir.file("ln").c_str()); // a link to a folder
    FolderListing l = ListFolder(dir.path(), {});
    ASSERT_TRUE(l.ok);
    EXPECT_EQ(l.folders, (std::vector<std::string>{"adir", "ln", "Zdir"}));
    EXPECT_EQ(l.files, (std::vector<std::string>{"A.c", "a.h", "b.txt", "bad\xff\nname"}));
    EXPECT_EQ(ListFolder(dir.path(), {"*.C;*.txt", true}).files,
              (std::vector<std::string>{"A.c", "b.txt"}));
    EXPECT_EQ(ListFolder(dir.path(), {"*", true}).files.front(), ".hidden");

    FolderListing gone = ListFolder(dir.file("gone"), {});
    EXPECT_FALSE(gone.ok);
    EXPECT_FALSE(gone.error.empty());
}
