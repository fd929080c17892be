#pragma once
// The bookkeeping half of the table of document windows: which slots are free, and how many
// documents have been made since the start. Slots are numbered from 1 and never go away.
#include <cstddef>
#include <cstdint>
#include <vector>

class DocumentSlots {
  public:
    DocumentSlots() : free_(1, true) {}

    // Claims the lowest free slot, or grows the table by one.
    int FindFreeIndex();
    void Release(int index);
    bool IsFree(int index) const { return free_.at(size_t(index - 1)); }
    int UpperBound() const { return int(free_.size()); }
    // Counts every new document ("Untitled n" takes this number); it never goes back.
    int32_t NextFileNumber() { return ++FileCounter; }

    int32_t FileCounter = 0;

  private:
    std::vector<bool> free_;
};
