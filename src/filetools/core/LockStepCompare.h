#pragma once
// Line-against-line comparison of two text files: line N of the first file meets line N of
// the second, with no search for matching lines and no resynchronisation, so one inserted
// line makes every later line differ. Lines are compared and shown trimmed of spaces.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

struct CompareOptions {
    bool caseSensitive = false; // clear: letters compare without regard to case
    bool showOnlyDifferent = false;
    bool ignoreBlanks = false;
};

// Memory for the two files and the rows. Blocks of 1 MB and more are mapped on their own and
// given huge pages where the system grants them: fresh memory costs a fault per 4 KB page
// otherwise, which on a virtual machine was most of the time of comparing two 30 MB files.
void* AllocateLargeBlock(size_t bytes);
void FreeLargeBlock(void* p, size_t bytes);

template <typename T> struct LargeBlockAllocator {
    using value_type = T;
    LargeBlockAllocator() = default;
    template <typename U> LargeBlockAllocator(const LargeBlockAllocator<U>&) {}
    T* allocate(size_t n) { return static_cast<T*>(AllocateLargeBlock(n * sizeof(T))); }
    void deallocate(T* p, size_t n) { FreeLargeBlock(p, n * sizeof(T)); }
    template <typename U> bool operator==(const LargeBlockAllocator<U>&) const { return true; }
};
using ComparisonText = std::basic_string<char, std::char_traits<char>, LargeBlockAllocator<char>>;

// One row of the results list. Texts are held as spans of the two files' bytes.
struct ComparisonRow {
    uint64_t pair = 0; // the running pair number, not a line number of either file
    uint64_t offset1 = 0, offset2 = 0;
    uint32_t length1 = 0, length2 = 0;
    bool identical = false; // drawn dimmed, with the identical icon
};

struct ComparisonResult {
    ComparisonText bytes1, bytes2; // the two files as read; empty for a file that can't be read
    std::vector<ComparisonRow, LargeBlockAllocator<ComparisonRow>> rows;

    std::string_view Text1(const ComparisonRow& r) const {
        return std::string_view(bytes1).substr(r.offset1, r.length1);
    }
    std::string_view Text2(const ComparisonRow& r) const {
        return std::string_view(bytes2).substr(r.offset2, r.length2);
    }
    // 1 marks a differing row, 2 an identical one.
    static int Icon(const ComparisonRow& r) { return r.identical ? 2 : 1; }
};

// Compares two files already in memory; result.bytes1/bytes2 must hold them. A missing
// side (unreadable file) is an empty buffer with readable false: it has ended before the
// first read, so one pair is still processed with that side empty.
void CompareLockStep(ComparisonResult& result, bool readable1, bool readable2,
                     const CompareOptions& options);

// Reads both files and compares them. A file that can't be opened (missing, a folder, no
// permission) is compared as an empty side, with no message.
ComparisonResult CompareFiles(const std::string& path1, const std::string& path2,
                              const CompareOptions& options);

// Reads a whole file; false for a folder, a device or any failure (out is then empty). A named
// pipe is read to its end without waiting for a writer to open it.
bool ReadFileForComparison(const std::string& path, ComparisonText& out);

// The texts are equal under the options' case rule (ASCII letters fold when not sensitive).
bool LinesEqual(std::string_view a, std::string_view b, bool caseSensitive);
