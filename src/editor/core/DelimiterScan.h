#pragma once
// Byte search for the delimiter coder, and the pairs of a delimiter table searched over a
// whole text ahead of painting them, so that the search can run beside the keyword scan.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// First occurrence of needle in text at or after from, exact bytes; -1 if none. An empty
// needle is found where the search starts, as long as that lies inside the text.
int64_t FindFrom(std::string_view text, int64_t from, std::string_view needle);

// Each pair is searched as the delimiter coder searches it over a whole text: the opener from
// the start, its closer from one byte behind the opener's start, the next opener from one byte
// behind the closer's start, until an opener or a closer is missing. The pairs found are kept
// in order per pair, to be painted later.
class DelimiterScan {
  public:
    struct Span {
        int64_t start, length;
    };
    struct Pair {
        std::string opener, closer; // both non-empty
    };

    DelimiterScan(std::string_view text, std::vector<Pair> pairs);

    // Searches on until every pair's next opener starts at or behind limit, or is missing.
    // A closer may lie behind limit. Only reads the text, so it may run on another thread
    // while nothing changes the text.
    void Advance(int64_t limit);
    // Where the search stands: every opener before this place has been dealt with.
    int64_t Reached() const { return reached_; }
    bool Finished() const { return reached_ >= int64_t(text_.size()); }

    // Lets go of the pairs found that end at or before the place: a pass that paints the
    // text stretch by stretch holds only those of the stretches to come.
    void Forget(int64_t before);

    size_t PairCount() const { return states_.size(); }
    const std::vector<Span>& Spans(size_t pair) const { return states_[pair].spans; }

  private:
    struct State {
        Pair pair;
        int64_t from = 0;  // where the next opener is looked for
        int64_t next = -1; // an opener found at or behind the limit, not yet taken
        bool done = false;
        std::vector<Span> spans;
    };
    void AdvancePair(State& s, int64_t limit) const;

    std::string_view text_;
    std::vector<State> states_;
    int64_t reached_ = 0;
};
