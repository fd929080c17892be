#include "tools/core/ErrorLocation.h"

namespace {
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Reads a positive decimal number at s[i], advancing i; 0 when there is none or it is too big.
int Number(std::string_view s, size_t& i) {
    long v = 0;
    size_t start = i;
    while (i < s.size() && IsDigit(s[i])) {
        v = v * 10 + (s[i++] - '0');
        if (v > 100000000) return 0;
    }
    return i > start ? static_cast<int>(v) : 0;
}

bool EndsPath(char c) {
    return c == ':' || c == ' ' || c == '\t' || c == '[' || c == '(' || c == '"' || c == '\'' || c == '`';
}

std::optional<ErrorLocation> PythonFrame(std::string_view s) {
    constexpr std::string_view kFile = "File \"";
    auto p = s.find(kFile);
    if (p == std::string_view::npos) return std::nullopt;
    p += kFile.size();
    auto q = s.find('"', p);
    if (q == std::string_view::npos || q == p) return std::nullopt;
    constexpr std::string_view kLine = ", line ";
    if (s.substr(q + 1, kLine.size()) != kLine) return std::nullopt;
    size_t i = q + 1 + kLine.size();
    int n = Number(s, i);
    if (n <= 0) return std::nullopt;
    return ErrorLocation{std::string(s.substr(p, q - p)), n, 0};
}
} // namespace

std::optional<ErrorLocation> ParseErrorLocation(std::string_view s) {
    if (auto py = PythonFrame(s)) return py;
    for (size_t colon = s.find(':'); colon != std::string_view::npos;
         colon = s.find(':', colon + 1)) {
        size_t i = colon + 1;
        int line = Number(s, i);
        if (line <= 0 || i >= s.size() || s[i] != ':') continue;
        size_t start = colon;
        while (start > 0 && !EndsPath(s[start - 1])) --start;
        std::string_view file = s.substr(start, colon - start);
        bool allDigits = true;
        for (char c : file) allDigits = allDigits && IsDigit(c);
        if (file.empty() || allDigits) continue;
        size_t j = i + 1;
        int column = Number(s, j);
        if (column <= 0 || j >= s.size() || s[j] != ':') column = 0;
        return ErrorLocation{std::string(file), line, column};
    }
    return std::nullopt;
}

std::string ResolveToolPath(std::string_view file, std::string_view baseDir) {
    if (file.empty() || file.front() == '/' || baseDir.empty()) return std::string(file);
    std::string out(baseDir);
    if (out.back() != '/') out += '/';
    if (file.substr(0, 2) == "./") file.remove_prefix(2);
    return out + std::string(file);
}
