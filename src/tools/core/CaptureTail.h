#pragma once
// Follows the capture file by reading only what was appended since the last read, so a tool
// printing a great deal keeps the editor responsive. A file that shrank or whose beginning
// changed was rewritten by a new run: its whole content then replaces the view.
#include <cstddef>
#include <string>

class CaptureTail {
  public:
    explicit CaptureTail(std::string path) : path_(std::move(path)) {}

    enum class Kind { Unchanged, Append, Replace, Failed };
    struct Update {
        Kind kind = Kind::Unchanged;
        std::string bytes;
    };
    // Reads at most maxBytes; more() then tells that the file holds more already.
    Update Poll(std::size_t maxBytes);
    bool more() const { return more_; }
    const std::string& path() const { return path_; }

  private:
    std::string path_;
    bool synced_ = false; // false until a read succeeded, and after a failure
    bool more_ = false;
    std::size_t offset_ = 0;
    std::string head_; // the first bytes read, to notice a rewrite that outgrew the old size
};
