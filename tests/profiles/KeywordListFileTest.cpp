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
    const auto L = KeywordList;
    const std::string E = "\\NL\\\r\n"; // a list's end
    const std::vector<Case> cases = {
        {"three lists",
         "if\r\nfor\r\n" + E + "int\r\n" + E + "#if\r\n" + E,
         O,
         {L({"if", "for"}), L({"int"}), L({"#if"})}},
        {"empty file", "", O, {"", "", ""}},
        {"no list end loads into the first list", "a\r\nb\r\n", O, {L({"a", "b"}), "", ""}},
        {"fourth section goes on in the third",
         "a\r\n" + E + "b\r\n" + E + "c\r\n" + E + "d\r\n" + E,
         O,
         {L({"a"}), L({"b"}), L({"c", "d"})}},
        {"blank lines skipped, entries kept as they stand",
         "  \r\n\r\n  lead\r\ntab\t\r\n",
         O,
         {L({"  lead", "tab\t"}), "", ""}},
        {"list end is exact and case-sensitive",
         "\\nl\\\r\n \\NL\\\r\n\\NL\\ \r\n",
         O,
         {L({"\\nl\\", " \\NL\\", "\\NL\\ "}), "", ""}},
        // The options dialog takes "~" as a keyword (its import test has one).
        {"a tilde is a comment to the profile dialog", "  ~x\r\nx~\r\n", C, {L({"x~"}), "", ""}},
        {"the profile dialog keeps empty lines",
         "a\r\n\r\n  \r\n",
         C,
         {L({"a", "", "  "}), "", ""}},
        {"lone LF and CR end lines too", "a\nb\rc", O, {L({"a", "b", "c"}), "", ""}},
    };
    for (auto& c : cases) EXPECT_EQ(ParseKeywordListFile(c.file, c.rule), c.lists) << c.name;
}

// Reading a file back is followed through both dialogs' import buttons.
TEST(KeywordListFile, ExportEndsEveryList) {
    // An empty list is just its end; text behind the last separator is an entry of its own.
    const KeywordLists lists = {KeywordList({"if", "for"}), std::string("a\xFF") + "b", ""};
    const std::string file = "if\r\nfor\r\n\\NL\\\r\na\r\nb\r\n\\NL\\\r\n\\NL\\\r\n";
    EXPECT_EQ(FormatKeywordListFile(lists), file);

    TempDir dir;
    std::string error;
    ASSERT_TRUE(WriteKeywordListFile(dir.file("x.kwd"), lists, error)) << error;
    EXPECT_EQ(ReadFileBytes(dir.file("x.kwd")), file);
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
