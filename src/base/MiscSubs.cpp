#include "base/MiscSubs.h"

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>

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

bool ReadWholeFile(const std::string& path, std::string& bytes, std::string& error) {
    std::FILE* f = std::fopen(path.c_str(), "rb");
    if (!f) {
        error = std::strerror(errno);
        return false;
    }
    bytes.clear();
    char chunk[1 << 16];
    for (size_t got; (got = std::fread(chunk, 1, sizeof chunk, f)) > 0;) bytes.append(chunk, got);
    const bool failed = std::ferror(f);
    const int code = errno;
    std::fclose(f);
    if (failed) { // a folder, or a read error
        error = std::strerror(code);
        return false;
    }
    return true;
}

namespace {
// The digits of a whole number with a comma between each group of three; 0 gives "".
std::string GroupThousands(unsigned long long n) {
    std::string digits = n ? std::to_string(n) : std::string();
    for (size_t i = digits.size(); i > 3; i -= 3) digits.insert(i - 3, 1, ',');
    return digits;
}
} // namespace

std::string SizeText(double bytes) {
    static const char* const kUnits[] = {" GB", " MB", " KB"};
    for (int i = 0; i < 3; ++i) {
        const double unit = std::pow(2.0, 10.0 * (3 - i));
        if (bytes < unit) continue;
        // "###,###.000": the value rounded to thousandths, the whole part grouped.
        const auto thousandths = static_cast<unsigned long long>(std::llround(bytes / unit * 1000));
        char frac[8];
        std::snprintf(frac, sizeof frac, ".%03llu", thousandths % 1000);
        return GroupThousands(thousandths / 1000) + frac + kUnits[i];
    }
    return GroupThousands(static_cast<unsigned long long>(std::llround(bytes))) + " Bytes";
}
