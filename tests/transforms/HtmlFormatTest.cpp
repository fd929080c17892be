#include "transforms/core/HtmlFormat.h"

#include "support/TempDir.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace {
std::string ReadData(const std::string& name) {
    return ReadFileBytes(std::string(std::getenv("KESTRUM_TEST_DATA")) + "/html/" + name);
}
} // namespace

TEST(HtmlFormat, Layouts) {
    struct Case {
        const char* name;
        std::string got, want;
    };
    std::vector<Case> cases = {
        {"two spaces between tags stay", HTMLCompact("<a>  <b>"), "<a>  <b>"},
        {"one space between tags goes", HTMLCompact("<a> <b>"), "<a><b>"},
        {"brackets lose one space per pass", HTMLTrimBrackets("<a  >"), "<a >"},
        {"lone LF is kept", HTMLCompact("a\nb"), "a\nb"},
        {"loose splits adjoining brackets only", HTMLLoose("<p>one</p><p>two</p>"),
         "<p>one</p>\r\n<p>two</p>"},
        {"loose keeps text behind its tag", HTMLLoose("<a>x <b>y"), "<a>x <b>y"},
        {"indent: leading text keeps a stray bracket", *HTMLIndent("hi <b>x</b>"),
         "hi <\r\n<b>x\r\n</b>"},
        {"indent: no tag at all", *HTMLIndent("a\tb\r\nc"), "abc"},
        {"indent: below zero drops opening tags too", *HTMLIndent("</x><y><z>"), "\r\n<z>"},
        {"indent: stray > only", *HTMLIndent("a > b"), "a> b"},
    };
    for (const auto& c : cases) EXPECT_EQ(c.got, c.want) << c.name;
}

TEST(HtmlFormat, GoldenPages) {
    for (std::string page : {"garden", "prices"}) {
        std::string in = ReadData(page + ".html");
        ASSERT_FALSE(in.empty()) << page;
        EXPECT_EQ(HTMLCompact(in), ReadData(page + ".compact")) << page;
        EXPECT_EQ(HTMLLoose(in), ReadData(page + ".loose")) << page;
        EXPECT_EQ(HTMLIndent(in).value_or("?"), ReadData(page + ".indented")) << page;
    }
}

TEST(HtmlFormat, DeepNestingIsRefusedNotExhausted) {
    std::string deep;
    for (int i = 0; i < 5000; ++i) deep += "<d>";
    EXPECT_FALSE(HTMLIndent(deep, 1 << 20).has_value());
    EXPECT_TRUE(HTMLIndent(deep, 1 << 25).has_value());
}
