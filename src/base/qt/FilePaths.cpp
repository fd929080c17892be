#include "base/qt/FilePaths.h"

#include "base/qt/AppGlobals.h"

#include <QUrl>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

int OpenFlags(QIODevice::OpenMode mode) {
    const bool read = mode & QIODevice::ReadOnly, write = mode & QIODevice::WriteOnly;
    int flags = O_CLOEXEC | (read && write ? O_RDWR : write ? O_WRONLY : O_RDONLY);
    if (!write) return flags;
    if (!(mode & QIODevice::ExistingOnly)) flags |= O_CREAT;
    if (mode & QIODevice::NewOnly) flags |= O_EXCL;
    if (mode & QIODevice::Append)
        flags |= O_APPEND;
    else if ((mode & QIODevice::Truncate) || !read)
        flags |= O_TRUNC;
    return flags;
}

bool StatOf(const QString& path, struct stat& st) {
    return !path.isEmpty() && ::stat(ToBytes(path).c_str(), &st) == 0;
}

} // namespace

bool OpenFileAt(QFile& f, const QString& path, QIODevice::OpenMode mode, QString* error) {
    auto fail = [error](int code) {
        if (error) *error = QString::fromLocal8Bit(std::strerror(code));
        return false;
    };
    if (path.isEmpty()) {
        if (error) *error = QStringLiteral("No file name specified"); // as QFile says it
        return false;
    }
    int fd;
    do {
        fd = ::open(ToBytes(path).c_str(), OpenFlags(mode), 0666);
    } while (fd < 0 && errno == EINTR);
    if (fd < 0) return fail(errno);
    struct stat st {};
    if (::fstat(fd, &st) == 0 && S_ISDIR(st.st_mode)) {
        ::close(fd);
        return fail(EISDIR);
    }
    if (!f.open(fd, mode, QFileDevice::AutoCloseHandle)) {
        ::close(fd);
        if (error) *error = f.errorString();
        return false;
    }
    return true;
}

QString CanonicalPathOf(const QString& path) {
    if (path.isEmpty()) return {};
    char* resolved = ::realpath(ToBytes(path).c_str(), nullptr);
    if (!resolved) return {};
    QString out = FromBytes(resolved);
    std::free(resolved);
    return out;
}

bool IsFolderPath(const QString& path) {
    struct stat st {};
    return StatOf(path, st) && S_ISDIR(st.st_mode);
}

bool IsFilePath(const QString& path) {
    struct stat st {};
    return StatOf(path, st) && S_ISREG(st.st_mode);
}

QString LocalPathOfUrl(const QUrl& url) {
    if (!url.isLocalFile()) return {};
    // A host names a share elsewhere; Qt's own form of it is kept.
    if (!url.host().isEmpty()) return url.toLocalFile();
    const QByteArray bytes =
        QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1());
    return FromBytes(std::string_view(bytes.constData(), size_t(bytes.size())));
}
