#include "profiles/core/SyntaxAssociations.h"
#include "base/SettingsStore.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>

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

TEST_F(AssocTest, CreateWritesTheTableWhereNoneIsAndTheLaterWriteStands) {
    EXPECT_TRUE(CreateSyntaxAssocs(store, kApp));
    EXPECT_EQ(Rows(), 106u);
    // BAT and INI are written to the plain-text profile first, REX to REXX first; keys compare
    // without regard to case. Today's languages follow and leave those rows alone.
    const std::vector<std::pair<std::string, std::string>> rows = {
        {"BAT", "MS-DOS Batch Default Profile"}, {"ini", "Windows INI Default Profile"},
        {"REX", "COBOL Default Profile"},        {"HtMl", "HTML Default Profile"},
        {"py", "Python Default Profile"},        {"patch", "Diff Default Profile"},
    };
    for (const auto& [ext, profile] : rows) {
        EXPECT_EQ(Get(ext), profile) << ext;
        EXPECT_EQ(DefaultProfileFor(ext), profile) << ext;
    }
    EXPECT_EQ(DefaultProfileFor("gz"), "");
    EXPECT_EQ(DefaultProfileFor(""), "");
    // Rows stand in the order of their first write.
    auto all = store.GetAllSettings(kApp, kSyntaxAssocSection);
    EXPECT_EQ(all.front().first, "ASP");
    EXPECT_EQ(all.at(64).first, "PHP3");
    EXPECT_EQ(all.back().first, "PATCH");
}

// Restoring over a table the user changed is checked through the dialog's reset button.
TEST_F(AssocTest, CreateLeavesAnExistingTableAlone) {
    store.SaveSetting(kApp, kSyntaxAssocSection, "XYZ", "My Profile");
    EXPECT_FALSE(CreateSyntaxAssocs(store, kApp));
    EXPECT_EQ(Rows(), 1u);
}

TEST_F(AssocTest, TheExtensionFollowsTheLastDotAndChoosesAProfileOrTheGlobalRecord) {
    CreateSyntaxAssocs(store, kApp);
    store.SaveSetting(kApp, kSyntaxAssocSection, "GZ", "Archive Profile");
    store.SaveSetting(kApp, kSyntaxAssocSection, "OFF", "no file assoc");
    store.SaveSetting(kApp, kSyntaxAssocSection, "UP", "../../../../dev/zero");
    store.SaveSetting(kApp, kSyntaxAssocSection, "DOTS", "..");
    struct Case {
        std::string path, ext;
        std::string profile; // empty: the global record
    };
    const std::vector<Case> cases = {
        {"/tmp/archive.tar.gz", "gz", "Archive Profile"},
        {"/tmp/index.HtMl", "HtMl", "HTML Default Profile"},
        {"/tmp/Makefile", "", ""},
        {".profile", "profile", ""},
        {"/tmp/switched.off", "off", ""},
        // A value that would lead out of the profile folder names no file at all.
        {"/tmp/a.up", "up", "/"},
        {"/tmp/a.dots", "dots", "/"},
        // Dots in folder names count as well; such an "extension" has no row.
        {"/tmp/proj.v2/README", "v2/README", ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(SyntaxExtension(c.path), c.ext) << c.path;
        SyntaxChoice choice = ResolveSyntax(store, kApp, c.path);
        EXPECT_EQ(choice.useGlobal, c.profile.empty()) << c.path;
        EXPECT_EQ(choice.profile, c.profile) << c.path;
    }
}

// The list line itself is checked through the dialog; the edit button takes the key back.
TEST(SyntaxAssociations, TheExtensionOfADialogsListLine) {
    EXPECT_EQ(AssocListExtension(AssocListLine("HTM", "HTML Default Profile")), "HTM");
    EXPECT_EQ(AssocListExtension(AssocListLine("", "P")), "");
    EXPECT_EQ(AssocListExtension("NOTAB"), "NOTAB");
}
