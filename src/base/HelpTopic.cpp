#include "base/HelpTopic.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <unistd.h>

namespace {
std::string AttributeText(std::string_view s) {
    std::string out;
    for (char c : s) {
        if (c == '&')
            out += "&amp;";
        else if (c == '"')
            out += "&quot;";
        else
            out += c;
    }
    return out;
}

std::string Quoted(std::string_view value) {
    return '"' + std::string(value) + '"';
}
} // namespace

std::string HelpFrameset(std::string_view topic, std::string_view pagesBase) {
    const std::string base = AttributeText(pagesBase);
    std::string page = base + AttributeText(topic) + ".htm";
    return "<HTML><FRAMESET COLS=" + Quoted("100%") + " ROWS=" + Quoted("32,*") +
           "><FRAME NAME=" + Quoted("Header") + " SRC=" + Quoted(base + "header.htm") +
           " SCROLLING=" + Quoted("NO") + " NORESIZE><FRAMESET COLS=" + Quoted("240,*") +
           "><FRAME NAME=" + Quoted("Nav") + " SRC=" + Quoted(base + "index.htm") +
           " SCROLLING=" + Quoted("AUTO") + "><FRAME NAME=" + Quoted("Main") +
           " SRC=" + Quoted(page) + " SCROLLING=" + Quoted("AUTO") +
           "></FRAMESET></FRAMESET></HTML>";
}

std::string HelpFramesetPath(std::string_view appDir) {
    return std::string(appDir) + "Help/help.htm";
}

HelpFileResult WriteHelpFrameset(std::string_view appDir, std::string_view topic,
                                 std::string_view pagesBase) {
    const std::string target = HelpFramesetPath(appDir);
    const std::string tmp = target + "." + std::to_string(::getpid()) + ".tmp";
    const std::string line = HelpFrameset(topic, pagesBase) + "\n";

    auto fail = [&](int err, bool removeTmp) {
        if (removeTmp) std::remove(tmp.c_str());
        return HelpFileResult{false, std::strerror(err)};
    };

    std::FILE* f = std::fopen(tmp.c_str(), "wb");
    if (!f) return fail(errno, false);
    bool written = std::fwrite(line.data(), 1, line.size(), f) == line.size();
    int err = written ? 0 : errno;
    // Buffered data reaches the disk at the close, so a full disk may only show here.
    if (std::fclose(f) != 0 && written) {
        written = false;
        err = errno;
    }
    if (!written) return fail(err ? err : EIO, true);
    if (std::rename(tmp.c_str(), target.c_str()) != 0) return fail(errno, true);
    return {true, {}};
}

std::string HelpWriteFailureText(std::string_view error) {
    return "Kestrum's help system was unable to generate an index file (help.htm). Please "
           "ensure that the 'Help' subdirectory exists, and that it is not write-protected."
           "\r\n\r\nError : " +
           std::string(error);
}
