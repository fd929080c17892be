#include "filetools/core/DesktopAssociations.h"

#include <gtest/gtest.h>

using Types = std::vector<std::string>;

TEST(DesktopAssociations, ExtensionsAMimeGlobCanHold) {
    using Exts = std::vector<std::string>;
    for (const std::string& ext :
         Exts{"C", "cpp", "tar.gz", "c++", "my_ext-2", std::string(64, 'a')})
        EXPECT_TRUE(IsAssociableExtension(ext)) << ext;
    for (const std::string& ext : Exts{"", ".c", "c.", "a b", "*", "h[pp]", "x/y", "x\"y", "<b>",
                                       "\xc3\xa9", std::string(65, 'a')})
        EXPECT_FALSE(IsAssociableExtension(ext)) << ext;
}

// The type and package names are read back in the association dialog's test.
TEST(DesktopAssociations, MimePackageEscapesItsComment) {
    std::string xml = MimePackageXml("text/x-kestrum-kws", "KWS", "Source <Code> & more");
    EXPECT_NE(xml.find("<mime-type type=\"text/x-kestrum-kws\">"), std::string::npos);
    EXPECT_NE(xml.find("<glob pattern=\"*.kws\"/>"), std::string::npos);
    EXPECT_NE(xml.find("<comment>Source &lt;Code&gt; &amp; more</comment>"), std::string::npos);
}

TEST(DesktopAssociations, ExecArgumentsQuotedOnlyWhenNeeded) {
    struct Case {
        std::string arg, quoted;
    } cases[] = {{"/usr/bin/kestrum", "/usr/bin/kestrum"},
                 {"/opt/my apps/kestrum", "\"/opt/my apps/kestrum\""},
                 {"/a/$HOME\\b\"c`", "\"/a/\\$HOME\\\\b\\\"c\\`\""},
                 {"/a/100%", "/a/100%%"},
                 {"", "\"\""}};
    for (const auto& c : cases) EXPECT_EQ(QuoteExecArgument(c.arg), c.quoted) << c.arg;
}

// An entry written and read back gives its types and verbs again, escapes and all, and an
// entry holding a backslash or a line break keeps each on its own line of the file. The lines
// of a written entry are read in the association dialog's test.
TEST(DesktopAssociations, DesktopEntryReadsBackItsTypesAndVerbs) {
    DesktopEntryFields f;
    f.name = "&Open in Kestrum";
    f.comment = "Source Code";
    f.exec = QuoteExecArgument("/opt/my apps/kestrum") + " %f";
    f.icon = "kestrum";
    f.mimeTypes = {"text/x-csrc", "text/x-kestrum-kws"};
    f.verbs = {{"print", "&Print", QuoteExecArgument("/opt/my apps/kestrum") + " /p %f"},
               {"new", "Ne&w && more", "kestrum /n %f"}};
    const std::string text = DesktopEntryText(f);
    EXPECT_EQ(MimeTypesOfDesktopEntry(text), f.mimeTypes);
    std::vector<DesktopVerb> verbs = VerbsOfDesktopEntry(text);
    ASSERT_EQ(verbs.size(), 2u);
    EXPECT_EQ(verbs[0].exec, f.verbs[0].exec);
    EXPECT_EQ(verbs[1].text, "New && more");
    EXPECT_EQ(VerbsOfDesktopEntry(DesktopEntryText({"n", "", "", "", {}, verbs})), verbs);

    DesktopEntryFields odd = f;
    odd.exec = QuoteExecArgument("/a\\b") + " %f";
    odd.comment = "two\nlines";
    const std::string oddText = DesktopEntryText(odd);
    EXPECT_NE(oddText.find("\nExec=\"/a\\\\\\\\b\" %f\n"), std::string::npos);
    EXPECT_NE(oddText.find("\nComment=two\\nlines\n"), std::string::npos);

    EXPECT_TRUE(MimeTypesOfDesktopEntry("[Other]\nMimeType=a/b;\n").empty());
}

