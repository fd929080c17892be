#include "editor/core/KeywordAutomaton.h"

#include <algorithm>
#include <cstring>
#include <deque>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

KeywordAutomaton::KeywordAutomaton(const std::vector<std::string>& patterns,
                                   const std::vector<uint32_t>& ids, bool caseSensitive)
    : ids_(ids) {
    // Byte classes: every byte that occurs in a keyword gets a class of its own, all others
    // share class 0. Folding is put into the class table, so the scan never folds.
    int classes = 1;
    for (auto& p : patterns)
        for (unsigned char c : p)
            if (!classOf_[c]) classOf_[c] = uint8_t(classes++);
    if (!caseSensitive)
        for (int c = 'A'; c <= 'Z'; ++c) classOf_[c] = classOf_[c + 32];
    while ((1 << shift_) < classes) ++shift_;
    for (auto& p : patterns) lengths_.push_back(int64_t(p.size()));
    Build(patterns);

    for (int c = 0; c < 256; ++c) {
        if (next_[classOf_[c]] == 0) continue;
        if (starterCount_ == kStarters) {
            starterCount_ = 0;
            break;
        }
        starters_[starterCount_++] = static_cast<unsigned char>(c);
    }
}

void KeywordAutomaton::Build(const std::vector<std::string>& patterns) {
    const size_t width = size_t(1) << shift_;

    // The trie, with -1 for a missing edge.
    std::vector<int32_t> trie(width, -1);
    std::vector<int32_t> terminal(1, -1);
    for (size_t k = 0; k < patterns.size(); ++k) {
        int32_t s = 0;
        for (unsigned char c : patterns[k]) {
            int32_t& edge = trie[size_t(s) * width + classOf_[c]];
            if (edge < 0) {
                edge = int32_t(terminal.size());
                terminal.push_back(-1);
                trie.resize(trie.size() + width, -1);
            }
            s = trie[size_t(s) * width + classOf_[c]];
        }
        terminal[size_t(s)] = int32_t(k);
    }
    const size_t states = terminal.size();

    // Breadth first: failure links, the complete transition table and each state's keywords
    // (its own and those of its failure chain, longest first).
    std::vector<int32_t> fail(states, 0), order;
    std::vector<std::vector<uint32_t>> out(states);
    std::deque<int32_t> queue;
    order.reserve(states);
    for (size_t c = 0; c < width; ++c) {
        int32_t& t = trie[c];
        if (t < 0)
            t = 0;
        else
            queue.push_back(t);
    }
    order.push_back(0);
    while (!queue.empty()) {
        int32_t s = queue.front();
        queue.pop_front();
        order.push_back(s);
        if (terminal[size_t(s)] >= 0) out[size_t(s)].push_back(uint32_t(terminal[size_t(s)]));
        auto& f = out[size_t(fail[size_t(s)])];
        out[size_t(s)].insert(out[size_t(s)].end(), f.begin(), f.end());
        for (size_t c = 0; c < width; ++c) {
            int32_t& t = trie[size_t(s) * width + c];
            int32_t viaFail = trie[size_t(fail[size_t(s)]) * width + c];
            if (t < 0) {
                t = viaFail;
            } else {
                fail[size_t(t)] = viaFail;
                queue.push_back(t);
            }
        }
    }

    // Renumber: states without keywords first (the root stays 0), so that "a keyword ends
    // here" is one compare.
    std::vector<uint32_t> number(states);
    uint32_t n = 0;
    for (int32_t s : order)
        if (out[size_t(s)].empty()) number[size_t(s)] = n++;
    matchFrom_ = n;
    for (int32_t s : order)
        if (!out[size_t(s)].empty()) number[size_t(s)] = n++;

    next_.assign(states * width, 0);
    outStart_.assign(states + 1, 0);
    std::vector<int32_t> byNumber(states);
    for (size_t s = 0; s < states; ++s) byNumber[number[s]] = int32_t(s);
    for (size_t s = 0; s < states; ++s)
        for (size_t c = 0; c < width; ++c)
            next_[number[s] * width + c] = number[size_t(trie[s * width + c])] << shift_;
    for (uint32_t i = 0; i < states; ++i) {
        auto& o = out[size_t(byNumber[i])];
        outStart_[i] = uint32_t(outputs_.size());
        outputs_.insert(outputs_.end(), o.begin(), o.end());
    }
    outStart_[states] = uint32_t(outputs_.size());
}

// The stretch, and per keyword the position at which its next find may start.
struct KeywordAutomaton::FindState {
    const unsigned char* text;
    int64_t n;
    std::vector<int64_t> resume;
    std::vector<KeywordFind>& finds;
};

inline void KeywordAutomaton::Report(FindState& f, int64_t end, uint32_t state) const {
    const uint32_t id = state >> shift_;
    for (uint32_t o = outStart_[id]; o < outStart_[id + 1]; ++o) {
        const uint32_t k = outputs_[o];
        const int64_t start = end - lengths_[k];
        if (start < f.resume[k]) continue;
        f.resume[k] = end + 1; // the search goes on one character behind the find
        // The boundary test: both neighbours below "A", except that a find at either end of
        // the stretch is coloured without looking at the other side.
        if (start == 0 || end == f.n || (f.text[end] < 65 && f.text[start - 1] < 65))
            f.finds.push_back({start, ids_[k]});
    }
}

