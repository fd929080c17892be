#include "app/core/WorkspaceFile.h"

#include <gtest/gtest.h>

namespace {

using Entries = std::vector<WorkspaceEntry>;

TEST(WorkspaceFile, RoundTripsKeepEveryByte) {
    const std::vector<Entries> cases = {
        {{"a.c", "/src/a.c"}, {"a.c", "/src/a.c"}}, // the same file twice stays twice
        {{"Untitled 3", ""}, {"b.h", "/x/b.h"}},    // an untitled document: empty path line
        {{"caf\xe9.txt", "/d/caf\xe9.txt"}},        // bytes that are not UTF-8
    };
    for (const Entries& e : cases) {
        std::string bytes = WriteWorkspace(e);
        WorkspaceRead r = ReadWorkspace(bytes);
        EXPECT_EQ(r.entries, e) << bytes;
        EXPECT_FALSE(r.error) << bytes;
    }
}

TEST(WorkspaceFile, ReadsOddShapes) {
    struct Case {
        const char* name;
        std::string bytes;
        Entries entries;
        bool error;
    };
    const std::vector<Case> cases = {
        {"empty file fails at once", "", {}, true},
        {"odd count fails after the last whole pair", "a\r\n/a\r\nb\r\n", {{"a", "/a"}}, true},
        {"no line end after the last path", "a\r\n/a", {{"a", "/a"}}, false},
        {"CR-only line ends", "a\r/a\rb\r/b\r", {{"a", "/a"}, {"b", "/b"}}, false},
        {"blank lines are pairs too", "\r\n\r\n", {{"", ""}}, false},
        {"binary bytes pass through",
         std::string("\0\x01\r\n\xff", 5),
         {{std::string("\0\x01", 2), "\xff"}},
         false},
    };
    for (const Case& c : cases) {
        WorkspaceRead r = ReadWorkspace(c.bytes);
        EXPECT_EQ(r.entries, c.entries) << c.name;
        EXPECT_EQ(r.error.has_value(), c.error) << c.name;
    }
}

TEST(WorkspaceFile, OnlyUpperCaseExtensionNamesAWorkspace) {
    const std::vector<std::pair<const char*, bool>> cases = {
        {"/p/x.KWS", true}, {"x.kws", false}, {"x.Kws", false},
        {"KWS", false},     {".KWS", true},   {"x.KWS.txt", false},
    };
    for (auto [name, yes] : cases) EXPECT_EQ(IsWorkspaceName(name), yes) << name;
}

} // namespace
