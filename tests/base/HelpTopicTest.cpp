#include "base/HelpTopic.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <sys/stat.h>

namespace fs = std::filesystem;

TEST(HelpFrameset, TheExactPageAndFailureText) {
    EXPECT_EQ(HelpFrameset("util_editor_options"),
              "<HTML><FRAMESET COLS=\"100%\" ROWS=\"32,*\"><FRAME NAME=\"Header\" "
              "SRC=\"header.htm\" SCROLLING=\"NO\" NORESIZE><FRAMESET COLS=\"240,*\"><FRAME "
              "NAME=\"Nav\" SRC=\"index.htm\" SCROLLING=\"AUTO\"><FRAME NAME=\"Main\" "
              "SRC=\"util_editor_options.htm\" SCROLLING=\"AUTO\"></FRAMESET></FRAMESET></HTML>");
    EXPECT_EQ(HelpWriteFailureText("Permission denied"),
              "Kestrum's help system was unable to generate an index file (help.htm). Please "
              "ensure that the 'Help' subdirectory exists, and that it is not write-protected."
              "\r\n\r\nError : Permission denied");
}

TEST(HelpFrameset, TopicTextCannotBreakTheAttribute) {
    struct Case {
        const char* topic;
        const char* src;
    };
    for (auto c : std::vector<Case>{{"", "SRC=\".htm\""},
                                    {"a\"b", "SRC=\"a&quot;b.htm\""},
                                    {"x&y", "SRC=\"x&amp;y.htm\""}}) {
        std::string page = HelpFrameset(c.topic);
        EXPECT_NE(page.find(c.src), std::string::npos) << c.topic << ": " << page;
        EXPECT_EQ(page.find('\n'), std::string::npos);
    }
}

namespace {
struct HelpFolderTest : ::testing::Test {
    TempDir dir;
    std::vector<std::string> HelpFolderEntries() const {
        std::vector<std::string> names;
        for (auto& e : fs::directory_iterator(dir.file("Help")))
            names.push_back(e.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }
};
} // namespace

TEST_F(HelpFolderTest, WritesTheFramesetAsTheOnlyLineAndReplacesIt) {
    ASSERT_EQ(::mkdir(dir.file("Help").c_str(), 0755), 0);
    auto first = WriteHelpFrameset(dir.path(), "basic_editing");
    ASSERT_TRUE(first.ok) << first.error;
    EXPECT_EQ(ReadFileBytes(dir.file("Help/help.htm")), HelpFrameset("basic_editing") + "\n");

    // A longer old file must not leave a tail behind the new, shorter line.
    dir.write("Help/help.htm", std::string(4000, 'x'));
    auto second = WriteHelpFrameset(dir.path(), "file_change_dir");
    ASSERT_TRUE(second.ok) << second.error;
    EXPECT_EQ(ReadFileBytes(dir.file("Help/help.htm")), HelpFrameset("file_change_dir") + "\n");
    EXPECT_EQ(HelpFolderEntries(), std::vector<std::string>{"help.htm"});
}

// A missing Help folder is not created; a folder where the file belongs cannot be replaced by
// a file, whoever runs the test, and no temporary file is left beside it.
TEST_F(HelpFolderTest, FailuresAreReportedAndLeaveTheFolderAsItWas) {
    auto missing = WriteHelpFrameset(dir.path(), "basic_editing");
    EXPECT_FALSE(missing.ok);
    EXPECT_EQ(missing.error, std::strerror(ENOENT));
    EXPECT_FALSE(FileExists(dir.file("Help")));

    ASSERT_EQ(::mkdir(dir.file("Help").c_str(), 0755), 0);
    ASSERT_EQ(::mkdir(dir.file("Help/help.htm").c_str(), 0755), 0);
    auto r = WriteHelpFrameset(dir.path(), "basic_editing");
    EXPECT_FALSE(r.ok);
    EXPECT_FALSE(r.error.empty());
    EXPECT_TRUE(fs::is_directory(dir.file("Help/help.htm")));
    EXPECT_EQ(HelpFolderEntries(), std::vector<std::string>{"help.htm"});
}
