#include "editor/SafeSave.h"

#include "base/qt/AppGlobals.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

bool temporaryFilesRefused = false;

QString Reason(int code) {
    return QString::fromLocal8Bit(std::strerror(code));
}

// Writes all bytes at the offset; the errno of the first failure, 0 when all went.
int WriteAllAt(int fd, std::string_view bytes, off_t offset) {
    for (size_t done = 0; done < bytes.size();) {
        ssize_t n = ::pwrite(fd, bytes.data() + done,
                             std::min<size_t>(bytes.size() - done, 1 << 20), offset + off_t(done));
        if (n > 0)
            done += size_t(n);
        else if (n == 0)
            return ENOSPC;
        else if (errno != EINTR)
            return errno;
    }
    return 0;
}

// Reads the whole file; the errno of a failure, 0 when it was read.
int ReadAll(int fd, std::string& out) {
    char buf[1 << 16];
    for (;;) {
        ssize_t n = ::read(fd, buf, sizeof buf);
        if (n == 0) return 0;
        if (n > 0)
            out.append(buf, size_t(n));
        else if (errno != EINTR)
            return errno;
    }
}

// Overwrites the file without truncating it first: the blocks of the old content stay the
// file's own, so that when the new content runs out of room, the old one still fits back.
bool OverwriteInPlace(const std::string& path, std::string_view bytes, QString* error) {
    int fd = ::open(path.c_str(), O_RDWR | O_CLOEXEC);
    if (fd < 0) {
        if (error) *error = Reason(errno);
        return false;
    }
    std::string old;
    int code = ReadAll(fd, old);
    if (code != 0) { // nothing written yet
        ::close(fd);
        if (error) *error = Reason(code);
        return false;
    }
    code = WriteAllAt(fd, bytes, 0);
    if (code == 0 && bytes.size() < old.size() && ::ftruncate(fd, off_t(bytes.size())) != 0)
        code = errno;
    if (code == 0) {
        if (::close(fd) == 0) return true;
        if (error) *error = Reason(errno);
        return false;
    }
    if (error) *error = Reason(code);
    bool restored = WriteAllAt(fd, old, 0) == 0 && ::ftruncate(fd, off_t(old.size())) == 0;
    if (!restored && error) *error += QStringLiteral(" (the old content could not be put back)");
    ::close(fd);
    return false;
}

// The folder part of a path, "." for a bare name.
std::string FolderOf(const std::string& path) {
    size_t slash = path.rfind('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

// What a save writes to: a link stays a link, and the file it names is the one replaced.
std::string SaveTarget(const std::string& path) {
    struct stat st {};
    if (::lstat(path.c_str(), &st) != 0 || !S_ISLNK(st.st_mode)) return path;
    std::string target(size_t(PATH_MAX), '\0');
    ssize_t n = ::readlink(path.c_str(), target.data(), target.size());
    if (n <= 0) return path;
    target.resize(size_t(n));
    return target[0] == '/' ? target : FolderOf(path) + "/" + target;
}

enum class Replace { Done, Failed, NoTemporary, InPlace };

// Through a temporary file beside the target, renamed over it once it is completely written.
// The rename is atomic, so a full disk, a failed write or a killed process leaves the old file
// whole. The data is not forced to the disk before the rename: that would double the cost of
// every save for protection against power loss alone, which the file system's handling of a
// rename over an existing file already gives.
Replace ReplaceThroughTemporary(const std::string& path, std::string_view bytes, QString* error) {
    auto fail = [error](int code) {
        if (error) *error = Reason(code);
        return Replace::Failed;
    };
    const std::string target = SaveTarget(path);
    struct stat old {};
    bool exists = ::stat(target.c_str(), &old) == 0;
    if (exists && S_ISDIR(old.st_mode)) return fail(EISDIR);
    // A file the user may not write is not replaced behind its back by a new one, even
    // where the folder would allow that.
    if (exists && ::access(target.c_str(), W_OK) != 0) return fail(errno);
    // A new file would leave the file's other names holding the old text.
    if (exists && S_ISREG(old.st_mode) && old.st_nlink > 1) return Replace::InPlace;
    const size_t slash = target.rfind('/');
    const std::string name = slash == std::string::npos ? target : target.substr(slash + 1);
    std::string tmp = FolderOf(target) + "/." + name + ".kestrum-XXXXXX";
    int fd = ::mkostemp(tmp.data(), O_CLOEXEC);
    if (fd < 0) {
        if (error) *error = Reason(errno);
        return Replace::NoTemporary;
    }
    // The new file takes the old one's permissions (and owner, where that is allowed).
    if (exists) {
        ::fchmod(fd, old.st_mode & 07777);
        if (::fchown(fd, old.st_uid, old.st_gid) != 0) { /* not ours to give away */
        }
    } else {
        mode_t mask = ::umask(0);
        ::umask(mask);
        ::fchmod(fd, 0666 & ~mask);
    }
    int code = WriteAllAt(fd, bytes, 0);
    if (::close(fd) != 0 && code == 0) code = errno;
    if (code == 0 && ::rename(tmp.c_str(), target.c_str()) != 0) code = errno;
    if (code == 0) return Replace::Done;
    ::unlink(tmp.c_str());
    return fail(code);
}

} // namespace

void SetTemporaryFilesRefusedForTesting(bool refused) {
    temporaryFilesRefused = refused;
}

bool SaveBytesSafely(const QString& path, std::string_view bytes, QString* error) {
    // The path's own bytes: a name that is not UTF-8 is saved under that very name.
    const std::string name = ToBytes(path);
    QString why = QStringLiteral("Permission denied");
    if (!temporaryFilesRefused) {
        Replace r = ReplaceThroughTemporary(name, bytes, &why);
        if (r == Replace::Done) return true;
        if (r == Replace::Failed) {
            if (error) *error = why;
            return false;
        }
        if (r == Replace::InPlace) return OverwriteInPlace(SaveTarget(name), bytes, error);
    }
    // No new file beside the old one: an existing file can still be written in place.
    struct stat st {};
    if (::stat(name.c_str(), &st) == 0 && S_ISREG(st.st_mode))
        return OverwriteInPlace(name, bytes, error);
    if (error) *error = why;
    return false;
}
