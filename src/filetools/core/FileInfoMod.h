#pragma once
// What the file system says about one file, in the shape of a find-data record: attribute
// flags, three times, the size in two 32-bit halves and the name.
#include <cstdint>
#include <string>

// Attribute flags of the record. Only those with a meaning here are ever set: read-only
// (the user may not write it), hidden (the name starts with "."), directory, and the
// reparse flag for a symbolic link.
enum FileAttribute : uint32_t {
    kAttrReadOnly = 0x1,
    kAttrHidden = 0x2,
    kAttrSystem = 0x4,
    kAttrDirectory = 0x10,
    kAttrArchive = 0x20,
    kAttrNormal = 0x80,
    kAttrTemporary = 0x100,
    kAttrReparse = 0x400,
    kAttrCompressed = 0x800,
};

// A time as seconds since 1970-01-01 00:00:00 UTC.
struct FileInfoRecord {
    uint32_t attributes = 0;
    int64_t creationTime = 0; // birth time where the file system keeps it, else status change
    int64_t lastAccessTime = 0;
    int64_t lastWriteTime = 0;
    uint32_t sizeHigh = 0, sizeLow = 0;
    std::string fileName; // the entry's name, without its folder
};

// The record of path. A file that can't be examined gives a record of zeros with an empty
// name, as the failing find call leaves it.
FileInfoRecord FileInfoMod(const std::string& path);

// The attribute word for the facts the file system gives here.
uint32_t AttributeFlags(const std::string& name, bool userMayWrite, bool directory,
                        bool symbolicLink);

// The size text's argument: the low half when the high half is 0, else the high half alone.
double DisplayedSize(const FileInfoRecord& r);

// day/month/year hour:minute:second in universal time, without leading zeros.
std::string DateText(int64_t secondsSinceEpoch);

// The check boxes of the dialog in their order, each with its caption and flag.
struct AttributeBox {
    const char* caption;
    uint32_t flag;
};
inline constexpr AttributeBox kAttributeBoxes[] = {
    {"Hidden", kAttrHidden},     {"System", kAttrSystem},       {"Read Only", kAttrReadOnly},
    {"Archive", kAttrArchive},   {"Temporary", kAttrTemporary}, {"Normal", kAttrNormal},
    {"Compressed", kAttrCompressed},
};
