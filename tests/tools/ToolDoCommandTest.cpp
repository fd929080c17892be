// kestrum-do expand-macros: the line the run dialog, the default compiler and the DOS command
// dialog would start for FILE, and its usage errors.
#include "app/cli/DoFrame.h"
#include "tools/ToolDoCommands.h"

#include "support/TempDir.h"

#include <QDir>
#include <algorithm>
#include <gtest/gtest.h>
#include <sstream>

namespace {
// "$" stands for the temporary folder (ending in '/').
std::string Sub(std::string_view s, const std::string& dir) {
    std::string out;
    for (char c : s) out += c == '$' ? dir : std::string(1, c);
    return out;
}
} // namespace

TEST(ToolDoCommand, ExpandMacros) {
    TempDir tmp;
    tmp.write("prog.c", "int main;\n");
    const struct {
        const char* name;
        std::vector<std::string> args; // after the subcommand's name
        const char* out;               // "": a usage error, status 2 and one line on stderr
    } cases[] = {
        {"quoting form",
         {"--dos-command", "cc %F -o %T.o", "$prog.c"},
         "cc \"$prog.c -o prog.o\"\n"},
        {"never saved: every path empty",
         {"--unsaved", "cc %F%f [%P%N%T%L]", "$prog.c"},
         "cc  []\n"},
        {"relative FILE made absolute", {"%F", "prog.c"}, "$prog.c\n"},
        // The usage errors that every subcommand shares are the frame's test.
        {"missing command line", {"$prog.c"}, ""},
    };
    const std::vector<DoCommand> table = ToolDoCommands();
    const QString cwd = QDir::currentPath();
    QDir::setCurrent(QString::fromStdString(tmp.path()));
    for (const auto& k : cases) {
        SCOPED_TRACE(k.name);
        std::vector<std::string> args{"expand-macros"};
        for (const std::string& a : k.args) args.push_back(Sub(a, tmp.path()));
        std::ostringstream out, err;
        EXPECT_EQ(RunKestrumDo(args, table, out, err), *k.out ? 0 : 2);
        EXPECT_EQ(out.str(), Sub(k.out, tmp.path()));
        const std::string e = err.str();
        EXPECT_TRUE(*k.out ? e.empty() : std::count(e.begin(), e.end(), '\n') == 1) << e;
    }
    QDir::setCurrent(cwd);
}
