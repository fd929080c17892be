// kestrum-mkprofile OUTDIR SOURCE...
// Writes the shipped syntax profiles: each text source becomes the binary profile
// OUTDIR/<profile name>, written by the program's own profile writer. The sources must name
// exactly the profiles of the default association table, each once, so that no extension
// points at a missing profile and no stray file shows in the profile lists.
#include "profiles/core/ProfileFile.h"
#include "profiles/core/ProfileSource.h"
#include "profiles/core/SyntaxAssociations.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <sstream>

namespace fs = std::filesystem;

namespace {

bool ReadText(const std::string& path, std::string& text) {
    std::ifstream in(path, std::ios::binary);
    if (!in) return false;
    std::ostringstream s;
    s << in.rdbuf();
    text = s.str();
    return true;
}

// A fresh file each time: the program's writer leaves an old tail behind, which a shipped
// file must not have.
bool WriteWhole(const fs::path& path, const std::string& bytes) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), std::streamsize(bytes.size()));
    out.close();
    return bool(out);
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        std::cerr << "usage: kestrum-mkprofile OUTDIR SOURCE...\n";
        return 2;
    }
    const fs::path outDir = argv[1];
    std::map<std::string, ProfileSource> profiles;
    bool failed = false;
    for (int i = 2; i < argc; ++i) {
        std::string text;
        ProfileSource source;
        if (!ReadText(argv[i], text)) {
            std::cerr << argv[i] << ": cannot be read\n";
            failed = true;
        } else if (auto error = ParseProfileSource(text, source); !error.empty()) {
            std::cerr << argv[i] << ": " << error << "\n";
            failed = true;
        } else if (profiles.contains(source.name)) {
            std::cerr << argv[i] << ": profile \"" << source.name << "\" is defined twice\n";
            failed = true;
        } else {
            profiles.emplace(source.name, std::move(source));
        }
    }
    if (failed) return 1;
    const auto wanted = DefaultProfileNames();
    for (auto name : wanted)
        if (!profiles.contains(std::string(name))) {
            std::cerr << "no source for \"" << name << "\"\n";
            failed = true;
        }
    for (const auto& [name, source] : profiles)
        if (std::ranges::find(wanted, name) == wanted.end()) {
            std::cerr << "\"" << name << "\" is not in the default association table\n";
            failed = true;
        }
    if (failed) return 1;

    std::error_code ec;
    fs::create_directories(outDir, ec);
    for (const auto& [name, source] : profiles) {
        EncodedProfile p = EncodeProfile(source.settings);
        if (!p.ok()) {
            std::cerr << name << ": " << p.error << "\n";
            return 1;
        }
        if (!WriteWhole(outDir / name, p.bytes)) {
            std::cerr << (outDir / name).string() << ": cannot be written\n";
            return 1;
        }
    }
    return 0;
}
