// The main window's tray icon, its menu and its commands.
#include "components/cSysTray.h"
#include "support/AppFixture.h"

#include <QAction>
#include <QMenu>

namespace {
struct MainTrayTest : AppFixture {
    void StartWithTray(const QString& value) {
        SaveSetting("Kestrum", "Version", "Build", QString::number(ProgramBuildNumber()));
        if (!value.isNull()) SaveSetting("Kestrum", "Settings", "SysTray", value);
        Start();
        ASSERT_NE(main->sysTray, nullptr);
    }
    QAction* Item(const char* name) { return main->mnuHidden->findChild<QAction*>(name); }
};

TEST_F(MainTrayTest, TheIconIsWantedOnlyWhileSysTrayIsOne) {
    struct Case {
        QString stored;
        bool inTray;
    } cases[] = {{QString(), true}, {"1", true},  {"1.0", true},
                 {"0", false},      {"2", false}, {"", false}};
    for (const Case& c : cases) {
        StartWithTray(c.stored);
        EXPECT_EQ(main->sysTray->InTray(), c.inTray) << c.stored.toStdString();
        // Where the desktop has no notification area, the editor runs on without the icon.
        EXPECT_EQ(main->sysTray->Added(), c.inTray && QSystemTrayIcon::isSystemTrayAvailable());
        EXPECT_EQ(main->sysTray->toolTip(), "Kestrum Remote - Right-click for menu.");
        main->close();
        EXPECT_FALSE(main->sysTray->InTray()) << "the close step takes the icon away";
        EXPECT_FALSE(main->sysTray->Added());
        main.reset();
        DeleteSetting("Kestrum", "Settings", "SysTray");
    }
}

// The right button pops up the menu; a double click runs Show Kestrum, its default item.
TEST_F(MainTrayTest, TheClicksOfTheIconAndItsMenu) {
    StartWithTray("1");
    QStringList captions;
    for (QAction* a : main->mnuHidden->actions()) captions << a->text();
    EXPECT_EQ(captions,
              QStringList({"Show Kestrum", "Close Kestrum", "Open File...", "Hex Edit File..."}));
    EXPECT_EQ(main->mnuHidden->defaultAction(), Item("mnuHiddenShowKestrum"));
    emit main->sysTray->activated(QSystemTrayIcon::Trigger);
    EXPECT_FALSE(main->mnuHidden->isVisible()) << "the left button opens no menu";
    emit main->sysTray->activated(QSystemTrayIcon::Context);
    EXPECT_TRUE(main->mnuHidden->isVisible());
    main->mnuHidden->close();

    main->showMinimized();
    Settle();
    ASSERT_TRUE(main->isMinimized());
    emit main->sysTray->activated(QSystemTrayIcon::DoubleClick);
    Settle();
    EXPECT_FALSE(main->isMinimized());
    EXPECT_FALSE(main->isMaximized()) << "restored to the normal state";
    EXPECT_TRUE(main->isVisible());
    EXPECT_EQ(main->focusWidget(), main->ActiveForm()->rtfText);

    Item("mnuHiddenCloseKestrum")->trigger();
    Settle();
    EXPECT_FALSE(main->isVisible());
    EXPECT_FALSE(main->sysTray->InTray());
    EXPECT_NE(Setting("MainWidth"), "<none>"); // closed through the close step
}

} // namespace
