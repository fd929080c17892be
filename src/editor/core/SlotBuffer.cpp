#include "editor/core/SlotBuffer.h"

#include "base/MiscSubs.h"

#include <algorithm>
#include <cstring>

SlotBuffer::SlotBuffer(int64_t base, int64_t reserve) : base_(std::max<int64_t>(base, 0)) {
    if (reserve <= 0) return;
    // A whole document's slots are written once each: huge pages spare a fault per 4 KB.
    slots_.reserve(size_t(reserve));
    AdviseHugePages(slots_.data(), slots_.capacity());
}

void SlotBuffer::Paint(int64_t start, int64_t length, ColorSlot slot) {
    if (start < 0) length += start, start = 0;
    if (length <= 0) return;
    if (slots_.empty()) base_ = start;
    if (start < base_) {
        slots_.insert(slots_.begin(), size_t(base_ - start), kNotPainted);
        base_ = start;
    }
    int64_t end = start + length - base_;
    if (const int64_t old = Size(); end > old) {
        // Grow geometrically so that a run of paints behind the window stays linear.
        if (size_t(end) > slots_.capacity())
            slots_.reserve(std::max(size_t(end), slots_.capacity() * 2));
        if (start - base_ <= old) {
            // Nothing is left unpainted: the new part is made with the slot (a whole
            // document painted as text goes over its bytes once).
            slots_.resize(size_t(end), uint8_t(slot));
            std::memset(slots_.data() + (start - base_), int(slot), size_t(old - (start - base_)));
            return;
        }
        slots_.resize(size_t(end), kNotPainted);
    }
    std::memset(slots_.data() + (start - base_), int(slot), size_t(length));
}

uint8_t* SlotBuffer::Direct(int64_t start, int64_t length) {
    const int64_t i = start - base_;
    return i >= 0 && length >= 0 && i + length <= Size() ? slots_.data() + i : nullptr;
}

void PaintTarget::Finished(int64_t start, const uint8_t* slots, int64_t length) {
    for (int64_t i = 0, end; i < length; i = end) {
        for (end = i + 1; end < length && slots[end] == slots[i];) ++end;
        Paint(start + i, end - i, ColorSlot(slots[i]));
    }
}

uint8_t* SlotBuffer::Stretch(int64_t start, int64_t length) {
    Paint(start, length, ColorSlot::Text);
    return Direct(start, length);
}

void SlotBuffer::Finished(int64_t start, const uint8_t* slots, int64_t length) {
    if (slots != Direct(start, length)) PaintTarget::Finished(start, slots, length);
}

uint8_t SlotBuffer::At(int64_t pos) const {
    int64_t i = pos - base_;
    return i >= 0 && i < Size() ? slots_[size_t(i)] : kNotPainted;
}

int64_t SlotBuffer::RunEnd(int64_t i) const {
    const uint8_t* p = slots_.data();
    int64_t n = Size();
    uint8_t v = p[i++];
    // Eight bytes at a time while the run goes on: a whole-document pass has long runs.
    const uint64_t pattern = 0x0101010101010101ull * v;
    while (i + 8 <= n) {
        uint64_t w;
        std::memcpy(&w, p + i, 8);
        if (w != pattern) break;
        i += 8;
    }
    while (i < n && p[i] == v) ++i;
    return i;
}

std::vector<SlotBuffer::Run> SlotBuffer::Runs() const {
    std::vector<Run> runs;
    ForEachRun([&](int64_t s, int64_t l, ColorSlot c) { runs.push_back({s, l, c}); });
    return runs;
}

std::vector<uint8_t> SlotBuffer::TakeBytes() {
    std::vector<uint8_t> bytes = std::move(slots_);
    slots_.clear();
    return bytes;
}
