#include "filetools/core/FileInfoMod.h"

#include <cstdio>
#include <ctime>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

uint32_t AttributeFlags(const std::string& name, bool userMayWrite, bool directory,
                        bool symbolicLink) {
    uint32_t flags = 0;
    if (!userMayWrite) flags |= kAttrReadOnly;
    if (!name.empty() && name.front() == '.') flags |= kAttrHidden;
    if (directory) flags |= kAttrDirectory;
    if (symbolicLink) flags |= kAttrReparse;
    return flags;
}

FileInfoRecord FileInfoMod(const std::string& path) {
    FileInfoRecord r;
    struct statx sx {};
    const unsigned want = STATX_BASIC_STATS | STATX_BTIME;
    if (::statx(AT_FDCWD, path.c_str(), 0, want, &sx) != 0) return r;
    struct stat link {};
    const bool symbolic = ::lstat(path.c_str(), &link) == 0 && S_ISLNK(link.st_mode);

    std::string name = path;
    while (name.size() > 1 && name.back() == '/') name.pop_back();
    if (auto slash = name.rfind('/'); slash != std::string::npos && name.size() > 1)
        name.erase(0, slash + 1);
    r.fileName = name;
    r.attributes = AttributeFlags(name, ::access(path.c_str(), W_OK) == 0,
                                  S_ISDIR(sx.stx_mode), symbolic);
    r.creationTime = (sx.stx_mask & STATX_BTIME) ? sx.stx_btime.tv_sec : sx.stx_ctime.tv_sec;
    r.lastAccessTime = sx.stx_atime.tv_sec;
    r.lastWriteTime = sx.stx_mtime.tv_sec;
    r.sizeHigh = static_cast<uint32_t>(sx.stx_size >> 32);
    r.sizeLow = static_cast<uint32_t>(sx.stx_size);
    return r;
}

double DisplayedSize(const FileInfoRecord& r) { return r.sizeHigh == 0 ? r.sizeLow : r.sizeHigh; }

std::string DateText(int64_t secondsSinceEpoch) {
    const std::time_t t = static_cast<std::time_t>(secondsSinceEpoch);
    std::tm tm {};
    if (!::gmtime_r(&t, &tm)) return {};
    char text[64];
    std::snprintf(text, sizeof text, "%d/%d/%d %d:%d:%d", tm.tm_mday, tm.tm_mon + 1,
                  tm.tm_year + 1900, tm.tm_hour, tm.tm_min, tm.tm_sec);
    return text;
}
