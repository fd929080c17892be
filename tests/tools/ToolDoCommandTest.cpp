// kestrum-do expand-macros: the line the run dialog, the default compiler and the DOS command
// dialog would start for FILE, and its usage errors.
#include "app/cli/DoFrame.h"
#include "tools/ToolDoCommands.h"

#include "support/TempDir.h"

#include <QDir>
#include <gtest/gtest.h>
#include <sstream>

TEST(ToolDoCommand, ExpandMacros) {
    TempDir tmp;
    const std::string file = tmp.write("prog.c", "int main;\n");
    const struct {
        const char* name;
        std::vector<std::string> args; // after the subcommand's name
        std::string out;               // "": a usage error, status 2 and one line on stderr
    } cases[] = {
        {"quoting form",
         {"--dos-command", "cc %F -o %T.o", file},
         "cc \"" + file + " -o prog.o\"\n"},
        {"never saved: every path empty", {"--unsaved", "cc %F%f [%P%N%T%L]", file}, "cc  []\n"},
        {"relative FILE made absolute", {"%F", "prog.c"}, file + "\n"},
        // The usage errors that every subcommand shares are the frame's test.
        {"missing command line", {file}, ""},
    };
    const std::vector<DoCommand> table = ToolDoCommands();
    const QString cwd = QDir::currentPath();
    QDir::setCurrent(QString::fromStdString(tmp.path()));
    for (const auto& k : cases) {
        SCOPED_TRACE(k.name);
        std::vector<std::string> args{"expand-macros"};
        args.insert(args.end(), k.args.begin(), k.args.end());
        std::ostringstream out, err;
        EXPECT_EQ(RunKestrumDo(args, table, out, err), k.out.empty() ? 2 : 0);
        EXPECT_EQ(out.str(), k.out);
        EXPECT_EQ(err.str().empty(), !k.out.empty()) << err.str(); // its form is the frame's
    }
    QDir::setCurrent(cwd);
}
