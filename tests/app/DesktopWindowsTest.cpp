// The tip of the day, the About box and the folder dialog, headless.
#include "app/frmAbout.h"
#include "app/frmChDir.h"
#include "app/frmTip.h"
#include "profiles/frmConfigAssocProfile.h"
#include "support/AppTest.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

namespace {

using DesktopWindows = AppTest;

// What the tip window shows on opening and after each Next, by the tips files present.
TEST_F(DesktopWindows, TipsFromTheUsersFileFirstThenTheShippedOne) {
    struct Case {
        const char* name;
        const char* shipped; // null: no file
        const char* user;
        QStringList shown; // on opening, then after each Next
    } cases[] = {
        {"user's shadows shipped", "first\n", "mine\r\nalso mine", {"mine", "also mine", "mine"}},
        {"no file", nullptr, nullptr, {"That the Kestrum.dat file was not found? "}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        TempDir dirs;
        SetDataFoldersForTesting(QString::fromStdString(dirs.path() + "shipped"),
                                 QString::fromStdString(dirs.path() + "user"));
        std::filesystem::create_directories(dirs.path() + "shipped");
        if (c.shipped) dirs.write("shipped/Kestrum.dat", c.shipped);
        if (c.user) dirs.write("user/Kestrum.dat", c.user);
        frmTip tip;
        QStringList shown{tip.lblTipText->text()};
        for (int i = 1; i < c.shown.size(); ++i) {
            tip.cmdNextTip->click();
            shown << tip.lblTipText->text();
        }
        EXPECT_EQ(shown, c.shown);
    }
}

TEST_F(DesktopWindows, StartupTipFollowsItsSetting) {
    Start();
    int shown = 0;
    SetModalRunnerForTesting([&](QDialog& d) {
        auto* tip = qobject_cast<frmTip*>(&d);
        ASSERT_NE(tip, nullptr);
        ++shown;
        // The box unticked in the window is written at once and holds at the next start.
        tip->chkLoadTipsAtStartup->setChecked(!tip->chkLoadTipsAtStartup->isChecked());
    });
    main->ShowStartupTip(); // default: shown, then switched off in the window
    EXPECT_EQ(Setting("Show Tips at Startup", "Options"), "0");
    main->ShowStartupTip();
    EXPECT_EQ(shown, 1);
    main->Command("mnuHelpTipofDay")->trigger(); // the menu shows it whatever the setting
    EXPECT_EQ(shown, 2);
    EXPECT_EQ(Setting("Show Tips at Startup", "Options"), "1");
    main->ShowStartupTip();
    EXPECT_EQ(shown, 3);
}

TEST_F(DesktopWindows, AboutShowsTheProjectVersion) {
    const QStringList parts = QString(KESTRUM_TEST_PROJECT_VERSION).split('.');
    frmAbout about;
    EXPECT_EQ(about.lblVersion->text(), "Version " + parts[0] + "." + parts[1] + "   Build " +
                                            QString::number(ProgramBuildNumber()));
    // No information tool on the path: the message, not a failure.
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", QByteArray::fromStdString(tmp.path() + "nothing"));
    dialogs.AnswerMsgBox(MsgResult::OK);
    about.cmdSysInfo->click();
    qputenv("PATH", path);
    ASSERT_EQ(dialogs.asked.size(), 1u);
    EXPECT_EQ(dialogs.asked[0].text, "System Information Is Unavailable At This Time");
}

TEST_F(DesktopWindows, ChangeDirectorySetsTheCurrentFolderOnOkOnly) {
    const QString before = QDir::currentPath();
    std::filesystem::create_directories(tmp.path() + "work/inner");
    std::filesystem::create_directories(tmp.path() + "work/Another");
    const QString work = Path("work");
    QDir::setCurrent(work);
    struct Case {
        const char* target; // under work; null for a folder that cannot be listed
        bool ok;
        QString expected;
    } cases[] = {{"inner", false, work}, {"inner", true, work + "/inner"}, {nullptr, true, work}};
    for (const auto& c : cases) {
        QDir::setCurrent(work);
        frmChDir dlg;
        dlg.show();
        EXPECT_EQ(dlg.lblCurrentDir->text(), work);
        QStringList listed;
        for (int i = 0; i < dlg.lstDirs->count(); ++i) listed << dlg.lstDirs->item(i)->text();
        EXPECT_EQ(listed, (QStringList{"..", "Another", "inner"}));
        EXPECT_EQ(dlg.lstDirs->SetPath(c.target ? work + "/" + c.target : work + "/missing"),
                  c.target != nullptr);
        (c.ok ? dlg.cmdOK : dlg.cmdCancel)->click();
        EXPECT_EQ(QDir::currentPath(), c.expected);
    }
    QDir::setCurrent(before);
    EXPECT_TRUE(DriveList().contains("/"));
    EXPECT_TRUE(DriveList().contains(QDir::homePath()));
}

} // namespace
