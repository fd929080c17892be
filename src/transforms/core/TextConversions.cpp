#include "transforms/core/TextConversions.h"

#include "base/MiscSubs.h"

#include <algorithm>
#include <limits>

int64_t ReadCount(std::string_view text) {
    size_t i = 0;
    while (i < text.size() && (text[i] == ' ' || text[i] == '\t')) ++i;
    bool negative = false;
    if (i < text.size() && (text[i] == '-' || text[i] == '+')) negative = text[i++] == '-';
    constexpr int64_t kMax = std::numeric_limits<int64_t>::max() / 10 - 9;
    int64_t n = 0;
    for (; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i)
        n = n >= kMax ? kMax : n * 10 + (text[i] - '0');
    return negative ? -n : n;
}

uint64_t TabsToSpacesSize(std::string_view text, int64_t count) {
    uint64_t tabs = uint64_t(std::count(text.begin(), text.end(), '\t'));
    uint64_t each = uint64_t(std::max<int64_t>(count, 0));
    if (tabs != 0 && each > (std::numeric_limits<uint64_t>::max() - text.size()) / tabs)
        return std::numeric_limits<uint64_t>::max();
    return text.size() - tabs + tabs * each;
}

std::string TabsToSpaces(std::string_view text, int64_t count) {
    if (count <= 0) return RemoveChar(text, '\t');
    std::string out;
    out.reserve(size_t(TabsToSpacesSize(text, count)));
    for (char c : text) {
        if (c == '\t')
            out.append(size_t(count), ' ');
        else
            out += c;
    }
    return out;
}

std::string SpacesToTabs(std::string_view text, int64_t count) {
    if (count <= 0 || uint64_t(count) > text.size()) return std::string(text);
    return ReplaceText(text, std::string(size_t(count), ' '), "\t");
}

std::string ToDosLineEnds(std::string_view text) {
    return ReplaceText(text, "\n", "\r\n");
}

std::string ToUnixLineEnds(std::string_view text) {
    return RemoveChar(text, '\r');
}

TextRange DeleteLineRange(std::string_view t, int64_t pos) {
    TextRange line = LineAround(t, pos);
    int64_t e = line.start + line.length;
    int64_t n = int64_t(t.size());
    if (e >= n) return line; // the last line: its line end in front of it stays
    int64_t next = t[size_t(e)] == '\r' && e + 1 < n && t[size_t(e + 1)] == '\n' ? e + 2 : e + 1;
    return {line.start, next - line.start};
}
