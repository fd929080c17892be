#include "tools/core/ToolCommand.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {
// $1 is the command line, $2 the capture file. The status line starts on a line of its own;
// a shell reports death by signal N as status 128 + N.
constexpr const char* kCaptureScript =
    "if [ -n \"$1\" ]; then sh -c \"$1\" >\"$2\" 2>&1; s=$?; "
    "if [ -s \"$2\" ] && [ -n \"$(tail -c 1 \"$2\")\" ]; then echo >>\"$2\"; fi; "
    "if [ $s -gt 128 ]; then echo \"Tool killed by signal $((s - 128))\"; "
    "else echo \"Tool finished (exit $s)\"; fi >>\"$2\"; "
    "else : >\"$2\"; fi";
constexpr const char* kPlainScript = "sh -c \"$1\"";
constexpr const char* kKeepSuffix = "; printf '\\nPress Enter to close this window. '; read _";

std::string BaseName(std::string_view path) {
    auto p = path.rfind('/');
    return std::string(p == std::string_view::npos ? path : path.substr(p + 1));
}
} // namespace

ProcessLine ToolProcess(ConsoleForm form, std::string_view s, bool capture,
                        std::string_view capturePath, std::string_view terminal) {
    if (form == ConsoleForm::Bare) return {"sh", {"-c", std::string(s)}};
    std::string script = capture ? kCaptureScript : kPlainScript;
    if (form == ConsoleForm::KeepOpen) script += kKeepSuffix;
    ProcessLine p{std::string(terminal), {}};
    // gnome-terminal takes the command after "--"; the others after "-e".
    p.args.push_back(BaseName(terminal) == "gnome-terminal" ? "--" : "-e");
    for (std::string a : {std::string("sh"), std::string("-c"), script, std::string("kestrum-tool"),
                          std::string(s), std::string(capturePath)})
        p.args.push_back(std::move(a));
    return p;
}

std::string ChooseTerminal(std::string_view setting,
                           const std::function<bool(std::string_view)>& onPath) {
    if (!setting.empty()) return std::string(setting);
    for (const char* t : {"x-terminal-emulator", "xterm", "gnome-terminal", "konsole"})
        if (onPath(t)) return t;
    return {};
}

std::string CaptureFilePath(std::string_view runtimeDir, std::string_view tmpDir,
                            unsigned long uid, long pid) {
    std::string dir(runtimeDir.empty() ? tmpDir : runtimeDir);
    if (dir.empty()) dir = "/tmp";
    if (dir.back() != '/') dir += '/';
    return dir + "kestrum-capture-" + std::to_string(uid) + "-" + std::to_string(pid) + ".txt";
}

bool CreateCaptureFile(const std::string& path, std::string& error) {
    // O_NOFOLLOW: in a shared temporary folder, a planted link must not redirect the output.
    int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (fd < 0) {
        error = std::strerror(errno);
        return false;
    }
    bool ok = ::fchmod(fd, 0600) == 0;
    if (!ok) error = std::strerror(errno);
    ::close(fd);
    return ok;
}
