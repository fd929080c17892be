// The tray icon component's tip and icon. What its clicks become, and whether the icon is
// shown, are checked with the main window in MainTrayTest.
#include "components/cSysTray.h"

#include <gtest/gtest.h>

namespace {
TEST(cSysTrayTest, ALongTipIsCutAndANullIconRefused) {
    cSysTray tray;
    const QString tip = QString(70, 'x') + "end";
    tray.SetTrayTip(tip);
    EXPECT_EQ(tray.TrayTip(), tip);
    EXPECT_EQ(tray.toolTip(), QString(cSysTray::kMaxTip, 'x'));

    ASSERT_FALSE(tray.TrayIcon().isNull()) << "the program's own icon from the start";
    const qint64 before = tray.TrayIcon().cacheKey();
    tray.SetTrayIcon(QIcon());
    EXPECT_EQ(tray.TrayIcon().cacheKey(), before);
    QPixmap red(16, 16);
    red.fill(Qt::red);
    tray.SetTrayIcon(QIcon(red));
    EXPECT_NE(tray.TrayIcon().cacheKey(), before);
}

} // namespace
