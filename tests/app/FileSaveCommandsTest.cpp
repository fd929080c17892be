// Save, Save As and Save All: names, tabs and the bytes written. Their dialogs' titles, filters
// and flags are checked in FileExportCommandsTest.
#include "support/AppTest.h"

#include <filesystem>

namespace {

struct FileSaveTest : FileCommandsFixture {
    // A document opened from a file, then edited.
    frmDocument* OpenEdited(const std::string& name, std::string_view edited) {
        frmDocument* d = OpenByDialog(tmp.write(name, "as on disk\n"));
        d->rtfText->SetText(edited);
        return d;
    }
};

} // namespace

// A named document is saved without a dialog (any question would fail the test), in the line
// ends its file had. A file of mixed ends is written with CR LF: RichEditTest.
TEST_F(FileSaveTest, EachFileIsWrittenBackWithItsOwnLineEnds) {
    for (auto [name, bytes] : {std::pair{"unix.txt", "one\ntwo\n"}, {"mac.txt", "one\rtwo\r"}}) {
        std::string file = tmp.write(name, bytes);
        frmDocument* d = OpenByDialog(file);
        d->rtfText->SetText("one\r\ntwo\r\n"); // edited: the buffer holds CR LF
        main->mnuFileSave_Click();
        EXPECT_EQ(ReadFileBytes(file), bytes) << name;
        EXPECT_FALSE(d->Changed);
    }
    // UNIX -> DOS makes the document a CR LF one.
    dialogs.AnswerMsgBox(MsgResult::OK);
    main->mnuEditConvertToDOS_Click();
    EXPECT_EQ(Doc()->rtfText->LineEnds(), LineEndStyle::CrLf);
}

TEST_F(FileSaveTest, AnUntitledDocumentAsksForANameWithTheSaveDialog) {
    std::filesystem::create_directories(tmp.file("browsed"));
    main->LastDir = Q(tmp.path() + "browsed/");
    // The open dialog leaves its folder in the shared dialog; Save takes it as it stands.
    dialogs.AnswerFile(std::nullopt);
    main->mnuFileOpen_Click();
    frmDocument* d = NewWithText("fresh\n");
    dialogs.AnswerFile(Q(tmp.file("fresh.c")));
    main->mnuFileSave_Click();
    EXPECT_EQ(Last().file.initDir, Q(tmp.path() + "browsed/"));
    EXPECT_EQ(ReadFileBytes(tmp.file("fresh.c")), "fresh\r\n");
    EXPECT_EQ(d->Tag, Q(tmp.file("fresh.c")));
    EXPECT_FALSE(d->Changed);
    EXPECT_EQ(main->LastDir, Q(tmp.path() + "browsed/")); // Save leaves the folder alone

    // A caption that starts with "Untitled " means no file, whatever the Tag says.
    d->SetCaption("Untitled draft");
    dialogs.AnswerFile(Q(tmp.file("draft.c")));
    main->mnuFileSave_Click();
    EXPECT_EQ(d->Caption(), "draft.c");
}

// Save renames the tab at the document's slot number counted as a position; Save As the
// tab that carries the document's key.
TEST_F(FileSaveTest, SaveNamesTheTabByPositionAndSaveAsByKey) {
    // Slots 1 to 3 untitled, slot 1 closed: the tab at position n is slot n + 1's.
    NewDocument();
    NewDocument();
    Settle();
    Slot(1)->CloseWith(frmDocument::vbFormCode);
    Settle();
    ASSERT_EQ(main->tabFiles->count(), 2);
    Activate(Slot(2));
    dialogs.AnswerFile(Q(tmp.file("two.txt")));
    main->mnuFileSave_Click();
    EXPECT_EQ(Slot(2)->Caption(), "two.txt");
    EXPECT_EQ(TabText("Tab2"), "Untitled 2");
    EXPECT_EQ(TabText("Tab3"), "two.txt"); // position 2 holds slot 3's tab

    // Slot 3 has no tab at position 3: the file is written, then the command reports.
    Activate(Slot(3));
    dialogs.AnswerFile(Q(tmp.file("three.txt"))).AnswerMsgBox(MsgResult::OK);
    main->mnuFileSave_Click();
    EXPECT_EQ(Last().caption, "Kestrum");
    EXPECT_EQ(Last().text,
              "An error occurred trying to save the file three.txt.\r\nIndex out of bounds");
    EXPECT_TRUE(FileExists(tmp.file("three.txt")));
    EXPECT_EQ(Slot(3)->Caption(), "three.txt");

    Activate(Slot(2));
    main->LastDir = Q(tmp.path());
    dialogs.AnswerFile(Q(tmp.file("sub/renamed.txt")));
    std::filesystem::create_directories(tmp.file("sub"));
    main->mnuFileSaveAs_Click();
    EXPECT_EQ(Last().file.initDir, Q(tmp.path()));
    EXPECT_EQ(TabText("Tab2"), "renamed.txt");
    EXPECT_EQ(Slot(2)->Tag, Q(tmp.file("sub/renamed.txt")));
    EXPECT_EQ(main->LastDir, Q(tmp.file("sub/")));
}

