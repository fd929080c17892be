#include "filetools/core/FolderListing.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <fnmatch.h>
#include <sys/stat.h>

namespace {
char Upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

struct KindRow {
    int image;
    std::string_view extensions; // each followed by a space
};
const KindRow kKinds[] = {
    {kImagePicture, "GIF BMP JPG JPEG PCX RLE WMF EMF PSD TGA RAW "},
    {kImageText, "TXT RTF DOC FAQ NFO "},
    {kImageMedia, "WAV MP3 MP2 MP1 AUD MOV AVI MPG MPEG S3M STM IT VOC SAM "},
    {kImageProgram, "EXE COM BAT "},
    {kImageWebPage, "HTML HTM SHTML SHTM DHTM DHTML ASP "},
    {kImageSystem, "DLL SYS VXD INF OCX VBX INI LNK "},
    {kImageArchive, "ZIP TAR GZ CAB LZH ARJ ARC "},
    {kImageHelp, "HLP "},
};

std::string Decode(std::string_view field) { // mount table fields escape blanks as \040
    std::string out;
    for (size_t i = 0; i < field.size(); ++i) {
        if (field[i] == '\\' && i + 3 < field.size() && field[i + 1] >= '0' &&
            field[i + 1] <= '3') {
            out += static_cast<char>((field[i + 1] - '0') * 64 + (field[i + 2] - '0') * 8 +
                                     (field[i + 3] - '0'));
            i += 3;
        } else {
            out += field[i];
        }
    }
    return out;
}
} // namespace

int FileImageIndex(std::string_view name) {
    const size_t dot = name.rfind('.');
    if (dot == std::string_view::npos) return kImageFile;
    std::string ext;
    for (char c : name.substr(dot + 1)) ext += Upper(c);
    if (ext.empty() || ext.find(' ') != std::string::npos) return kImageFile;
    ext += ' ';
    for (const KindRow& k : kKinds) {
        for (size_t p = 0; (p = k.extensions.find(ext, p)) != std::string_view::npos; ++p)
            if (p == 0 || k.extensions[p - 1] == ' ') return k.image;
    }
    return kImageFile;
}

bool MatchesPattern(std::string_view name, std::string_view pattern) {
    const std::string n(name);
    while (true) {
        const size_t semi = pattern.find(';');
        std::string one(pattern.substr(0, semi));
        one.erase(0, one.find_first_not_of(' '));
        if (one.empty() || one == "*.*" || one == "*") return true;
        if (::fnmatch(one.c_str(), n.c_str(), FNM_CASEFOLD | FNM_PERIOD) == 0) return true;
        if (semi == std::string_view::npos) return false;
        pattern.remove_prefix(semi + 1);
    }
}

bool NameLess(std::string_view a, std::string_view b) {
    const size_t n = std::min(a.size(), b.size());
    for (size_t i = 0; i < n; ++i) {
        const char x = Lower(a[i]), y = Lower(b[i]);
        if (x != y) return static_cast<unsigned char>(x) < static_cast<unsigned char>(y);
    }
    if (a.size() != b.size()) return a.size() < b.size();
    return a < b;
}

FolderListing ListFolder(const std::string& folder, const ListingOptions& options) {
    FolderListing out;
    DIR* dir = ::opendir(folder.c_str());
    if (!dir) {
        out.error = std::strerror(errno);
        return out;
    }
    const int fd = ::dirfd(dir);
    while (const dirent* e = ::readdir(dir)) {
        const std::string_view name = e->d_name;
        if (name == "." || name == "..") continue;
        bool isDir = e->d_type == DT_DIR;
        if (e->d_type == DT_LNK || e->d_type == DT_UNKNOWN) {
            struct stat st {};
            if (::fstatat(fd, e->d_name, &st, 0) != 0) continue; // broken link, loop
            isDir = S_ISDIR(st.st_mode);
        }
        if (isDir) {
            out.folders.emplace_back(name);
        } else {
            if (!options.hidden && name.front() == '.') continue;
            if (MatchesPattern(name, options.pattern)) out.files.emplace_back(name);
        }
    }
    ::closedir(dir);
    std::sort(out.folders.begin(), out.folders.end(), NameLess);
    std::sort(out.files.begin(), out.files.end(), NameLess);
    out.ok = true;
    return out;
}

std::string ParentFolder(std::string_view folder) {
    while (folder.size() > 1 && folder.back() == '/') folder.remove_suffix(1);
    if (folder.empty() || folder == "/") return {};
    const size_t slash = folder.rfind('/');
    if (slash == std::string_view::npos) return {};
    return slash == 0 ? std::string("/") : std::string(folder.substr(0, slash));
}

std::string ParentRowText(std::string_view parent) { return ".. [" + std::string(parent) + "]"; }

std::string WithSlash(std::string_view folder) {
    std::string s(folder);
    if (s.empty() || s.back() != '/') s += '/';
    return s;
}

std::vector<Drive> DrivesFrom(std::string_view mountTable, const std::string& home,
                              const std::string& user) {
    std::vector<Drive> drives{{"/", "/"}};
    auto name = [](const std::string& path) {
        const std::string p = path.size() > 1 && path.back() == '/' ? path.substr(0, path.size() - 1) : path;
        return p.substr(p.rfind('/') + 1);
    };
    if (!home.empty() && home != "/") drives.push_back({name(home), home});
    std::vector<std::string> roots = {"/media/", "/mnt/"};
    if (!user.empty()) roots.push_back("/run/media/" + user + "/");
    while (!mountTable.empty()) {
        size_t end = mountTable.find('\n');
        std::string_view line = mountTable.substr(0, end);
        mountTable = end == std::string_view::npos ? std::string_view() : mountTable.substr(end + 1);
        const size_t a = line.find(' ');
        if (a == std::string_view::npos) continue;
        const size_t b = line.find(' ', a + 1);
        const std::string point = Decode(line.substr(a + 1, b == std::string_view::npos ? b : b - a - 1));
        for (const std::string& root : roots) {
            if (point.size() > root.size() && point.compare(0, root.size(), root) == 0 &&
                std::none_of(drives.begin(), drives.end(),
                             [&](const Drive& d) { return d.path == point; }))
                drives.push_back({name(point), point});
        }
    }
    return drives;
}

std::string FilterToken(int index, std::string_view text, std::string_view delim) {
    if (index < 1 || delim.empty()) return {};
    for (int i = 1; i < index; ++i) {
        const size_t p = text.find(delim);
        if (p == std::string_view::npos) return {};
        text.remove_prefix(p + delim.size());
    }
    return std::string(text.substr(0, text.find(delim)));
}
