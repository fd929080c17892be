// The exports, the two launch commands, Cancel everywhere, and failed saves.
#include "support/AppTest.h"
#include "support/FileSizeLimit.h"

#include <QDesktopServices>
#include <QUrl>
#include <filesystem>
#include <sys/stat.h>

namespace {

using FileExportTest = FileCommandsFixture;

// Records what the desktop is asked to open.
class UrlCatcher : public QObject {
    Q_OBJECT
  public:
    QList<QUrl> urls;
  public slots:
    void open(const QUrl& url) { urls << url; }
};

// The filter of the dialogs that open and save documents: 27 pairs of label and patterns,
// all files first.
void ExpectDocumentFilter(const QString& filter) {
    EXPECT_EQ(filter.split('|').size(), 54) << filter.toStdString();
    EXPECT_TRUE(filter.startsWith("All Files (*.*)|*.*|Text Files (*.txt, *.doc, *.faq)|"));
    EXPECT_TRUE(filter.endsWith("|*.mak;*.frm;*.bas;*.cls;*.pag;*.ctl;*.vbp"));
}

} // namespace

// The round trip of coloured text through RTF is the codec's test; here, what the commands add.
// Neither export names the document after its file or marks it saved.
TEST_F(FileExportTest, ExportsWriteTheirFileAndLeaveTheDocumentAsItWas) {
    frmDocument* d = Doc();
    d->rtfText->SetText("if x then\r\n\r\n");
    d->rtfText->SetSelStart(9);
    d->rtfText->SetSelText("\r\r"); // a run of bare CRs goes too
    d->rtfText->PaintRange(0, 2, ColorSlot::Keywords0);
    d->ChangedHighLight = false; // coloured as it stands: no pass repaints it
    dialogs.AnswerFile(Q(tmp.file("unix.txt")));
    main->mnuFileExportUnix_Click();
    EXPECT_EQ(ReadFileBytes(tmp.file("unix.txt")), "if x then\n\n");
    dialogs.AnswerFile(Q(tmp.file("out.rtf")));
    main->mnuFileExportRTF_Click();
    EXPECT_EQ(Last().file.defaultExt, "rtf");
    EXPECT_TRUE(main->dlgCommonDialog.defaultExt.isEmpty()); // reset behind the dialog
    EXPECT_EQ(d->Caption(), "Untitled 1");
    EXPECT_TRUE(d->Tag.isEmpty());
    EXPECT_TRUE(d->Changed);

    std::string rtf = ReadFileBytes(tmp.file("out.rtf"));
    ASSERT_EQ(rtf.rfind("{\\rtf1", 0), 0u);
    // The colour table holds what the document shows: slot 1 is keyword colour 0.
    QColor k0 = ColorFromLong(g_EditorSettings().KeywordColor[0]);
    std::string entry = "\\red" + std::to_string(k0.red()) + "\\green" +
                        std::to_string(k0.green()) + "\\blue" + std::to_string(k0.blue()) + ";";
    EXPECT_NE(rtf.find(entry), std::string::npos) << rtf;
}

// Every command that asks for a file, cancelled: it asks once with its own dialog and then
// does nothing. The commands share one dialog, and Export RTF, Open Image and Save All set no
// flags, so they show what the command before them left. The order makes each command differ
// from the one before it in what it has to set, so that a setting it forgets shows here.
TEST_F(FileExportTest, EachCommandAsksWithItsDialogAndCancelIsSilent) {
    const QString docs = QStringLiteral("<the document filter>"), all = "All Files (*.*)|*.*";
    struct Case {
        void (frmMain::*command)();
        QString title, filter;
        bool save, fileMustExist, overwritePrompt;
        int filterIndex;
    };
    const std::vector<Case> cases = {
        {&frmMain::mnuFileExportUnix_Click, "Save As UNIX File...", docs, true, false, true, 1},
        {&frmMain::mnuFileExportRTF_Click, "Export as RTF",
         "Rich Text Format (*.rtf)|*.rtf|All Files (*.*)|*.*", true, false, true, 1},
        {&frmMain::mnuFileOpen_Click, "Open", docs, false, true, false, 1},
        {&frmMain::mnuEditInsertFile_Click, "Select File to Insert", all, false, true, false, 1},
        {&frmMain::mnuFileSave_Click, "Save", docs, true, false, true, 1},
        {&frmMain::mnuFileOpenHex_Click, "Open", "All Files|*.*", false, true, false, 0},
        {&frmMain::mnuFileSaveAs_Click, "Save As", docs, true, false, true, 1},
        {&frmMain::mnuFileOpenImage_Click, "Open", "Standard Format Images|*.bmp;*.gif;*.jpg",
         false, false, true, 0},
        {&frmMain::mnuEditAddFiletoStart_Click, "Select File to Insert", all, false, true, false,
         1},
        {&frmMain::mnuFileSaveAll_Click, "Save Untitled 1", docs, true, true, false, 1},
        {&frmMain::mnuEditAppendFile_Click, "Select File to Append", all, false, true, false, 1},
    };
    frmDocument* d = Doc();
    d->rtfText->SetText("kept");
    for (size_t i = 0; i < cases.size(); ++i) {
        const Case& c = cases[i];
        SCOPED_TRACE(testing::Message() << "case " << i << ": " << c.title.toStdString());
        main->dlgCommonDialog.filterIndex = 1; // so that only the commands that set it show 0
        size_t asked = dialogs.asked.size();
        dialogs.AnswerFile(std::nullopt);
        (main.get()->*c.command)();
        Settle();
        // One dialog and nothing after it; ScriptedDialogs fails on any other question.
        ASSERT_EQ(dialogs.asked.size(), asked + 1);
        const FileDialogOptions& o = Last().file;
        EXPECT_EQ(o.title, c.title);
        if (c.filter == docs)
            ExpectDocumentFilter(o.filter);
        else
            EXPECT_EQ(o.filter, c.filter);
        EXPECT_EQ(o.save, c.save);
        EXPECT_EQ(o.fileMustExist, c.fileMustExist);
        EXPECT_EQ(o.overwritePrompt, c.overwritePrompt);
        EXPECT_EQ(o.filterIndex, c.filterIndex);
        EXPECT_EQ(OpenCount(), 1u);
        EXPECT_EQ(Text(d), "kept");
        EXPECT_EQ(d->Caption(), "Untitled 1");
    }
}

