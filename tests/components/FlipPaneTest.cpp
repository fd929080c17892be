#include "components/FlipPane.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

namespace {

struct Pane {
    explicit Pane(FlipPane::Edge edge = FlipPane::Left) : pane(edge, "ClipText") {
        pane.UseAnimation = false;
        pane.resize(600, 400);
        pane.show();
    }
    FlipPane pane;
};

TEST(FlipPane, SizeLimits) {
    struct Case {
        double min, max;
        bool minAccepted;
        double minAfter, maxAfter, paneAfter;
    };
    const std::vector<Case> cases = {
        {100, 3000, true, 400, 3000, 3000},   // raised to 400
        {1000, 9000, true, 1000, 5000, 3000}, // maximum cut to 5000
        {4000, 3000, false, 400, 3000, 3000}, // minimum above maximum refused
        {3000, 3000, true, 3000, 3000, 3000},
        {3600, 4000, true, 3600, 4000, 3600}, // the pane grows to the new minimum
    };
    for (const Case& c : cases) {
        Pane p;
        p.pane.SetMaxSize(c.max);
        QString error;
        EXPECT_EQ(p.pane.SetMinSize(c.min, &error), c.minAccepted) << c.min;
        EXPECT_EQ(error.contains("You just set the minimum size to be greater than the maximum!"),
                  !c.minAccepted);
        EXPECT_EQ(p.pane.MinSize(), c.minAfter);
        EXPECT_EQ(p.pane.MaxSize(), c.maxAfter);
        EXPECT_EQ(p.pane.PaneSize(), c.paneAfter) << c.min;
        EXPECT_EQ(p.pane.CurrentWidth(), c.paneAfter) << c.min;
    }
}

TEST(FlipPane, ClicksAndDoubleClicks) {
    struct Case {
        int rollupEvent;
        bool startRolled, dblClick;
        bool rolledAfter;
        int rollups, unrolls;
    };
    const std::vector<Case> cases = {
        {1, false, false, true, 1, 0},
        {0, false, false, false, 0, 0}, // a click does not roll up
        {0, false, true, true, 1, 0},   // a double click does
        {0, true, false, false, 0, 1},  // a click always unrolls
    };
    for (const Case& c : cases) {
        Pane p;
        p.pane.RollupEvent = c.rollupEvent;
        if (c.startRolled) p.pane.Rollup();
        QSignalSpy up(&p.pane, &FlipPane::UserRollup), down(&p.pane, &FlipPane::UserUnroll);
        c.dblClick ? p.pane.cmdMenu_DblClick() : p.pane.cmdMenu_Click();
        EXPECT_EQ(p.pane.RolledUp(), c.rolledAfter);
        EXPECT_EQ(up.count(), c.rollups);
        EXPECT_EQ(down.count(), c.unrolls);
    }
}

TEST(FlipPane, RollingShrinksToTheBarAndRestoresSizeAndTips) {
    for (auto edge : {FlipPane::Top, FlipPane::Bottom, FlipPane::Left, FlipPane::Right}) {
        Pane p(edge);
        p.pane.SetPaneSize(2400);
        p.pane.Rollup();
        double across = edge <= FlipPane::Bottom ? p.pane.CurrentHeight() : p.pane.CurrentWidth();
        EXPECT_LT(across, 600) << edge;
        EXPECT_TRUE(p.pane.picDragger->isHidden());
        EXPECT_EQ(p.pane.cmdMenu->toolTip(), "Click to restore this panel.");
        p.pane.Unroll();
        across = edge <= FlipPane::Bottom ? p.pane.CurrentHeight() : p.pane.CurrentWidth();
        EXPECT_EQ(across, 2400) << edge;
        EXPECT_EQ(p.pane.picDragger->toolTip(), "Drag to resize");
        EXPECT_EQ(p.pane.cmdMenu->toolTip(), "Click to minimise this panel.");
    }
}

TEST(FlipPane, DraggingFollowsTheMouseWithinLimits) {
    struct Case {
        FlipPane::Edge edge;
        int mouse; // pixels from the pane's outer edge toward the documents
        double expected;
    };
    const std::vector<Case> cases = {
        {FlipPane::Left, 100, 1500},   {FlipPane::Right, 100, 1500}, {FlipPane::Top, 120, 1800},
        {FlipPane::Bottom, 120, 1800}, {FlipPane::Left, 5, 400},     {FlipPane::Left, 900, 5000},
    };
    for (const Case& c : cases) {
        Pane p(c.edge);
        p.pane.SetPaneSize(3000);
        QPoint origin = p.pane.mapToGlobal(QPoint(0, 0));
        QSize s = p.pane.size();
        QPoint at = c.edge == FlipPane::Left    ? origin + QPoint(c.mouse, 10)
                    : c.edge == FlipPane::Right ? origin + QPoint(s.width() - c.mouse, 10)
                    : c.edge == FlipPane::Top   ? origin + QPoint(10, c.mouse)
                                                : origin + QPoint(10, s.height() - c.mouse);
        QSignalSpy sized(&p.pane, &FlipPane::SizeChanged);
        p.pane.picDragger_MouseDown(Qt::LeftButton, at);
        p.pane.picDragger_MouseMove(Qt::LeftButton, at);
        p.pane.picDragger_MouseUp(at);
        EXPECT_EQ(p.pane.PaneSize(), c.expected) << c.edge << " " << c.mouse;
        ASSERT_EQ(sized.count(), 1);
        EXPECT_EQ(sized.at(0).at(0).toDouble(), c.expected);
    }
}

TEST(FlipPane, DragRefused) {
    struct Case {
        const char* name;
        Qt::MouseButton button;
        bool allowResize, rolled, equalLimits;
    };
    const std::vector<Case> cases = {
        {"right button", Qt::RightButton, true, false, false},
        {"resizing off", Qt::LeftButton, false, false, false},
        {"rolled up", Qt::LeftButton, true, true, false},
        {"minimum equals maximum", Qt::LeftButton, true, false, true},
    };
    for (const Case& c : cases) {
        Pane p;
        p.pane.AllowResize = c.allowResize;
        if (c.equalLimits) {
            p.pane.SetMaxSize(2000);
            p.pane.SetMinSize(2000);
        }
        if (c.rolled) p.pane.Rollup();
        QSignalSpy sized(&p.pane, &FlipPane::SizeChanged);
        double before = p.pane.PaneSize();
        QPoint far = p.pane.mapToGlobal(QPoint(40, 10));
        p.pane.picDragger_MouseDown(c.button, far);
        p.pane.picDragger_MouseMove(Qt::LeftButton, far);
        p.pane.picDragger_MouseUp(far);
        EXPECT_FALSE(p.pane.Dragging()) << c.name;
        EXPECT_EQ(p.pane.PaneSize(), before) << c.name;
        EXPECT_EQ(sized.count(), 0) << c.name;
    }
}

} // namespace
