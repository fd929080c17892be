#include "search/core/FileSearch.h"

#include "search/core/FindRules.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr size_t kShownLine = 400;

std::string_view TrimBlanks(std::string_view s) {
    while (!s.empty() && (s.front() == ' ' || s.front() == '\t')) s.remove_prefix(1);
    while (!s.empty() && (s.back() == ' ' || s.back() == '\t')) s.remove_suffix(1);
    return s;
}

bool Glob(std::string_view name, std::string_view pat) {
    size_t i = 0, j = 0, starJ = std::string_view::npos, starI = 0;
    while (i < name.size()) {
        if (j < pat.size() && (pat[j] == '?' || pat[j] == name[i])) {
            ++i, ++j;
        } else if (j < pat.size() && pat[j] == '*') {
            starJ = j++;
            starI = i;
        } else if (starJ != std::string_view::npos) {
            j = starJ + 1;
            i = ++starI;
        } else {
            return false;
        }
    }
    while (j < pat.size() && pat[j] == '*') ++j;
    return j == pat.size();
}

// Reads a whole regular file with one read into buf (reused between files).
bool ReadFile(int dirFd, const char* name, std::string& buf) {
    int fd = openat(dirFd, name, O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NOCTTY | O_NONBLOCK);
    if (fd < 0) return false;
    struct stat st;
    bool ok = fstat(fd, &st) == 0 && S_ISREG(st.st_mode);
    if (ok) {
        buf.resize(size_t(st.st_size));
        size_t got = 0;
        while (got < buf.size()) {
            ssize_t r = read(fd, buf.data() + got, buf.size() - got);
            if (r < 0 && errno == EINTR) continue;
            if (r <= 0) break; // the file shrank while it was read: keep what is there
            got += size_t(r);
        }
        buf.resize(got);
    }
    close(fd);
    return ok;
}

struct Walker {
    std::string_view find;
    const FileSearchOptions& options;
    std::vector<std::string> patterns;
    const std::atomic<bool>* stop;
    const std::function<void(std::vector<FileMatch>&&)>& found;
    std::string buf;

    bool Stopped() const { return stop && stop->load(std::memory_order_relaxed); }

    // dirFd is owned by the call and closed before it returns.
    void Walk(int dirFd, const std::string& prefix) {
        DIR* dir = fdopendir(dirFd);
        if (!dir) {
            close(dirFd);
            return;
        }
        while (!Stopped()) {
            errno = 0;
            dirent* e = readdir(dir);
            if (!e) break;
            const char* name = e->d_name;
            if (std::strcmp(name, ".") == 0 || std::strcmp(name, "..") == 0) continue;
            unsigned char type = e->d_type;
            if (type == DT_UNKNOWN) {
                struct stat st;
                if (fstatat(dirfd(dir), name, &st, AT_SYMLINK_NOFOLLOW) != 0) continue;
                type = S_ISDIR(st.st_mode) ? DT_DIR : S_ISREG(st.st_mode) ? DT_REG : DT_LNK;
            }
            std::string path = prefix + name;
            if (type == DT_DIR) {
                // Symbolic links are never followed (as grep -r does), so no loop is possible.
                int sub = openat(dirfd(dir), name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
                if (sub >= 0) Walk(sub, path + "/");
            } else if (type == DT_REG && FilterAccepts(patterns, name)) {
                SearchOne(dirfd(dir), name, path);
            }
        }
        closedir(dir);
    }

    void SearchOne(int dirFd, const char* name, const std::string& path) {
        if (!ReadFile(dirFd, name, buf)) return;
        std::vector<FileMatch> matches;
        SearchBuffer(buf, find, options, [&](int64_t line, int64_t col, std::string_view text) {
            matches.push_back({path, line, col, std::string(text)});
        });
        if (!matches.empty()) found(std::move(matches));
    }
};

} // namespace

std::vector<std::string> SplitFilter(std::string_view filter) {
    std::vector<std::string> out;
    while (!filter.empty()) {
        size_t semi = filter.find(';');
        std::string_view part = TrimBlanks(filter.substr(0, semi));
        if (!part.empty()) out.emplace_back(part);
        if (semi == std::string_view::npos) break;
        filter.remove_prefix(semi + 1);
    }
    return out;
}

bool FilterAccepts(const std::vector<std::string>& patterns, std::string_view fileName) {
    if (patterns.empty()) return true;
    for (const std::string& p : patterns)
        if (p == "*.*" || p == "*" || Glob(fileName, p)) return true;
    return false;
}

bool SearchBuffer(std::string_view bytes, std::string_view find, const FileSearchOptions& options,
                  const std::function<void(int64_t, int64_t, std::string_view)>& hit) {
    if (std::memchr(bytes.data(), 0, std::min<size_t>(bytes.size(), 8192))) return false;
    int64_t line = 1;
    size_t lineStart = 0, counted = 0; // newlines are counted up to counted
    int64_t pos = 0;
    const int64_t len = int64_t(bytes.size());
    while ((pos = FindText(bytes, find, pos, len, options.wholeWord, options.matchCase)) >= 0) {
        for (const char* p; (p = static_cast<const char*>(std::memchr(
                                 bytes.data() + counted, '\n', size_t(pos) - counted)));) {
            ++line;
            counted = size_t(p - bytes.data()) + 1;
            lineStart = counted;
        }
        counted = size_t(pos);
        size_t lineEnd = bytes.find('\n', size_t(pos));
        if (lineEnd == std::string_view::npos) lineEnd = bytes.size();
        size_t shown = lineEnd;
        if (shown > lineStart && bytes[shown - 1] == '\r') --shown;
        // A huge line is shown round its match only, so that a long one-line file with many
        // matches costs no copy of the line per match.
        size_t from = lineStart, count = shown - lineStart;
        if (count > kShownLine) {
            from = std::max(lineStart, size_t(pos) > kShownLine / 4 ? size_t(pos) - kShownLine / 4 : 0);
            count = std::min(kShownLine, shown - from);
        }
        hit(line, pos - int64_t(lineStart) + 1, bytes.substr(from, count));
        ++pos;
    }
    return true;
}

bool SearchFolder(const std::string& folder, std::string_view find,
                  const FileSearchOptions& options, const std::atomic<bool>* stop,
                  const std::function<void(std::vector<FileMatch>&&)>& found, std::string& error) {
    int fd = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) {
        error = "Cannot search the folder " + folder + ": " + std::strerror(errno);
        return false;
    }
    if (find.empty()) {
        close(fd);
        return true;
    }
    Walker w{find, options, SplitFilter(options.filter), stop, found, {}};
    std::string prefix = folder;
    if (prefix.empty() || prefix.back() != '/') prefix += '/';
    w.Walk(fd, prefix);
    return true;
}
