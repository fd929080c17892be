#pragma once
// Where each line of a growing text begins, kept in blocks that each hold twice as many lines
// as the one before: a text of millions of lines grows its index block by block, and nothing
// already indexed is ever copied again.
// The text itself is not kept; the index is fed the bytes as they arrive.
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

class LineIndex {
  public:
    // Indexes the next bytes of the text. A line may be cut anywhere between two calls.
    void Append(std::string_view bytes);
    void Clear();

    // The text "a\nb\n" has three lines, the last one empty; an empty text has one.
    std::size_t lines() const { return count_; }
    std::uint64_t size() const { return size_; }
    std::uint64_t Start(std::size_t line) const;
    // Where the line ends: its LF (a CR before it belongs to the line), or the text's end.
    std::uint64_t End(std::size_t line) const;
    // The line that holds byte pos (the last line for pos >= size()).
    std::size_t LineOf(std::uint64_t pos) const;
    // The length in bytes of the longest line seen, its LF left out.
    std::uint64_t longest() const;

  private:
    // The first block's lines; block k holds kFirst << k.
    static constexpr std::size_t kFirst = 4096;
    struct Free {
        bool aligned;
        void operator()(std::uint64_t* p) const;
    };
    using Block = std::unique_ptr<std::uint64_t[], Free>;
    static Block NewBlock(std::size_t entries);
    void Push(std::uint64_t start);
    std::uint64_t& At(std::size_t entry) const;
    std::vector<Block> blocks_;
    std::size_t count_ = 1; // line 0 begins at 0 and is not stored
    std::uint64_t size_ = 0;
    std::uint64_t last_ = 0; // where the last line begins
    std::uint64_t longestEnded_ = 0;
};
