#include "base/PathHelpers.h"

#include <gtest/gtest.h>

TEST(PathHelpers, StripQuotes) {
    for (auto [in, out] : std::vector<std::pair<const char*, const char*>>{
             {"\"/a b/c.txt\"", "/a b/c.txt"},
             {"  \"/x.c\"  ", "/x.c"},
             {"\"/x.c", "/x."},    // last character goes, whatever it is
             {"/x.c  ", "/x.c  "}, // no quote: untrimmed
             {"\"", ""},
             {"", ""}})
        EXPECT_EQ(StripQuotes(in), out) << in;
}

TEST(PathHelpers, NamesAndFolders) {
    EXPECT_EQ(FileNameOf("/home/u/a.tar.gz"), "a.tar.gz");
    EXPECT_EQ(FileNameOf("a.txt"), "");
    EXPECT_EQ(FileNameOf("/dir/"), "");
    EXPECT_EQ(PathOf("/home/u/a.txt"), "/home/u/");
    EXPECT_EQ(PathOf("a.txt"), "");
    EXPECT_EQ(StripExtension("/home/u/a.tar.gz"), "/home/u/a.tar");
    EXPECT_EQ(StripExtension("/home/u/README"), "");
    EXPECT_EQ(StripExtension("/home/u/dir.d/noext"), "/home/u/dir"); // the last dot of all
    EXPECT_EQ(AppDirFrom("/opt/kestrum"), "/opt/kestrum/");
    EXPECT_EQ(AppDirFrom("/opt/kestrum/"), "/opt/kestrum/");
    EXPECT_EQ(AppDirFrom("/"), "/");
}
