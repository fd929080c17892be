#include "base/MiscSubs.h"
#include "base/TextCodec.h"
#include "support/TempDir.h"

#include <sys/stat.h>

#include <gtest/gtest.h>

TEST(MiscSubs, NextTokenCutsAtTheFirstSeparator) {
    std::string work = "for\xFFwhile\xFF";
    EXPECT_EQ(NextToken("\xFF", work), "for");
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
    EXPECT_EQ(RemoveChar("a\rb\r", '\r'), "ab");
    EXPECT_EQ(Trim("  a b  "), "a b");
    EXPECT_EQ(Trim("\ta\t"), "\ta\t");
}

// The whole-file reader takes a regular file in one piece; what it refuses is below.
TEST(MiscSubs, ReadWholeFileTakesARegularFileWhole) {
    TempDir tmp;
    std::string bytes, error;
    std::string big(300000, 'x');
    big[123456] = '\0';
    ASSERT_TRUE(ReadWholeFile(tmp.write("big", big), bytes, error));
    EXPECT_EQ(bytes, big);
    ASSERT_TRUE(ReadWholeFile(tmp.write("empty", ""), bytes, error));
    EXPECT_EQ(bytes, "");
}

// The one-pass reader gives what ToCrLf of the whole file gives, whatever falls on the edges
// of its reads; both refuse what is not a regular file (a reader would never reach its end),
// with the same reasons.
TEST(MiscSubs, ReadFileCrLfMatchesTheWholeFileConversion) {
    TempDir tmp;
    const struct {
        const char* name;
        std::string bytes;
        LineEndStyle style;
    } cases[] = {
        {"empty", "", LineEndStyle::Lf},
        {"lone cr last", "a\rb\r", LineEndStyle::Cr},
        // A CR as the last byte of a 256 KB read, its LF in the next read: one line end.
        {"pair split", std::string((256 << 10) - 1, 'x') + "\r\ny\r\n", LineEndStyle::CrLf},
        {"cr split", std::string((256 << 10) - 1, 'x') + "\ry", LineEndStyle::Cr},
        // Every byte a line end: the text outgrows the room reserved for it.
        {"all lf", std::string(3 << 20, '\n'), LineEndStyle::Lf},
    };
    for (const auto& c : cases) {
        std::string text = "left over", error;
        LineEndStyle style = LineEndStyle::CrLf;
        ASSERT_TRUE(ReadFileCrLf(tmp.write(c.name, c.bytes), text, error, &style)) << c.name;
        EXPECT_EQ(text, ToCrLf(c.bytes)) << c.name;
        EXPECT_EQ(style, c.style) << c.name;
    }
    std::string fifo = tmp.file("fifo");
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    for (const std::string& refused :
         {fifo, std::string("/dev/zero"), tmp.path(), tmp.file("missing")}) {
        std::string text, error, wholeError, bytes;
        EXPECT_FALSE(ReadFileCrLf(refused, text, error)) << refused;
        EXPECT_FALSE(ReadWholeFile(refused, bytes, wholeError));
        EXPECT_FALSE(error.empty()) << refused;
        EXPECT_EQ(error, wholeError) << refused;
    }
}
