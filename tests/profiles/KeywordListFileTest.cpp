#include "profiles/core/KeywordListFile.h"
#include "support/KeywordLists.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>

TEST(KeywordListFile, Import) {
    struct Case {
        const char* name;
        std::string file;
        KeywordImportRule rule;
        KeywordLists lists;
    };
    const auto O = KeywordImportRule::Options, C = KeywordImportRule::CreateProfile;
    const std::vector<Case> cases = {
        {"three lists",
         "if\r\nfor\r\n\\NL\\\r\nint\r\n\\NL\\\r\n#if\r\n\\NL\\\r\n",
         O,
         {KeywordList({"if", "for"}), KeywordList({"int"}), KeywordList({"#if"})}},
        {"empty file", "", O, {"", "", ""}},
        {"no list end loads into the first list",
         "a\r\nb\r\n",
         O,
         {KeywordList({"a", "b"}), "", ""}},
        {"fourth section goes on in the third",
         "a\r\n\\NL\\\r\nb\r\n\\NL\\\r\nc\r\n\\NL\\\r\nd\r\n\\NL\\\r\n",
         O,
         {KeywordList({"a"}), KeywordList({"b"}), KeywordList({"c", "d"})}},
        {"blank lines skipped, entries kept as they stand",
         "  \r\n\r\n  lead\r\ntab\t\r\n",
         O,
         {KeywordList({"  lead", "tab\t"}), "", ""}},
        {"list end is exact and case-sensitive",
         "\\nl\\\r\n \\NL\\\r\n\\NL\\ \r\n",
         O,
         {KeywordList({"\\nl\\", " \\NL\\", "\\NL\\ "}), "", ""}},
        {"a tilde is a keyword to the options dialog", "~x\r\n", O, {KeywordList({"~x"}), "", ""}},
        {"a tilde is a comment to the profile dialog",
         "  ~x\r\nx~\r\n",
         C,
         {KeywordList({"x~"}), "", ""}},
        {"the profile dialog keeps empty lines",
         "a\r\n\r\n  \r\n",
         C,
         {KeywordList({"a", "", "  "}), "", ""}},
        {"lone LF and CR end lines too", "a\nb\rc", O, {KeywordList({"a", "b", "c"}), "", ""}},
    };
    for (auto& c : cases) EXPECT_EQ(ParseKeywordListFile(c.file, c.rule), c.lists) << c.name;
}

TEST(KeywordListFile, ExportEndsEveryListAndReadsBack) {
    // An empty list is just its end; text behind the last separator is an entry of its own.
    const KeywordLists lists = {KeywordList({"if", "for"}), std::string("a\xFF") + "b", ""};
    const std::string file = "if\r\nfor\r\n\\NL\\\r\na\r\nb\r\n\\NL\\\r\n\\NL\\\r\n";
    EXPECT_EQ(FormatKeywordListFile(lists), file);

    TempDir dir;
    std::string error;
    ASSERT_TRUE(WriteKeywordListFile(dir.file("x.kwd"), lists, error)) << error;
    EXPECT_EQ(ReadFileBytes(dir.file("x.kwd")), file);
    KeywordLists back{"stale", "stale", "stale"};
    ASSERT_TRUE(ReadKeywordListFile(dir.file("x.kwd"), back, error)) << error;
    EXPECT_EQ(back, (KeywordLists{KeywordList({"if", "for"}), KeywordList({"a", "b"}), ""}));
}

TEST(KeywordListFile, FailuresClearTheListsAndSayWhy) {
    TempDir dir;
    // A missing file and a folder: the lists are cleared, never left half loaded.
    for (const std::string& path : {dir.file("missing.kwd"), dir.path()}) {
        KeywordLists lists{"a\xFF", "b\xFF", "c\xFF"};
        std::string error;
        EXPECT_FALSE(ReadKeywordListFile(path, lists, error)) << path;
        EXPECT_EQ(lists, (KeywordLists{"", "", ""})) << path;
        EXPECT_FALSE(error.empty()) << path;
    }
    std::string error;
    EXPECT_FALSE(WriteKeywordListFile(dir.file("no/such/folder.kwd"), {"a\xFF", "", ""}, error));
    EXPECT_FALSE(error.empty());
}
