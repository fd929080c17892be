#include "editor/core/DocumentSlots.h"

#include <gtest/gtest.h>

TEST(DocumentSlots, LowestFreeSlotWinsAndTheTableNeverShrinks) {
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
}

TEST(DocumentSlots, FileCounterOnlyGrows) {
    DocumentSlots t;
    for (int i = 1; i <= 3; ++i) {
        EXPECT_EQ(t.NextFileNumber(), i);
        t.Release(t.FindFreeIndex());
    }
    EXPECT_EQ(t.NextFileNumber(), 4); // three documents opened and closed: "Untitled 4"
}
