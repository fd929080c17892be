#include "support/AppTest.h"

#include <QComboBox>
#include <QStatusBar>
#include <QTabBar>

using MainWindowTest = AppTest;

// The tool bars are remembered as the menu test checks. A later start that found no "First
// Load" or another build number would maximise again.
TEST_F(MainWindowTest, FirstStartMaximisesAndLaterStartsRestoreTheWindow) {
    Start();
    EXPECT_TRUE(main->isMaximized());

    main->showNormal();
    main->setGeometry(40, 50, 700, 500);
    main->statusBar()->hide();
    main->LastDir = "/tmp/";
    Restart();
    EXPECT_FALSE(main->isMaximized());
    EXPECT_EQ(main->size(), QSize(700, 500));
    EXPECT_EQ(Setting("LastDir"), "/tmp/");
    EXPECT_TRUE(main->statusBar()->isHidden());
}

TEST_F(MainWindowTest, AChangedBuildNumberResetsEditorSettingsAndAssociations) {
    SaveSetting("Kestrum", "Version", "Build", "0");
    SaveSetting("Kestrum", "Settings", "First Load", "False");
    SaveSetting("Kestrum", "Settings", "TabWidth", "8");
    SaveSetting("Kestrum", "Syntax Associations", "C", "Mine");
    SaveSetting("Kestrum", "Printer Settings", "TopMargin", "2.5");
    Start();
    EXPECT_EQ(Setting("TabWidth"), "<none>");
    // The table went and the defaults were written anew.
    EXPECT_EQ(Setting("C", "Syntax Associations"), "C and C++ Default Profile");
    EXPECT_EQ(g_EditorSettings().TabWidth, 4);
    EXPECT_FLOAT_EQ(g_PrintMargins().Top, 2.5f); // printer settings survive
    EXPECT_TRUE(main->isMaximized());            // "First Load" went with the section
}

// A quoted name, and the backup a command-line load makes, are checked end to end in
// e2e_command_line.
TEST_F(MainWindowTest, TheCommandLineNamesOneFile) {
    std::string file = tmp.write("my file.c", "line one\nline two\n");
    Start(QString::fromStdString(file));
    // The file goes into the blank document that every start makes.
    auto docs = Documents().OpenDocuments();
    ASSERT_EQ(docs.size(), 1u);
    EXPECT_EQ(docs[0]->Caption(), "my file.c");
    EXPECT_EQ(main->tabFiles->tabText(0), "my file.c");
    EXPECT_EQ(docs[0]->Tag.toStdString(), file);
    EXPECT_FALSE(docs[0]->Changed);
    // The title names the file, and the profile box the profile it colours with.
    EXPECT_EQ(main->windowTitle(), "my file.c - Kestrum");
    EXPECT_FALSE(docs[0]->SyntaxProfile().isEmpty());
    EXPECT_EQ(main->cboProfiles->currentText(), docs[0]->SyntaxProfile());
    docs[0]->CloseWith(frmDocument::vbFormCode);
    Settle();
    EXPECT_EQ(main->windowTitle(), "Kestrum");

    // A file that cannot be read: the box, and the editor runs on with its blank document.
    dialogs.AnswerMsgBox(MsgResult::OK);
    Restart(Path("no such file.txt"));
    ASSERT_EQ(dialogs.asked.size(), 1u);
    EXPECT_TRUE(dialogs.asked[0].text.startsWith("An error occurred while processing the file " +
                                                 Path("no such file.txt") +
                                                 ", specified in the command line.\r\n"));
    ASSERT_EQ(Documents().OpenDocuments().size(), 1u);
    EXPECT_EQ(main->ActiveForm()->Caption(), "Untitled 1");
}

TEST_F(MainWindowTest, UserResetKeepsOnlyWhatTheCloseStepWrites) {
    Start();
    SaveSetting("Kestrum", "Settings", "TabWidth", "8");
    SaveSetting("Kestrum", "Syntax Associations", "C", "Mine");
    dialogs.AnswerMsgBox(MsgResult::No);
    main->mnuPrefsReset_Click();
    EXPECT_EQ(Setting("TabWidth"), "8");
    dialogs.AnswerMsgBox(MsgResult::Yes);
    main->mnuPrefsReset_Click();
    EXPECT_EQ(dialogs.asked.back().caption, "Confirm.");
    EXPECT_EQ(Setting("TabWidth"), "<none>");
    EXPECT_EQ(Setting("First Load"), "<none>");
    EXPECT_EQ(Setting("C", "Syntax Associations"), "<none>");
    EXPECT_NE(Setting("MainWidth"), "<none>");
    main.reset();
}

// The cascade and the arrangement of new windows are checked under a real window system in
// e2e_window_layout; here, that each tile command fills the area its own way and that a
// smaller area pulls the windows back into view.
TEST_F(MainWindowTest, TilesFillTheAreaAndASmallerAreaPullsWindowsBack) {
    Start();
    for (int i = 0; i < 3; ++i) NewDocument();
    QApplication::processEvents();
    QRect area(QPoint(0, 0), main->mdiArea->viewport()->size());
    auto windows = main->mdiArea->subWindowList();
    main->mnuWindowTileHorizontal_Click();
    for (QMdiSubWindow* w : windows) EXPECT_EQ(w->width(), area.width());
    main->mnuWindowTileVertical_Click();
    for (QMdiSubWindow* w : windows) EXPECT_EQ(w->height(), area.height());

    main->resize(main->width() - 200, main->height() - 150);
    QApplication::processEvents();
    QRect smaller(QPoint(0, 0), main->mdiArea->viewport()->size());
    for (QMdiSubWindow* w : windows) EXPECT_TRUE(smaller.contains(w->geometry()));
}
