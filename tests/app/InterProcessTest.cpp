// Requests from other processes, sent through the real local channel to a loaded main window.
#include "ChannelHelpers.h"
#include "support/AppFixture.h"

#include <QComboBox>
#include <QDialog>
#include <QTabBar>
#include <QTimer>

namespace {
const QString kTitle = QStringLiteral("KestrumRequestTest");

struct InterProcessTest : AppFixture {
    void SetUp() override {
        AppFixture::SetUp();
        Start();
        ASSERT_TRUE(SingleInstance::Listen(
            kTitle, [this](const QByteArray& r) { main->Subclass_WndProc(r); }));
    }
    void TearDown() override {
        SingleInstance::Stop();
        AppFixture::TearDown();
    }
    // Sends the request as another process would; true once the window has handled it.
    bool Send(const QByteArray& request) {
        ThreadedSend send(kTitle, request);
        bool done = send.Wait() && send.Ok();
        Settle();
        return done;
    }
    static std::vector<frmDocument*> Docs() { return Documents().OpenDocuments(); }

    ScopedRuntimeDir runtime;
};

TEST_F(InterProcessTest, LoadFileOpensTheFileInANewDocument) {
    std::string file = tmp.write("notes.c", "int a;\nint b;\n");
    ASSERT_TRUE(Send("LOADFILE" + QByteArray::fromStdString(file)));
    auto docs = Docs();
    ASSERT_EQ(docs.size(), 2u); // beside the blank document of the start
    frmDocument* doc = docs[1];
    EXPECT_EQ(main->ActiveForm(), doc);
    EXPECT_EQ(doc->Caption(), "notes.c");
    EXPECT_EQ(main->tabFiles->tabText(main->FindTab(doc->TabKey())), "notes.c");
    EXPECT_EQ(doc->Tag.toStdString(), file);
    EXPECT_EQ(doc->rtfText->Text(), "int a;\r\nint b;\r\n");
    EXPECT_FALSE(doc->Changed);
    EXPECT_TRUE(doc->SyntaxLoaded());
    EXPECT_EQ(main->RecentFiles[1].toStdString(), file);
    EXPECT_FALSE(FileExists(file + "~"));
    EXPECT_EQ(docs[0]->Caption(), "Untitled 1");
}

TEST_F(InterProcessTest, LoadFileWritesTheBackupWhenBackupsAreOn) {
    g_EditorSettings().Backup = true;
    std::string file = tmp.write("b.txt", "one\ntwo");
    ASSERT_TRUE(Send("LOADFILE" + QByteArray::fromStdString(file)));
    EXPECT_EQ(ReadFileBytes(file + "~"), "one\r\ntwo");
    EXPECT_EQ(Docs().size(), 2u);
}

TEST_F(InterProcessTest, AWorkspaceNameIsOpenedAsText) {
    std::string file = tmp.write("PROJECT.KWS", "a.c\n");
    ASSERT_TRUE(Send("LOADFILE" + QByteArray::fromStdString(file)));
    ASSERT_EQ(Docs().size(), 2u);
    EXPECT_EQ(Docs()[1]->rtfText->Text(), "a.c\r\n");
}

TEST_F(InterProcessTest, LoadFileWithoutANameOnlyBringsTheWindowBack) {
    for (QByteArray request : {QByteArray("LOADFILE"), QByteArray("LOADFILE   ")}) {
        main->showMinimized();
        Settle();
        ASSERT_TRUE(Send(request));
        EXPECT_FALSE(main->isMinimized()) << request.toStdString();
        EXPECT_TRUE(main->isVisible());
        EXPECT_EQ(Docs().size(), 1u) << request.toStdString();
    }
}

TEST_F(InterProcessTest, AFileThatCannotBeReadLeavesTheBlankDocumentAndSaysWhy) {
    dialogs.AnswerMsgBox(MsgResult::OK);
    ASSERT_TRUE(Send("LOADFILE" + Path("missing.txt").toUtf8()));
    ASSERT_EQ(dialogs.asked.size(), 1u); // shown after the sender had its answer
    EXPECT_EQ(dialogs.asked[0].caption, "File I/O Error");
    EXPECT_TRUE(dialogs.asked[0].text.startsWith(
        "An error occurred while you were trying to open a file:\r\n"));
    auto docs = Docs();
    ASSERT_EQ(docs.size(), 2u);
    EXPECT_EQ(docs[1]->Caption(), "Untitled 2");
    EXPECT_TRUE(docs[1]->Tag.isEmpty());
    EXPECT_TRUE(main->RecentFiles[1].isEmpty());
}

TEST_F(InterProcessTest, MakeFileMakesADocumentHoldingTheText) {
    struct Case {
        std::string text, expected;
        bool utf8;
    } cases[] = {
        {"", "", true},
        {"line one\nline two", "line one\r\nline two", true},
        {"caf\xC3\xA9\r\n", "caf\xC3\xA9\r\n", true},
        {"caf\xE9\n", "caf\xE9\r\n", false}, // not UTF-8: kept byte for byte
    };
    size_t count = 1;
    for (const Case& c : cases) {
        main->hide();
        main->setEnabled(false);
        ASSERT_TRUE(Send("MAKEFILE" + QByteArray::fromStdString(c.text)));
        auto docs = Docs();
        ASSERT_EQ(docs.size(), ++count);
        frmDocument* doc = docs.back();
        EXPECT_EQ(doc->rtfText->Text(), c.expected);
        EXPECT_EQ(doc->rtfText->IsUtf8Document(), c.utf8) << c.text;
        EXPECT_TRUE(doc->Tag.isEmpty());
        EXPECT_EQ(doc->Caption(), QStringLiteral("Untitled %1").arg(count));
        EXPECT_TRUE(main->isVisible());
        EXPECT_TRUE(main->isEnabled());
    }
}

TEST_F(InterProcessTest, AbortCmdOnlyBringsTheWindowBack) {
    main->hide();
    main->setEnabled(false);
    ASSERT_TRUE(Send("ABORTCMDwith text behind"));
    EXPECT_TRUE(main->isVisible());
    EXPECT_TRUE(main->isEnabled());
    EXPECT_EQ(Docs().size(), 1u);
}

TEST_F(InterProcessTest, OtherRequestsAreTakenAndIgnored) {
    for (QByteArray request : {QByteArray("loadfile/etc/hostname"), QByteArray("MAKEFIL"),
                               QByteArray("LOADFIL /etc/hostname"), QByteArray("XXXXXXXXtext"),
                               QByteArray(), QByteArray(" MAKEFILEtext")}) {
        EXPECT_TRUE(Send(request)) << request.toStdString();
        EXPECT_EQ(Docs().size(), 1u) << request.toStdString();
    }
}

TEST_F(InterProcessTest, RequestsAreServedWhileAModalDialogIsOpen) {
    QDialog dialog(main.get());
    dialog.setModal(true);
    std::unique_ptr<ThreadedSend> send;
    size_t docsWhileOpen = 0;
    // Everything below runs inside the dialog's own event loop.
    QTimer::singleShot(0, &dialog, [&] {
        send = std::make_unique<ThreadedSend>(kTitle, "MAKEFILEtyped while a dialog was open");
    });
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &dialog, [&] {
        if (send && send->Finished()) {
            docsWhileOpen = Docs().size();
            dialog.reject();
        }
    });
    poll.start(10);
    QTimer::singleShot(15000, &dialog, &QDialog::reject); // a hung channel fails, not hangs
    dialog.exec();
    ASSERT_TRUE(send && send->Finished());
    EXPECT_TRUE(send->Ok());
    EXPECT_EQ(docsWhileOpen, 2u);
    EXPECT_EQ(Docs().back()->rtfText->Text(), "typed while a dialog was open");
}

TEST_F(InterProcessTest, ActivatingTheWindowPutsTheFocusInTheDocument) {
    main->cboProfiles->setFocus();
    ASSERT_EQ(main->focusWidget(), main->cboProfiles);
    QEvent activate(QEvent::WindowActivate);
    QApplication::sendEvent(main.get(), &activate);
    EXPECT_EQ(main->focusWidget(), main->ActiveForm()->rtfText);
}

} // namespace
