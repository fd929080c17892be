#include "editor/SafeSave.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

bool temporaryFilesRefused = false;

// Chunks, so that a short write is noticed where it happens.
bool WriteAll(QFileDevice& f, std::string_view bytes) {
    constexpr size_t kChunk = 1 << 20;
    for (size_t done = 0; done < bytes.size();) {
        size_t n = std::min(kChunk, bytes.size() - done);
        if (f.write(bytes.data() + done, qint64(n)) != qint64(n)) return false;
        done += n;
    }
    return true;
}

// Overwrites the file without truncating it first: the blocks of the old content stay the
// file's own, so that when the new content runs out of room, the old one still fits back.
bool OverwriteInPlace(const QString& path, std::string_view bytes, QString* error) {
    QFile f(path);
    if (!f.open(QIODevice::ReadWrite | QIODevice::Unbuffered)) {
        if (error) *error = f.errorString();
        return false;
    }
    QByteArray old = f.readAll();
    if (f.error() != QFileDevice::NoError || old.size() != f.size()) {
        if (error) *error = f.errorString();
        return false;
    }
    bool ok = f.seek(0) && WriteAll(f, bytes) &&
              (qint64(bytes.size()) >= old.size() || f.resize(qint64(bytes.size())));
    if (ok) return true;
    if (error) *error = f.errorString();
    f.unsetError();
    bool restored = f.seek(0) &&
                    WriteAll(f, std::string_view(old.constData(), size_t(old.size()))) &&
                    f.resize(old.size());
    if (!restored && error) *error += QStringLiteral(" (the old content could not be put back)");
    return false;
}

enum class Replace { Done, Failed, NoTemporary, InPlace };

// Through a temporary file beside the target, renamed over it once it is completely written.
// The rename is atomic, so a full disk, a failed write or a killed process leaves the old file
// whole. The data is not forced to the disk before the rename: that would double the cost of
// every save for protection against power loss alone, which the file system's handling of a
// rename over an existing file already gives.
Replace ReplaceThroughTemporary(const QString& path, std::string_view bytes, QString* error) {
    auto fail = [error](int code) {
        if (error) *error = QString::fromLocal8Bit(std::strerror(code));
        return Replace::Failed;
    };
    QFileInfo info(path);
    // A link stays a link: the file it names is the one replaced.
    QString target = info.isSymLink() ? info.symLinkTarget() : info.absoluteFilePath();
    QByteArray targetName = QFile::encodeName(target);
    struct stat old {};
    bool exists = ::stat(targetName.constData(), &old) == 0;
    if (exists && S_ISDIR(old.st_mode)) return fail(EISDIR);
    // A file the user may not write is not replaced behind its back by a new one, even
    // where the folder would allow that.
    if (exists && ::access(targetName.constData(), W_OK) != 0) return fail(errno);
    // A new file would leave the file's other names holding the old text.
    if (exists && S_ISREG(old.st_mode) && old.st_nlink > 1) return Replace::InPlace;
    QFileInfo t(target);
    QByteArray tmp = QFile::encodeName(t.absolutePath() + "/." + t.fileName() + ".kestrum-XXXXXX");
    int fd = ::mkostemp(tmp.data(), O_CLOEXEC);
    if (fd < 0) {
        if (error) *error = QString::fromLocal8Bit(std::strerror(errno));
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
    int code = 0;
    for (size_t done = 0; done < bytes.size() && code == 0;) {
        ssize_t n =
            ::write(fd, bytes.data() + done, std::min<size_t>(bytes.size() - done, 1 << 20));
        if (n > 0)
            done += size_t(n);
        else if (n < 0 && errno != EINTR)
            code = errno;
        else if (n == 0)
            code = ENOSPC;
    }
    if (::close(fd) != 0 && code == 0) code = errno;
    if (code == 0 && ::rename(tmp.constData(), targetName.constData()) != 0) code = errno;
    if (code == 0) return Replace::Done;
    ::unlink(tmp.constData());
    return fail(code);
}

} // namespace

void SetTemporaryFilesRefusedForTesting(bool refused) {
    temporaryFilesRefused = refused;
}

bool SaveBytesSafely(const QString& path, std::string_view bytes, QString* error) {
    QString why = QStringLiteral("Permission denied");
    if (!temporaryFilesRefused) {
        Replace r = ReplaceThroughTemporary(path, bytes, &why);
        if (r == Replace::Done) return true;
        if (r == Replace::Failed) {
            if (error) *error = why;
            return false;
        }
        if (r == Replace::InPlace) {
            QFileInfo info(path);
            return OverwriteInPlace(info.canonicalFilePath(), bytes, error);
        }
    }
    // No new file beside the old one: an existing file can still be written in place.
    QFileInfo info(path);
    if (info.isFile()) return OverwriteInPlace(info.absoluteFilePath(), bytes, error);
    if (error) *error = why;
    return false;
}
