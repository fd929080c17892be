#include "tools/core/LineIndex.h"

#include "base/MiscSubs.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <new>

namespace {
// Blocks from this size on are laid on huge pages: the first write of fresh memory otherwise
// faults every 4 KB, which for the index of a million lines takes longer than reading them.
constexpr std::size_t kHugeBlock = std::size_t(4) << 20;
constexpr std::align_val_t kHugeAlign{std::size_t(2) << 20};
} // namespace

void LineIndex::Free::operator()(std::uint64_t* p) const {
    if (aligned)
        ::operator delete(p, kHugeAlign);
    else
        ::operator delete(p);
}

LineIndex::Block LineIndex::NewBlock(std::size_t entries) {
    const std::size_t bytes = entries * sizeof(std::uint64_t);
    if (bytes < kHugeBlock)
        return Block(static_cast<std::uint64_t*>(::operator new(bytes)), {false});
    Block b(static_cast<std::uint64_t*>(::operator new(bytes, kHugeAlign)), {true});
    AdviseHugePages(b.get(), bytes);
    return b;
}

std::uint64_t& LineIndex::At(std::size_t entry) const {
    // Block k begins at entry kFirst * (2^k - 1).
    const std::size_t q = entry / kFirst + 1;
    const auto k = std::size_t(std::bit_width(q) - 1);
    return blocks_[k][entry - kFirst * ((std::size_t(1) << k) - 1)];
}

void LineIndex::Push(std::uint64_t start) {
    const std::size_t entry = count_ - 1;
    if (entry == kFirst * ((std::size_t(1) << blocks_.size()) - 1))
        blocks_.push_back(NewBlock(kFirst << blocks_.size()));
    At(entry) = start;
    ++count_;
}

void LineIndex::Append(std::string_view bytes) {
    const char* const begin = bytes.data();
    const char* const end = begin + bytes.size();
    for (const char* p = begin; p < end;) {
        const char* nl = static_cast<const char*>(std::memchr(p, '\n', std::size_t(end - p)));
        if (!nl) break;
        const std::uint64_t at = size_ + std::uint64_t(nl - begin);
        longestEnded_ = std::max(longestEnded_, at - last_);
        last_ = at + 1;
        Push(last_);
        p = nl + 1;
    }
    size_ += bytes.size();
}

void LineIndex::Clear() {
    blocks_.clear();
    count_ = 1;
    size_ = last_ = longestEnded_ = 0;
}

std::uint64_t LineIndex::Start(std::size_t line) const {
    if (line == 0) return 0;
    if (line >= count_) return size_;
    return At(line - 1);
}

std::uint64_t LineIndex::End(std::size_t line) const {
    return line + 1 < count_ ? Start(line + 1) - 1 : size_;
}

std::size_t LineIndex::LineOf(std::uint64_t pos) const {
    // The first line that begins after pos, by halving; the one before it holds pos.
    std::size_t lo = 1, hi = count_;
    while (lo < hi) {
        const std::size_t mid = lo + (hi - lo) / 2;
        if (Start(mid) <= pos)
            lo = mid + 1;
        else
            hi = mid;
    }
    return lo - 1;
}

std::uint64_t LineIndex::longest() const {
    return std::max(longestEnded_, size_ - last_);
}
