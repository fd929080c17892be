// kestrum-do print: FILE coloured as a window colours it on opening, printed into a PDF file
// with the user's page setup; bad options as usage errors. A job that fails is the printing
// test's.
#include "app/cli/DoFrame.h"
#include "base/qt/AppGlobals.h"
#include "printing/PrintDoCommands.h"
#include "printing/modPrintRTFText.h"

#include "printing/PdfReader.h"
#include "support/TempDir.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <sstream>

TEST(PrintDoCommand, CommandLines) {
    // The shipped profiles, as beside the real executable.
    if (const char* build = std::getenv("KESTRUM_BUILD_DIR")) SetAppDirForTesting(build);
    TempDir tmp;
    const std::string source = "int main(void)\n{\n    return 0; /* done */\n}\n";
    const std::string c = tmp.write("listing.c", source), txt = tmp.write("listing.txt", source);
    const std::string pdf = tmp.file("out.pdf"), ini = tmp.file("config/Kestrum.ini");
    const std::string cp = "C and C++ Default Profile", outside = "../PROFILES/" + cp;
    // The page set up in the editor holds for scripts too, and is left as it was.
    const std::string bw = "[Printer Settings]\nBlackAndWhite = True\nTopMargin = 3\n";
    enum Colour { Unwritten, Coloured, Plain };
    const struct {
        const char* name;
        std::vector<std::string> args;
        Colour colour;        // keywords and comments in colours of their own, or all in one
        std::string err;      // a part of stderr (a usage error), "" for nothing at all
        std::string settings; // the user's settings file, "" for none
    } cases[] = {
        {"C source coloured by its extension", {"--pdf", pdf, c}, Coloured, "", ""},
        {"plain text", {"--pdf", pdf, txt}, Plain, "", ""},
        {"named profile", {"--pdf", pdf, "--profile", cp, txt}, Coloured, "", ""},
        {"unknown profile", {"--pdf", pdf, "--profile", "Nosuch", c}, Unwritten, "Nosuch", ""},
        {"outside PROFILES/", {"--pdf", pdf, "--profile", outside, c}, Unwritten, "PROFILES/", ""},
        {"no --pdf", {c}, Unwritten, "--pdf", ""},
        {"black and white chosen in the editor", {"--pdf", pdf, c}, Plain, "", bw},
    };
    // The user's settings are read from a folder of the test's own.
    const char* before = std::getenv("XDG_CONFIG_HOME");
    const std::string saved = before ? before : "";
    ::setenv("XDG_CONFIG_HOME", tmp.file("config").c_str(), 1);
    const std::vector<DoCommand> table = PrintDoCommands();
    for (const auto& k : cases) {
        SCOPED_TRACE(k.name);
        std::remove(pdf.c_str());
        if (!k.settings.empty()) tmp.write("config/Kestrum.ini", k.settings);
        ResetPrintingInProgressForTesting(); // each run stands for a process of its own
        std::vector<std::string> args{"print"};
        args.insert(args.end(), k.args.begin(), k.args.end());
        std::ostringstream out, err;
        EXPECT_EQ(RunKestrumDo(args, table, out, err), k.err.empty() ? 0 : 2) << err.str();
        EXPECT_EQ(out.str(), "");
        if (k.err.empty())
            EXPECT_EQ(err.str(), "");
        else
            EXPECT_NE(err.str().find(k.err), std::string::npos) << err.str();
        const PdfContents read = ReadPdf(QString::fromStdString(pdf));
        EXPECT_EQ(read.pages > 0, k.colour != Unwritten);
        if (k.colour == Unwritten) continue;
        EXPECT_TRUE(
            QString(read.text).remove(QRegularExpression("\\s")).contains("return0;/*done*/"));
        // Black text on white, and more colours only where the profile colours words.
        EXPECT_EQ(read.fills.size() > 2, k.colour == Coloured);
        if (!k.settings.empty()) {
            EXPECT_EQ(ReadFileBytes(ini), k.settings);
        }
    }
    before ? ::setenv("XDG_CONFIG_HOME", saved.c_str(), 1) : ::unsetenv("XDG_CONFIG_HOME");
    ResetPrintingInProgressForTesting();
}
