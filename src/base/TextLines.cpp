#include "base/TextLines.h"

#include <algorithm>

namespace {
// Where the line holding pos begins: behind the nearest line end before it. A position
// between the CR and the LF of a pair belongs to the line before.
int64_t LineBegin(std::string_view t, int64_t pos) {
    int64_t n = int64_t(t.size());
    int64_t s = pos;
    while (s > 0) {
        char c = t[size_t(s - 1)];
        if (c == '\n' || (c == '\r' && (s >= n || t[size_t(s)] != '\n'))) break;
        --s;
    }
    return s;
}
} // namespace

TextRange LineAround(std::string_view t, int64_t pos) {
    int64_t n = int64_t(t.size());
    pos = std::clamp<int64_t>(pos, 0, n);
    int64_t s = LineBegin(t, pos);
    int64_t e = s;
    while (e < n && t[size_t(e)] != '\r' && t[size_t(e)] != '\n') ++e;
    return {s, e - s};
}
