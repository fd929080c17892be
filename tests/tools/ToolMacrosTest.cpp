#include "tools/core/ToolMacros.h"

#include "support/TempDir.h"

#include <gtest/gtest.h>

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
        // No escape: the first '%' stays; a lone '%' at the end stays as well.
        {"%%F %", "/x/y.c", MacroQuoting::None, "%/x/y.c %"},
        {"run %F.", "", MacroQuoting::None, "run ."},
        {"echo %Q %", "/x/y.c", MacroQuoting::None, "echo %Q %"},
        // Text from the path is expanded again by later passes, but not by earlier ones.
        {"%F", "/x%N/f.c", MacroQuoting::None, "/xf.c/f.c"},
        {"%F", "/d/%n.c", MacroQuoting::None, "/d/%n.c"},
        {"  %N  ", "/d/a.c", MacroQuoting::None, "  a.c  "},
        // The quoting form: a quote before the path and one ending the whole line.
        {"cc %F -o %T.o", "/home/u/src/prog.c", MacroQuoting::QuoteFileAndLineEnd,
         "cc \"/home/u/src/prog.c -o prog.o\""},
        {"ls -l", "/d/a.c", MacroQuoting::QuoteFileAndLineEnd, "ls -l\""},
        {"%F %F", "", MacroQuoting::QuoteFileAndLineEnd, "\" \"\""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ToolMacros(c.line, Sub(c.path, dir), c.quoting), Sub(c.expected, dir))
            << c.line << " on " << c.path;
}

TEST(ToolMacros, ShortPathAndBaseName) {
    TempDir tmp;
    const std::string file = tmp.write("a.tar.gz", "x");
    EXPECT_EQ(ShortPathOf(file), file);
    EXPECT_EQ(ShortPathOf(tmp.file("missing.c")), "");
    EXPECT_EQ(ShortPathOf(""), "");
    EXPECT_EQ(BaseNameOf(file), "a.tar");
    EXPECT_EQ(BaseNameOf("/a.b/c"), "");
}
