#pragma once
// Finds where a line of tool output points into a source file: "file:line:" and
// "file:line:column:" prefixes of compilers, linkers and make, and the
// 'File "x", line n' lines of Python tracebacks.
#include <optional>
#include <string>
#include <string_view>

struct ErrorLocation {
    std::string file;
    int line = 0;   // 1-based
    int column = 0; // 1-based; 0 when the line gives none
    bool operator==(const ErrorLocation&) const = default;
};

std::optional<ErrorLocation> ParseErrorLocation(std::string_view line);
// An absolute file stays; a relative one is taken from baseDir (which ends in '/' or is empty).
std::string ResolveToolPath(std::string_view file, std::string_view baseDir);
