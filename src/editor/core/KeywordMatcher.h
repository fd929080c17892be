#pragma once
// Finds the keywords of one or more keyword lists in a stretch of text in a single pass, with
// the results of searching each keyword on its own: per keyword the search goes on one
// character behind each find's end, and a find is coloured only when the word-boundary test
// lets it. The lists are read as the keyword coder reads them (see ReadKeywordList).
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

// One token of a keyword list, in list order. counter is the 1-based count of tokens taken,
// the empty token that ends the list included; keyword is empty for that last one.
struct KeywordToken {
    int counter;
    std::string keyword; // trimmed
};

// Splits a list as the coder does: tokens end with the separator character; each is trimmed;
// the first empty token ends the list, and so does a rest that is empty when trimmed. Text
// behind the last separator is not a token. An empty list gives no tokens at all.
std::vector<KeywordToken> ReadKeywordList(std::string_view list);

// Byte with ASCII letters folded to lower case: the case-insensitive comparison.
inline unsigned char FoldAscii(unsigned char c) {
    return c >= 'A' && c <= 'Z' ? c + 32 : c;
}

// A find that the boundary test colours: the keyword's position within the stretch.
struct KeywordFind {
    int64_t start;
    uint32_t pattern;
};

class KeywordMatcher {
  public:
    // One token of one list, in the order in which the coder paints them.
    struct Entry {
        int list;
        int counter;
        int pattern; // index of the distinct keyword, -1 for the empty token ending a list
        bool paints; // the last entry of its keyword: only it needs painting (see Painter)
    };

    KeywordMatcher(const std::vector<std::string_view>& lists, bool caseSensitive);

    const std::vector<Entry>& Entries() const { return entries_; }
    size_t PatternCount() const { return lengths_.size(); }
    int64_t PatternLength(uint32_t pattern) const { return lengths_[pattern]; }

    // Appends to finds every coloured find in s, in order of end position. tick(bytes) is
    // called after each block of the scan; when it returns false the scan stops and this
    // returns false.
    bool FindAll(std::string_view s, std::vector<KeywordFind>& finds,
                 const std::function<bool(int64_t)>& tick) const;

  private:
    void Build(const std::vector<std::string>& patterns);
    struct FindState;
    void Report(FindState& f, int64_t end, uint32_t state) const;

    bool caseSensitive_;
    std::vector<Entry> entries_;
    std::vector<int64_t> lengths_;
    // The automaton: a complete transition table over byte classes. Each entry is the target
    // state shifted left by shift_, so that a step is one add and one load; states with
    // keywords ending in them are numbered last, from matchFrom_ on.
    unsigned shift_ = 0;
    uint32_t matchFrom_ = 0;
    std::vector<uint32_t> next_;
    uint8_t classOf_[256] = {};
    std::vector<uint32_t> outStart_; // per state: its keywords in outputs_
    std::vector<uint32_t> outputs_;
};

// The automaton for a set of lists and a case flag, built once and kept while the lists stay
// the same. Keeps a few, so that windows of different languages do not rebuild in turn.
std::shared_ptr<const KeywordMatcher>
SharedKeywordMatcher(const std::vector<std::string_view>& lists, bool caseSensitive);