TEST_F(FileSaveTest, SaveAsOfANamedDocumentWritesTheNewFileAndKeepsTheOld) {
    frmDocument* d = OpenEdited("old.c", "edited");
    dialogs.AnswerFile(Q(tmp.file("new.pas")));
    main->mnuFileSaveAs_Click();
    EXPECT_EQ(ReadFileBytes(tmp.file("new.pas")), "edited");
    EXPECT_EQ(ReadFileBytes(tmp.file("old.c")), "as on disk\n");
    EXPECT_EQ(d->Caption(), "new.pas");
    EXPECT_FALSE(d->Changed);
    EXPECT_EQ(main->RecentFiles[1], Q(tmp.file("old.c"))); // not entered again
}

TEST_F(FileSaveTest, SaveAllStopsAtTheFirstCancelledDialog) {
    // Slot 1 untitled, 2 named, 3 untitled, 4 named; all changed.
    Slot(1)->rtfText->SetText("one");
    frmDocument* two = OpenEdited("two.txt", "two edited");
    frmDocument* three = NewWithText("three");
    frmDocument* four = OpenEdited("four.txt", "four edited");
    dialogs.AnswerFile(Q(tmp.file("one.txt"))).AnswerFile(std::nullopt);
    main->mnuFileSaveAll_Click();

    EXPECT_EQ(Last().file.title, "Save Untitled 3");
    EXPECT_EQ(ReadFileBytes(tmp.file("one.txt")), "one");
    EXPECT_EQ(Slot(1)->Caption(), "one.txt");
    EXPECT_FALSE(Slot(1)->Changed);
    EXPECT_EQ(ReadFileBytes(tmp.file("two.txt")), "two edited");
    EXPECT_FALSE(two->Changed);
    EXPECT_TRUE(three->Changed);
    EXPECT_TRUE(four->Changed); // behind the cancelled dialog: left alone
    EXPECT_EQ(ReadFileBytes(tmp.file("four.txt")), "as on disk\n");
}

TEST_F(FileSaveTest, SaveAllReportsAFailureOnceAndStops) {
    frmDocument* bad = OpenEdited("bad.txt", "x");
    frmDocument* good = OpenEdited("good.txt", "y");
    Slot(1)->CloseWith(frmDocument::vbFormCode);
    std::filesystem::remove(tmp.file("bad.txt"));
    std::filesystem::create_directories(tmp.file("bad.txt"));
    dialogs.AnswerMsgBox(MsgResult::OK);
    main->mnuFileSaveAll_Click();
    EXPECT_EQ(Last().caption, "File I/O Error");
    EXPECT_EQ(Last().text, "An error occurred during the save process.");
    EXPECT_TRUE(bad->Changed);
    EXPECT_TRUE(good->Changed);
    EXPECT_EQ(ReadFileBytes(tmp.file("good.txt")), "as on disk\n");
}

TEST_F(FileSaveTest, AFileAnotherProgramChangedIsOverwrittenOnlyWhenTheUserSaysSo) {
    frmDocument* d = OpenEdited("shared.txt", "mine");
    std::string file = tmp.file("shared.txt");
    // Another program writes a new file and moves it over the old one.
    auto replace = [&](std::string_view text) {
        tmp.write("other.tmp", text);
        std::filesystem::rename(tmp.file("other.tmp"), file);
    };
    replace("theirs");
    dialogs.AnswerMsgBox(MsgResult::No);
    main->mnuFileSave_Click();
    EXPECT_EQ(Last().caption, "File Changed");
    EXPECT_EQ(Last().text, "The file " + Q(file) +
                               " has been changed by another program since it was opened. "
                               "Overwrite it?");
    EXPECT_EQ(ReadFileBytes(file), "theirs");
    EXPECT_TRUE(d->Changed);
    dialogs.AnswerMsgBox(MsgResult::Yes);
    main->mnuFileSave_Click();
    EXPECT_EQ(ReadFileBytes(file), "mine");
    // The program's own save is not a change by another program: no question.
    d->rtfText->SetText("mine again");
    main->mnuFileSave_Click();

    // Unchanged here, changed there: activation offers to read it again, once per change.
    replace("theirs, later");
    dialogs.AnswerMsgBox(MsgResult::No);
    d->Form_Activate();
    d->Form_Activate(); // a second question, or none at all, fails the test
    EXPECT_EQ(Text(d), "mine again");
    replace("theirs, last");
    dialogs.AnswerMsgBox(MsgResult::Yes);
    d->Form_Activate();
    EXPECT_EQ(Text(d), "theirs, last");
    EXPECT_FALSE(d->Changed);
}

// A name that is not UTF-8 (Latin-1 "café") is written back under its very bytes, and the
// recent files carry it through the settings file into the next start. The command line and
// the request channel are checked end to end (e2e_command_line, e2e_second_instance).
TEST_F(FileSaveTest, ANameThatIsNotUtf8KeepsItsBytes) {
    const std::string file = tmp.write("caf\xE9.txt", "one\n");
    dialogs.AnswerFile(FromBytes(file));
    main->mnuFileOpen_Click();
    EXPECT_EQ(Doc()->Caption(), QString::fromUtf8("caf\u00E9.txt"));
    Doc()->rtfText->SetText("two\r\n");
    main->mnuFileSave_Click();
    EXPECT_EQ(ReadFileBytes(file), "two\n");
    // A name re-encoded on the way would show up as a second file.
    int files = 0;
    for (const auto& e : std::filesystem::directory_iterator(tmp.path()))
        files += e.is_regular_file();
    EXPECT_EQ(files, 1);

    Restart();
    main->mnuFileRecent_Click(1);
    Settle();
    EXPECT_EQ(ToBytes(Doc()->Tag), file);
    EXPECT_EQ(Text(Doc()), "two\r\n");
}
