// Save and restore of workspaces, from the menu and from the command line.
#include "app/core/WorkspaceFile.h"
#include "support/AppTest.h"

using WorkspaceTest = FileCommandsFixture;

namespace {

std::string Ws(std::initializer_list<std::pair<std::string, std::string>> pairs) {
    std::vector<WorkspaceEntry> e;
    for (auto& [c, p] : pairs) e.push_back({c, p});
    return WriteWorkspace(e);
}

} // namespace

TEST_F(WorkspaceTest, SaveListsEveryDocumentAndTheActiveOneTakesTheWorkspaceName) {
    std::string a = tmp.write("a.c", "int a;\n"), b = tmp.write("b.txt", "b\n");
    Slot(1)->CloseWith(frmDocument::vbFormCode);
    for (const std::string& f : {b, a}) main->OpenFileInNewDocument(Q(f), {}, false, nullptr);
    Settle();
    frmDocument* active = Doc();
    QString ws = Path("my.KWS");
    dialogs.AnswerMsgBox(MsgResult::Yes).AnswerFile(ws);
    main->mnuAdvancedSaveProject_Click();

    EXPECT_EQ(ReadFileBytes(tmp.file("my.KWS")), Ws({{"b.txt", b}, {"a.c", a}})); // slot order
    EXPECT_EQ(Last().file.title, "Save As");
    EXPECT_EQ(Last().file.filter, "Kestrum Project Files (*.kws)|*.kws");
    EXPECT_EQ(Last().file.defaultExt, "kws");
    EXPECT_TRUE(main->dlgCommonDialog.defaultExt.isEmpty());
    EXPECT_EQ(active->Tag, ws);
    EXPECT_EQ(active->Caption(), "my.KWS");
    EXPECT_EQ(TabText(active->TabKey()), "a.c"); // the tab keeps the old caption
}

TEST_F(WorkspaceTest, SaveStopsAtNoCancelOrWithoutDocuments) {
    // No: nothing saved, no dialog (an unscripted question fails the test).
    dialogs.AnswerMsgBox(MsgResult::No);
    main->mnuAdvancedSaveProject_Click();
    // Save All cancelled for the untitled document: it is listed with an empty path.
    dialogs.AnswerMsgBox(MsgResult::Yes).AnswerFile(std::nullopt).AnswerFile(Path("u.KWS"));
    main->mnuAdvancedSaveProject_Click();
    EXPECT_EQ(ReadFileBytes(tmp.file("u.KWS")), "Untitled 1\r\n\r\n");
    // An unwritable path: the failure box.
    std::string a = tmp.write("a.c", "x");
    Slot(1)->CloseWith(frmDocument::vbFormCode);
    main->OpenFileInNewDocument(Q(a), {}, false, nullptr);
    dialogs.AnswerMsgBox(MsgResult::Yes)
        .AnswerFile(Path("missing/dir/w.KWS"))
        .AnswerMsgBox(MsgResult::OK);
    main->mnuAdvancedSaveProject_Click();
    EXPECT_TRUE(Last().text.startsWith("An error occurred when saving the file " +
                                       Path("missing/dir/w.KWS") + ".\r"));
    EXPECT_EQ(Doc()->Tag, Q(a)); // nothing taken over
    // With no document nothing is asked at all.
    Doc()->CloseWith(frmDocument::vbFormCode);
    Settle();
    main->mnuAdvancedSaveProject_Click();
}

TEST_F(WorkspaceTest, RestoreClosesFirstThenOpensThePairs) {
    std::string a = tmp.write("a.c", "int a;\n"), b = tmp.write("b.txt", "b\n");
    std::string ws = tmp.write("w.kws", Ws({{"First", a}, {"b.txt", b}}));
    g_EditorSettings().AutoCode = false;
    dialogs.AnswerMsgBox(MsgResult::Yes).AnswerFile(Q(ws));
    main->mnuAdvancedRestoreProject_Click();
    Settle();
    std::vector<frmDocument*> docs = Documents().OpenDocuments();
    ASSERT_EQ(docs.size(), 2u); // "Untitled 1" was closed
    EXPECT_EQ(docs[0]->Caption(), "First");
    EXPECT_EQ(TabText(docs[0]->TabKey()), "First");
    EXPECT_EQ(docs[0]->Tag, Q(a));
    EXPECT_FALSE(docs[1]->Changed);
    EXPECT_FALSE(docs[0]->SyntaxLoaded());       // AutoCode off
    EXPECT_TRUE(main->RecentFiles[1].isEmpty()); // no recent files

    // No keeps everything; Cancel of the dialog leaves an empty window.
    dialogs.AnswerMsgBox(MsgResult::No);
    main->mnuAdvancedRestoreProject_Click();
    EXPECT_EQ(OpenCount(), 2u);
    dialogs.AnswerMsgBox(MsgResult::Yes).AnswerFile(std::nullopt);
    main->mnuAdvancedRestoreProject_Click();
    Settle();
    EXPECT_EQ(OpenCount(), 0u);
}

// Each bad workspace from the menu: the documents made before the failure stay, and the box
// names the workspace and the reason.
TEST_F(WorkspaceTest, BadWorkspacesFromTheMenu) {
    std::string a = tmp.write("a.c", "x\n");
    struct Case {
        const char* name;
        std::string bytes;
        size_t docs;        // open afterwards
        const char* reason; // in the box
    };
    const std::vector<Case> cases = {
        {"missing file ends the load", Ws({{"a", a}, {"gone", tmp.file("gone.c")}, {"a", a}}), 2,
         "gone.c"},
        {"odd line count", Ws({{"a", a}}) + "extra\r\n", 1, "Input past end of file"},
        {"untitled entry", Ws({{"Untitled 4", ""}}), 1, "No file name"},
    };
    for (const Case& c : cases) {
        std::string ws = tmp.write("bad.kws", c.bytes);
        // The confirmation comes first while a document is open, the box last.
        if (main->ActiveForm()) dialogs.AnswerMsgBox(MsgResult::Yes);
        dialogs.AnswerFile(Q(ws));
        dialogs.AnswerMsgBox(MsgResult::OK);
        main->mnuAdvancedRestoreProject_Click();
        Settle();
        EXPECT_EQ(OpenCount(), c.docs) << c.name;
        EXPECT_EQ(Last().caption, "File I/O Error") << c.name;
        EXPECT_TRUE(Last().text.startsWith(
            "There was an error when trying to load the files contained in " + Q(ws) + ".\r\n"))
            << c.name;
        EXPECT_TRUE(Last().text.contains(QString::fromLatin1(c.reason)))
            << c.name << " " << Last().text.toStdString();
    }
}

TEST_F(WorkspaceTest, CommandLineKeepsTheFirstDocumentAndAlwaysSetsTheProfile) {
    std::string a = tmp.write("a.c", "int x;\n");
    std::string ws = tmp.write("start.KWS", Ws({{"a.c", a}, {"again", a}}));
    g_EditorSettings().AutoCode = false;
    Restart(Q(ws));
    std::vector<frmDocument*> docs = Documents().OpenDocuments();
    ASSERT_EQ(docs.size(), 3u);
    EXPECT_EQ(docs[0]->Caption(), "Untitled 1");
    EXPECT_EQ(docs[2]->Caption(), "again");
    EXPECT_TRUE(docs[1]->SyntaxLoaded()); // a profile was chosen despite AutoCode
    // A bad one shows its box before the main window: e2e_workspace. Which names are
    // workspaces is WorkspaceFile's test.
}
