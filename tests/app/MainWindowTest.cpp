#include "components/FlipPane.h"
#include "support/AppFixture.h"

#include <QComboBox>
#include <QStatusBar>
#include <QTabBar>
#include <QToolBar>

namespace {
struct MainWindowTest : AppFixture {
    void Restart(const QString& commandLine = {}) {
        main->close();
        main.reset();
        Start(commandLine);
    }
};
} // namespace

TEST_F(MainWindowTest, FirstStartMaximisesAndLaterStartsRestoreTheWindow) {
    Start();
    EXPECT_TRUE(main->isMaximized());
    EXPECT_EQ(Setting("First Load"), "False");
    EXPECT_EQ(Setting("Build", "Version"), QString::number(ProgramBuildNumber()));
    ASSERT_EQ(Documents().OpenDocuments().size(), 1u);
    EXPECT_EQ(main->ActiveForm()->Caption(), "Untitled 1");

    main->showNormal();
    main->setGeometry(40, 50, 700, 500);
    main->tbSearch->hide();
    main->statusBar()->hide();
    main->picBrowser->Rollup();
    main->LastDir = "/tmp/";
    Restart();
    EXPECT_FALSE(main->isMaximized());
    EXPECT_EQ(main->size(), QSize(700, 500));
    EXPECT_EQ(Setting("MainWidth"), "700");
    EXPECT_EQ(Setting("SearchToolBar"), "False");
    EXPECT_EQ(Setting("CompilerToolBar"), "True");
    EXPECT_EQ(Setting("FileBrowser"), "False");
    EXPECT_EQ(Setting("ClipText"), "True");
    EXPECT_EQ(Setting("LastDir"), "/tmp/");
    EXPECT_TRUE(main->tbSearch->isHidden());
    EXPECT_TRUE(main->statusBar()->isHidden());
    EXPECT_TRUE(main->picBrowser->RolledUp());
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

TEST_F(MainWindowTest, TheCommandLineNamesOneFileQuotedOrNot) {
    std::string file = tmp.write("my file.txt", "line one\nline two\n");
    for (QString cmd : {QString::fromStdString(file), "\"" + QString::fromStdString(file) + "\""}) {
        Start(cmd);
        // The file goes into the blank document that every start makes.
        auto docs = Documents().OpenDocuments();
        ASSERT_EQ(docs.size(), 1u);
        EXPECT_EQ(docs[0]->Caption(), "my file.txt");
        EXPECT_EQ(main->tabFiles->tabText(0), "my file.txt");
        EXPECT_EQ(docs[0]->Tag.toStdString(), file);
        EXPECT_EQ(docs[0]->rtfText->Text(), "line one\r\nline two\r\n");
        EXPECT_FALSE(docs[0]->Changed);
        EXPECT_FALSE(FileExists(file + "~"));
        main->close();
        main.reset();
    }
}

TEST_F(MainWindowTest, CommandLineBackupAndFailures) {
    SaveSetting("Kestrum", "Version", "Build", QString::number(ProgramBuildNumber()));
    SaveSetting("Kestrum", "Settings", "Backup", "True");
    std::string file = tmp.write("a.c", "int x;\n");
    Start(QString::fromStdString(file));
    EXPECT_EQ(ReadFileBytes(file + "~"), "int x;\n"); // with the file's own line ends
    main->close();
    main.reset();

    dialogs.AnswerMsgBox(MsgResult::OK);
    Start(Path("no such file.txt"));
    ASSERT_EQ(dialogs.asked.size(), 1u);
    EXPECT_TRUE(dialogs.asked[0].text.startsWith("An error occurred while processing the file " +
                                                 Path("no such file.txt") +
                                                 ", specified in the command line.\r\n"));
    ASSERT_EQ(Documents().OpenDocuments().size(), 1u); // the editor runs on
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
    EXPECT_NE(Setting("RecentFile1"), "<none>");
    main.reset();
}

TEST_F(MainWindowTest, AnOpenedFileIsDrawnInTheDocumentWindow) {
    std::string file = tmp.write("hello.c", "int main(void)\n{\n    return 0;\n}\n");
    Start(QString::fromStdString(file));
    main->show();
    QApplication::processEvents();
    frmDocument* doc = main->ActiveForm();
    ASSERT_NE(doc, nullptr);
    ASSERT_TRUE(doc->rtfText->isVisible());
    // What the window shows, so that a widget lying over the text fails the test as well.
    QWidget* view = doc->rtfText->viewport();
    QWidget* top = main->childAt(main->mapFromGlobal(view->mapToGlobal(QPoint(40, 10))));
    EXPECT_EQ(top, view) << "the text lies outside the window, or something covers it";
    QImage shot = main->grab(QRect(view->mapTo(main.get(), QPoint(0, 0)), view->size())).toImage();
    int dark = 0;
    for (int y = 0; y < std::min(shot.height(), 80); ++y)
        for (int x = 0; x < std::min(shot.width(), 300); ++x)
            if (qGray(shot.pixel(x, y)) < 128) ++dark;
    EXPECT_GT(dark, 20) << "no text drawn in a " << shot.width() << "x" << shot.height() << " view";
    // The profile box names the profile the document colours with.
    EXPECT_FALSE(doc->SyntaxProfile().isEmpty());
    EXPECT_EQ(main->cboProfiles->currentText(), doc->SyntaxProfile());
    EXPECT_EQ(main->windowTitle(), "hello.c - Kestrum");
    doc->CloseWith(frmDocument::vbFormCode);
    Settle();
    EXPECT_EQ(main->windowTitle(), "Kestrum");
}

TEST_F(MainWindowTest, DocumentWindowsStayInsideTheAreaAndArrangeAtAUsefulSize) {
    Start();
    main->show();
    for (int i = 0; i < 5; ++i) NewDocument();
    QApplication::processEvents();
    QRect area(QPoint(0, 0), main->mdiArea->viewport()->size());
    auto windows = main->mdiArea->subWindowList();
    ASSERT_EQ(windows.size(), 6);
    for (QMdiSubWindow* w : windows)
        EXPECT_TRUE(area.contains(w->geometry())) << w->windowTitle().toStdString();

    main->mnuWindowCascade_Click();
    for (QMdiSubWindow* w : windows) {
        EXPECT_TRUE(area.contains(w->geometry()));
        EXPECT_GE(w->height(), area.height() / 2);
    }
    main->mnuWindowTileHorizontal_Click();
    for (QMdiSubWindow* w : windows) {
        EXPECT_EQ(w->width(), area.width());
        EXPECT_EQ(w->x(), 0);
    }
    main->mnuWindowTileVertical_Click();
    for (QMdiSubWindow* w : windows) EXPECT_EQ(w->height(), area.height());

    // A smaller area pulls the windows back into view.
    main->mnuWindowCascade_Click();
    main->resize(main->width() - 200, main->height() - 150);
    QApplication::processEvents();
    QRect smaller(QPoint(0, 0), main->mdiArea->viewport()->size());
    for (QMdiSubWindow* w : windows) EXPECT_TRUE(smaller.contains(w->geometry()));
}
