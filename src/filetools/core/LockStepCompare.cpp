#include "filetools/core/LockStepCompare.h"

#include <algorithm>
#include <cstring>
#include <fcntl.h>
#include <new>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {
// Sequential line input over a buffer: a line ends at CR LF, LF or a lone CR, and the file
// counts as ended right after its last line end. The next CR and LF are remembered so that a
// file with only one kind of line end is still scanned once, not once per line.
class LineReader {
  public:
    LineReader(std::string_view bytes, bool readable) : bytes_(bytes), readable_(readable) {}

    // A file that couldn't be opened never reports its end as reached (the test itself
    // fails), which the caller treats as ended.
    bool Ended() const { return !readable_ || pos_ >= bytes_.size(); }

    // Reads the next line trimmed of spaces; at the end it gives an empty line.
    void Read(size_t& offset, size_t& length) {
        offset = pos_ < bytes_.size() ? pos_ : bytes_.size();
        length = 0;
        if (Ended()) return;
        const size_t lf = Next(nextLf_, '\n'), cr = Next(nextCr_, '\r');
        size_t end = lf < cr ? lf : cr, after;
        if (end == std::string_view::npos) {
            end = after = bytes_.size();
        } else {
            after = end + 1;
            if (end == cr && cr + 1 == lf) after = lf + 1;
        }
        size_t b = pos_, e = end;
        while (b < e && bytes_[b] == ' ') ++b;
        while (e > b && bytes_[e - 1] == ' ') --e;
        offset = b;
        length = e - b;
        pos_ = after;
    }

  private:
    size_t Next(size_t& cached, char c) {
        if (cached == kUnknown || (cached != std::string_view::npos && cached < pos_)) {
            const void* hit = std::memchr(bytes_.data() + pos_, c, bytes_.size() - pos_);
            cached = hit ? static_cast<const char*>(hit) - bytes_.data() : std::string_view::npos;
        }
        return cached;
    }

    std::string_view bytes_;
    bool readable_;
    size_t pos_ = 0;
    static constexpr size_t kUnknown = std::string_view::npos - 1;
    size_t nextLf_ = kUnknown, nextCr_ = kUnknown;
};

constexpr size_t kMapAtLeast = 1 << 20;
} // namespace

constexpr size_t kHugePage = 2 << 20;
size_t MappedSize(size_t bytes) { return (bytes + kHugePage - 1) / kHugePage * kHugePage; }

void* AllocateLargeBlock(size_t bytes) {
    if (bytes < kMapAtLeast) return ::operator new(bytes);
    // Aligned to a huge page and asked for huge pages where the system grants them: one fault
    // per 2 MB instead of one per 4 KB.
    const size_t size = MappedSize(bytes);
    void* raw = ::mmap(nullptr, size + kHugePage, PROT_READ | PROT_WRITE,
                       MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (raw == MAP_FAILED) throw std::bad_alloc();
    const uintptr_t start = reinterpret_cast<uintptr_t>(raw);
    const uintptr_t aligned = (start + kHugePage - 1) & ~(uintptr_t(kHugePage) - 1);
    if (aligned > start) ::munmap(raw, aligned - start);
    if (const size_t tail = start + size + kHugePage - (aligned + size))
        ::munmap(reinterpret_cast<void*>(aligned + size), tail);
    void* p = reinterpret_cast<void*>(aligned);
    ::madvise(p, size, MADV_HUGEPAGE);
    return p;
}

void FreeLargeBlock(void* p, size_t bytes) {
    if (bytes < kMapAtLeast)
        ::operator delete(p);
    else
        ::munmap(p, MappedSize(bytes));
}

namespace {
bool Blank(size_t length) { return length == 0; }

char Fold(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
} // namespace

bool LinesEqual(std::string_view a, std::string_view b, bool caseSensitive) {
    if (a.size() != b.size()) return false;
    if (caseSensitive) return a == b;
    for (size_t i = 0; i < a.size(); ++i)
        if (Fold(a[i]) != Fold(b[i])) return false;
    return true;
}

void CompareLockStep(ComparisonResult& result, bool readable1, bool readable2,
                     const CompareOptions& options) {
    LineReader first(result.bytes1, readable1), second(result.bytes2, readable2);
    const std::string_view b1 = result.bytes1, b2 = result.bytes2;
    auto readSkipping = [&](LineReader& reader, size_t& offset, size_t& length) {
        reader.Read(offset, length);
        while (Blank(length) && !reader.Ended() && options.ignoreBlanks) reader.Read(offset, length);
    };
    result.rows.clear();
    // Room for every pair at once, so that a million rows are not copied as the list grows:
    // no more pairs than line feeds in the shorter file, plus one.
    auto lineFeeds = [](std::string_view b) {
        size_t n = 0;
        for (const char* p = b.data(), *end = p + b.size();
             (p = static_cast<const char*>(std::memchr(p, '\n', size_t(end - p)))); ++p)
            ++n;
        return n;
    };
    result.rows.reserve(std::min(lineFeeds(b1), lineFeeds(b2)) + 1);
    uint64_t pair = 0;
    do {
        size_t o1, l1, o2, l2;
        readSkipping(first, o1, l1);
        readSkipping(second, o2, l2);
        ++pair;
        const bool same =
            LinesEqual(b1.substr(o1, l1), b2.substr(o2, l2), options.caseSensitive);
        if (!same || !options.showOnlyDifferent)
            result.rows.push_back({pair, o1, o2, static_cast<uint32_t>(l1),
                                   static_cast<uint32_t>(l2), same});
    } while (!first.Ended() && !second.Ended());
}

bool ReadFileForComparison(const std::string& path, ComparisonText& out) {
    out.clear();
    // Opened without blocking, so a named pipe with no writer can't hold the comparison up;
    // a device (a terminal, /dev/zero) is no text file and counts as unreadable.
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (fd < 0) return false;
    struct stat st {};
    bool ok = ::fstat(fd, &st) == 0 && !S_ISDIR(st.st_mode) && !S_ISCHR(st.st_mode) &&
              !S_ISBLK(st.st_mode);
    if (ok) ::fcntl(fd, F_SETFL, ::fcntl(fd, F_GETFL) & ~O_NONBLOCK);
    // Read straight into the string sized by the file; a file that grows, or one whose size
    // says nothing (a pipe), goes on through a small buffer.
    size_t used = 0;
    if (ok && S_ISREG(st.st_mode)) out.resize(static_cast<size_t>(st.st_size));
    while (ok) {
        char chunk[1 << 16];
        const bool full = used == out.size();
        char* into = full ? chunk : out.data() + used;
        const ssize_t got = ::read(fd, into, full ? sizeof chunk : out.size() - used);
        if (got < 0) ok = false;
        if (got <= 0) break;
        if (full) out.append(chunk, static_cast<size_t>(got));
        used += static_cast<size_t>(got);
    }
    out.resize(used);
    ::close(fd);
    if (!ok) out.clear();
    return ok;
}

ComparisonResult CompareFiles(const std::string& path1, const std::string& path2,
                              const CompareOptions& options) {
    ComparisonResult result;
    const bool r1 = ReadFileForComparison(path1, result.bytes1);
    const bool r2 = ReadFileForComparison(path2, result.bytes2);
    CompareLockStep(result, r1, r2, options);
    return result;
}
