#pragma once
// Where document windows go inside the area that holds them: the place of a new window,
// the Cascade and Tile arrangements, and pulling a window back into view after the area
// shrank. Plain rectangle arithmetic, so that it can be tested without a window system.
#include <cstddef>
#include <vector>

struct WindowRect {
    int x = 0, y = 0, width = 0, height = 0;
    bool operator==(const WindowRect&) const = default;
};

// The n-th window of a cascade (n counted from 0) in an area of width x height, each one
// `step` pixels right of and below the one before, and of the given size. A window that would
// reach past the area's right or bottom edge starts the cascade again at the top left.
WindowRect CascadePlace(size_t n, int areaWidth, int areaHeight, int width, int height, int step);

// Window > Cascade for `count` windows: each of the same useful size (the area less room for
// the cascade's steps, but never below half the area), laid out by CascadePlace.
std::vector<WindowRect> CascadeAll(size_t count, int areaWidth, int areaHeight, int step);

// Window > Tile Horizontal: full-width windows stacked one above another.
std::vector<WindowRect> TileRows(size_t count, int areaWidth, int areaHeight);

// Window > Tile Vertical: full-height windows side by side.
std::vector<WindowRect> TileColumns(size_t count, int areaWidth, int areaHeight);

// The window made no larger than the area and moved so that it lies wholly inside it.
WindowRect KeepInside(WindowRect window, int areaWidth, int areaHeight);
