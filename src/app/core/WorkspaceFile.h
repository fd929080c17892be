#pragma once
// The workspace file: the open documents as pairs of lines, caption then path, in slot order,
// CR LF after each line, the 8-bit bytes as they are. No header, no count, no terminator.
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct WorkspaceEntry {
    std::string caption;
    std::string path;
    bool operator==(const WorkspaceEntry&) const = default;
};

// The bytes of a workspace file listing the documents.
std::string WriteWorkspace(const std::vector<WorkspaceEntry>& documents);

struct WorkspaceRead {
    std::vector<WorkspaceEntry> entries; // the whole pairs, in file order
    // Set when the reading ran past the end of the file: an empty file, or an odd line count
    // (after the last whole pair). The loader reports it once the pairs before it are loaded.
    std::optional<std::string> error;
};

// Reads the file as the loader does: a pair, then a test for the end of the file, so an
// empty file fails at once. A line ends at CR LF, a lone CR or a lone LF.
WorkspaceRead ReadWorkspace(std::string_view bytes);

// The runtime's text for a read past the end of a file.
inline constexpr std::string_view kInputPastEndOfFile = "Input past end of file";

// True for a name the command line opens as a workspace: it ends in ".KWS", in that case.
bool IsWorkspaceName(std::string_view name);
