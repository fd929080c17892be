#include "editor/core/KeywordMatcher.h"

#include "app/core/EditorSettings.h"
#include "transforms/core/MiscSubs.h"

#include <algorithm>
#include <deque>
#include <map>

std::vector<KeywordToken> ReadKeywordList(std::string_view list) {
    std::vector<KeywordToken> tokens;
    if (list.empty()) return tokens;
    int counter = 0;
    do {
        // A token is what stands before the next separator; without one there is none.
        std::string_view token;
        if (auto p = list.find(kKeywordSeparator); p != std::string_view::npos) {
            token = list.substr(0, p);
            list.remove_prefix(p + 1);
        }
        token = Trim(token);
        tokens.push_back({++counter, std::string(token)});
        if (token.empty()) break;
    } while (!Trim(list).empty());
    return tokens;
}

KeywordMatcher::KeywordMatcher(const std::vector<std::string_view>& lists, bool caseSensitive)
    : caseSensitive_(caseSensitive) {
    // Equal keywords (equal after folding, when case does not count) find the same places;
    // they share one pattern, painted by the last entry in order.
    std::map<std::string, int> index;
    std::vector<std::string> patterns;
    for (int l = 0; l < int(lists.size()); ++l) {
        for (auto& t : ReadKeywordList(lists[size_t(l)])) {
            int pattern = -1;
            if (!t.keyword.empty()) {
                std::string key = t.keyword;
                if (!caseSensitive_)
                    for (char& c : key) c = char(FoldAscii(static_cast<unsigned char>(c)));
                auto [it, added] = index.try_emplace(key, int(patterns.size()));
                if (added) patterns.push_back(key);
                pattern = it->second;
            }
            entries_.push_back({l, t.counter, pattern, false});
        }
    }
    std::vector<bool> seen(patterns.size());
    for (auto e = entries_.rbegin(); e != entries_.rend(); ++e)
        if (e->pattern >= 0 && !seen[size_t(e->pattern)])
            e->paints = seen[size_t(e->pattern)] = true;
    for (auto& p : patterns) lengths_.push_back(int64_t(p.size()));
    Build(patterns);
}

void KeywordMatcher::Build(const std::vector<std::string>& patterns) {
    // Byte classes: every byte that occurs in a keyword gets a class of its own, all others
    // share class 0. Folding is put into the class table, so the scan never folds.
    int classes = 1;
    for (auto& p : patterns)
        for (unsigned char c : p)
            if (!classOf_[c]) classOf_[c] = uint8_t(classes++);
    if (!caseSensitive_)
        for (int c = 'A'; c <= 'Z'; ++c) classOf_[c] = classOf_[c + 32];
    while ((1 << shift_) < classes) ++shift_;
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

    // Renumber: states without keywords first, so that "a keyword ends here" is one compare.
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
struct KeywordMatcher::FindState {
    const unsigned char* text;
    int64_t n;
    std::vector<int64_t> resume;
    std::vector<KeywordFind>& finds;
};

inline void KeywordMatcher::Report(FindState& f, int64_t end, uint32_t state) const {
    const uint32_t id = state >> shift_;
    for (uint32_t o = outStart_[id]; o < outStart_[id + 1]; ++o) {
        const uint32_t k = outputs_[o];
        const int64_t start = end - lengths_[k];
        if (start < f.resume[k]) continue;
        f.resume[k] = end + 1; // the search goes on one character behind the find
        // The boundary test: both neighbours below "A", except that a find at either end of
        // the stretch is coloured without looking at the other side.
        if (start == 0 || end == f.n || (f.text[end] < 65 && f.text[start - 1] < 65))
            f.finds.push_back({start, k});
    }
}

bool KeywordMatcher::FindAll(std::string_view s, std::vector<KeywordFind>& finds,
                             const std::function<bool(int64_t)>& tick) const {
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

namespace {
struct CacheEntry {
    std::vector<std::string> lists;
    bool caseSensitive;
    std::shared_ptr<const KeywordMatcher> matcher;
};
} // namespace

std::shared_ptr<const KeywordMatcher>
SharedKeywordMatcher(const std::vector<std::string_view>& lists, bool caseSensitive) {
    // All painting runs on the one user-interface thread; the cache needs no lock.
    static std::vector<CacheEntry> cache; // most recently used last
    constexpr size_t kKept = 8;
    for (size_t i = 0; i < cache.size(); ++i) {
        auto& e = cache[i];
        if (e.caseSensitive != caseSensitive || e.lists.size() != lists.size() ||
            !std::equal(e.lists.begin(), e.lists.end(), lists.begin()))
            continue;
        auto hit = std::move(e);
        cache.erase(cache.begin() + ptrdiff_t(i));
        cache.push_back(std::move(hit));
        return cache.back().matcher;
    }
    auto matcher = std::make_shared<const KeywordMatcher>(lists, caseSensitive);
    if (cache.size() == kKept) cache.erase(cache.begin());
    cache.push_back({std::vector<std::string>(lists.begin(), lists.end()), caseSensitive, matcher});
    return matcher;
}
