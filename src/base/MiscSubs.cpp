#include "base/MiscSubs.h"

#include "base/TextCodec.h"

#include <cerrno>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <atomic>
#include <memory>
#include <thread>

#include <unistd.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <fcntl.h>

std::string NextToken(std::string_view separator, std::string& work) {
    if (separator.empty()) return {};
    auto p = work.find(separator);
    if (p == std::string::npos) return {};
    std::string token = work.substr(0, p);
    work.erase(0, p + separator.size());
    return token;
}

std::string ReplaceText(std::string_view source, std::string_view find,
                        std::string_view replacement) {
    if (find.empty()) return std::string(source);
    std::string out;
    out.reserve(source.size());
    size_t from = 0;
    for (size_t p; (p = source.find(find, from)) != std::string_view::npos; from = p + find.size()) {
        out.append(source.substr(from, p - from));
        out.append(replacement);
    }
    out.append(source.substr(from));
    return out;
}

std::string RemoveChar(std::string_view text, char character) {
    std::string out;
    out.reserve(text.size());
    for (char c : text)
        if (c != character) out += c;
    return out;
}

std::string_view LTrim(std::string_view s) {
    while (!s.empty() && s.front() == ' ') s.remove_prefix(1);
    return s;
}

std::string_view Trim(std::string_view s) {
    s = LTrim(s);
    while (!s.empty() && s.back() == ' ') s.remove_suffix(1);
    return s;
}

namespace {
// Opens path for reading if it is a regular file, with its size; -1 with the reason if not.
int OpenRegularFile(const std::string& path, size_t& size, std::string& error) {
    // Opened without waiting: a pipe would otherwise block the open until a writer comes.
    int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (fd < 0) {
        error = std::strerror(errno);
        return -1;
    }
    struct stat st {};
    if (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) {
        // A folder, a device or a pipe has no whole contents to read.
        error = S_ISDIR(st.st_mode) ? std::strerror(EISDIR) : "not a regular file";
        ::close(fd);
        return -1;
    }
    size = size_t(st.st_size);
    return fd;
}

// Reads up to room bytes, retrying an interrupted read; -1 on a read error.
ssize_t ReadSome(int fd, char* to, size_t room) {
    for (;;) {
        ssize_t n = ::read(fd, to, room);
        if (n >= 0 || errno != EINTR) return n;
    }
}
} // namespace

void AdviseHugePages(const void* block, size_t size) {
    // A fresh large block costs a page fault every 4 KB when first written, which for 100 MB
    // takes longer than reading a file of that size; with huge pages it takes one per 2 MB.
    // Only the whole huge pages inside the block are advised; the system may refuse.
    constexpr uintptr_t kHuge = uintptr_t(2) << 20;
    if (size < 2 * kHuge) return;
    const uintptr_t start = reinterpret_cast<uintptr_t>(block);
    const uintptr_t from = (start + kHuge - 1) & ~(kHuge - 1);
    const uintptr_t to = (start + size) & ~(kHuge - 1);
    if (to > from) ::madvise(reinterpret_cast<void*>(from), to - from, MADV_HUGEPAGE);
}

namespace {
// Faults in a fresh block on a thread of its own, ahead of the thread that fills it: the
// system clears each new page at its first touch, which for a large block takes as long as
// reading a file of that size from the cache, and is done meanwhile on the other processor.
// The faulting leaves the block's contents alone, so the two may meet anywhere.
class Prefault {
  public:
    Prefault(char* block, size_t size) {
        if (size < kMinimum) return;
        helper_ = std::thread([this, block, size] {
            for (size_t at = 0; at < size && !stop_.load(std::memory_order_relaxed); at += kStep) {
                if (::madvise(block + at, std::min(kStep, size - at), MADV_POPULATE_WRITE) != 0)
                    return; // an older system without it: the filling faults as usual
            }
        });
    }
    // Stops early: the block was given up (grown elsewhere, or the read failed).
    void Stop() {
        stop_ = true;
        if (helper_.joinable()) helper_.join();
    }
    ~Prefault() { Stop(); }

