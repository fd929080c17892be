#include "transforms/core/HtmlFormat.h"
#include "transforms/core/HtmlAssist.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

namespace {
std::string ReadData(const std::string& name) {
    std::ifstream in(std::string(std::getenv("KESTRUM_TEST_DATA")) + "/html/" + name,
                     std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
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
        {"line ends go, tabs become spaces", HTMLCompact("<a >\r\n\tx< /a>"), "<a> x</a>"},
        {"brackets lose one space per pass", HTMLTrimBrackets("<a  >"), "<a >"},
        {"lone LF is kept", HTMLCompact("a\nb"), "a\nb"},
        {"loose splits adjoining brackets only", HTMLLoose("<p>one</p><p>two</p>"),
         "<p>one</p>\r\n<p>two</p>"},
        {"loose keeps text behind its tag", HTMLLoose("<a>x <b>y"), "<a>x <b>y"},
        {"indent: self-closing p, html dropped below zero",
         *HTMLIndent("<html><body><p>x</p></body></html>"),
         "\r\n<html>\r\n\t<body>\r\n\t\t<p>x\r\n\t</p>\r\n</body>"},
        {"indent: leading text keeps a stray bracket", *HTMLIndent("hi <b>x</b>"),
         "hi <\r\n<b>x\r\n</b>"},
        {"indent: no tag at all", *HTMLIndent("a\tb\r\nc"), "abc"},
        {"indent: below zero drops opening tags too", *HTMLIndent("</x><y><z>"), "\r\n<z>"},
        {"indent: unclosed bracket opens a level", *HTMLIndent("<a<b>"), "\r\n<a\r\n\t<b>"},
        {"indent: comment named by its dashes", *HTMLIndent("<!--x--><i>"), "\r\n<!--x-->\r\n<i>"},
        {"indent: br/ opens a level", *HTMLIndent("<br/><i>"), "\r\n<br/>\r\n\t<i>"},
        {"indent: stray > only", *HTMLIndent("a > b"), "a> b"},
    };
    for (const auto& c : cases) EXPECT_EQ(c.got, c.want) << c.name;
}

TEST(HtmlFormat, TagNamesAndTags) {
    std::vector<std::pair<std::string, std::string>> names = {
        {"<TD class=x>", "TD"}, {"<br/>", "br/"}, {"<!-- c -->", "!--"}, {"<>", ""}, {"<a", ""},
        {"</p>", "/p"},
    };
    for (const auto& [tag, want] : names) EXPECT_EQ(HTMLTagName(tag), want) << tag;
    EXPECT_EQ(HTMLNextTag("ab<c d>e", 1).text, "<c d>");
    EXPECT_EQ(HTMLNextTag("<c>d<e>", 4).text, "<e>");
    EXPECT_EQ(HTMLNextTag("<c>d<e>", 2).text, ""); // the ">" of <c> stands first
    EXPECT_EQ(HTMLNextTag("a>b<c", 1).text, "");
    EXPECT_EQ(HTMLNextTag("<c", 1).text, "");
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

TEST(HtmlAssist, TagEntriesAndWrapping) {
    auto tags = HtmlTagEntries();
    ASSERT_EQ(tags.size(), 136u);
    EXPECT_EQ(tags.front(), "<!-- ... -->");
    EXPECT_EQ(tags.back(), "<XMP> ... </XMP>");
    struct Case {
        std::string entry, selected, want;
    };
    std::vector<Case> cases = {
        {"<B> ... </B>", "abc", "<B>abc</B>"},
        {"<BR>", "abc", "<BR>abc"},
        {"", "abc", "abc"},
        {"<A HREF=\"\" TARGET=\"\"> ... </A>", "x", "<A HREF=\"\" TARGET=\"\">x</A>"},
    };
    for (const auto& c : cases) {
        TagInsertion r = WrapSelection(c.entry, c.selected, 7);
        EXPECT_EQ(r.text, c.want) << c.entry;
        EXPECT_EQ(r.selStart, 7);
        EXPECT_EQ(r.selLength, int64_t(c.want.size())) << c.entry;
    }
    auto latin = SpecialCharRows(false), utf8 = SpecialCharRows(true);
    ASSERT_EQ(latin.size(), 96u);
    EXPECT_EQ(latin.front().text, "160\t\xA0");
    EXPECT_EQ(latin.back().text, "255\t\xFF");
    EXPECT_EQ(utf8[73].text, "233\t\xC3\xA9");
}
