// Requests from other processes, sent through the real local channel to a loaded main window.
#include "ChannelHelpers.h"
#include "support/AppFixture.h"

#include <QComboBox>
#include <QDialog>
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
        bool done = ThreadedSend(kTitle, request).Delivered();
        Settle();
        return done;
    }
    static std::vector<frmDocument*> Docs() { return Documents().OpenDocuments(); }

    ScopedRuntimeDir runtime;
};

// The file is loaded by the same step as the Open command, whose caption, tab, text, colouring
// and change mark FileOpenTest checks; its "~" backup is checked end to end in
// e2e_second_instance. The request's own part: a new document beside the others, entered in
// the recent files, and a workspace's name taken as a file (a workspace of this text would fail).
TEST_F(InterProcessTest, LoadFileOpensTheFileInANewDocument) {
    size_t count = 1;
    for (const char* name : {"notes.c", "PROJECT.KWS"}) {
        SCOPED_TRACE(name);
        std::string file = tmp.write(name, "a.c\n");
        ASSERT_TRUE(Send("LOADFILE" + QByteArray::fromStdString(file)));
        auto docs = Docs();
        ASSERT_EQ(docs.size(), ++count);
        EXPECT_EQ(docs.back()->Tag.toStdString(), file);
        EXPECT_EQ(main->RecentFiles[1].toStdString(), file);
    }
    // A file that cannot be read: the box comes after the sender had its answer, and the blank
    // document made for the file stays.
    dialogs.AnswerMsgBox(MsgResult::OK);
    ASSERT_TRUE(Send("LOADFILE" + Path("missing.txt").toUtf8()));
    ASSERT_EQ(dialogs.asked.size(), 1u);
    EXPECT_EQ(dialogs.asked[0].caption, "File I/O Error");
    EXPECT_TRUE(dialogs.asked[0].text.startsWith(
        "An error occurred while you were trying to open a file:\r\n"));
    EXPECT_EQ(Docs().size(), count + 1);
}

TEST_F(InterProcessTest, MakeFileMakesADocumentHoldingTheText) {
    struct Case {
        std::string text, expected;
        bool utf8;
    } cases[] = {
        {"", "", true},
        {"line one\nline two", "line one\r\nline two", true},
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
        EXPECT_TRUE(main->isVisible());
        EXPECT_TRUE(main->isEnabled());
    }
}

// Every request brings the window back; these make no document. A blank LOADFILE opens
// nothing, and a word that is not one of the three, in any spelling, is taken and ignored.
TEST_F(InterProcessTest, RequestsWithoutADocumentOnlyBringTheWindowBack) {
    for (QByteArray request : {QByteArray("LOADFILE   "), QByteArray("ABORTCMDwith text behind"),
                               QByteArray("loadfile/etc/hostname"), QByteArray("MAKEFIL"),
                               QByteArray(" MAKEFILEtext")}) {
        SCOPED_TRACE(request.toStdString());
        main->showMinimized();
        Settle();
        // ABORTCMD enables the window as well, so it goes to a disabled one.
        main->setEnabled(!request.startsWith("ABORTCMD"));
        ASSERT_TRUE(Send(request));
        EXPECT_FALSE(main->isMinimized());
        EXPECT_TRUE(main->isVisible());
        EXPECT_TRUE(main->isEnabled());
        EXPECT_EQ(Docs().size(), 1u);
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
