#include "filetools/core/ClipLibrary.h"
#include "support/TempDir.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace {

using Lines = std::vector<std::string>;

TEST(ClipLibrary, ParsesSnippetLines) {
    struct Case {
        const char* name;
        std::string bytes;
        Lines snippets;
    };
    const std::vector<Case> cases = {
        {"empty file", "", {}},
        {"blank lines left out, others kept untrimmed",
         "  a  \r\n   \r\n\r\nb\r\n",
         {"  a  ", "b"}},
        {"a tab-only line is not blank to the space trim", "\t\r\n", {"\t"}},
        {"CR-only and LF-only ends", "a\rb\nc", {"a", "b", "c"}},
        {"no end after the last line", "x\\ny", {"x\\ny"}},
    };
    for (const Case& c : cases) EXPECT_EQ(ParseClipLibrary(c.bytes), c.snippets) << c.name;
}

TEST(ClipLibrary, ExpandsLineBreaks) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"a\\nb", "a\r\nb"},
        {"a\\\\nb", "a\\\r\nb"}, // a further backslash stays in front of the break
        {"a\\Nb", "a\\Nb"},      // upper case N is text
        {"end\\", "end\\"},
        {"   lead", "   lead"}, // leading blanks kept
    };
    for (auto& [in, out] : cases) EXPECT_EQ(ExpandSnippet(in), out) << in;
}

TEST(ClipLibrary, ListsPlainFilesOfAFolder) {
    TempDir tmp;
    tmp.write("b file", "x");
    tmp.write("a.EXE", "x");
    tmp.write(".hidden", "x");
    std::filesystem::create_directory(tmp.file("sub"));
    EXPECT_EQ(ListPlainFiles(tmp.path()), (Lines{"a.EXE", "b file"}));
    EXPECT_TRUE(ListPlainFiles(tmp.file("missing")).empty());
    EXPECT_TRUE(ListPlainFiles(tmp.file("b file")).empty()); // a file is not a folder
}

TEST(ClipLibrary, CatalogueShowsProgramsWithoutExtension) {
    const std::vector<std::pair<std::string, TemplateItem>> cases = {
        {"C program", {"C program", 1}}, {"Tool.ExE", {"Tool", 2}},       {"a.b.EXE", {"a.b", 2}},
        {"page.html", {"page.html", 1}}, {"x.exe.txt", {"x.exe.txt", 1}},
    };
    for (auto& [file, item] : cases)
        EXPECT_EQ(TemplateCatalogue({file}), std::vector<TemplateItem>{item}) << file;
}

} // namespace
