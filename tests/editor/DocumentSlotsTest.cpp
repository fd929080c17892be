#include "editor/core/DocumentSlots.h"

#include <gtest/gtest.h>

TEST(DocumentSlots, LowestFreeSlotWinsAndNothingGoesBack) {
    DocumentSlots t;
    EXPECT_EQ(t.UpperBound(), 1);
    EXPECT_EQ(t.FindFreeIndex(), 1);
    EXPECT_EQ(t.FindFreeIndex(), 2);
    EXPECT_EQ(t.FindFreeIndex(), 3);
    t.Release(2);
    EXPECT_TRUE(t.IsFree(2));
    EXPECT_EQ(t.FindFreeIndex(), 2);
    t.Release(1);
    t.Release(3);
    EXPECT_EQ(t.FindFreeIndex(), 1);
    EXPECT_EQ(t.UpperBound(), 3);
    EXPECT_EQ(t.FindFreeIndex(), 3);
    EXPECT_EQ(t.FindFreeIndex(), 4);
    // Slots taken and given back leave the file counter alone: the next new document is
    // "Untitled 1", the one after it "Untitled 2".
    EXPECT_EQ(t.NextFileNumber(), 1);
    t.Release(4);
    EXPECT_EQ(t.NextFileNumber(), 2);
}
