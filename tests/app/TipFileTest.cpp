#include "app/core/TipFile.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

using Lines = std::vector<std::string>;

TEST(TipFile, LinesSplitAtEveryKindOfLineEnd) {
    struct Case {
        std::string text;
        Lines tips;
    };
    for (const auto& c : std::vector<Case>{
             {"", {}},
             {"one", {"one"}},
             {"one\ntwo\n", {"one", "two"}},
             {"one\r\ntwo", {"one", "two"}},
             {"one\rtwo\r\n", {"one", "two"}},         // a lone CR ends a line too
             {"one\n\nthree\n", {"one", "", "three"}}, // an empty line in between is a tip
             {"\n", {""}},
             {"one\r\n\r\n", {"one", ""}},
             {"a\n\rb", {"a", "", "b"}}, // LF then CR: two line ends
             {std::string("x\0y\n", 4), {std::string("x\0y", 3)}}})
        EXPECT_EQ(SplitTipLines(c.text), c.tips) << testing::PrintToString(c.text);
}

TEST(TipFile, NotFoundText) {
    EXPECT_EQ(TipFileNotFoundText(), "That the Kestrum.dat file was not found? ");
}

TEST(TipOfTheDay, StartsAtTheFirstTipAndWrapsBehindTheLast) {
    TempDir dir;
    std::string file = dir.write("Kestrum.dat", "first\r\nsecond\r\nthird\r\n");
    TipOfTheDay tips;
    EXPECT_EQ(tips.CurrentTip(), std::nullopt);
    ASSERT_TRUE(tips.LoadTips(file));
    EXPECT_EQ(tips.Count(), 3u);
    std::vector<std::string> shown;
    for (int i = 0; i < 5; ++i) {
        shown.push_back(tips.CurrentTip().value_or("<none>"));
        tips.DoNextTip();
    }
    EXPECT_EQ(shown, (Lines{"first", "second", "third", "first", "second"}));

    // Every showing of the window starts over at the file's first tip.
    TipOfTheDay again;
    ASSERT_TRUE(again.LoadTips(file));
    EXPECT_EQ(again.CurrentTip(), "first");
    EXPECT_EQ(again.CurrentNumber(), 1u);
}

TEST(TipOfTheDay, AnEmptyFileLoadsButShowsNothing) {
    TempDir dir;
    TipOfTheDay tips;
    ASSERT_TRUE(tips.LoadTips(dir.write("Kestrum.dat", "")));
    EXPECT_EQ(tips.Count(), 0u);
    EXPECT_EQ(tips.CurrentTip(), std::nullopt);
    tips.DoNextTip();
    EXPECT_EQ(tips.CurrentTip(), std::nullopt);
}

TEST(TipOfTheDay, NoFileMeansNoTips) {
    TempDir dir;
    ASSERT_EQ(::mkdir(dir.file("folder.dat").c_str(), 0755), 0);
    for (std::string name :
         {std::string(), dir.file("missing.dat"), dir.file("folder.dat"), dir.path()}) {
        TipOfTheDay tips;
        EXPECT_FALSE(tips.LoadTips(name)) << name;
        EXPECT_EQ(tips.Count(), 0u);
        EXPECT_EQ(tips.CurrentNumber(), 0u);
        EXPECT_EQ(tips.CurrentTip(), std::nullopt);
    }
}

TEST(TipOfTheDay, ASecondLoadAddsBehindAndMovesOn) {
    TipOfTheDay tips;
    tips.AddTips("a\nb\n");
    tips.AddTips("c\n");
    EXPECT_EQ(tips.Count(), 3u);
    EXPECT_EQ(tips.CurrentTip(), "b");
}
