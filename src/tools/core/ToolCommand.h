#pragma once
// The processes a tool run starts. A command line S always runs through "sh -c"; the forms
// that keep or close a console run it inside a terminal emulator, and capturing redirects both
// output streams to the capture file through a small wrapper that appends the exit status.
#include <functional>
#include <string>
#include <string_view>
#include <vector>

struct ProcessLine {
    std::string program;
    std::vector<std::string> args;
    bool operator==(const ProcessLine&) const = default;
};

enum class ConsoleForm {
    KeepOpen, // the console stays until Enter is pressed
    Close,    // the console closes when the command ends
    Bare,     // no console and no interpreter of its own: sh -c S, detached
};

// The command forms of the run dialog. With capture, S's output goes to capturePath and the
// last line there tells how the command ended. Capture is ignored in the bare form. An empty S
// with capture only empties the capture file.
ProcessLine ToolProcess(ConsoleForm form, std::string_view s, bool capture,
                        std::string_view capturePath, std::string_view terminal);

// The terminal to run consoles in: the "Terminal" setting when not empty, else
// x-terminal-emulator, else the first of xterm, gnome-terminal, konsole that onPath finds.
// Empty when none is found.
std::string ChooseTerminal(std::string_view setting,
                           const std::function<bool(std::string_view)>& onPath);

// The capture file of one editor instance: under runtimeDir (else tmpDir), named by user id
// and process id.
std::string CaptureFilePath(std::string_view runtimeDir, std::string_view tmpDir,
                            unsigned long uid, long pid);
// Creates (or truncates) the capture file with mode 0600. On failure returns false with the
// system's reason.
bool CreateCaptureFile(const std::string& path, std::string& error);
