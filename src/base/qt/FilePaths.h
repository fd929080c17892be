#pragma once
// File access by a path held as text. Qt would encode the path as UTF-8 and so lose the bytes
// of a name that is not UTF-8; these go to the system with the path's own bytes (ToBytes).
#include <QFile>
#include <QString>

class QUrl;

// Opens f on the file at path with the meaning QFile::open gives the mode (WriteOnly truncates
// and creates, ReadWrite creates). A folder is refused. On failure returns false with the
// system's reason in *error.
bool OpenFileAt(QFile& f, const QString& path, QIODevice::OpenMode mode, QString* error = nullptr);
// The path with every link and "." or ".." resolved; empty when it does not lead anywhere.
QString CanonicalPathOf(const QString& path);
bool IsFolderPath(const QString& path);
bool IsFilePath(const QString& path);
// The local file a URL names, its percent-escapes taken as bytes; empty for other URLs.
QString LocalPathOfUrl(const QUrl& url);
