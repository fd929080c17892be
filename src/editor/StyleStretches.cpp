#include "editor/StyleStretches.h"

#include "editor/RichEdit.h"

#include <cstring>
#include <string_view>

StyleStretches::StyleStretches(RichEdit& edit, int64_t base, int64_t length, int64_t storeUpTo)
    : edit_(edit), base_(base) {
    // Room for the whole store at once: grown by doubling, the old and the new would be held
    // together at the last growth.
    if (length >= kStoreFrom && length <= storeUpTo) store_.reserve(size_t(length));
}

void StyleStretches::Paint(int64_t start, int64_t length, ColorSlot slot) {
    if (start >= 0 && length > 0 && start + length <= int64_t(store_.size()))
        std::memset(store_.data() + start, int(slot), size_t(length));
    else
        edit_.PaintRange(base_ + start, length, slot);
}

uint8_t* StyleStretches::Stretch(int64_t start, int64_t length) {
    // Stretches come in order: the store grows by each in turn, within its reserved room.
    if (start != int64_t(store_.size()) || start + length > int64_t(store_.capacity()))
        return nullptr;
    store_.resize(size_t(start + length), uint8_t(ColorSlot::Text));
    return store_.data() + start;
}

void StyleStretches::Finished(int64_t start, const uint8_t* bytes, int64_t length) {
    if (!store_.empty() && bytes == store_.data() + start) return;
    edit_.PaintStyles(base_ + start,
                      std::string_view(reinterpret_cast<const char*>(bytes), size_t(length)));
}

void StyleStretches::Apply() {
    if (!store_.empty()) edit_.DeferStyles(base_, std::move(store_));
    store_ = {};
}
