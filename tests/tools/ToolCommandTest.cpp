#include "tools/core/ToolCommand.h"

#include "support/TempDir.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {
std::string Quoted(const std::string& s) {
    std::string q = "'";
    for (char c : s) q += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return q + "'";
}
// Runs a process line to its end with standard input at end of file; gives the shell's status.
int RunToEnd(const ProcessLine& p) {
    std::string command = Quoted(p.program);
    for (const std::string& a : p.args) command += " " + Quoted(a);
    return std::system((command + " </dev/null >/dev/null").c_str());
}
} // namespace

TEST(ToolCommand, EveryFormRunsTheLineAndCapturesWhatItShould) {
    TempDir tmp;
    // A terminal that runs its command in place, as a real one would inside its window.
    const std::string term =
        tmp.write("term", "#!/bin/sh\n[ \"$1\" = -e ] && shift\nexec \"$@\"\n");
    ::chmod(term.c_str(), 0755);
    const std::string cap = tmp.file("cap.txt");
    const std::string marker = tmp.file("ran");
    struct Case {
        ConsoleForm form;
        bool capture;
        std::string line;
        // The capture file's content; "..." in front: its end only, the shell's own words
        // before it vary. "?": the file stays untouched and the command ran.
        std::string captured;
    };
    const Case cases[] = {
        {ConsoleForm::KeepOpen, true, "echo out; echo err >&2",
         "out\nerr\nTool finished (exit 0)\n"},
        {ConsoleForm::Close, true, "printf 'no end'; exit 3", "no end\nTool finished (exit 3)\n"},
        {ConsoleForm::Close, true, "kill -9 $$", "...\nTool killed by signal 9\n"},
        {ConsoleForm::Close, true, "no-such-program-here",
         "...not found\nTool finished (exit 127)\n"},
        {ConsoleForm::Close, true, "", ""}, // an empty line only empties the file
        {ConsoleForm::KeepOpen, false, "touch " + marker, "?"},
        {ConsoleForm::Close, false, "touch " + marker, "?"},
        {ConsoleForm::Bare, true, "touch " + marker, "?"}, // no redirection in the bare form
    };
    for (const auto& c : cases) {
        tmp.write("cap.txt", "?");
        std::remove(marker.c_str());
        RunToEnd(ToolProcess(c.form, c.line, c.capture, cap, term));
        std::string got = ReadFileBytes(cap);
        if (c.captured.starts_with("...")) {
            EXPECT_TRUE(got.ends_with(c.captured.substr(3))) << c.line << ": " << got;
        } else {
            EXPECT_EQ(got, c.captured) << c.line;
        }
        if (c.captured == "?") {
            EXPECT_TRUE(FileExists(marker)) << c.line;
        }
    }
}

TEST(ToolCommand, TerminalChoiceAndItsCommandSyntax) {
    auto onPath = [](std::string_view have) {
        return [have](std::string_view t) { return have.find(t) != std::string_view::npos; };
    };
    EXPECT_EQ(ChooseTerminal("st", onPath("xterm")), "st");
    EXPECT_EQ(ChooseTerminal("", onPath("konsole xterm x-terminal-emulator")),
              "x-terminal-emulator");
    EXPECT_EQ(ChooseTerminal("", onPath("konsole gnome-terminal")), "gnome-terminal");
    EXPECT_EQ(ChooseTerminal("", onPath("")), "");
    EXPECT_EQ(ToolProcess(ConsoleForm::Close, "x", false, "", "/usr/bin/gnome-terminal").args[0],
              "--");
    EXPECT_EQ(ToolProcess(ConsoleForm::Close, "x", false, "", "xterm").args[0], "-e");
}

TEST(ToolCommand, CaptureFileIsPrivateToItsUserAndInstance) {
    EXPECT_EQ(CaptureFilePath("/run/user/7", "/tmp", 7, 42),
              "/run/user/7/kestrum-capture-7-42.txt");
    EXPECT_EQ(CaptureFilePath("", "/var/tmp/", 7, 42), "/var/tmp/kestrum-capture-7-42.txt");
    TempDir tmp;
    std::string error;
    const std::string path = tmp.write("cap.txt", "old output");
    ::chmod(path.c_str(), 0644);
    ASSERT_TRUE(CreateCaptureFile(path, error)) << error;
    struct stat st;
    ASSERT_EQ(::stat(path.c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 0777, 0600u);
    EXPECT_EQ(st.st_size, 0);
    EXPECT_FALSE(CreateCaptureFile(tmp.file("missing/cap.txt"), error));
    EXPECT_FALSE(error.empty());
    ASSERT_EQ(::symlink(tmp.file("elsewhere").c_str(), tmp.file("link").c_str()), 0);
    EXPECT_FALSE(CreateCaptureFile(tmp.file("link"), error));
    EXPECT_FALSE(FileExists(tmp.file("elsewhere")));
}
