#pragma once
// What tells one version of a file on disk from another: the file the name leads to (device
// and inode, of the name itself and of what it points at, so that a link swapped in counts),
// its size and its modification time. Kept by a document at load and after each save, and
// compared before the next save, so that another program's writes are not overwritten
// unasked.
#include <cstdint>
#include <optional>
#include <string_view>

struct FileIdentity {
    uint64_t nameDevice = 0, nameInode = 0; // the directory entry itself (lstat)
    uint64_t device = 0, inode = 0;         // the file it leads to (stat)
    int64_t size = 0;
    int64_t modifiedNs = 0;
    bool operator==(const FileIdentity&) const = default;
};

// The identity of the file at path now; nothing when there is no regular file there (what
// stands there instead makes the save fail with its own message).
std::optional<FileIdentity> ReadFileIdentity(std::string_view path);