TEST(DesktopAssociations, MimeAppsMergeKeepsEveryOtherLine) {
    struct Case {
        const char* name;
        std::string before;
        Types types;
        std::string after;
    } cases[] = {
        {"empty file",
         "",
         {"text/x-csrc"},
         "[Default Applications]\ntext/x-csrc=K.desktop\n\n"
         "[Added Associations]\ntext/x-csrc=K.desktop;\n"},
        {"replaces the default, keeps the others and their order",
         "# mine\n[Default Applications]\ntext/html=firefox.desktop\ntext/x-csrc=vim.desktop\n\n"
         "[Added Associations]\ntext/x-csrc=vim.desktop;emacs.desktop;\n",
         {"text/x-csrc"},
         "# mine\n[Default Applications]\ntext/html=firefox.desktop\ntext/x-csrc=K.desktop\n\n"
         "[Added Associations]\ntext/x-csrc=K.desktop;vim.desktop;emacs.desktop;\n"},
        {"new keys go behind the group's last line, before the blank one",
         "[Added Associations]\ntext/html=a.desktop\n\n"
         "[Default Applications]\ntext/html=a.desktop\n\n"
         "[Removed Associations]\ntext/plain=x.desktop;\n",
         {"text/x-csrc", "text/x-kestrum-kws"},
         "[Added Associations]\ntext/html=a.desktop\ntext/x-csrc=K.desktop;\n"
         "text/x-kestrum-kws=K.desktop;\n\n[Default Applications]\ntext/html=a.desktop\n"
         "text/x-csrc=K.desktop\ntext/x-kestrum-kws=K.desktop\n\n[Removed Associations]\n"
         "text/plain=x.desktop;\n"},
        {"CR LF kept, stray lines kept, no line end at the end",
         "junk before any group\r\n[Default Applications]\r\nnot a key line\r\ntext/x-csrc = old",
         {"text/x-csrc"},
         "junk before any group\r\n[Default Applications]\r\nnot a key line\r\n"
         "text/x-csrc=K.desktop\r\n\r\n[Added Associations]\r\ntext/x-csrc=K.desktop;\r\n"},
        {"a key in a look-alike group is not touched",
         "[Default Applications Extra]\ntext/x-csrc=vim.desktop\n",
         {"text/x-csrc"},
         "[Default Applications Extra]\ntext/x-csrc=vim.desktop\n\n[Default Applications]\n"
         "text/x-csrc=K.desktop\n\n[Added Associations]\ntext/x-csrc=K.desktop;\n"},
    };
    for (const auto& c : cases) {
        MimeAppsResult r = MergeMimeApps(c.before, c.types, "K.desktop");
        ASSERT_TRUE(r.ok) << c.name;
        EXPECT_EQ(r.text, c.after) << c.name;
        EXPECT_EQ(MergeMimeApps(r.text, c.types, "K.desktop").text, c.after) << "a second run";
    }
}

TEST(DesktopAssociations, MimeAppsThatIsNotTextIsRefused) {
    for (std::string bad :
         {std::string("[Default Applications]\n\0x", 25),
          std::string("[Default Applications]\ntext/a=\xff\xfe\n"), std::string("caf\xc3")}) {
        MimeAppsResult r = MergeMimeApps(bad, {"text/x-csrc"}, "K.desktop");
        EXPECT_FALSE(r.ok);
        EXPECT_FALSE(r.error.empty());
    }
    EXPECT_TRUE(MergeMimeApps("caf\xc3\xa9\n", {"a/b"}, "K.desktop").ok);
}

TEST(DesktopAssociations, ProgramsNeverOfferedAndTheWorkspaceAlwaysLast) {
    struct Case {
        Types keys, offered;
    } cases[] = {{{}, {"KWS"}},
                 {{"C", "EXE", "exe ", " Com", "bat", "pas"}, {"C", "pas", "KWS"}},
                 {{"EXEC", " h "}, {"EXEC", " h ", "KWS"}},
                 {{"KWS"}, {"KWS", "KWS"}}};
    for (const auto& c : cases) EXPECT_EQ(ExtensionsToOffer(c.keys), c.offered);
}
