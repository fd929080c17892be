#include "profiles/core/ProfileSource.h"

#include <gtest/gtest.h>

TEST(ProfileSource, ASourceBecomesAProfileOnTheProgramsDefaults) {
    const std::string text = "# a comment before the sections\r\n"
                             "name: Test Profile\r\n"
                             "case-sensitive: yes\n"
                             "code-order: no\n"
                             "\n"
                             "[keywords 1] statements\n"
                             "  if  \n"
                             "\n"
                             "end if\n"
                             "[keywords 3]\n"
                             "#define\n"
                             "IF\n"
                             "[delimiters]\n"
                             "comment     //  \\n\n"
                             "delimiter1  REM\\s  \\\\\\t\n"
                             "delimiter2  '   '"; // the last line has no line end
    ProfileSource p;
    ASSERT_EQ(ParseProfileSource(text, p), "");
    EXPECT_EQ(p.name, "Test Profile");
    const EditorSettings& s = p.settings;
    EXPECT_EQ(s.Keywords[0], "if\xFF"
                             "end if\xFF");
    EXPECT_EQ(s.Keywords[1], "");
    // In a case-sensitive profile "IF" is a keyword of its own.
    EXPECT_EQ(s.Keywords[2], "#define\xFF"
                             "IF\xFF");
    EXPECT_EQ(s.KeywordCount, 4);
    EXPECT_TRUE(s.CaseSensitive);
    EXPECT_FALSE(s.CodeOrder);
    EXPECT_EQ(s.Delimiters[0], (DelimiterPair{"//", "\r\n", 1}));
    EXPECT_EQ(s.Delimiters[1], (DelimiterPair{"REM ", "\\\t", 2}));
    EXPECT_EQ(s.Delimiters[2], (DelimiterPair{"'", "'", 3}));
    EXPECT_EQ(s.Delimiters[3], DelimiterPair{}); // not the default colour of unused rows
}

TEST(ProfileSource, MistakesAreReportedWithTheirLine) {
    const std::string head = "name: P\ncase-sensitive: no\ncode-order: yes\n";
    std::string nine = "[delimiters]\n";
    for (int i = 0; i < 9; ++i) nine += "comment a b\n";
    struct Case {
        std::string text;
        std::string error; // the start of the message
    };
    const std::vector<Case> cases = {
        {"case-sensitive: no\ncode-order: yes\n", "the source names no profile"},
        {"name: P\ncode-order: yes\n", "\"case-sensitive:\" and"},
        {"name: P\nname: Q\n", "line 2: the name is given twice"},
        {"name: a/b\n", "line 1: the name must be"},
        {"colour: red\n", "line 1: unknown key"},
        {"name: P\ncase-sensitive: maybe\n", "line 2: \"case-sensitive\" takes"},
        {"just words\n", "line 1: expected"},
        // Keywords differing only in case are one keyword where case does not matter.
        {head + "[keywords 1]\nfor\n[keywords 2]\nFOR\n", "line 7: \"FOR\" is already"},
        {head + "[keywords 1]\nx\n[keywords 1]\n", "line 6: a section appears twice"},
        {head + "[keywords 2]\ncaf\xC3\xA9\n", "line 5: only printable ASCII"},
        {head + "[delimiters]\ncomment /*\n", "line 5: a delimiter line is"},
        {head + "[delimiters]\nstring \" \"\n", "line 5: unknown class"},
        {head + "[delimiters]\ncomment a \\q\n", "line 5: unknown escape"},
        {head + "[delimiters]\ncomment a b\\\n", "line 5: unknown escape"},
        {head + nine, "line 13: a profile holds at most 8"},
    };
    for (const auto& c : cases) {
        ProfileSource p;
        std::string error = ParseProfileSource(c.text, p);
        EXPECT_EQ(error.substr(0, c.error.size()), c.error) << c.text;
    }
}
