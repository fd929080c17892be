// The command-line painter: option reading, golden outputs of the built binary on a small C
// file and on a sample of each shipped language, and its error exits.
#include "editor/core/PaintCommand.h"
#include "base/SettingsStore.h"
#include "profiles/core/SyntaxAssociations.h"
#include "support/TempDir.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <set>

#include <cstdlib>
#include <sys/wait.h>

namespace {

std::string Env(const char* name) {
    const char* v = std::getenv(name);
    return v ? v : "";
}
std::string DataFile(const std::string& name) {
    return Env("KESTRUM_TEST_DATA") + "/paint/" + name;
}

std::string Quote(const std::string& s) {
    std::string q = "'";
    for (char c : s) q += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return q + "'";
}

struct ToolRun {
    int exitCode;
    std::string out, err;
};

// Runs the built kestrum-paint with the arguments, in the test data folder.
ToolRun RunPaint(const std::vector<std::string>& args, const std::string& output = {}) {
    TempDir dir;
    std::string cmd = "cd " + Quote(Env("KESTRUM_TEST_DATA") + "/paint") +
                      " && ASAN_OPTIONS=detect_leaks=0 " +
                      Quote(Env("KESTRUM_BUILD_DIR") + "/kestrum-paint");
    for (auto& a : args) cmd += " " + Quote(a);
    cmd += " >" + Quote(output.empty() ? dir.file("out") : output) + " 2>" + Quote(dir.file("err"));
    int status = std::system(cmd.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ReadFileBytes(dir.file("out")),
            ReadFileBytes(dir.file("err"))};
}

const std::vector<std::string> kPairs = {
    "--delimiter", "/*", "*/", "1", "--delimiter", "//", "\\n", "1",
    "--delimiter", "\"", "\"", "2", "--delimiter", "'",  "'",   "3"};

std::vector<std::string> SampleArgs(std::vector<std::string> extra) {
    std::vector<std::string> a = {"--keywords", "sample.kwd"};
    a.insert(a.end(), kPairs.begin(), kPairs.end());
    a.insert(a.end(), extra.begin(), extra.end());
    a.push_back("sample.c");
    return a;
}

} // namespace

// What the options do is in the golden outputs below; "--" ends them.
TEST(PaintCommand, ADoubleDashEndsTheOptions) {
    std::string error;
    auto plain = ParsePaintCommand({"--delimiter", "//", "\\n", "1", "--", "-odd name"}, error);
    ASSERT_TRUE(plain) << error;
    EXPECT_EQ(plain->file, "-odd name");
}

TEST(PaintCommand, RefusesBadOptions) {
    std::vector<std::string> nine;
    for (int i = 0; i < 9; ++i) nine.insert(nine.end(), {"--delimiter", "a", "b", "1"});
    nine.push_back("x.c");
    const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
        {{}, "no FILE given"},
        {{"a.c", "b.c"}, "only one FILE"},
        {{"--bogus", "a.c"}, "unknown option \"--bogus\""},
        {{"--format", "rtf", "a.c"}, "unknown format \"rtf\""},
        {{"a.c", "--format"}, "--format needs"},
        {{"a.c", "--delimiter", "a", "b"}, "--delimiter needs"},
        {{"--delimiter", "a", "b", "4", "a.c"}, "class must be 0 to 3"},
        {{"--delimiter", "a", "b", "1x", "a.c"}, "class must be 0 to 3"},
        {nine, "at most 8"},
    };
    for (auto& [args, why] : cases) {
        std::string error;
        EXPECT_FALSE(ParsePaintCommand(args, error)) << why;
        EXPECT_NE(error.find(why), std::string::npos) << error;
    }
}

