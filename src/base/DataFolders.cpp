#include "base/DataFolders.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <system_error>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

std::string WithSlash(std::string_view dir) {
    std::string s(dir);
    if (s.empty() || s.back() != '/') s += '/';
    return s;
}

bool IsDir(const std::string& path) {
    std::error_code ec;
    return fs::is_directory(path, ec);
}

// The prefix of an installed program is the parent of its bin/ folder.
std::string InstalledDataFolder(const std::string& programDir) {
    fs::path bin = fs::path(programDir).parent_path();
    if (bin.filename() != "bin") return {};
    const fs::path prefix = bin.parent_path();
    for (const char* sub : {"share/kestrum", "lib/kestrum"}) {
        std::string candidate = (prefix / sub).string();
        if (IsDir(candidate)) return WithSlash(candidate);
    }
    return {};
}

std::string Lower(std::string_view s) {
    std::string out(s);
    for (char& c : out)
        if (c >= 'A' && c <= 'Z') c = char(c - 'A' + 'a');
    return out;
}

} // namespace

DataFolders ResolveDataFolders(std::string_view programDir, std::string_view xdgDataHome,
                               std::string_view home, bool programDirWritable) {
    const std::string program = WithSlash(programDir);
    std::string installed = InstalledDataFolder(program);
    if (installed.empty()) {
        if (programDirWritable) return {program, program};
        installed = program;
    }
    std::string base;
    if (!xdgDataHome.empty() && xdgDataHome.front() == '/')
        base = WithSlash(xdgDataHome);
    else if (!home.empty())
        base = WithSlash(home) + ".local/share/";
    else // no home at all: the program can only keep its own files in the temporary folder
        base = "/tmp/";
    return {installed, base + "kestrum/"};
}

DataFolders ResolveDataFoldersFromEnvironment(std::string_view programDir) {
    const char* xdg = std::getenv("XDG_DATA_HOME");
    const char* home = std::getenv("HOME");
    const bool writable = access(std::string(programDir).c_str(), W_OK) == 0;
    return ResolveDataFolders(programDir, xdg ? xdg : "", home ? home : "", writable);
}

std::string DataPathForReading(const DataFolders& folders, std::string_view relative) {
    std::string own = folders.user + std::string(relative);
    if (folders.Installed()) {
        std::error_code ec;
        if (fs::exists(own, ec)) return own;
        return folders.shipped + std::string(relative);
    }
    return own;
}

std::string DataPathForWriting(const DataFolders& folders, std::string_view relative) {
    return folders.user + std::string(relative);
}

bool MakeUserDataFolder(const DataFolders& folders, std::string_view relativeFolder,
                        std::string* error) {
    std::error_code ec;
    const std::string dir = folders.user + std::string(relativeFolder);
    fs::create_directories(dir, ec);
    if (!ec && IsDir(dir)) return true;
    if (error) *error = ec ? ec.message() : "Not a directory";
    return false;
}

std::vector<std::string> DataFolderFiles(const DataFolders& folders,
                                         std::string_view relativeFolder) {
    std::set<std::string> names;
    for (const std::string* root : {&folders.user, &folders.shipped}) {
        std::error_code ec;
        fs::directory_iterator it(*root + std::string(relativeFolder), ec), end;
        for (; !ec && it != end; it.increment(ec)) {
            std::error_code typeError;
            std::string name = it->path().filename().string();
            if (name[0] != '.' && it->is_regular_file(typeError)) names.insert(std::move(name));
        }
    }
    std::vector<std::string> out(names.begin(), names.end());
    std::stable_sort(out.begin(), out.end(), [](const std::string& a, const std::string& b) {
        return Lower(a) < Lower(b);
    });
    return out;
}
