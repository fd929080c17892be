#include "support/TempDir.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

TempDir::TempDir() {
    char tmpl[] = "/tmp/kestrum-test-XXXXXX";
    if (!::mkdtemp(tmpl)) throw std::runtime_error("mkdtemp failed");
    path_ = std::string(tmpl) + "/";
}

TempDir::~TempDir() {
    std::error_code ec;
    // Restore write permission first, so that tests of read-only folders clean up too.
    for (auto& e : std::filesystem::recursive_directory_iterator(path_, ec))
        std::filesystem::permissions(e.path(), std::filesystem::perms::owner_all,
                                     std::filesystem::perm_options::add, ec);
    std::filesystem::remove_all(path_, ec);
}

std::string TempDir::write(std::string_view name, std::string_view bytes) const {
    std::string p = file(name);
    std::filesystem::create_directories(std::filesystem::path(p).parent_path());
    std::ofstream(p, std::ios::binary).write(bytes.data(), std::streamsize(bytes.size()));
    return p;
}

std::string ReadFileBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

bool FileExists(const std::string& path) { return std::filesystem::exists(path); }
