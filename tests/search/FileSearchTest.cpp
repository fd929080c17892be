#include "search/core/FileSearch.h"

#include "support/TempDir.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sys/stat.h>

namespace {

TEST(FileFilter, PatternsAcceptNames) {
    struct {
        const char *filter, *name;
        bool expected;
    } cases[] = {
        {"*.*", "Makefile", true},  {"", "x.c", true},
        {"*.c;*.h", "a.cc", false}, {" *.c ; *.h ", "b.c", true},
        {"a?.txt", "a.txt", false}, {"*.C", "x.c", false},
        {";;", "x", true},          {"*rc", ".bashrc", true},
    };
    for (const auto& c : cases)
        EXPECT_EQ(FilterAccepts(SplitFilter(c.filter), c.name), c.expected)
            << c.filter << " / " << c.name;
}

TEST(SearchBuffer, GivesLineColumnAndLineText) {
    struct Hit {
        int64_t line, column;
        std::string text;
        bool operator==(const Hit&) const = default;
    };
    struct {
        const char* name;
        std::string bytes, find;
        FileSearchOptions options;
        std::vector<Hit> expected;
        bool text = true;
    } cases[] = {
        {"Lines", "one\ntwo foo\nfoo", "foo", {}, {{2, 5, "two foo"}, {3, 1, "foo"}}},
        {"CrLfDropped", "a\r\nxFoo\r\n", "foo", {}, {{2, 2, "xFoo"}}},
        {"MatchCase", "Foo foo", "foo", {true, false, "*.*"}, {{1, 5, "Foo foo"}}},
        {"WholeWord", "foox foo", "foo", {false, true, "*.*"}, {{1, 6, "foox foo"}}},
        {"Overlapping", "aaa", "aa", {}, {{1, 1, "aaa"}, {1, 2, "aaa"}}},
        {"Binary", std::string("foo\0", 4), "foo", {}, {}, false},
        {"NulPast8K", std::string(9000, 'x') + std::string("\0foo", 4), "foo", {}, {{1, 9002, ""}}},
    };
    for (const auto& c : cases) {
        std::vector<Hit> got;
        bool text = SearchBuffer(c.bytes, c.find, c.options,
                                 [&](int64_t l, int64_t col, std::string_view t) {
                                     got.push_back({l, col, std::string(t)});
                                 });
        EXPECT_EQ(text, c.text) << c.name;
        // An empty expected text leaves the line's text unchecked.
        for (size_t i = 0; i < std::min(got.size(), c.expected.size()); ++i)
            if (c.expected[i].text.empty()) got[i].text.clear();
        EXPECT_EQ(got, c.expected) << c.name;
    }
}

TEST(SearchBuffer, AHugeLineIsShownRoundItsMatch) {
    std::string bytes = std::string(3'000'000, 'x') + "needle" + std::string(3'000'000, 'y');
    std::string shown;
    SearchBuffer(bytes, "needle", {}, [&](int64_t, int64_t col, std::string_view t) {
        EXPECT_EQ(col, 3'000'001);
        shown = t;
    });
    EXPECT_NE(shown.find("needle"), std::string::npos);
    EXPECT_LT(shown.size(), 1000u);
}

std::vector<std::string> Search(const std::string& folder, const char* find,
                                const FileSearchOptions& options, bool* ok = nullptr) {
    std::vector<std::string> rows;
    std::string error;
    auto collect = [&](std::vector<FileMatch>&& ms) {
        for (auto& m : ms)
            rows.push_back(m.path + ":" + std::to_string(m.line) + ":" + std::to_string(m.column));
    };
    bool r = SearchFolder(folder, find, options, nullptr, collect, error);
    if (ok) *ok = r;
    std::sort(rows.begin(), rows.end());
    return rows;
}

TEST(SearchFolder, WalksTheTreeSkippingWhatItCannotSearch) {
    TempDir dir;
    namespace fs = std::filesystem;
    fs::create_directories(dir.file("sub/deeper"));
    dir.write("a.c", "int foo;\n");
    dir.write("sub/b.h", "x\nfoo foo\n");
    dir.write("sub/deeper/c.txt", "foo\n");
    dir.write("bin.c", std::string("foo\0", 4));
    dir.write("locked.txt", "foo\n");
    chmod(dir.file("locked.txt").c_str(), 0);
    fs::create_directory_symlink(dir.path(), dir.file("sub/loop"));
    fs::create_symlink(dir.file("a.c"), dir.file("link.c"));
    const std::string root = dir.path().substr(0, dir.path().size() - 1); // as typed, no '/'

    bool ok = false;
    std::vector<std::string> expected = {root + "/a.c:1:5", root + "/sub/b.h:2:1",
                                         root + "/sub/b.h:2:5", root + "/sub/deeper/c.txt:1:1"};
    if (getuid() == 0) expected.insert(expected.begin() + 1, root + "/locked.txt:1:1");
    EXPECT_EQ(Search(root, "foo", {}, &ok), expected);
    EXPECT_TRUE(ok);
    expected = {root + "/a.c:1:5", root + "/sub/b.h:2:1", root + "/sub/b.h:2:5"};
    EXPECT_EQ(Search(dir.path(), "foo", {false, false, "*.c;*.h"}), expected)
        << "a folder given with its '/' gets no second one";
    EXPECT_TRUE(Search(root, "", {}).empty());

    Search(dir.file("missing"), "foo", {}, &ok);
    EXPECT_FALSE(ok);
    Search(dir.file("a.c"), "foo", {}, &ok);
    EXPECT_FALSE(ok) << "a file is no folder";
    chmod(dir.file("locked.txt").c_str(), 0644);
}

TEST(SearchFolder, StopEndsTheWalk) {
    TempDir dir;
    for (int i = 0; i < 20; ++i) dir.write("f" + std::to_string(i), "hit\n");
    std::atomic<bool> stop{false};
    int files = 0;
    std::string error;
    auto collect = [&](std::vector<FileMatch>&&) {
        ++files;
        stop = true;
    };
    SearchFolder(dir.path(), "hit", {}, &stop, collect, error);
    EXPECT_EQ(files, 1);
}

} // namespace
