#include "editor/core/DocumentSlots.h"

int DocumentSlots::FindFreeIndex() {
    for (size_t i = 0; i < free_.size(); ++i) {
        if (free_[i]) {
            free_[i] = false;
            return int(i + 1);
        }
    }
    free_.push_back(false);
    return int(free_.size());
}

void DocumentSlots::Release(int index) {
    if (index >= 1 && size_t(index) <= free_.size()) free_[size_t(index - 1)] = true;
}
