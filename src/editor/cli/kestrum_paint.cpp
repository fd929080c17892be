// kestrum-paint: colours a file as the editor does and prints the result as slot runs or as
// a page. Exit 0 when done, 2 for a bad option or a file that cannot be read.
#include "editor/core/PaintCommand.h"
#include "editor/core/Painter.h"
#include "editor/core/TextCodec.h"
#include "profiles/core/KeywordListFile.h"

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

// The settings to paint with. Everything that chooses them (keyword file, pairs, switches;
// later a profile by name or by the file's extension) is settled here.
bool SettingsFor(const PaintCommand& command, EditorSettings& settings, std::string& error) {
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
    std::FILE* f = std::fopen(path.c_str(), "rb");
    if (!f) {
        error = path + ": " + std::strerror(errno);
        return false;
    }
    std::string bytes;
    char chunk[1 << 16];
    for (size_t got; (got = std::fread(chunk, 1, sizeof chunk, f)) > 0;) bytes.append(chunk, got);
    const bool failed = std::ferror(f);
    const int code = errno;
    std::fclose(f);
    if (failed) {
        error = path + ": " + std::strerror(code);
        return false;
    }
    text = ToCrLf(bytes);
    return true;
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
    return written && std::fflush(stdout) == 0 ? 0 : 1;
}
