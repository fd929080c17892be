#include "app/core/ChannelPlace.h"
#include "support/TempDir.h"

#include <fcntl.h>
#include <functional>
#include <gtest/gtest.h>
#include <iostream>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace {
using ChannelPlace::Occupant;
const unsigned kUid = ::getuid();
const std::string kUser = "T-" + std::to_string(kUid);
constexpr unsigned kOtherUid = 65534; // nobody

void MakeFolder(const std::string& path, mode_t mode, unsigned owner = kUid) {
    ASSERT_EQ(::mkdir(path.c_str(), mode), 0) << path;
    ASSERT_EQ(::chmod(path.c_str(), mode), 0); // past the umask
    if (owner != kUid) {
        ASSERT_EQ(::chown(path.c_str(), owner, owner), 0);
    }
}

// A case that gives a folder to another user runs only where chown may: says so and skips.
bool SkippedWithoutRoot(bool needsRoot, const std::string& what) {
    if (!needsRoot || ::geteuid() == 0) return false;
    std::cout << "skipped (needs root to give a folder away): " << what << "\n";
    return true;
}

void MakeSocket(const std::string& path) {
    int fd = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un addr{};
    addr.sun_family = AF_UNIX;
    path.copy(addr.sun_path, sizeof addr.sun_path - 1);
    ASSERT_EQ(::bind(fd, reinterpret_cast<sockaddr*>(&addr), sizeof addr), 0);
    ::close(fd);
}

mode_t ModeOf(const std::string& path) {
    struct stat st {};
    return ::lstat(path.c_str(), &st) == 0 ? st.st_mode & 0777 : 0;
}

TEST(ChannelPlace, TheRuntimeFolderHoldsEveryName) {
    TempDir tmp;
    auto paths = ChannelPlace::SocketPaths("/run/user/7", tmp.path(), "T", 7, true);
    EXPECT_EQ(paths, (std::vector<std::string>{"/run/user/7/T-7.sock", "/run/user/7/T-7-1.sock",
                                               "/run/user/7/T-7-2.sock"}));
    EXPECT_FALSE(FileExists(tmp.file("T-7"))) << "no private folder beside a runtime folder";
}

// Without a runtime folder the names go in a folder of the user's own. One that is not
// private is passed over, and the next one is made.
TEST(ChannelPlace, WithoutARuntimeFolderAPrivateFolderIsUsed) {
    struct Case {
        const char* what;
        std::function<void(const TempDir&)> prepare;
        std::string folder; // where the names go; empty: nowhere
        bool needsRoot = false;
    } cases[] = {
        {"nothing there", [](const TempDir&) {}, kUser},
        {"ours already", [](const TempDir& t) { MakeFolder(t.file(kUser), 0700); }, kUser},
        {"open to the group", [](const TempDir& t) { MakeFolder(t.file(kUser), 0750); },
         kUser + "-1"},
        {"a link to a private folder",
         [](const TempDir& t) {
             MakeFolder(t.file("real"), 0700);
             ASSERT_EQ(::symlink(t.file("real").c_str(), t.file(kUser).c_str()), 0);
         },
         kUser + "-1"},
        {"a plain file", [](const TempDir& t) { t.write(kUser, ""); }, kUser + "-1"},
        {"another user's", [](const TempDir& t) { MakeFolder(t.file(kUser), 0700, kOtherUid); },
         kUser + "-1", true},
        {"all taken",
         [](const TempDir& t) {
             for (auto s : {"", "-1", "-2"}) MakeFolder(t.file(kUser + s), 0700, kOtherUid);
         },
         "", true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        if (SkippedWithoutRoot(c.needsRoot, c.what)) continue;
        TempDir tmp;
        EXPECT_TRUE(ChannelPlace::SocketPaths("", tmp.path(), "T", kUid, false).empty());
        EXPECT_FALSE(FileExists(tmp.file(kUser))) << "the client makes no folder";
        c.prepare(tmp);
        auto made = ChannelPlace::SocketPaths("", tmp.path(), "T", kUid, true);
        auto found = ChannelPlace::SocketPaths("", tmp.path(), "T", kUid, false);
        EXPECT_EQ(found, made) << "both ends agree";
        if (c.folder.empty()) {
            EXPECT_TRUE(made.empty());
            continue;
        }
        ASSERT_EQ(made.size(), size_t(ChannelPlace::kAlternatives));
        EXPECT_EQ(made[0], tmp.file(c.folder) + "/" + kUser + ".sock");
        EXPECT_EQ(ModeOf(tmp.file(c.folder)), 0700u);
        EXPECT_FALSE(FileExists(tmp.file(kUser + "-2"))) << "only the first usable one is made";
    }
}

TEST(ChannelPlace, LeftoversOfOursThatAreEmptyGo) {
    struct Case {
        const char* what;
        std::function<void(const std::string&)> prepare;
        Occupant occupant;
        bool remains;
        bool needsRoot = false;
    } cases[] = {
        {"nothing", [](const std::string&) {}, Occupant::Nothing, false},
        {"an empty folder", [](const std::string& p) { MakeFolder(p, 0700); }, Occupant::Nothing,
         false},
        {"a folder with a file",
         [](const std::string& p) {
             MakeFolder(p, 0700);
             ::close(::open((p + "/x").c_str(), O_CREAT | O_WRONLY, 0600));
         },
         Occupant::Foreign, true},
        {"an empty file",
         [](const std::string& p) { ::close(::open(p.c_str(), O_CREAT | O_WRONLY, 0600)); },
         Occupant::Nothing, false},
        {"a file with text",
         [](const std::string& p) {
             int fd = ::open(p.c_str(), O_CREAT | O_WRONLY, 0600);
             ASSERT_EQ(::write(fd, "x", 1), 1);
             ::close(fd);
         },
         Occupant::Foreign, true},
        {"a link", [](const std::string& p) { ASSERT_EQ(::symlink("/nowhere", p.c_str()), 0); },
         Occupant::Foreign, true},
        {"a socket", MakeSocket, Occupant::Socket, true},
        {"another user's empty folder",
         [](const std::string& p) { MakeFolder(p, 0700, kOtherUid); }, Occupant::Foreign, true,
         true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        if (SkippedWithoutRoot(c.needsRoot, c.what)) continue;
        TempDir tmp;
        const std::string p = tmp.file("T.sock");
        c.prepare(p);
        EXPECT_EQ(ChannelPlace::ClearLeftovers(p, kUid), c.occupant);
        struct stat st {};
        EXPECT_EQ(::lstat(p.c_str(), &st) == 0, c.remains);
    }
}

} // namespace
