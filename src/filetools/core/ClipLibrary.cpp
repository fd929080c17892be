#include "filetools/core/ClipLibrary.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

std::vector<std::string> ParseClipLibrary(std::string_view bytes) {
    std::vector<std::string> out;
    size_t pos = 0;
    while (pos < bytes.size()) {
        size_t end = bytes.find_first_of("\r\n", pos);
        if (end == std::string_view::npos) end = bytes.size();
        std::string_view line = bytes.substr(pos, end - pos);
        if (line.find_first_not_of(' ') != std::string_view::npos) out.emplace_back(line);
        pos = end + 1;
        if (end < bytes.size() && bytes[end] == '\r' && pos < bytes.size() && bytes[pos] == '\n')
            ++pos;
    }
    return out;
}

std::string ExpandSnippet(std::string_view snippet) {
    std::string out;
    out.reserve(snippet.size());
    for (size_t i = 0; i < snippet.size(); ++i) {
        if (snippet[i] == '\\' && i + 1 < snippet.size() && snippet[i + 1] == 'n') {
            out += "\r\n";
            ++i;
        } else {
            out += snippet[i];
        }
    }
    return out;
}

std::vector<std::string> ListPlainFiles(const std::string& folder) {
    namespace fs = std::filesystem;
    std::vector<std::string> names;
    std::error_code ec;
    fs::directory_iterator it(folder, ec), end;
    for (; !ec && it != end; it.increment(ec)) {
        std::error_code fec;
        if (!it->is_regular_file(fec) || fec) continue;
        std::string name = it->path().filename().string();
        if (!name.empty() && name[0] != '.') names.push_back(std::move(name));
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::vector<TemplateItem> TemplateCatalogue(const std::vector<std::string>& fileNames) {
    std::vector<TemplateItem> items;
    for (const std::string& f : fileNames) {
        size_t dot = f.rfind('.');
        std::string ext = dot == std::string::npos ? std::string() : f.substr(dot + 1);
        std::transform(ext.begin(), ext.end(), ext.begin(),
                       [](char c) { return c >= 'a' && c <= 'z' ? char(c - 'a' + 'A') : c; });
        if (dot != std::string::npos && ext == "EXE")
            items.push_back({f.substr(0, dot), 2});
        else
            items.push_back({f, 1});
    }
    return items;
}
