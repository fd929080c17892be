#include "app/core/ChannelPlace.h"

#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

namespace ChannelPlace {
namespace {
std::string Suffix(int i) {
    return i == 0 ? std::string() : "-" + std::to_string(i);
}

std::string WithSlash(std::string dir) {
    if (dir.empty() || dir.back() != '/') dir += '/';
    return dir;
}
} // namespace

bool IsPrivateFolder(const std::string& path, unsigned uid, bool create) {
    if (create && ::mkdir(path.c_str(), 0700) != 0 && errno != EEXIST) return false;
    // lstat: a link planted there would lead the socket into someone else's folder.
    struct stat st {};
    if (::lstat(path.c_str(), &st) != 0) return false;
    return S_ISDIR(st.st_mode) && st.st_uid == uid && (st.st_mode & 077) == 0;
}

std::vector<std::string> SocketPaths(const std::string& runtimeDir, const std::string& tempDir,
                                     const std::string& title, unsigned uid, bool create) {
    const std::string user = title + "-" + std::to_string(uid);
    std::vector<std::string> folders;
    if (!runtimeDir.empty()) {
        folders.push_back(WithSlash(runtimeDir));
    } else {
        for (int i = 0; i < kAlternatives; ++i) {
            std::string folder = WithSlash(tempDir) + user + Suffix(i);
            // Only one is made: the first that can be used.
            if (IsPrivateFolder(folder, uid, create && folders.empty()))
                folders.push_back(folder + "/");
        }
    }
    std::vector<std::string> paths;
    for (const std::string& folder : folders)
        for (int i = 0; i < kAlternatives; ++i)
            paths.push_back(folder + user + Suffix(i) + ".sock");
    return paths;
}

Occupant ClearLeftovers(const std::string& path, unsigned uid) {
    struct stat st {};
    if (::lstat(path.c_str(), &st) != 0)
        return errno == ENOENT ? Occupant::Nothing : Occupant::Foreign;
    if (S_ISSOCK(st.st_mode)) return Occupant::Socket;
    if (st.st_uid != uid) return Occupant::Foreign;
    // rmdir refuses a folder that is not empty, so only an empty one goes.
    if (S_ISDIR(st.st_mode))
        return ::rmdir(path.c_str()) == 0 ? Occupant::Nothing : Occupant::Foreign;
    if (S_ISREG(st.st_mode) && st.st_size == 0 && ::unlink(path.c_str()) == 0)
        return Occupant::Nothing;
    return Occupant::Foreign;
}

} // namespace ChannelPlace
