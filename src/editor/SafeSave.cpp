#include "editor/SafeSave.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <algorithm>

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

} // namespace

void SetTemporaryFilesRefusedForTesting(bool refused) {
    temporaryFilesRefused = refused;
}

bool SaveBytesSafely(const QString& path, std::string_view bytes, QString* error) {
    QSaveFile f(path);
    if (!temporaryFilesRefused && f.open(QIODevice::WriteOnly)) {
        if (WriteAll(f, bytes) && f.commit()) return true;
        if (error) *error = f.errorString();
        f.cancelWriting();
        return false;
    }
    QString why = temporaryFilesRefused ? QStringLiteral("Permission denied") : f.errorString();
    // No new file beside the old one: an existing file can still be written in place.
    QFileInfo info(path);
    if (info.isFile()) return OverwriteInPlace(info.absoluteFilePath(), bytes, error);
    if (error) *error = why;
    return false;
}
