#include "base/FileIdentity.h"

#include <string>
#include <sys/stat.h>

std::optional<FileIdentity> ReadFileIdentity(std::string_view path) {
    const std::string name(path);
    struct stat link {};
    struct stat target {};
    if (lstat(name.c_str(), &link) != 0 || stat(name.c_str(), &target) != 0 ||
        !S_ISREG(target.st_mode))
        return std::nullopt;
    FileIdentity id;
    id.nameDevice = uint64_t(link.st_dev);
    id.nameInode = uint64_t(link.st_ino);
    id.device = uint64_t(target.st_dev);
    id.inode = uint64_t(target.st_ino);
    id.size = int64_t(target.st_size);
    id.modifiedNs = int64_t(target.st_mtim.tv_sec) * 1000000000 + int64_t(target.st_mtim.tv_nsec);
    return id;
}
