// Reads the profiles that the build wrote into PROFILES/ beside the program, with the
// program's own reader, and checks that each is complete and makes sense to the painter.
#include "profiles/core/ProfileFile.h"
#include "profiles/core/SyntaxAssociations.h"
#include "support/TempDir.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <set>

namespace fs = std::filesystem;

namespace {

fs::path ProfilesDir() {
    const char* build = std::getenv("KESTRUM_BUILD_DIR");
    return fs::path(build ? build : ".") / "PROFILES";
}

std::vector<std::string> Entries(const std::string& list) {
    std::vector<std::string> out;
    size_t from = 0;
    for (size_t p; (p = list.find(kKeywordSeparator, from)) != std::string::npos; from = p + 1)
        out.push_back(list.substr(from, p - from));
    return out;
}

struct Shipped {
    std::string name;
    EditorSettings settings;
};

std::vector<Shipped> ReadAll() {
    std::vector<Shipped> all;
    for (auto name : DefaultProfileNames()) {
        const std::string path = (ProfilesDir() / name).string();
        const std::string bytes = ReadFileBytes(path);
        EditorSettings s;
        ProfileReadResult r = ReadProfile(bytes, s);
        EXPECT_EQ(r.status, ProfileReadStatus::Complete) << name;
        EXPECT_EQ(r.length, bytes.size()) << name << ": bytes behind the record";
        all.push_back({std::string(name), s});
    }
    return all;
}

} // namespace

TEST(ShippedProfiles, TheFolderHoldsExactlyTheProfilesOfTheTable) {
    ASSERT_TRUE(fs::is_directory(ProfilesDir())) << ProfilesDir();
    std::set<std::string> present, wanted;
    for (const auto& e : fs::directory_iterator(ProfilesDir())) {
        EXPECT_TRUE(e.is_regular_file()) << e.path();
        present.insert(e.path().filename().string());
    }
    for (auto n : DefaultProfileNames()) wanted.insert(std::string(n));
    EXPECT_EQ(present, wanted);
}

TEST(ShippedProfiles, EveryProfileIsWellFormedAndEachLanguageHasItsSyntax) {
    std::map<std::string, EditorSettings> byName;
    for (const auto& [name, s] : ReadAll()) {
        SCOPED_TRACE(name);
        byName[name] = s;
        int32_t count = 0;
        std::set<std::string> seen;
        for (const auto& list : s.Keywords) {
            EXPECT_TRUE(list.empty() || list.back() == kKeywordSeparator);
            for (const auto& e : Entries(list)) {
                EXPECT_FALSE(e.empty());
                // The painter trims each entry; blanks at the ends would be dead text.
                EXPECT_TRUE(e.front() != ' ' && e.back() != ' ') << "\"" << e << "\"";
                EXPECT_EQ(e.find_first_of("\r\n"), std::string::npos) << e;
                EXPECT_TRUE(seen.insert(e).second) << "twice: " << e;
                ++count;
            }
        }
        EXPECT_EQ(s.KeywordCount, count);
        bool unused = false;
        for (const auto& d : s.Delimiters) {
            if (d.DelimiterStart.empty()) {
                EXPECT_EQ(d, DelimiterPair{});
                unused = true;
                continue;
            }
            EXPECT_FALSE(unused) << "a pair behind an unused row";
            EXPECT_FALSE(d.DelimiterEnd.empty()) << d.DelimiterStart;
            EXPECT_GE(d.DelimiterColor, 1) << d.DelimiterStart;
            EXPECT_LE(d.DelimiterColor, 3) << d.DelimiterStart;
        }
        // Plain text has neither lists nor pairs; every language has keywords and a comment.
        const bool text = name == "Text Files - No Syntax";
        EXPECT_EQ(s.KeywordCount == 0, text);
        EXPECT_EQ(s.Delimiters[0].DelimiterStart.empty(), text);
        auto comment = [](const DelimiterPair& d) { return d.DelimiterColor == 1; };
        if (!text) {
            EXPECT_TRUE(std::ranges::any_of(s.Delimiters, comment)) << "no comment pair";
        }
        // Applied as a whole, a profile brings the program's own colours, font and switches.
        EditorSettings defaults = EditorSettings::Defaults();
        defaults.Keywords = s.Keywords;
        defaults.KeywordCount = s.KeywordCount;
        defaults.Delimiters = s.Delimiters;
        defaults.CaseSensitive = s.CaseSensitive;
        EXPECT_EQ(s, defaults);
    }
    ASSERT_EQ(byName.size(), 34u);

    const std::map<std::string, bool> caseSensitive = {
        {"C and C++ Default Profile", true},      {"Java Default Profile", true},
        {"Perl 5 Default Profile", true},         {"PHP3 Default Profile", true},
        {"Object Pascal Default Profile", false}, {"SQL Default Profile", false},
        {"QBASIC Default Profile", false},        {"Ada Default Profile", false},
        {"FORTRAN Default Profile", false},       {"COBOL Default Profile", false},
        {"HTML Default Profile", false},
    };
    for (const auto& [name, cs] : caseSensitive) EXPECT_EQ(byName[name].CaseSensitive, cs) << name;

    // A few pairs the languages cannot do without; a line comment closes at CR LF.
    auto hasPair = [&](const std::string& name, std::string_view open, std::string_view close) {
        return std::ranges::any_of(byName[name].Delimiters, [&](const DelimiterPair& d) {
            return d.DelimiterStart == open && d.DelimiterEnd == close;
        });
    };
    EXPECT_TRUE(hasPair("C and C++ Default Profile", "/*", "*/"));
    EXPECT_TRUE(hasPair("C and C++ Default Profile", "//", "\r\n"));
    EXPECT_TRUE(hasPair("HTML Default Profile", "<!--", "-->"));
    EXPECT_TRUE(hasPair("HTML Default Profile", "\"", "\""));
    EXPECT_TRUE(hasPair("SQL Default Profile", "--", "\r\n"));
    EXPECT_TRUE(hasPair("Perl 5 Default Profile", "#", "\r\n"));
    EXPECT_TRUE(hasPair("MS-DOS Batch Default Profile", "REM ", "\r\n"));
}
