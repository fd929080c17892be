#pragma once
// Writing a whole file so that a failure never destroys the file it was to replace.
#include <QString>
#include <string_view>

// Writes the bytes as the file's new content. Normally through a temporary file in the same
// folder that is renamed over the old one. Where the folder cannot take a new file but the
// file itself can be written, the file is overwritten in place, and put back as it was if the
// new content does not fit. On failure returns false with the reason in *error.
bool SaveBytesSafely(const QString& path, std::string_view bytes, QString* error);

// Makes every folder refuse new files, as one without write permission does for a user that
// is not root, so that tests reach the in-place path.
void SetTemporaryFilesRefusedForTesting(bool refused);
