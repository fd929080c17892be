#include "tools/core/CaptureTail.h"

#include <cstdio>
#include <memory>

namespace {
constexpr std::size_t kHeadSize = 64;

struct FileCloser {
    void operator()(std::FILE* f) const { std::fclose(f); }
};

bool ReadAt(std::FILE* f, std::size_t at, std::size_t n, std::string& out) {
    out.resize(n);
    if (n == 0) return true;
    if (std::fseek(f, static_cast<long>(at), SEEK_SET) != 0) return false;
    out.resize(std::fread(out.data(), 1, n, f));
    return !std::ferror(f);
}
} // namespace

CaptureTail::Update CaptureTail::Poll(std::size_t maxBytes) {
    more_ = false;
    std::unique_ptr<std::FILE, FileCloser> f(std::fopen(path_.c_str(), "rb"));
    if (!f || std::fseek(f.get(), 0, SEEK_END) != 0) {
        synced_ = false;
        return {Kind::Failed, {}};
    }
    long end = std::ftell(f.get());
    if (end < 0) {
        synced_ = false;
        return {Kind::Failed, {}};
    }
    const auto size = static_cast<std::size_t>(end);
    bool rewritten = !synced_ || size < offset_;
    if (!rewritten && !head_.empty()) {
        std::string head;
        if (!ReadAt(f.get(), 0, head_.size(), head)) return synced_ = false, Update{Kind::Failed, {}};
        rewritten = head != head_;
    }
    std::size_t from = rewritten ? 0 : offset_;
    if (!rewritten && from == size) return {};
    std::size_t n = size - from;
    if (n > maxBytes) {
        n = maxBytes;
        more_ = true;
    }
    Update u{rewritten ? Kind::Replace : Kind::Append, {}};
    if (!ReadAt(f.get(), from, n, u.bytes)) {
        synced_ = false;
        more_ = false;
        return {Kind::Failed, {}};
    }
    offset_ = from + u.bytes.size();
    if (rewritten) head_.clear();
    if (head_.size() < kHeadSize && from == head_.size())
        head_ += u.bytes.substr(0, kHeadSize - head_.size());
    synced_ = true;
    return u;
}
