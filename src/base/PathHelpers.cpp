#include "base/PathHelpers.h"

std::string StripQuotes(std::string_view s) {
    std::string_view t = s;
    while (!t.empty() && t.front() == ' ') t.remove_prefix(1);
    while (!t.empty() && t.back() == ' ') t.remove_suffix(1);
    if (!t.empty() && t.front() == '"') {
        if (t.size() < 2) return {};
        return std::string(t.substr(1, t.size() - 2));
    }
    return std::string(s);
}

std::string FileNameOf(std::string_view path) {
    auto p = path.rfind('/');
    return p == std::string_view::npos ? std::string() : std::string(path.substr(p + 1));
}

std::string StripExtension(std::string_view path) {
    auto p = path.rfind('.');
    return p == std::string_view::npos ? std::string() : std::string(path.substr(0, p));
}

std::string PathOf(std::string_view path) {
    auto p = path.rfind('/');
    return p == std::string_view::npos ? std::string() : std::string(path.substr(0, p + 1));
}

std::string AppDirFrom(std::string_view programDir) {
    std::string d(programDir);
    if (d.empty() || d.back() != '/') d += '/';
    return d;
}
