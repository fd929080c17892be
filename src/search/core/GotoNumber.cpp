#include "search/core/GotoNumber.h"

#include <charconv>
#include <cmath>
#include <limits>

int64_t ReadNumber(std::string_view s) {
    size_t i = 0;
    while (i < s.size() && (s[i] == ' ' || s[i] == '\t' || s[i] == '\r' || s[i] == '\n')) ++i;
    size_t begin = i;
    if (i < s.size() && (s[i] == '+' || s[i] == '-')) ++i;
    size_t digits = 0;
    while (i < s.size() && s[i] >= '0' && s[i] <= '9') ++i, ++digits;
    if (i < s.size() && s[i] == '.') {
        ++i;
        while (i < s.size() && s[i] >= '0' && s[i] <= '9') ++i, ++digits;
    }
    if (digits == 0) return 0;
    std::string_view num = s.substr(begin, i - begin);
    bool negative = num[0] == '-';
    if (num[0] == '+' || num[0] == '-') num.remove_prefix(1);
    double value = 0;
    auto r = std::from_chars(num.data(), num.data() + num.size(), value);
    if (r.ec != std::errc() && r.ec != std::errc::result_out_of_range) return 0;
    if (negative) value = -value;
    // A number beyond every line and character is as good as any other beyond them.
    constexpr double limit = 9.0e18;
    if (!(value < limit)) return int64_t(limit);
    if (!(value > -limit)) return -int64_t(limit);
    return int64_t(std::nearbyint(value)); // the default rounding mode rounds halves to even
}

std::optional<int64_t> GotoLineIndex(std::string_view answer, int64_t lineCount) {
    int64_t n = ReadNumber(answer);
    if (n > lineCount || n <= 0) return std::nullopt;
    return n - 1;
}

std::optional<Selection> GotoCharSelection(std::string_view answer, int64_t textLength) {
    int64_t n = ReadNumber(answer);
    if (n <= 0 || n > textLength) return std::nullopt;
    return Selection{n - 1, 1};
}
