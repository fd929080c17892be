#include "base/MiscSubs.h"

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <unistd.h>
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

bool ReadWholeFile(const std::string& path, std::string& bytes, std::string& error) {
    // Opened without waiting: a pipe would otherwise block the open until a writer comes.
    int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (fd < 0) {
        error = std::strerror(errno);
        return false;
    }
    struct stat st {};
    if (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) {
        // A folder, a device or a pipe has no whole contents to read.
        error = S_ISDIR(st.st_mode) ? std::strerror(EISDIR) : "not a regular file";
        ::close(fd);
        return false;
    }
    // One buffer of the file's size, filled by as few reads as the system allows; a file
    // that grew meanwhile is read on to its end.
    bytes.resize(size_t(st.st_size));
    size_t got = 0;
    char chunk[1 << 16];
    for (;;) {
        char* to = got < bytes.size() ? bytes.data() + got : chunk;
        size_t room = got < bytes.size() ? bytes.size() - got : sizeof chunk;
        ssize_t n = ::read(fd, to, room);
        if (n < 0 && errno == EINTR) continue;
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
