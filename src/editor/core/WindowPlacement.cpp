#include "editor/core/WindowPlacement.h"

#include <algorithm>
#include <cstdint>
#include <utility>

WindowRect CascadePlace(size_t n, int areaWidth, int areaHeight, int width, int height, int step) {
    step = std::max(step, 1);
    // How many steps fit before a window would cross the right or bottom edge.
    int room = std::min(areaWidth - width, areaHeight - height) / step;
    size_t places = size_t(std::max(room, 0)) + 1;
    int offset = int(n % places) * step;
    return {offset, offset, width, height};
}

std::vector<WindowRect> CascadeAll(size_t count, int areaWidth, int areaHeight, int step) {
    // Leave room for up to eight steps, so that every title bar of a short cascade shows.
    int steps = int(std::min<size_t>(count, 8)) - 1;
    int width = std::max(areaWidth - steps * step, areaWidth / 2);
    int height = std::max(areaHeight - steps * step, areaHeight / 2);
    std::vector<WindowRect> out;
    for (size_t i = 0; i < count; ++i)
        out.push_back(CascadePlace(i, areaWidth, areaHeight, width, height, step));
    return out;
}

namespace {
// Splits `length` into `count` parts whose sizes differ by at most one pixel and fill it.
std::vector<std::pair<int, int>> Split(size_t count, int length) {
    std::vector<std::pair<int, int>> out;
    for (size_t i = 0; i < count; ++i) {
        int from = int(int64_t(length) * int64_t(i) / int64_t(count));
        int to = int(int64_t(length) * int64_t(i + 1) / int64_t(count));
        out.emplace_back(from, to - from);
    }
    return out;
}
} // namespace

std::vector<WindowRect> TileRows(size_t count, int areaWidth, int areaHeight) {
    std::vector<WindowRect> out;
    for (auto [y, h] : Split(count, areaHeight)) out.push_back({0, y, areaWidth, h});
    return out;
}

std::vector<WindowRect> TileColumns(size_t count, int areaWidth, int areaHeight) {
    std::vector<WindowRect> out;
    for (auto [x, w] : Split(count, areaWidth)) out.push_back({x, 0, w, areaHeight});
    return out;
}

WindowRect KeepInside(WindowRect w, int areaWidth, int areaHeight) {
    w.width = std::min(w.width, std::max(areaWidth, 1));
    w.height = std::min(w.height, std::max(areaHeight, 1));
    w.x = std::clamp(w.x, 0, std::max(areaWidth - w.width, 0));
    w.y = std::clamp(w.y, 0, std::max(areaHeight - w.height, 0));
    return w;
}
