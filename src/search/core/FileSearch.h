#pragma once
// Find in Files: the search of a folder tree. Each file is read with one read and searched
// as a whole with the editor's own text search; binary files (a NUL in the first 8 KB),
// unreadable files, symbolic links and whatever vanishes on the way are skipped silently.
#include <atomic>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

struct FileMatch {
    std::string path; // the folder as given, '/', the path below it
    int64_t line;     // 1-based
    int64_t column;   // 1-based byte column of the match's start
    std::string text; // the line, without its line end
};

struct FileSearchOptions {
    bool matchCase = false;
    bool wholeWord = false;
    std::string filter = "*.*"; // patterns separated by ';'
};

// Splits a filter list; blanks round each pattern are dropped, empty patterns skipped. An
// empty list means every file.
std::vector<std::string> SplitFilter(std::string_view filter);
// Whether a file name passes one of the patterns ('*' and '?' wildcards; "*.*" takes every
// name, with or without a dot).
bool FilterAccepts(const std::vector<std::string>& patterns, std::string_view fileName);

// The matches of one file's bytes, in order; overlapping matches are all found, as in the
// editor. Returns false for a binary file.
bool SearchBuffer(std::string_view bytes, std::string_view find, const FileSearchOptions& options,
                  const std::function<void(int64_t line, int64_t column, std::string_view lineText)>& hit);

// Searches the tree under folder. Each file's matches are handed to found together, as soon
// as the file is done; stop, when set, ends the walk early. Returns false with a message in
// error when the folder does not exist or cannot be read.
bool SearchFolder(const std::string& folder, std::string_view find,
                  const FileSearchOptions& options, const std::atomic<bool>* stop,
                  const std::function<void(std::vector<FileMatch>&&)>& found, std::string& error);
