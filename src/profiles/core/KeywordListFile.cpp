#include "profiles/core/KeywordListFile.h"

#include "base/EditorSettings.h"
#include "base/MiscSubs.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

KeywordLists ParseKeywordListFile(std::string_view bytes, KeywordImportRule rule) {
    KeywordLists lists;
    size_t list = 0;
    while (!bytes.empty()) {
        size_t end = bytes.find_first_of("\r\n");
        std::string_view line = bytes.substr(0, end);
        if (end == std::string_view::npos)
            bytes = {};
        else
            bytes.remove_prefix(end + (bytes.substr(end, 2) == "\r\n" ? 2 : 1));

        if (line == kListEndLine) {
            if (list < 2) ++list;
            continue;
        }
        std::string_view trimmed = Trim(line);
        if (rule == KeywordImportRule::Options ? trimmed.empty()
                                               : (!trimmed.empty() && trimmed.front() == '~'))
            continue;
        lists[list] += line;
        lists[list] += kKeywordSeparator;
    }
    return lists;
}

std::string FormatKeywordListFile(const KeywordLists& lists) {
    std::string out;
    for (const auto& list : lists) {
        std::string_view rest = list;
        for (size_t p; (p = rest.find(kKeywordSeparator)) != std::string_view::npos;) {
            out.append(rest.substr(0, p)).append("\r\n");
            rest.remove_prefix(p + 1);
        }
        if (!rest.empty()) out.append(rest).append("\r\n");
        out.append(kListEndLine).append("\r\n");
    }
    return out;
}

bool ReadKeywordListFile(const std::string& path, KeywordLists& lists, std::string& error,
                         KeywordImportRule rule) {
    lists = {};
    std::string bytes;
    if (!ReadWholeFile(path, bytes, error)) return false;
    lists = ParseKeywordListFile(bytes, rule);
    return true;
}

bool WriteKeywordListFile(const std::string& path, const KeywordLists& lists, std::string& error) {
    std::FILE* f = std::fopen(path.c_str(), "wb");
    if (!f) {
        error = std::strerror(errno);
        return false;
    }
    const std::string text = FormatKeywordListFile(lists);
    bool ok = std::fwrite(text.data(), 1, text.size(), f) == text.size();
    int code = errno;
    if (std::fclose(f) != 0 && ok) ok = false, code = errno;
    if (!ok) error = std::strerror(code);
    return ok;
}
