#include "profiles/core/SyntaxAssociations.h"
#include "app/core/SettingsStore.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>
#include <set>

namespace {
constexpr std::string_view kApp = "Kestrum";

struct AssocTest : ::testing::Test {
    TempDir dir;
    SettingsStore store{dir.path() + "config"};

    std::string Get(std::string_view ext) {
        return store.GetSetting(kApp, kSyntaxAssocSection, ext, kNoFileAssoc);
    }
    size_t Rows() { return store.GetAllSettings(kApp, kSyntaxAssocSection).size(); }
};
} // namespace

TEST(SyntaxAssociations, TheDefaultTableHas68WritesOver34Profiles) {
    auto table = DefaultSyntaxAssocs();
    EXPECT_EQ(table.size(), 68u);
    auto names = DefaultProfileNames();
    EXPECT_EQ(names.size(), 34u);
    EXPECT_EQ(names.front(), "ASP Default Profile");
    EXPECT_EQ(names.back(), "PHP3 Default Profile");
    std::set<std::string> keys;
    for (const auto& a : table) keys.insert(std::string(a.extension));
    EXPECT_EQ(keys.size(), 65u);
}

TEST_F(AssocTest, CreateWritesTheTableWhereNoneIsAndTheLaterWriteStands) {
    EXPECT_TRUE(CreateSyntaxAssocs(store, kApp));
    EXPECT_EQ(Rows(), 65u);
    EXPECT_EQ(Get("BAT"), "MS-DOS Batch Default Profile");
    EXPECT_EQ(Get("INI"), "Windows INI Default Profile");
    EXPECT_EQ(Get("REX"), "COBOL Default Profile");
    EXPECT_EQ(Get("TXT"), "Text Files - No Syntax");
    EXPECT_EQ(Get("NFO"), "Text Files - No Syntax");
    EXPECT_EQ(Get("dlg"), "C and C++ Default Profile");
    EXPECT_EQ(Get("PHP3"), "PHP3 Default Profile");
    EXPECT_EQ(Get("W"), "Progress Default Profile");
    // Rows stand in the order of their first write.
    auto all = store.GetAllSettings(kApp, kSyntaxAssocSection);
    EXPECT_EQ(all.front().first, "ASP");
    EXPECT_EQ(all.back().first, "PHP3");
}

TEST_F(AssocTest, CreateLeavesAnExistingTableAlone) {
    store.SaveSetting(kApp, kSyntaxAssocSection, "XYZ", "My Profile");
    EXPECT_FALSE(CreateSyntaxAssocs(store, kApp));
    EXPECT_EQ(Rows(), 1u);
    EXPECT_EQ(Get("C"), kNoFileAssoc);
}

TEST_F(AssocTest, RestoreDefaultsChangesTheShippedKeysAndNothingElse) {
    store.SaveSetting(kApp, kSyntaxAssocSection, "XYZ", "My Profile");
    store.SaveSetting(kApp, kSyntaxAssocSection, "c", "Text Files - No Syntax");
    store.SaveSetting(kApp, kSyntaxAssocSection, "BAT", "My Profile");
    RestoreDefaultSyntaxAssocs(store, kApp);
    EXPECT_EQ(Rows(), 66u);
    EXPECT_EQ(Get("XYZ"), "My Profile");
    EXPECT_EQ(Get("C"), "C and C++ Default Profile");
    EXPECT_EQ(Get("BAT"), "MS-DOS Batch Default Profile");
}

TEST(SyntaxAssociations, TheExtensionIsWhatFollowsTheLastDot) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"/home/me/archive.tar.gz", "gz"},
        {"/home/me/page.HtMl", "HtMl"},
        {"/home/me/Makefile", ""},
        {"/home/me/notes.", ""},
        {"", ""},
        {".profile", "profile"},
        // Dots in folder names count as well; such an "extension" has no row.
        {"/home/me/proj.v2/Makefile", "v2/Makefile"},
    };
    for (const auto& [path, ext] : cases) EXPECT_EQ(SyntaxExtension(path), ext) << path;
}

TEST_F(AssocTest, TheResolverChoosesAProfileOrTheGlobalRecord) {
    CreateSyntaxAssocs(store, kApp);
    store.SaveSetting(kApp, kSyntaxAssocSection, "GZ", "Archive Profile");
    store.SaveSetting(kApp, kSyntaxAssocSection, "OFF", "no file assoc");
    struct Case {
        std::string path;
        bool useGlobal;
        std::string profile;
    };
    const std::vector<Case> cases = {
        {"/tmp/archive.tar.gz", false, "Archive Profile"},
        {"/tmp/index.HtMl", false, "HTML Default Profile"},
        {"/tmp/main.c", false, "C and C++ Default Profile"},
        {"/tmp/setup.bat", false, "MS-DOS Batch Default Profile"},
        {"/tmp/Makefile", true, ""},
        {"/tmp/notes.", true, ""},
        {"", true, ""},
        {"/tmp/data.xyz", true, ""},
        {"/tmp/switched.off", true, ""},
        {"/tmp/proj.v2/README", true, ""},
    };
    for (const auto& c : cases) {
        SyntaxChoice choice = ResolveSyntax(store, kApp, c.path);
        EXPECT_EQ(choice.useGlobal, c.useGlobal) << c.path;
        EXPECT_EQ(choice.profile, c.profile) << c.path;
    }
}

TEST(SyntaxAssociations, TheDialogsListLineAndItsExtension) {
    std::string line = AssocListLine("HTM", "HTML Default Profile");
    EXPECT_EQ(line, "HTM\t\tHTML Default Profile");
    EXPECT_EQ(AssocListExtension(line), "HTM");
    EXPECT_EQ(AssocListExtension(AssocListLine("", "P")), "");
    EXPECT_EQ(AssocListExtension("NOTAB"), "NOTAB");
}

TEST(SyntaxAssociations, DefaultProfileForAnExtension) {
    EXPECT_EQ(DefaultProfileFor("HtMl"), "HTML Default Profile");
    EXPECT_EQ(DefaultProfileFor("bat"), "MS-DOS Batch Default Profile"); // the later write
    EXPECT_EQ(DefaultProfileFor("rex"), "COBOL Default Profile");
    EXPECT_EQ(DefaultProfileFor("gz"), "");
    EXPECT_EQ(DefaultProfileFor(""), "");
}