TEST(PaintCommand, GoldenOutputs) {
    struct Case {
        std::vector<std::string> args;
        const char* golden;
    };
    const std::vector<Case> cases = {
        {SampleArgs({}), "sample.runs"},
        {SampleArgs({"--format", "html"}), "sample.html"},
        {SampleArgs({"--delimiters-first", "--case-sensitive"}), "sample-delimiters-first.runs"},
        {SampleArgs({"--format", "none"}), ""}, // no output at all
    };
    for (auto& c : cases) {
        ToolRun r = RunPaint(c.args);
        EXPECT_EQ(r.exitCode, 0) << c.golden << ": " << r.err;
        EXPECT_EQ(r.out, *c.golden ? ReadFileBytes(DataFile(c.golden)) : "") << c.golden;
    }
}

// A sample of each shipped language, coloured by the profile that the shipped table gives its
// extension (or by name, for a profile that no extension reaches). Each has a comment with an
// apostrophe, which must not shift the strings behind it.
TEST(PaintCommand, GoldenColouringsOfTheShippedLanguages) {
    TempDir home; // no user table or user profiles
    ::setenv("XDG_CONFIG_HOME", home.file("config").c_str(), 1);
    ::setenv("XDG_DATA_HOME", home.file("data").c_str(), 1);
    // REX is written to the COBOL profile last, so the REXX sample names its profile.
    const std::map<std::string, std::string> byName = {{"rexx", "REXX Default Profile"}};
    std::set<std::string> covered;
    for (const auto& e : std::filesystem::directory_iterator(DataFile("langs"))) {
        const std::string ext = e.path().extension().string().substr(1);
        if (ext == "runs") continue;
        const std::string sample = "langs/sample." + ext;
        const std::string profile = byName.contains(ext) ? byName.at(ext) : "";
        std::vector<std::string> args = {sample};
        if (!profile.empty()) args.insert(args.begin(), {"--profile", profile});
        ToolRun r = RunPaint(args);
        EXPECT_EQ(r.exitCode, 0) << sample << ": " << r.err;
        EXPECT_EQ(r.out, ReadFileBytes(DataFile(sample + ".runs"))) << sample;
        covered.insert(profile.empty() ? DefaultProfileFor(ext) : profile);
    }
    // Every shipped profile has its sample.
    for (auto name : DefaultProfileNames())
        EXPECT_TRUE(covered.contains(std::string(name))) << name;
    ::unsetenv("XDG_CONFIG_HOME");
    ::unsetenv("XDG_DATA_HOME");
}

TEST(PaintCommand, ErrorExits) {
    const std::vector<std::vector<std::string>> cases = {
        {"no-such-file.c"}, {"--keywords", "no-such.kwd", "sample.c"}, {"."}, // a folder
    };
    for (auto& args : cases) {
        ToolRun r = RunPaint(args);
        EXPECT_EQ(r.exitCode, 2) << args[0];
        EXPECT_EQ(r.out, "") << args[0];
        EXPECT_TRUE(r.err.starts_with("kestrum-paint: ")) << r.err;
        EXPECT_EQ(r.err.find('\n'), r.err.size() - 1) << "one line: " << r.err;
    }
    // Output that cannot be written is an error that says so.
    ToolRun full = RunPaint({"sample.c"}, "/dev/full");
    EXPECT_NE(full.exitCode, 0);
    EXPECT_NE(full.err.find("No space left on device"), std::string::npos) << full.err;
}

// Without lists of its own the tool takes the profile of the file's extension (the shipped
// table's in the golden colourings above), from the user's language table first.
TEST(PaintCommand, TheUsersTableWinsAndAMissingProfileIsAnError) {
    TempDir config;
    ::setenv("XDG_CONFIG_HOME", config.path().c_str(), 1);
    ToolRun c = RunPaint({"sample.c"});
    ToolRun text = RunPaint({"--profile", "Text Files - No Syntax", "sample.c"});
    ASSERT_EQ(c.exitCode, 0) << c.err;
    EXPECT_NE(c.out, text.out);
    SettingsStore store(config.path());
    store.SaveSetting("Kestrum", "Syntax Associations", "C", "Text Files - No Syntax");
    EXPECT_EQ(RunPaint({"sample.c"}).out, text.out);
    EXPECT_EQ(RunPaint({"--profile", "No Such Profile", "sample.c"}).exitCode, 2);
    ::unsetenv("XDG_CONFIG_HOME");
}
