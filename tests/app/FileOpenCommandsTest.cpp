// Open, recent files, drops, a failed save on close, reload and the three insert commands. What
// their dialogs ask is checked with every other file dialog in FileExportCommandsTest.
#include "support/AppTest.h"

#include <QApplication>
#include <QDir>
#include <QDragEnterEvent>
#include <QMimeData>
#include <filesystem>

using FileOpenTest = FileCommandsFixture;

TEST_F(FileOpenTest, OpenLoadsIntoANewDocumentAndRemembersTheFolder) {
    std::string file = tmp.write("src/main.c", "int main;\nreturn;\n");
    main->LastDir = Q(tmp.path());
    frmDocument* d = OpenByDialog(file);
    EXPECT_EQ(Last().file.initDir, Q(tmp.path()));
    ASSERT_EQ(OpenCount(), 2u);
    EXPECT_EQ(d->Caption(), "main.c");
    EXPECT_EQ(TabText(d->TabKey()), "main.c");
    EXPECT_EQ(d->Tag, Q(file));
    EXPECT_EQ(Text(d), "int main;\r\nreturn;\r\n");
    EXPECT_FALSE(d->Changed);
    EXPECT_EQ(main->RecentFiles[1], Q(file));
    EXPECT_EQ(main->LastDir, Q(tmp.path() + "src/"));
    EXPECT_FALSE(FileExists(tmp.file("src/main.BAK")));
    // Another road to the same file, by a different spelling of its path, shows its document.
    NewWithText("other");
    EXPECT_EQ(OpenByDialog(tmp.path() + "src/./main.c"), d);
    EXPECT_EQ(OpenCount(), 3u);
}

// Open and Save As start in the active document's folder, else the last folder, else home.
TEST_F(FileOpenTest, TheFileDialogsStartWhereTheUserIsWorking) {
    main->LastDir = Q(tmp.path() + "gone/");
    dialogs.AnswerFile(std::nullopt);
    main->mnuFileOpen_Click();
    EXPECT_EQ(Last().file.initDir, QDir::homePath() + "/");

    OpenByDialog(tmp.write("work/a.c", "a"));
    main->LastDir = Q(tmp.path());
    dialogs.AnswerFile(std::nullopt);
    main->mnuFileOpen_Click();
    EXPECT_EQ(Last().file.initDir, Q(tmp.path() + "work/"));
    dialogs.AnswerFile(std::nullopt);
    main->mnuFileSaveAs_Click();
    EXPECT_EQ(Last().file.initDir, Q(tmp.path() + "work/"));
    // An untitled document, which has no folder of its own: FileSaveTest's Save As.
}

// The backup holds the text as loaded; its name depends on the command. Which dot is the
// extension's is PathHelpers' test.
TEST_F(FileOpenTest, BackupOnOpenReplacesTheExtensionAndRecentFilesMakeNone) {
    g_EditorSettings().Backup = true;
    std::string opened = tmp.write("a.txt", "line\nnext");
    OpenByDialog(opened);
    EXPECT_EQ(ReadFileBytes(tmp.file("a.BAK")), "line\nnext");
    EXPECT_FALSE(FileExists(opened + "~"));

    std::string file = tmp.write("recent.txt", "recent");
    main->RecentFiles[2] = Q(file);
    main->RefreshRecentFiles();
    auto before = main->RecentFiles;
    main->mnuFileRecent_Click(2);
    Settle();
    // Loaded by the same step as Open above; what differs is the backup and the list.
    EXPECT_EQ(Doc()->Tag, Q(file));
    EXPECT_EQ(Text(Doc()), "recent");
    EXPECT_FALSE(FileExists(tmp.file("recent.BAK")));
    EXPECT_FALSE(FileExists(file + "~"));
    EXPECT_EQ(main->RecentFiles, before); // the list does not move
}

// A file manager sends the names percent-encoded byte for byte: a name that is not UTF-8 keeps
// its bytes, and its control byte shows as U+FFFD.
TEST_F(FileOpenTest, FilesDroppedOnTheWindowOpenWithTildeBackups) {
    g_EditorSettings().Backup = true;
    std::string one = tmp.write("one.c", "int a;"), two = tmp.write("na\x85ve.txt", "two");
    size_t before = OpenCount();
    QByteArray list;
    for (const std::string& f : {one, two})
        list += "file://" + QByteArray::fromStdString(f).toPercentEncoding("/") + "\r\n";
    QMimeData data;
    data.setData("text/uri-list", list);
    // The tab strip takes no drops of its own: the main window opens the files.
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(main->tabFiles, &enter);
    QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(main->tabFiles, &drop);
    Settle();
    ASSERT_EQ(OpenCount(), before + 2);
    EXPECT_EQ(Doc()->Caption(), QString::fromUtf8("na\uFFFDve.txt"));
    EXPECT_EQ(ToBytes(Doc()->Tag), two);
    EXPECT_EQ(ReadFileBytes(one + "~"), "int a;");
    EXPECT_EQ(ToBytes(main->RecentFiles[1]), two);
}