TEST_F(FileExportTest, TheHexEditorStartsBesideTheProgramOrIsReportedMissing) {
    std::string file = tmp.write("data.bin", "\x01\x02");
    dialogs.AnswerFile(Q(file)).AnswerMsgBox(MsgResult::OK);
    main->mnuFileOpenHex_Click();
    EXPECT_EQ(Last().caption, "Error");
    EXPECT_EQ(Last().text, "Kestrum was unable to launch its Hex Editor program, NIBBLER.EXE. "
                           "Please ensure that it exists in the Kestrum path.");

    // A stand-in that writes down its one argument.
    std::string editor =
        tmp.write("app/NIBBLER.EXE", "#!/bin/sh\nprintf '%s|' \"$@\" > \"$0.args\"\n");
    ::chmod(editor.c_str(), 0755);
    dialogs.AnswerFile(Q(file));
    main->mnuFileOpenHex_Click();
    EXPECT_TRUE(QTest::qWaitFor([&] { return FileExists(editor + ".args"); }, 10000));
    QTest::qWait(50); // written, not only made
    EXPECT_EQ(ReadFileBytes(editor + ".args"), file + "|");
}

TEST_F(FileExportTest, OpenImageHandsTheFileToTheDesktop) {
    UrlCatcher catcher;
    QDesktopServices::setUrlHandler("file", &catcher, "open");
    std::string image = tmp.write("pic.gif", "GIF89a");
    dialogs.AnswerFile(Q(image));
    main->mnuFileOpenImage_Click();
    QDesktopServices::unsetUrlHandler("file");
    ASSERT_EQ(catcher.urls.size(), 1);
    EXPECT_EQ(catcher.urls[0], QUrl::fromLocalFile(Q(image)));
    EXPECT_EQ(OpenCount(), 1u);
}

// Every failed save reports in its command's words and leaves the old file byte for byte.
TEST_F(FileExportTest, FailedSavesKeepTheOldFileAndReport) {
    const std::string old = "the old file\r\n";
    std::string target = tmp.write("keep.txt", old);
    frmDocument* d = OpenByDialog(target);
    d->rtfText->SetText(std::string(64 * 1024, 'n'));
    // Both ways of writing under a full disk are SafeSave's test; here, what the command adds.
    dialogs.AnswerMsgBox(MsgResult::OK);
    {
        FileSizeLimit full(4096);
        main->mnuFileSave_Click();
    }
    EXPECT_EQ(Last().caption, "Kestrum");
    EXPECT_TRUE(Last().text.startsWith("An error occurred trying to save the file keep.txt.\r\n"));
    EXPECT_TRUE(d->Changed);
    EXPECT_EQ(ReadFileBytes(target), old);

    // Targets that cannot be files: a folder in the file's place, a file in the folder's.
    std::filesystem::create_directories(tmp.file("folder.txt"));
    std::string notAFolder = tmp.file("keep.txt/x.txt");
    dialogs.AnswerFile(Q(tmp.file("folder.txt"))).AnswerMsgBox(MsgResult::OK);
    main->mnuFileSaveAs_Click();
    EXPECT_TRUE(Last().text.startsWith("An error occurred when saving the file keep.txt.\r"));
    EXPECT_TRUE(Last().text.endsWith("\r\nForm Index 2")) << Last().text.toStdString();
    EXPECT_EQ(d->Tag, Q(target));
    EXPECT_TRUE(d->Changed);

    for (auto command : {&frmMain::mnuFileExportRTF_Click, &frmMain::mnuFileExportUnix_Click}) {
        dialogs.AnswerFile(Q(notAFolder)).AnswerMsgBox(MsgResult::OK);
        (main.get()->*command)();
        EXPECT_EQ(Last().caption, "Kestrum");
        EXPECT_TRUE(Last().text.startsWith("An error occurred when saving the file keep.txt.\r"));
        EXPECT_FALSE(Last().text.contains("\r\n"));
    }
    EXPECT_EQ(ReadFileBytes(target), old);
}

#include "FileExportCommandsTest.moc"
