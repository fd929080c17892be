#pragma once
// The command-line painter: its options, the settings a run paints with, and its outputs.
#include "base/EditorSettings.h"
#include "editor/core/SlotBuffer.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

enum class PaintFormat { Runs, Html, None };

struct PaintCommand {
    std::string keywordFile;               // --keywords; empty: no keyword lists
    std::string profile;                   // --profile: a file of PROFILES/, or a path
    std::vector<DelimiterPair> delimiters; // --delimiter, in table order, at most 8
    bool caseSensitive = false;            // --case-sensitive
    bool delimitersFirst = false;          // --delimiters-first: CodeOrder false
    PaintFormat format = PaintFormat::Runs;
    std::string file;
    bool help = false;
};

inline constexpr std::string_view kPaintUsage =
    "usage: kestrum-paint [--profile NAME] [--keywords FILE] [--delimiter OPEN CLOSE CLASS]... "
    "[--case-sensitive] [--delimiters-first] [--format runs|html|none] FILE";

// True when the command chooses nothing itself: the file's extension then chooses the
// profile, as the editor's language recognition does.
inline bool ChoosesByExtension(const PaintCommand& c) {
    return c.profile.empty() && c.keywordFile.empty() && c.delimiters.empty();
}

// Reads the arguments (without the program name). nullopt with a one-line reason in error
// when they are not usable.
std::optional<PaintCommand> ParsePaintCommand(const std::vector<std::string>& args,
                                              std::string& error);

// The defaults of an empty store, without keyword lists and delimiter pairs, then the
// command's lists, pairs and switches.
EditorSettings PaintSettings(const PaintCommand& command,
                             const std::array<std::string, 3>& keywordLists);

// "START LENGTH SLOT" per maximal run, one a line.
std::string FormatRuns(const SlotBuffer& slots);
// A standalone page: the text escaped, in the default colours on white.
std::string FormatHtml(std::string_view text, const SlotBuffer& slots, std::string_view title);