TEST_F(FileOpenTest, AFailedOpenReportsAndLeavesTheNewDocument) {
    struct Case {
        std::string name;
        bool backup;
    };
    // A file that went away after the dialog, and a backup that cannot be written.
    std::filesystem::create_directories(tmp.file("b.BAK"));
    std::string present = tmp.write("b.txt", "text of b");
    for (const Case& c : {Case{"gone.txt", false}, Case{"b.txt", true}}) {
        g_EditorSettings().Backup = c.backup;
        size_t before = OpenCount();
        dialogs.AnswerFile(Q(tmp.file(c.name))).AnswerMsgBox(MsgResult::OK);
        main->mnuFileOpen_Click();
        Settle();
        EXPECT_EQ(Last().caption, "File I/O Error");
        EXPECT_TRUE(
            Last().text.startsWith("An error occurred while you were trying to open a file:\r\n"));
        EXPECT_GT(Last().text.size(), 58); // the reason follows
        ASSERT_EQ(OpenCount(), before + 1);
        EXPECT_TRUE(Doc()->Caption().startsWith("Untitled ")) << c.name;
        EXPECT_TRUE(Doc()->Tag.isEmpty());
    }
    EXPECT_TRUE(main->RecentFiles[1].isEmpty());

    // A recent file that no longer exists.
    main->RecentFiles[1] = Q(tmp.file("vanished.txt"));
    main->RefreshRecentFiles();
    dialogs.AnswerMsgBox(MsgResult::OK);
    main->mnuFileRecent_Click(1);
    EXPECT_EQ(Last().caption, "File I/O Error");
}

// The close question's answers are checked with the document window. Yes, but the save fails:
// the window and its edits stay, for a close and for the exit.
TEST_F(FileOpenTest, AFailedSaveOnCloseKeepsTheWindow) {
    frmDocument* d = Doc();
    d->rtfText->SetText("keep me");
    d->Tag = Q(tmp.file("no/such/folder/k.txt"));
    d->SetCaption("k.txt");
    for (bool exit : {false, true}) {
        dialogs.AnswerMsgBox(MsgResult::Yes).AnswerMsgBox(MsgResult::OK);
        if (exit)
            EXPECT_FALSE(main->close());
        else
            main->mnuFileClose_Click();
        Settle();
        EXPECT_EQ(Last().caption, "Kestrum"); // the save's own failure message
        ASSERT_EQ(OpenCount(), 1u);
        EXPECT_EQ(Text(d), "keep me");
    }
}

TEST_F(FileOpenTest, ReloadAsksWhatThePartsOfItsStateRequire) {
    // No file behind the document.
    dialogs.AnswerMsgBox(MsgResult::OK);
    main->mnuEditReload_Click();
    EXPECT_EQ(Last().caption, "Unable to Reload File");
    EXPECT_EQ(Last().text,
              "This file has not been saved, and does not exist on disk to be re-loaded.");

    std::string file = tmp.write("r.txt", "on disk");
    frmDocument* d = OpenByDialog(file);
    d->rtfText->SetText("edited");
    ASSERT_TRUE(d->Changed);
    dialogs.AnswerMsgBox(MsgResult::No);
    main->mnuEditReload_Click();
    EXPECT_EQ(Last().caption, "Confirm");
    EXPECT_EQ(Last().buttons, MsgButtons::YesNo);
    EXPECT_TRUE(Last().text.startsWith("The contents of this document have changed."));
    EXPECT_EQ(Text(d), "edited");
    EXPECT_TRUE(d->Changed);

    dialogs.AnswerMsgBox(MsgResult::Yes);
    main->mnuEditReload_Click();
    EXPECT_EQ(Text(d), "on disk");
    EXPECT_FALSE(d->Changed);

    // Unchanged: read again without a question (an unscripted one fails the test).
    tmp.write("r.txt", "changed on disk");
    main->mnuEditReload_Click();
    EXPECT_EQ(Text(d), "changed on disk");

    // A file gone from disk is passed over without a word.
    std::filesystem::remove(file);
    main->mnuEditReload_Click();
    EXPECT_EQ(Text(d), "changed on disk");

    // What is read again is coloured at once, as a load is.
    frmDocument* c = OpenByDialog(tmp.write("r.c", "int x;"));
    tmp.write("r.c", "void y;");
    main->mnuEditReload_Click();
    EXPECT_EQ(Text(c), "void y;");
    EXPECT_NE(c->rtfText->SlotAt(0), ColorSlot::Text);
}

TEST_F(FileOpenTest, TheInsertCommandsPlaceTheFileAsEachPromises) {
    std::string file = tmp.write("ins.txt", "X\nY");
    struct Case {
        void (frmMain::*command)();
        const char* name;
        std::string expected;
    };
    // Before each: "0123456789" with "345" selected.
    const std::vector<Case> cases = {
        {&frmMain::mnuEditInsertFile_Click, "insert", "012X\r\nY6789"},
        {&frmMain::mnuEditAddFiletoStart_Click, "add to start", "X\r\nY0123456789"},
        {&frmMain::mnuEditAppendFile_Click, "append", "012345X\r\nY6789"},
    };
    for (const Case& c : cases) {
        frmDocument* d = NewWithText("0123456789");
        d->rtfText->SetSelStart(3);
        d->rtfText->SetSelLength(3);
        dialogs.AnswerFile(Q(file));
        (main.get()->*c.command)();
        EXPECT_EQ(Text(d), c.expected) << c.name;
    }
    // A file that cannot be read ends the command without a word.
    std::filesystem::create_directories(tmp.file("adir"));
    dialogs.AnswerFile(Q(tmp.file("adir")));
    main->mnuEditInsertFile_Click();
    EXPECT_EQ(Text(Doc()), cases.back().expected);
}

TEST_F(FileOpenTest, AFileWithNulBytesOpensOnlyWhenTheUserSaysSo) {
    std::string file = tmp.write("blob.bin", std::string("MZ\0\0\x01text", 8));
    size_t open = OpenCount();
    for (MsgResult answer : {MsgResult::No, MsgResult::Yes}) {
        dialogs.AnswerFile(Q(file)).AnswerMsgBox(answer);
        main->mnuFileOpen_Click();
        Settle();
        EXPECT_EQ(Last().caption, "Binary File");
        EXPECT_EQ(OpenCount(), open + (answer == MsgResult::Yes ? 1 : 0));
    }
    EXPECT_EQ(Doc()->rtfText->TextLength(), 8);
}
