#include "transforms/core/CaseTransforms.h"
#include "transforms/core/TextConversions.h"

#include <gtest/gtest.h>

TEST(CaseTransforms, ChangesLettersOfTheDocumentsEncoding) {
    struct Case {
        std::string text;
        CaseChange how;
        bool utf8;
        std::string want;
    };
    const auto U = CaseChange::Upper, L = CaseChange::Lower, C = CaseChange::Capitalize;
    std::vector<Case> cases = {
        {"a\tb\rc\nd\fe\vf", C, false, "A\tB\rC\nD\fE\vF"},
        {std::string("x\0y", 3), C, false, std::string("X\0Y", 3)},
        {"\xE9t\xE9 \xD7\xF7\xFF\xDF", U, false, "\xC9T\xC9 \xD7\xF7\xFF\xDF"},
        {"\xC0\xDE\xD7Z", L, false, "\xE0\xFE\xD7z"},
        {"\xE9l\xE9ment", C, false, "\xC9l\xE9ment"},
        // The same bytes read as UTF-8 are not characters, and stay.
        {"\xE9t\xE9", U, true, "\xE9T\xE9"},
        {"\xC3\xA9t\xC3\xA9", U, true, "\xC3\x89T\xC3\x89"},
        {"\xC3\xA9lan VITAL", C, true, "\xC3\x89lan Vital"},
        {std::string("\xE2\x82\xAC") + "abc", C, true, std::string("\xE2\x82\xAC") + "abc"},
        {"\xC3\x89T\xC3\x89", L, true, "\xC3\xA9t\xC3\xA9"},
        {"\xC4\xB1x", U, true, "IX"}, // dotless i: two bytes become one
        {"\xD0\xB4\xD0\xB0", U, true, "\xD0\x94\xD0\x90"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ChangeCase(c.text, c.how, c.utf8), c.want) << c.text << " " << int(c.how);
}

TEST(TextConversions, CountsReadAsTheNumberConversionDoes) {
    std::vector<std::pair<std::string, int64_t>> cases = {
        {"3x", 3}, {"abc", 0}, {"", 0}, {"08", 8}, {"  12 ", 12}, {"\t7", 7}, {"-2", -2}, {"x3", 0},
    };
    for (const auto& [text, want] : cases) EXPECT_EQ(ReadCount(text), want) << text;
    EXPECT_GT(ReadCount("99999999999999999999999"),
              int64_t(100000000000000000)); // saturated, not wrapped
}

TEST(TextConversions, TabsSpacesAndLineEnds) {
    struct Case {
        const char* name;
        std::string got, want;
    };
    std::vector<Case> cases = {
        {"tab anywhere", TabsToSpaces("\ta\tb\t", 2), "  a  b  "},
        {"no tab stops", TabsToSpaces("abc\td", 4), "abc    d"},
        {"inside a line too", SpacesToTabs("a  b   c", 2), "a\tb\t c"},
        {"zero changes nothing", SpacesToTabs("a    b", 0), "a    b"},
        {"longer than the text", SpacesToTabs("a  b", 9), "a  b"},
        {"unix", ToUnixLineEnds("a\r\nb\rc\r"), "a\nbc"},
    };
    for (const auto& c : cases) EXPECT_EQ(c.got, c.want) << c.name;
    EXPECT_EQ(TabsToSpacesSize("a\t\tb", 3), 8u);
    EXPECT_EQ(TabsToSpacesSize("\t\t\t", INT64_MAX), UINT64_MAX); // saturated, not wrapped
}

TEST(TextConversions, LinesAsTheControlCountsThem) {
    struct Case {
        const char* name;
        std::string text;
        int64_t pos;
        TextRange line, deleted;
    };
    const std::string t = "ab\r\ncd\r\nef";
    std::vector<Case> cases = {
        {"first line", t, 1, {0, 2}, {0, 4}},
        {"middle, caret at its start", t, 4, {4, 2}, {4, 4}},
        {"between CR and LF", t, 3, {0, 2}, {0, 4}},
        {"last line keeps the line end before it", t, 9, {8, 2}, {8, 2}},
        {"empty last line behind CR LF", "ab\r\n", 4, {4, 0}, {4, 0}},
        {"lone CR ends a line", "a\rb\nc", 2, {2, 1}, {2, 2}},
        {"CR before CR LF", "a\r\r\nb", 2, {2, 0}, {2, 2}},
        {"empty text", "", 0, {0, 0}, {0, 0}},
        {"past the end", "ab", 99, {0, 2}, {0, 2}},
    };
    for (const auto& c : cases) {
        TextRange l = LineAround(c.text, c.pos), d = DeleteLineRange(c.text, c.pos);
        EXPECT_EQ(std::make_pair(l.start, l.length), std::make_pair(c.line.start, c.line.length))
            << c.name;
        EXPECT_EQ(std::make_pair(d.start, d.length),
                  std::make_pair(c.deleted.start, c.deleted.length))
            << c.name;
    }
}
