// Reads the profiles that the build wrote into PROFILES/ beside the program, with the
// program's own reader, and checks that each is complete and fits its language. How a source
// becomes a record is the parser's test; what each language colours, the golden colourings'.
#include "profiles/core/ProfileFile.h"
#include "profiles/core/SyntaxAssociations.h"
#include "support/TempDir.h"

#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>

namespace fs = std::filesystem;

namespace {

fs::path ProfilesDir() {
    const char* build = std::getenv("KESTRUM_BUILD_DIR");
    return fs::path(build ? build : ".") / "PROFILES";
}

std::map<std::string, EditorSettings> ReadAll() {
    std::map<std::string, EditorSettings> all;
    for (auto name : DefaultProfileNames()) {
        const std::string bytes = ReadFileBytes((ProfilesDir() / name).string());
        EditorSettings& s = all[std::string(name)];
        ProfileReadResult r = ReadProfile(bytes, s);
        EXPECT_EQ(r.status, ProfileReadStatus::Complete) << name;
        EXPECT_EQ(r.length, bytes.size()) << name << ": bytes behind the record";
    }
    return all;
}

} // namespace

TEST(ShippedProfiles, EachLanguageHasItsSyntaxOnTheProgramsDefaults) {
    std::map<std::string, EditorSettings> all = ReadAll();
    for (const auto& [name, s] : all) {
        SCOPED_TRACE(name);
        // Applied as a whole, a profile brings the program's own colours, font and switches;
        // the order of keywords and pairs is its own.
        EditorSettings defaults = EditorSettings::Defaults();
        defaults.Keywords = s.Keywords;
        defaults.KeywordCount = s.KeywordCount;
        defaults.Delimiters = s.Delimiters;
        defaults.CaseSensitive = s.CaseSensitive;
        defaults.CodeOrder = s.CodeOrder;
        EXPECT_EQ(s, defaults);
    }
    // Whether case matters; C's and SQL's show in their golden colourings as well.
    for (std::string name : {"Java", "Perl 5", "PHP3", "CMake", "Dockerfile"})
        EXPECT_TRUE(all[name + " Default Profile"].CaseSensitive) << name;
    for (std::string name : {"Object Pascal", "QBASIC", "Ada", "FORTRAN", "COBOL", "HTML", "CSS"})
        EXPECT_FALSE(all[name + " Default Profile"].CaseSensitive) << name;
}
