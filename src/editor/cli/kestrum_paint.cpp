// kestrum-paint: colours a file as the editor does and prints the result as slot runs or as
// a page. Exit 0 when done, 2 for a bad option or a file that cannot be read.
#include "base/DataFolders.h"
#include "base/MiscSubs.h"
#include "base/SettingsStore.h"
#include "base/TextCodec.h"
#include "editor/core/PaintCommand.h"
#include "editor/core/Painter.h"
#include "profiles/core/KeywordListFile.h"
#include "profiles/core/ProfileFile.h"
#include "profiles/core/SyntaxAssociations.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

namespace {

int Fail(const std::string& why) {
    std::fprintf(stderr, "kestrum-paint: %s\n", why.c_str());
    return 2;
}

// The folder of this program, ending in '/'.
std::string ProgramDir() {
    char buf[4096];
    ssize_t n = ::readlink("/proc/self/exe", buf, sizeof buf - 1);
    if (n <= 0) return "./";
    std::string p(buf, size_t(n));
    return p.substr(0, p.rfind('/') + 1);
}

// A profile file of PROFILES/: the user's own copy first, then the shipped one.
std::string ProfilePath(const std::string& name) {
    return DataPathForReading(ResolveDataFoldersFromEnvironment(ProgramDir()), "PROFILES/" + name);
}

bool ReadProfileInto(const std::string& path, EditorSettings& settings, std::string& error) {
    settings = EditorSettings{};
    ProfileReadResult r = ReadProfileFile(path, settings);
    if (r.status == ProfileReadStatus::NotOpened) {
        error = r.error;
        return false;
    }
    return true;
}

// The profile of a file's extension, as the editor's language recognition chooses it: the
// user's table, or the shipped one when the user has none; no row means the global record.
bool SettingsByExtension(const std::string& file, EditorSettings& settings, std::string& error) {
    SettingsStore store(SettingsStore::DefaultDirectory());
    std::string profile;
    if (store.SectionExists("Kestrum", kSyntaxAssocSection)) {
        SyntaxChoice c = ResolveSyntax(store, "Kestrum", file);
        if (!c.useGlobal) profile = c.profile;
    } else {
        profile = DefaultProfileFor(SyntaxExtension(file));
    }
    if (profile.empty()) {
        settings = EditorSettings::Defaults();
        LoadEditorSettings(store, "Kestrum", settings);
        return true;
    }
    return ReadProfileInto(ProfilePath(profile), settings, error);
}

// The settings to paint with: a profile by name or path, a keyword file and pairs, or the
// profile that the file's extension names.
bool SettingsFor(const PaintCommand& command, EditorSettings& settings, std::string& error) {
    if (ChoosesByExtension(command)) {
        if (!SettingsByExtension(command.file, settings, error)) return false;
        if (command.caseSensitive) settings.CaseSensitive = true;
        if (command.delimitersFirst) settings.CodeOrder = false;
        return true;
    }
    if (!command.profile.empty()) {
        std::string path = command.profile.find('/') != std::string::npos
                               ? command.profile
                               : ProfilePath(command.profile);
        if (!ReadProfileInto(path, settings, error)) return false;
        if (command.caseSensitive) settings.CaseSensitive = true;
        if (command.delimitersFirst) settings.CodeOrder = false;
        return true;
    }
    KeywordLists lists;
    if (!command.keywordFile.empty() && !ReadKeywordListFile(command.keywordFile, lists, error)) {
        error = command.keywordFile + ": " + error;
        return false;
    }
    settings = PaintSettings(command, lists);
    return true;
}

// The file as the editor loads it: bytes kept, every line end made CR LF.
bool LoadDocument(const std::string& path, std::string& text, std::string& error) {
    if (ReadFileCrLf(path, text, error)) return true;
    error = path + ": " + error;
    return false;
}

bool Write(const std::string& s) {
    return std::fwrite(s.data(), 1, s.size(), stdout) == s.size();
}

} // namespace

int main(int argc, char** argv) {
    std::string error;
    auto command = ParsePaintCommand(std::vector<std::string>(argv + 1, argv + argc), error);
    if (!command) return Fail(error);
    if (command->help) return Write(std::string(kPaintUsage) + "\n") ? 0 : 1;

    EditorSettings settings;
    std::string text;
    if (!SettingsFor(*command, settings, error) || !LoadDocument(command->file, text, error))
        return Fail(error);

    SlotBuffer slots(0, int64_t(text.size()));
    PaintFlags flags{false, true};
    PaintContext ctx{text, settings, flags, slots, {}, {}};
    ColorCode(ctx);

    bool written = true;
    if (command->format == PaintFormat::Runs)
        written = Write(FormatRuns(slots));
    else if (command->format == PaintFormat::Html)
        written = Write(FormatHtml(text, slots, command->file));
    if (written && std::fflush(stdout) == 0) return 0;
    // A full disk or a closed pipe: say so, rather than end with a bare status.
    return Fail(std::string("cannot write the output: ") + std::strerror(errno));
}
