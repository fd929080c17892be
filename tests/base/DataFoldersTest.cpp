#include "base/DataFolders.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace fs = std::filesystem;

// Where the data is looked for, by the layout round the program and the environment.
TEST(DataFolders, ResolvedByLayoutAndEnvironment) {
    TempDir t;
    const std::string root = t.path();
    fs::create_directories(root + "build");
    fs::create_directories(root + "usr/bin");
    fs::create_directories(root + "usr/share/kestrum");
    fs::create_directories(root + "opt/bin");
    fs::create_directories(root + "opt/lib/kestrum");
    fs::create_directories(root + "bare/bin");
    struct Case {
        std::string program, xdg, home, shipped, user;
    } cases[] = {
        // Beside the executable: one folder for both, whatever the environment says.
        {root + "build", "/x/data", "/home/u", root + "build/", root + "build/"},
        {root + "bare/bin/", "/x/data", "/home/u", root + "bare/bin/", root + "bare/bin/"},
        // Installed: the shipped data under the prefix, the user's own under XDG_DATA_HOME.
        {root + "usr/bin/", "/x/data", "/home/u", root + "usr/share/kestrum/", "/x/data/kestrum/"},
        {root + "usr/bin", "/x/data/", "/home/u", root + "usr/share/kestrum/", "/x/data/kestrum/"},
        {root + "opt/bin/", "", "/home/u", root + "opt/lib/kestrum/",
         "/home/u/.local/share/kestrum/"},
        // A relative XDG_DATA_HOME is not a base directory.
        {root + "usr/bin/", "rel/data", "/home/u/", root + "usr/share/kestrum/",
         "/home/u/.local/share/kestrum/"},
    };
    for (const auto& c : cases) {
        DataFolders f = ResolveDataFolders(c.program, c.xdg, c.home);
        EXPECT_EQ(f.shipped, c.shipped) << c.program;
        EXPECT_EQ(f.user, c.user) << c.program << " " << c.xdg;
        EXPECT_EQ(f.Installed(), c.shipped != c.user);
    }
    // A build folder the user cannot write keeps the shipped data and sends writes home.
    DataFolders ro = ResolveDataFolders(root + "bare/bin/", "", "/home/u", false);
    EXPECT_EQ(ro.shipped, root + "bare/bin/");
    EXPECT_EQ(ro.user, "/home/u/.local/share/kestrum/");
}

// The user's file shadows the shipped one; writes go to the user's folder; a listing holds
// each name once.
TEST(DataFolders, UserFolderReadFirstAndListedWithTheShippedOne) {
    TempDir t;
    fs::create_directories(t.path() + "usr/bin");
    fs::create_directories(t.path() + "usr/share/kestrum/PROFILES");
    t.write("usr/share/kestrum/PROFILES/C", "shipped");
    t.write("usr/share/kestrum/PROFILES/perl", "shipped");
    t.write("usr/share/kestrum/Kestrum.dat", "shipped tips");
    DataFolders f = ResolveDataFolders(t.path() + "usr/bin/", t.path() + "home", "");
    ASSERT_TRUE(f.Installed());

    EXPECT_EQ(DataPathForReading(f, "PROFILES/C"), f.shipped + "PROFILES/C");
    std::string error;
    ASSERT_TRUE(MakeUserDataFolder(f, "PROFILES", &error)) << error;
    t.write("home/kestrum/PROFILES/C", "mine");
    t.write("home/kestrum/PROFILES/ada", "mine");
    EXPECT_EQ(DataPathForReading(f, "PROFILES/C"), f.user + "PROFILES/C");
    EXPECT_EQ(DataPathForReading(f, "PROFILES/perl"), f.shipped + "PROFILES/perl");
    EXPECT_EQ(DataPathForReading(f, "Kestrum.dat"), f.shipped + "Kestrum.dat");
    EXPECT_EQ(DataPathForWriting(f, "PROFILES/perl"), f.user + "PROFILES/perl");
    fs::create_directories(f.user + "PROFILES/folder");
    t.write("home/kestrum/PROFILES/.C.swp", "an editor's leftover");
    EXPECT_EQ(DataFolderFiles(f, "PROFILES"), (std::vector<std::string>{"ada", "C", "perl"}));
    EXPECT_TRUE(DataFolderFiles(f, "missing").empty());

    // A user folder that cannot be made is reported.
    DataFolders unwritable{t.path(), t.write("file", "x") + "/"};
    EXPECT_FALSE(MakeUserDataFolder(unwritable, "PROFILES", &error));
    EXPECT_FALSE(error.empty());
}
