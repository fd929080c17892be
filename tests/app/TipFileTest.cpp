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
             {"one\rtwo\r\n", {"one", "two"}},         // a lone CR ends a line too
             {"one\n\nthree\n", {"one", "", "three"}}, // an empty line in between is a tip
             {"a\n\rb", {"a", "", "b"}},               // LF then CR: two line ends
             {std::string("x\0y\n", 4), {std::string("x\0y", 3)}}})
        EXPECT_EQ(SplitTipLines(c.text), c.tips) << testing::PrintToString(c.text);
}

// No file, or a folder in its place, loads nothing; an empty file loads but has no tip.
TEST(TipOfTheDay, NoFileOrAnEmptyOneShowsNoTip) {
    TempDir dir;
    ASSERT_EQ(::mkdir(dir.file("folder.dat").c_str(), 0755), 0);
    struct Case {
        std::string name;
        bool loads;
        std::size_t number;
    };
    for (const Case& c : std::vector<Case>{{dir.file("missing.dat"), false, 0},
                                           {dir.file("folder.dat"), false, 0},
                                           {dir.write("empty.dat", ""), true, 1}}) {
        TipOfTheDay tips;
        EXPECT_EQ(tips.LoadTips(c.name), c.loads) << c.name;
        EXPECT_EQ(tips.Count(), 0u) << c.name;
        EXPECT_EQ(tips.CurrentNumber(), c.number) << c.name;
        EXPECT_EQ(tips.CurrentTip(), std::nullopt) << c.name;
        tips.DoNextTip();
        EXPECT_EQ(tips.CurrentTip(), std::nullopt) << c.name;
    }
}
