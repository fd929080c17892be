#include "transforms/core/MiscSubs.h"

std::string NextToken(std::string_view separator, std::string& work) {
    if (separator.empty()) return {};
    auto p = work.find(separator);
    if (p == std::string::npos) return {};
    std::string token = work.substr(0, p);
    work.erase(0, p + separator.size());
    return token;
}

std::string ReplaceText(std::string_view source, std::string_view find,
                        std::string_view replacement) {
    if (find.empty()) return std::string(source);
    std::string out;
    out.reserve(source.size());
    size_t from = 0;
    for (size_t p; (p = source.find(find, from)) != std::string_view::npos; from = p + find.size()) {
        out.append(source.substr(from, p - from));
        out.append(replacement);
    }
    out.append(source.substr(from));
    return out;
}

std::string RemoveChar(std::string_view text, char character) {
    std::string out;
    out.reserve(text.size());
    for (char c : text)
        if (c != character) out += c;
    return out;
}

std::string_view LTrim(std::string_view s) {
    while (!s.empty() && s.front() == ' ') s.remove_prefix(1);
    return s;
}

std::string_view Trim(std::string_view s) {
    s = LTrim(s);
    while (!s.empty() && s.back() == ' ') s.remove_suffix(1);
    return s;
}
