#pragma once
// An Aho-Corasick automaton over a set of keywords that gives, for each keyword, the finds of
// searching it on its own: the search goes on one character behind each find's end, and a
// find is kept only when the coder's word-boundary test colours it.
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

// A coloured find: the keyword's position within the stretch and its pattern number.
struct KeywordFind {
    int64_t start;
    uint32_t pattern;
};

// Called after each block of a long scan with the bytes done; false stops the scan.
using ScanTick = std::function<bool(int64_t)>;

// Byte with ASCII letters folded to lower case: the case-insensitive comparison.
inline unsigned char FoldAscii(unsigned char c) {
    return c >= 'A' && c <= 'Z' ? c + 32 : c;
}

class KeywordAutomaton {
  public:
    // patterns are folded already when case does not count; ids[i] is the pattern number that
    // finds of patterns[i] carry.
    KeywordAutomaton(const std::vector<std::string>& patterns, const std::vector<uint32_t>& ids,
                     bool caseSensitive);

    bool Empty() const { return lengths_.empty(); }

    // Appends every coloured find in s, in order of end position. Steps through every byte,
    // in four interleaved lanes on long stretches.
    bool FindAll(std::string_view s, std::vector<KeywordFind>& finds, const ScanTick& tick) const;

    // The same result in one lane that, whenever no keyword is under way, jumps to the next
    // byte that can begin one: fast when the keywords begin with bytes that are rare in text.
    bool FindSparse(std::string_view s, std::vector<KeywordFind>& finds,
                    const ScanTick& tick) const;

  private:
    void Build(const std::vector<std::string>& patterns);
    struct FindState;
    void Report(FindState& f, int64_t end, uint32_t state) const;
    int64_t NextStarter(const unsigned char* text, int64_t i, int64_t n) const;

    std::vector<uint32_t> ids_;
    std::vector<int64_t> lengths_;
    // A complete transition table over byte classes. Each entry is the target state shifted
    // left by shift_, so that a step is one add and one load; states with keywords ending in
    // them are numbered last, from matchFrom_ on.
    unsigned shift_ = 0;
    uint32_t matchFrom_ = 0;
    std::vector<uint32_t> next_;
    uint8_t classOf_[256] = {};
    std::vector<uint32_t> outStart_; // per state: its keywords in outputs_
    std::vector<uint32_t> outputs_;
    // The bytes that leave the root state; at most kStarters of them, else starterCount_ is 0
    // and FindSparse does not jump.
    static constexpr int kStarters = 4;
    int starterCount_ = 0;
    unsigned char starters_[kStarters] = {};
};
