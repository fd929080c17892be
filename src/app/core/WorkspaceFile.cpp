#include "app/core/WorkspaceFile.h"

std::string WriteWorkspace(const std::vector<WorkspaceEntry>& documents) {
    std::string out;
    for (const WorkspaceEntry& d : documents) {
        out += d.caption;
        out += "\r\n";
        out += d.path;
        out += "\r\n";
    }
    return out;
}

namespace {

// One line from pos; false when pos is already at the end. A CR LF, CR or LF ends the line.
bool ReadLine(std::string_view bytes, size_t& pos, std::string& line) {
    if (pos >= bytes.size()) return false;
    size_t end = bytes.find_first_of("\r\n", pos);
    if (end == std::string_view::npos) {
        line.assign(bytes.substr(pos));
        pos = bytes.size();
        return true;
    }
    line.assign(bytes.substr(pos, end - pos));
    pos = end + 1;
    if (bytes[end] == '\r' && pos < bytes.size() && bytes[pos] == '\n') ++pos;
    return true;
}

} // namespace

WorkspaceRead ReadWorkspace(std::string_view bytes) {
    WorkspaceRead r;
    size_t pos = 0;
    do {
        WorkspaceEntry e;
        if (!ReadLine(bytes, pos, e.caption) || !ReadLine(bytes, pos, e.path)) {
            r.error = std::string(kInputPastEndOfFile);
            break;
        }
        r.entries.push_back(std::move(e));
    } while (pos < bytes.size());
    return r;
}

bool IsWorkspaceName(std::string_view name) {
    return name.size() >= 4 && name.substr(name.size() - 4) == ".KWS";
}
