#include "base/MiscSubs.h"

#include <gtest/gtest.h>

TEST(MiscSubs, NextTokenCutsAtTheFirstSeparator) {
    std::string work = "for\xFFwhile\xFF";
    EXPECT_EQ(NextToken("\xFF", work), "for");
    EXPECT_EQ(work, "while\xFF");
    EXPECT_EQ(NextToken("\xFF", work), "while");
    EXPECT_EQ(work, "");
    work = "lastword"; // no separator behind it: nothing returned, work untouched
    EXPECT_EQ(NextToken("\xFF", work), "");
    EXPECT_EQ(work, "lastword");
    work = "a\r\nb";
    EXPECT_EQ(NextToken("\r\n", work), "a");
    EXPECT_EQ(work, "b");
}

TEST(MiscSubs, ReplaceTextNeverRescansInsertedText) {
    EXPECT_EQ(ReplaceText("aaa", "a", "aa"), "aaaaaa");
    EXPECT_EQ(ReplaceText("abab", "ab", "b"), "bb");
    EXPECT_EQ(ReplaceText("xyz", "", "q"), "xyz");
    EXPECT_EQ(ReplaceText("a\r\nb\r\n", "\r\n", "\n"), "a\nb\n");
    EXPECT_EQ(RemoveChar("a\rb\r", '\r'), "ab");
    EXPECT_EQ(Trim("  a b  "), "a b");
    EXPECT_EQ(Trim("\ta\t"), "\ta\t");
}
