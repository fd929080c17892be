// The tray icon component: clicks become mouse events, the tip and icon properties.
#include "components/cSysTray.h"

#include <gtest/gtest.h>

namespace {
TEST(cSysTrayTest, ClicksBecomeMouseEventsWithTheirButton) {
    struct Case {
        QSystemTrayIcon::ActivationReason reason;
        QStringList events;
    } cases[] = {
        {QSystemTrayIcon::Trigger, {"Down 1", "Up 1"}},
        {QSystemTrayIcon::Context, {"Down 2", "Up 2"}},
        {QSystemTrayIcon::MiddleClick, {"Down 4", "Up 4"}},
        {QSystemTrayIcon::DoubleClick, {"DblClick 1"}},
        {QSystemTrayIcon::Unknown, {}},
    };
    for (const Case& c : cases) {
        cSysTray tray;
        QStringList events;
        for (auto [signal, what] : {std::pair{&cSysTray::MouseDown, "Down"},
                                    {&cSysTray::MouseUp, "Up"},
                                    {&cSysTray::MouseDblClick, "DblClick"}}) {
            QObject::connect(&tray, signal, [&events, what](int button) {
                events << QStringLiteral("%1 %2").arg(what).arg(button);
            });
        }
        emit tray.activated(c.reason);
        EXPECT_EQ(events, c.events) << int(c.reason);
    }
}

TEST(cSysTrayTest, InTrayIsTheWishAndAddedWhatTheDesktopAllows) {
    cSysTray tray;
    EXPECT_FALSE(tray.InTray());
    EXPECT_FALSE(tray.Added());
    tray.SetInTray(true);
    EXPECT_TRUE(tray.InTray());
    EXPECT_EQ(tray.Added(), QSystemTrayIcon::isSystemTrayAvailable());
    tray.SetInTray(false);
    EXPECT_FALSE(tray.InTray());
    EXPECT_FALSE(tray.Added());
}

TEST(cSysTrayTest, ALongTipIsCutAndANullIconRefused) {
    cSysTray tray;
    const QString tip = QString(70, 'x') + "end";
    tray.SetTrayTip(tip);
    EXPECT_EQ(tray.TrayTip(), tip);
    EXPECT_EQ(tray.toolTip(), QString(cSysTray::kMaxTip, 'x'));
    tray.SetTrayTip("Kestrum Remote - Right-click for menu.");
    EXPECT_EQ(tray.toolTip(), "Kestrum Remote - Right-click for menu.");

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