  private:
    static constexpr size_t kMinimum = size_t(8) << 20;
    static constexpr size_t kStep = size_t(2) << 20;
    std::atomic<bool> stop_{false};
    std::thread helper_;
};
} // namespace

void ReserveLarge(std::string& s, size_t capacity) {
    s.reserve(capacity);
    AdviseHugePages(s.data(), s.capacity());
}

bool ReadWholeFile(const std::string& path, std::string& bytes, std::string& error) {
    size_t size = 0;
    int fd = OpenRegularFile(path, size, error);
    if (fd < 0) return false;
    // One buffer of the file's size, filled by as few reads as the system allows; a file
    // that grew meanwhile is read on to its end.
    bytes.clear();
    ReserveLarge(bytes, size);
    bytes.resize(size);
    size_t got = 0;
    char chunk[1 << 16];
    for (;;) {
        char* to = got < bytes.size() ? bytes.data() + got : chunk;
        size_t room = got < bytes.size() ? bytes.size() - got : sizeof chunk;
        ssize_t n = ReadSome(fd, to, room);
        if (n < 0) {
            error = std::strerror(errno);
            ::close(fd);
            return false;
        }
        if (n == 0) break;
        if (to == chunk) {
            bytes.resize(got);
            bytes.append(chunk, size_t(n));
        }
        got += size_t(n);
    }
    ::close(fd);
    bytes.resize(got);
    return true;
}

bool ReadFileCrLf(const std::string& path, std::string& text, std::string& error,
                  LineEndStyle* style) {
    size_t size = 0;
    int fd = OpenRegularFile(path, size, error);
    if (fd < 0) return false;
    // Read through a small buffer that stays in the processor's cache, each piece converted
    // straight into the text: the file's bytes are copied once and never held twice. The
    // room reserved covers a line end grown every 8 bytes; more grows the text as usual.
    constexpr size_t kChunk = 256 << 10;
    text.clear();
    ReserveLarge(text, size + size / 8 + kChunk);
    std::unique_ptr<char[]> chunk(new char[kChunk]);
    Prefault prefault(text.data(), text.capacity());
    CrLfNormalizer norm;
    for (;;) {
        ssize_t n = ReadSome(fd, chunk.get(), kChunk);
        if (n < 0) {
            error = std::strerror(errno);
            ::close(fd);
            prefault.Stop();
            text.clear();
            return false;
        }
        if (n == 0) break;
        // A piece can at most double: where the room may not hold it, the text is about to
        // move, and its old block must not be faulted in after it has been given back.
        if (text.size() + 2 * size_t(n) + 2 > text.capacity()) prefault.Stop();
        norm.Feed(std::string_view(chunk.get(), size_t(n)), text);
    }
    prefault.Stop();
    ::close(fd);
    norm.Finish(text);
    if (style) *style = norm.Style();
    return true;
}

namespace {
// The digits of a whole number with a comma between each group of three; 0 gives "".
std::string GroupThousands(unsigned long long n) {
    std::string digits = n ? std::to_string(n) : std::string();
    for (size_t i = digits.size(); i > 3; i -= 3) digits.insert(i - 3, 1, ',');
    return digits;
}
} // namespace

std::string SizeText(double bytes) {
    static const char* const kUnits[] = {" GB", " MB", " KB"};
    for (int i = 0; i < 3; ++i) {
        const double unit = std::pow(2.0, 10.0 * (3 - i));
        if (bytes < unit) continue;
        // "###,###.000": the value rounded to thousandths, the whole part grouped.
        const auto thousandths = static_cast<unsigned long long>(std::llround(bytes / unit * 1000));
        char frac[8];
        std::snprintf(frac, sizeof frac, ".%03llu", thousandths % 1000);
        return GroupThousands(thousandths / 1000) + frac + kUnits[i];
    }
    return GroupThousands(static_cast<unsigned long long>(std::llround(bytes))) + " Bytes";
}
