#include "editor/core/WindowPlacement.h"

#include <gtest/gtest.h>

TEST(WindowPlacement, NewWindowsCascadeAndStartAgainBeforeLeavingTheArea) {
    // 1000 x 600 area, 900 x 500 windows, steps of 30: places at 0, 30, 60, 90, then 0 again.
    for (size_t n = 0; n < 10; ++n)
        EXPECT_EQ(CascadePlace(n, 1000, 600, 900, 500, 30),
                  (WindowRect{int(n % 4) * 30, int(n % 4) * 30, 900, 500}))
            << n;
    // A window as large as the area (or larger) always sits at the top left.
    EXPECT_EQ(CascadePlace(3, 800, 600, 800, 600, 30), (WindowRect{0, 0, 800, 600}));
    EXPECT_EQ(CascadePlace(3, 800, 600, 900, 700, 30).x, 0);
    EXPECT_EQ(CascadePlace(3, 800, 600, 100, 100, 0).x, 3); // a zero step counts as one pixel
}

// That an arranged cascade stays inside the area at a useful size is checked on the main
// window's own area, where it is arranged.
TEST(WindowPlacement, TilesFillTheAreaWithoutGapsOrOverlap) {
    int y = 0, x = 0;
    for (const WindowRect& r : TileRows(3, 800, 601)) {
        EXPECT_EQ(r, (WindowRect{0, y, 800, r.height}));
        y += r.height;
    }
    for (const WindowRect& r : TileColumns(4, 803, 500)) {
        EXPECT_EQ(r, (WindowRect{x, 0, r.width, 500}));
        x += r.width;
    }
    EXPECT_EQ(y, 601);
    EXPECT_EQ(x, 803);
    EXPECT_EQ(TileColumns(4, 803, 500).size(), 4u);
    EXPECT_TRUE(TileRows(0, 800, 600).empty());
}

TEST(WindowPlacement, KeepInsidePullsWindowsBackAndShrinksOnlyWhatIsTooLarge) {
    struct Case {
        WindowRect in, out;
    } cases[] = {
        {{-328, 0, 648, 504}, {0, 0, 648, 504}},     // scrolled off to the left
        {{300, 200, 648, 504}, {152, 96, 648, 504}}, // past the right and bottom edges
        {{10, 10, 1000, 700}, {0, 0, 800, 600}},     // larger than the area
        {{20, 30, 100, 100}, {20, 30, 100, 100}},    // already inside: untouched
    };
    for (const Case& c : cases) EXPECT_EQ(KeepInside(c.in, 800, 600), c.out);
}
