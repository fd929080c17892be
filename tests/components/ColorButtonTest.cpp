#include "components/ColorButton.h"

#include "support/ScriptedDialogs.h"

#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>
#include <set>

// 48 different colours; each cell is found where it is drawn, inside the popup and above the
// "Other..." button. Where a cell lies and what it holds is pinned by the mouse cases below.
TEST(ColorButton, PaletteAndLayout) {
    ColorButton b;
    EXPECT_EQ(b.SelectedColor(), QColor(255, 255, 255));
    const ColorPopup& popup = *b.Popup();
    std::set<QRgb> colours;
    for (int i = 1; i <= ColorPopup::kCells; ++i) {
        colours.insert(ColorPopup::CellColor(i).rgb());
        EXPECT_EQ(popup.CellAt(popup.CellRect(i).center()), i);
        EXPECT_TRUE(popup.rect().contains(popup.CellRect(i))) << i;
        EXPECT_LT(popup.CellRect(i).bottom(), popup.CellRect(ColorPopup::kOther).top()) << i;
    }
    EXPECT_EQ(colours.size(), 48u);
    EXPECT_EQ(popup.CellAt(QPoint(18, 10)), 0); // the gap between two cells
}

TEST(ColorButton, ChoosingAColour) {
    ScriptedDialogs dialogs;
    struct Case {
        const char* name;
        std::function<void(ColorButton&)> act;
        QColor after;
        int clicks;
    };
    auto releaseAt = [](QPoint p) {
        return [p](ColorButton& b) {
            b.ShowPopup();
            QTest::mouseMove(b.Popup(), p);
            QTest::mouseRelease(b.Popup(), Qt::LeftButton, {}, p);
        };
    };
    const QColor start(10, 20, 30);
    const std::vector<Case> cases = {
        {"mouse up over a cell", releaseAt(QRect(56, 2, 16, 16).center()), QColor(0, 0, 149), 1},
        {"mouse up between cells", releaseAt(QPoint(18, 10)), start, 0},
        {"Other... with OK",
         [&](ColorButton& b) {
             dialogs.AnswerColor(QColor(1, 2, 3));
             b.ShowPopup();
             QTest::mousePress(b.Popup(), Qt::LeftButton, {}, b.Popup()->CellRect(49).center());
         },
         QColor(1, 2, 3), 1},
        {"Other... cancelled",
         [&](ColorButton& b) {
             dialogs.AnswerColor(std::nullopt);
             b.ChooseOther();
         },
         start, 0},
        {"Escape",
         [](ColorButton& b) {
             b.ShowPopup();
             QTest::keyClick(b.Popup(), Qt::Key_Escape);
         },
         start, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        ColorButton b;
        b.show();
        b.SetSelectedColor(start);
        QSignalSpy clicks(&b, &ColorButton::Click);
        c.act(b);
        EXPECT_EQ(b.SelectedColor(), c.after);
        EXPECT_EQ(clicks.count(), c.clicks);
        EXPECT_FALSE(b.Popup()->isVisible());
        EXPECT_EQ(dialogs.Pending(), 0u);
    }
}
