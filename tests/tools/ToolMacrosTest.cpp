#include "tools/core/ToolMacros.h"

#include "base/MiscSubs.h"
#include "base/PathHelpers.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>
#include <random>

namespace {
struct MacroCase {
    const char* line;
    const char* path; // "$" stands for the temporary folder
    MacroQuoting quoting;
    const char* expected;
};

std::string Sub(std::string_view s, const std::string& dir) {
    std::string out;
    for (char c : s) out += c == '$' ? dir : std::string(1, c);
    return out;
}
} // namespace

TEST(ToolMacros, ExpandsEveryMacroInItsOrder) {
    TempDir tmp;
    tmp.write("prog.c", "int main;");
    tmp.write("noext", "");
    tmp.write("a.tar.gz", "x");
    const std::string dir = tmp.path().substr(0, tmp.path().size() - 1);
    const MacroCase cases[] = {
        {"cc %F -o %L", "$/prog.c", MacroQuoting::None, "cc $/prog.c -o $/prog"},
        {"%P|%N|%T|%L", "$/prog.c", MacroQuoting::None, "$/|prog.c|prog|$/prog"},
        // An existing file: the short forms spell the same path.
        {"%f|%p|%n|%t|%l", "$/prog.c", MacroQuoting::None, "$/prog.c|$/|prog.c|prog|$/prog"},
        // A missing file has no short form; a dot only in a folder name is no extension.
        {"[%f%p%n%t%l]", "/nowhere/a.b/file", MacroQuoting::None, "[]"},
        {"%L|%T|%N", "/nowhere/a.b/file", MacroQuoting::None, "/nowhere/a||file"},
        {"%t|%T|%l", "$/noext", MacroQuoting::None, "||"},
        {"%t|%T", "$/a.tar.gz", MacroQuoting::None, "a.tar|a.tar"},
        // The quoting form is checked against the ten passes below and by kestrum-do.
    };
    for (const auto& c : cases)
        EXPECT_EQ(ToolMacros(c.line, Sub(c.path, dir), c.quoting), Sub(c.expected, dir))
            << c.line << " on " << c.path;
}

namespace {
// The expansion as defined: ten ReplaceText passes, one after the other.
std::string TenPasses(std::string_view line, const std::string& p, MacroQuoting quoting) {
    const std::string sp = ShortPathOf(p);
    const bool quote = quoting == MacroQuoting::QuoteFileAndLineEnd;
    const std::pair<const char*, std::string> passes[] = {{"%f", sp},
                                                          {"%p", PathOf(sp)},
                                                          {"%n", FileNameOf(sp)},
                                                          {"%l", StripExtension(sp)},
                                                          {"%t", BaseNameOf(sp)},
                                                          {"%F", (quote ? "\"" : "") + p},
                                                          {"%P", PathOf(p)},
                                                          {"%N", FileNameOf(p)},
                                                          {"%L", StripExtension(p)},
                                                          {"%T", BaseNameOf(p)}};
    std::string s(line);
    for (const auto& [m, v] : passes) s = ReplaceText(s, m, v);
    return quote ? s + '"' : s;
}
} // namespace

// Lines dense in '%', macro letters and "%%", over paths that hold macros themselves: every
// shortcut the expansion takes must give what the ten passes give, text from the path
// expanded again by later passes but not by earlier ones.
TEST(ToolMacros, AgreesWithTenPassesOnDenseLines) {
    TempDir tmp;
    const std::string dir = tmp.path();
    const std::vector<std::string> paths = {tmp.write("a.c", "x"), tmp.write("%N.c", "x"),
                                            tmp.write("b%", "x"),  dir + "gone.%T",
                                            "/x%f/%%F.y",          "",
                                            "/only/dir.d/"};
    const char alphabet[] = "%%%fpnltFPNLTqx./ ";
    std::mt19937 random(17);
    for (int round = 0; round < 3000; ++round) {
        std::string line(random() % 24, ' ');
        for (char& c : line) c = alphabet[random() % (sizeof alphabet - 1)];
        const std::string& path = paths[random() % paths.size()];
        for (MacroQuoting q : {MacroQuoting::None, MacroQuoting::QuoteFileAndLineEnd})
            ASSERT_EQ(ToolMacros(line, path, q), TenPasses(line, path, q))
                << "line [" << line << "] path [" << path << "]";
    }
}
