// The kestrum-do frame: the command line, the document, the boxes, the output and the status,
// checked with a table of small subcommands of the test's own.
#include "app/cli/DoFrame.h"
#include "editor/frmDocument.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>
#include <sstream>

namespace {

const DoCommand kTable[] = {
    // Prints the document; with --upper, upper-cases it first.
    {"show", true,
     [](DoRun& r) {
         DoOptions o(r.args, {"--upper"});
         o.Positional(0);
         if (o.Has("--upper")) {
             std::string t(r.doc->rtfText->TextView());
             for (char& c : t) c = char(toupper(static_cast<unsigned char>(c)));
             r.doc->rtfText->SetText(t);
         }
         WriteDocument(r);
     }},
    // Asks TIMES questions (answers from --answers), prints each answer.
    {"ask", true,
     [](DoRun& r) {
         DoOptions o(r.args, {}, {"--answers", "--times"});
         o.Positional(0);
         for (char c : o.Value("--answers").value_or(""))
             r.dialogs->answers.push_back(c == 'Y' ? MsgResult::Yes : MsgResult::No);
         int times = ParseCount(o.Value("--times").value_or("1"), "--times");
         for (int i = 0; i < times; ++i) {
             MsgResult a = cDialogs::Get().MsgBox("Go on?\r\nReally?", MsgButtons::YesNo,
                                                  MsgIcon::Question, "Caption");
             *r.out << (a == MsgResult::Yes ? "yes" : a == MsgResult::No ? "no" : "cancel") << '\n';
         }
         WriteSelection(r);
     }},
    // Needs no document: echoes its two arguments.
    {"pair", false,
     [](DoRun& r) {
         DoOptions o(r.args, {});
         const auto& p = o.Positional(2);
         *r.out << p[0] << '|' << p[1] << '\n';
     }},
};

struct Case {
    std::vector<std::string> args; // FILE stands as "@" (the test file), "@missing" for none
    int status;
    std::string out;
    std::string err; // a part of stderr
};

TEST(DoFrame, CommandLines) {
    TempDir tmp;
    std::string file = tmp.write("doc.txt", "ab\ncd\rx\r\n");
    const Case cases[] = {
        {{"show", "@"}, 0, "ab\r\ncd\r\nx\r\n", ""},
        {{"show", "--upper", "@"}, 0, "AB\r\nCD\r\nX\r\n", ""},
        {{"--select", "2", "3", "ask", "--answers", "Y", "--times", "2", "@"},
         0,
         "yes\ncancel\n2 3\n",
         "message: Go on?\\nReally?\nmessage: Go on?\\nReally?\n"},
        {{"pair", "a b", "c"}, 0, "a b|c\n", ""},
        // Usage errors: nothing on stdout, one line on stderr, status 2. Unknown options, a
        // missing FILE and counts below one are met by the subcommands' own end-to-end cases.
        {{"show", "@missing"}, 2, "", "missing.txt"},
        {{"ask", "--answers", "YY", "--times", "1x", "@"}, 2, "", "--times"},
        {{"--select", "1", "show", "@"}, 2, "", "--select"},
        {{"--select", "-1", "0", "show", "@"}, 2, "", "--select"},
        {{"nosuch", "@"}, 2, "", "unknown subcommand"},
        {{}, 2, "", "no subcommand"},
    };
    for (const Case& c : cases) {
        std::vector<std::string> args;
        std::string shown;
        for (const std::string& a : c.args) {
            args.push_back(a == "@" ? file : a == "@missing" ? tmp.file("missing.txt") : a);
            shown += a + " ";
        }
        std::ostringstream out, err;
        int status = RunKestrumDo(args, kTable, out, err);
        EXPECT_EQ(status, c.status) << shown << err.str();
        EXPECT_EQ(out.str(), c.out) << shown;
        EXPECT_NE(err.str().find(c.err), std::string::npos) << shown << err.str();
        if (c.status == 2) {
            std::string e = err.str();
            EXPECT_EQ(std::count(e.begin(), e.end(), '\n'), 1) << shown;
        }
    }
}

} // namespace