bool KeywordAutomaton::FindAll(std::string_view s, std::vector<KeywordFind>& finds,
                               const ScanTick& tick) const {
    if (lengths_.empty()) return true;
    FindState f{reinterpret_cast<const unsigned char*>(s.data()), int64_t(s.size()),
                std::vector<int64_t>(lengths_.size(), 0), finds};
    const uint32_t* next = next_.data();
    const uint8_t* cls = classOf_;
    const uint32_t matchFrom = matchFrom_ << shift_;

    // Short stretches (a line) in one run. Long ones in blocks, each cut into four lanes that
    // step through the automaton side by side: a step waits on the previous step's load, so
    // independent lanes keep the processor busy. A lane starts from the root a keyword's
    // length early, which gives it the right state at its first own position; the places it
    // records are then taken lane by lane, so that the rules see them in text order.
    constexpr int64_t kShort = 16 << 10, kBlock = 64 << 10, kLanes = 4;
    if (f.n <= kShort) {
        uint32_t state = 0;
        for (int64_t i = 0; i < f.n; ++i) {
            state = next[state + cls[f.text[i]]];
            if (state >= matchFrom) [[unlikely]]
                Report(f, i + 1, state);
        }
        return !tick || tick(f.n);
    }
    const int64_t warm = *std::max_element(lengths_.begin(), lengths_.end()) - 1;
    std::vector<uint64_t> hits(size_t(kLanes * (kBlock / kLanes + warm + 1)));
    for (int64_t b = 0; b < f.n; b += kBlock) {
        const int64_t e = std::min(f.n, b + kBlock), part = (e - b + kLanes - 1) / kLanes;
        int64_t from[kLanes], own[kLanes], to[kLanes];
        uint64_t* out[kLanes];
        for (int k = 0; k < kLanes; ++k) {
            own[k] = std::min(e, b + k * part);
            to[k] = std::min(e, own[k] + part);
            from[k] = std::max<int64_t>(0, own[k] - warm);
            out[k] = hits.data() + k * (part + warm + 1);
        }
        // A place is recorded as the end of what matched (from base) and the state, written
        // always and kept only when a keyword ends there, so the loop has no branch.
        const int64_t base = from[0];
        uint64_t* w[kLanes];
        uint32_t st[kLanes] = {};
        std::copy(out, out + kLanes, w);
        auto step = [&](int k, int64_t i) {
            st[k] = next[st[k] + cls[f.text[i]]];
            *w[k] = (uint64_t(st[k]) << 32) | uint64_t(i + 1 - base);
            w[k] += st[k] >= matchFrom;
        };
        int64_t common = to[0] - from[0];
        for (int k = 1; k < kLanes; ++k) common = std::min(common, to[k] - from[k]);
        for (int64_t i = 0; i < common; ++i)
            for (int k = 0; k < kLanes; ++k) step(k, from[k] + i);
        for (int k = 0; k < kLanes; ++k)
            for (int64_t i = from[k] + common; i < to[k]; ++i) step(k, i);
        for (int k = 0; k < kLanes; ++k)
            for (const uint64_t* h = out[k]; h < w[k]; ++h) {
                const int64_t end = base + int64_t(*h & 0xFFFFFFFFu);
                if (end > own[k]) Report(f, end, uint32_t(*h >> 32));
            }
        if (tick && !tick(e - b)) return false;
    }
    return true;
}

// The first position from i on whose byte leaves the root state, or n.
int64_t KeywordAutomaton::NextStarter(const unsigned char* text, int64_t i, int64_t n) const {
    if (starterCount_ == 1) {
        const void* hit = std::memchr(text + i, starters_[0], size_t(n - i));
        return hit ? static_cast<const unsigned char*>(hit) - text : n;
    }
#if defined(__SSE2__)
    __m128i want[kStarters];
    for (int k = 0; k < kStarters; ++k)
        want[k] = _mm_set1_epi8(char(starters_[k < starterCount_ ? k : 0]));
    for (; i + 16 <= n; i += 16) {
        const __m128i x = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text + i));
        __m128i any =
            _mm_or_si128(_mm_or_si128(_mm_cmpeq_epi8(x, want[0]), _mm_cmpeq_epi8(x, want[1])),
                         _mm_or_si128(_mm_cmpeq_epi8(x, want[2]), _mm_cmpeq_epi8(x, want[3])));
        if (unsigned mask = unsigned(_mm_movemask_epi8(any))) return i + __builtin_ctz(mask);
    }
#endif
    for (; i < n; ++i)
        if (std::find(starters_, starters_ + starterCount_, text[i]) != starters_ + starterCount_)
            return i;
    return n;
}

bool KeywordAutomaton::FindSparse(std::string_view s, std::vector<KeywordFind>& finds,
                                  const ScanTick& tick) const {
    if (starterCount_ == 0) return FindAll(s, finds, tick);
    if (lengths_.empty()) return true;
    FindState f{reinterpret_cast<const unsigned char*>(s.data()), int64_t(s.size()),
                std::vector<int64_t>(lengths_.size(), 0), finds};
    const uint32_t* next = next_.data();
    const uint32_t matchFrom = matchFrom_ << shift_;
    constexpr int64_t kBlock = 256 << 10;
    uint32_t state = 0;
    for (int64_t b = 0; b < f.n; b += kBlock) {
        const int64_t e = std::min(f.n, b + kBlock);
        for (int64_t i = b; i < e; ++i) {
            if (state == 0 && (i = NextStarter(f.text, i, e)) == e) break;
            state = next[state + classOf_[f.text[i]]];
            if (state >= matchFrom) Report(f, i + 1, state);
        }
        if (tick && !tick(e - b)) return false;
    }
    return true;
}
