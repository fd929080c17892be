// A file name that is not UTF-8 (here Latin-1 "café") reaches the file as the bytes the
// system gave, on every road in: the command line, the request channel, a drop, the recent
// files kept in the settings file; and a save writes under that very name.
#include "ChannelHelpers.h"
#include "app/AppTest.h"

#include <QMimeData>
#include <QUrl>
#include <filesystem>

namespace {

struct NonUtf8NamesTest : FileCommandsFixture {
    void SetUp() override {
        FileCommandsFixture::SetUp();
        file = tmp.write("caf\xE9.txt", "one\n");
    }
    // The folder's entries: a name re-encoded on the way would show up as a second file.
    std::vector<std::string> Entries() {
        std::vector<std::string> names;
        for (const auto& e : std::filesystem::directory_iterator(tmp.path()))
            if (e.is_regular_file()) names.push_back(e.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }
    // The active document holds the file under its own name and shows it readably.
    void ExpectOpened(const std::string& path, const QString& caption) {
        frmDocument* d = Doc();
        ASSERT_NE(d, nullptr);
        EXPECT_EQ(ToBytes(d->Tag), path);
        EXPECT_EQ(Text(d), "one\r\n");
        EXPECT_EQ(d->Caption(), caption);
        EXPECT_EQ(TabText(d->TabKey()), caption);
        EXPECT_EQ(ToBytes(main->RecentFiles[1]), path);
    }
    // The old window goes before the next one starts, as between two runs of the program.
    void Restart(const QString& commandLine = {}) {
        for (frmDocument* d : Documents().OpenDocuments()) d->Changed = false;
        main->close();
        main.reset();
        Start(commandLine);
    }
    std::string file;
    const QString cafe = QString::fromUtf8("caf\u00E9.txt");
};

TEST_F(NonUtf8NamesTest, CommandLineSaveAndRecentFilesKeepTheBytes) {
    Restart(FromBytes(file));
    ExpectOpened(file, cafe);

    Doc()->rtfText->SetText("two\r\n");
    main->mnuFileSave_Click();
    EXPECT_EQ(ReadFileBytes(file), "two\n");
    EXPECT_EQ(Entries(), std::vector<std::string>{"caf\xE9.txt"});

    // Through the settings file into the next start, and open from the menu again.
    Restart();
    EXPECT_NE(ReadFileBytes(tmp.file("config/Kestrum.ini")).find(file), std::string::npos);
    EXPECT_EQ(ToBytes(main->RecentFiles[1]), file);
    main->mnuFileRecent_Click(1);
    Settle();
    EXPECT_EQ(ToBytes(Doc()->Tag), file);
    EXPECT_EQ(Text(Doc()), "two\r\n");
}

TEST_F(NonUtf8NamesTest, TheChannelAndADropOpenTheFile) {
    {
        ScopedRuntimeDir runtime;
        ASSERT_TRUE(SingleInstance::Listen(
            "KestrumNamesTest", [this](const QByteArray& r) { main->Subclass_WndProc(r); }));
        ThreadedSend send("KestrumNamesTest", "LOADFILE" + QByteArray::fromStdString(file));
        ASSERT_TRUE(send.Wait() && send.Ok());
        Settle();
        ExpectOpened(file, cafe);
        SingleInstance::Stop();
    }

    // A file manager sends the name percent-encoded byte for byte. A control byte shows as
    // U+FFFD.
    const std::string other = tmp.write("na\x85ve.txt", "one\n");
    QMimeData data;
    data.setData("text/uri-list",
                 "file://" + QByteArray::fromStdString(other).toPercentEncoding("/") + "\r\n");
    QPoint at(5, 5);
    QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(main->tabFiles, &enter);
    QDropEvent drop(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(main->tabFiles, &drop);
    Settle();
    ExpectOpened(other, QString::fromUtf8("na\uFFFDve.txt"));
}

} // namespace
