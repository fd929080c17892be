// The local channel between instances, through real sockets in a folder of the test's own.
#include "ChannelHelpers.h"
#include "support/FileSizeLimit.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QLocalServer>
#include <QtEndian>
#include <cstdlib>
#include <functional>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace {
const QString kTitle = QStringLiteral("KestrumChannelTest");

QByteArray Framed(const QByteArray& body, quint32 announced) {
    char len[4];
    qToBigEndian<quint32>(announced, len);
    return QByteArray(len, 4) + body;
}

struct ChannelTest : ::testing::Test {
    void SetUp() override {
        ASSERT_TRUE(
            SingleInstance::Listen(kTitle, [this](const QByteArray& r) { received.push_back(r); }));
    }

    // A client in this thread that writes the bytes as they are and then stays connected.
    std::unique_ptr<QLocalSocket> RawClient(const QByteArray& bytes) {
        auto s = std::make_unique<QLocalSocket>();
        s->connectToServer(SingleInstance::ChannelName(kTitle));
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return s->state() == QLocalSocket::ConnectedState; }, 5000));
        if (!bytes.isEmpty()) {
            s->write(bytes);
            s->flush();
        }
        return s;
    }
    static bool WaitDropped(QLocalSocket& s, int ms) {
        return QTest::qWaitFor([&] { return s.state() == QLocalSocket::UnconnectedState; }, ms);
    }
    // A complete request still gets through: the channel did not stall on a bad client. An
    // empty request arrives as the test string.
    void ExpectServed(const QByteArray& request, const QByteArray& arrives = {}) {
        size_t before = received.size();
        ThreadedSend send(kTitle, request);
        ASSERT_TRUE(send.Wait());
        EXPECT_TRUE(send.Ok()) << send.Error().toStdString();
        ASSERT_EQ(received.size(), before + 1);
        EXPECT_EQ(received.back(), arrives.isNull() ? request : arrives);
    }

    ScopedRuntimeDir runtime;
    std::vector<QByteArray> received;
};

TEST_F(ChannelTest, RequestsArriveWhole) {
    QByteArray binary;
    for (int i = 0; i < 3 * 1024 * 1024; ++i) binary.append(char(i * 7 % 256));
    // The large one holds every byte value.
    for (const QByteArray& r : {QByteArray("MAKEFILE"), binary}) ExpectServed(r);
    ExpectServed(QByteArray(), "Send Test String");
}

// Even its length may come in pieces.
TEST_F(ChannelTest, ARequestTrickledInPiecesIsPutTogether) {
    QByteArray framed = Framed("MAKEFILEpieces", 14);
    auto s = RawClient(framed.left(2));
    for (QByteArray piece : {framed.mid(2, 5), framed.mid(7)}) {
        QTest::qWait(50);
        s->write(piece);
        s->flush();
    }
    ASSERT_TRUE(QTest::qWaitFor([&] { return !received.empty(); }, 5000));
    EXPECT_EQ(received, std::vector<QByteArray>{"MAKEFILEpieces"});
}

TEST_F(ChannelTest, BytesBehindARequestDoNotMakeASecondOne) {
    auto s = RawClient(Framed("", 0) + "MAKEFILEmore bytes");
    ASSERT_TRUE(QTest::qWaitFor([&] { return s->bytesAvailable() > 0; }, 5000));
    QTest::qWait(50);
    ASSERT_EQ(received.size(), 1u);
    EXPECT_TRUE(received[0].isEmpty());
}

// An oversize request is dropped at once, unacknowledged; a client that goes halfway through
// a request has nothing handled. The channel serves the next one either way.
TEST_F(ChannelTest, IncompleteOrOversizeRequestsAreNeverHandled) {
    SingleInstance::SetIdleClientTimeout(60000); // a drop now is not the idle timeout's
    struct Case {
        QByteArray bytes;
        bool clientLeaves; // else the channel drops it
    } cases[] = {{Framed("MAKEFILE", SingleInstance::kMaxRequest + 1), false},
                 {Framed("MAKEFILE", 0xFFFFFFFFu), false},
                 {QByteArray("\x00\x00", 2), true},
                 {Framed("LOADFILE/tm", 100), true}};
    for (const Case& c : cases) {
        auto s = RawClient(c.bytes);
        if (c.clientLeaves) s->disconnectFromServer();
        EXPECT_TRUE(WaitDropped(*s, 3000));
        EXPECT_EQ(s->bytesAvailable(), 0) << "no acknowledgement";
    }
    QTest::qWait(50);
    EXPECT_TRUE(received.empty());
    ExpectServed("MAKEFILEafter");
}

TEST_F(ChannelTest, ASilentClientBlocksNobodyAndIsDropped) {
    SingleInstance::SetIdleClientTimeout(300);
    auto silent = RawClient({});
    auto halfway = RawClient(Framed("MAKE", 8));
    ExpectServed("MAKEFILEmeanwhile");
    QElapsedTimer t;
    t.start();
    EXPECT_TRUE(WaitDropped(*silent, 5000));
    EXPECT_TRUE(WaitDropped(*halfway, 5000));
    EXPECT_GE(t.elapsed(), 100) << "dropped before it was idle";
    EXPECT_EQ(received.size(), 1u);
}

TEST_F(ChannelTest, ATricklingClientIsDroppedAtItsDeadline) {
    SingleInstance::SetRequestDeadline(600);
    auto s = RawClient({});
    const QByteArray bytes = Framed(QByteArray(40, 'x'), 100); // never complete
    QElapsedTimer t;
    t.start();
    // One byte every 100 ms, well inside the idle time.
    for (int i = 0; s->state() == QLocalSocket::ConnectedState && t.elapsed() < 3000; ++i) {
        QTest::qWait(100);
        s->write(bytes.mid(i, 1));
        s->flush();
    }
    EXPECT_TRUE(WaitDropped(*s, 100));
    EXPECT_GE(t.elapsed(), 400);
    EXPECT_LT(t.elapsed(), 2500);
    EXPECT_TRUE(received.empty());
    ExpectServed("MAKEFILEafter");
}

TEST_F(ChannelTest, BeyondTheCapTheOldestWaitingClientMakesRoom) {
    SingleInstance::SetIdleClientTimeout(60000);
    std::vector<std::unique_ptr<QLocalSocket>> clients;
    for (int i = 0; i < SingleInstance::kMaxClients + 3; ++i) {
        clients.push_back(RawClient(i == 1 ? Framed("MAK", 8) : QByteArray()));
        QTest::qWait(5);
    }
    for (int i = 0; i < 3; ++i) EXPECT_TRUE(WaitDropped(*clients[size_t(i)], 3000)) << i;
    QTest::qWait(50);
    for (size_t i = 3; i < clients.size(); ++i)
        EXPECT_EQ(clients[i]->state(), QLocalSocket::ConnectedState) << i;
    clients.resize(5); // room for the sender below
    ExpectServed("MAKEFILEstill served");
}

// Open descriptors of this process.
int OpenDescriptors() {
    return int(QDir("/proc/self/fd").entryList(QDir::Files | QDir::System).size());
}

// Clients that connect and send nothing until the process has no descriptor left, so that
// the channel cannot accept them, and then go away, as a client that opens and closes
// connections faster than they are served.
TEST_F(ChannelTest, RunningOutOfDescriptorsDoesNotEndTheChannel) {
    const QString name = SingleInstance::ChannelName(kTitle);
    const std::string path = QFile::encodeName(name).toStdString();
    sockaddr_un addr{};
    addr.sun_family = AF_UNIX;
    path.copy(addr.sun_path, sizeof addr.sun_path - 1);
    ResourceLimit limit(RLIMIT_NOFILE, rlim_t(OpenDescriptors() + 24));
    ASSERT_TRUE(limit.Ok());
    for (int round = 0; round < 2; ++round) {
        SCOPED_TRACE(round);
        std::vector<int> clients;
        for (int fd; (fd = ::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK, 0)) >= 0;) {
            clients.push_back(fd);
            EXPECT_EQ(::connect(fd, reinterpret_cast<sockaddr*>(&addr), sizeof addr), 0);
        }
        ASSERT_GE(clients.size(), 10u);
        QTest::qWait(300); // the channel tries to accept them with no descriptor to spare
        for (int fd : clients) ::close(fd);
        QTest::qWait(100);
        EXPECT_TRUE(QFile::exists(name)) << "the name was given up";
        ExpectServed("MAKEFILEafter the shortage");
    }
}

TEST_F(ChannelTest, ANameThatGoesIsTakenAgain) {
    const QString name = SingleInstance::ChannelName(kTitle);
    for (int round = 0; round < 2; ++round) {
        ASSERT_TRUE(QFile::remove(name));
        EXPECT_FALSE(SingleInstance::IsRunning(kTitle));
        EXPECT_TRUE(QTest::qWaitFor([&] { return SingleInstance::IsRunning(kTitle); }, 5000));
        EXPECT_EQ(SingleInstance::ChannelName(kTitle), name);
        ExpectServed("ABORTCMD");
    }
}

TEST_F(ChannelTest, TheChannelMayBeStoppedOrReplacedInsideTheHandler) {
    // As when the window closes in a dialog that the handler opened: the request was handled,
    // nobody is left to acknowledge it, and nothing breaks.
    std::vector<QByteArray> later;
    auto replace = [&] {
        SingleInstance::Listen(kTitle, [&](const QByteArray& r) { later.push_back(r); });
    };
    for (std::function<void()> action :
         {std::function<void()>(SingleInstance::Stop), std::function<void()>(replace)}) {
        ASSERT_TRUE(SingleInstance::Listen(kTitle, [&](const QByteArray& r) {
            QTest::qWait(20); // an event loop inside the handler
            received.push_back(r);
            action();
        }));
        ThreadedSend send(kTitle, "ABORTCMD");
        ASSERT_TRUE(send.Wait());
        EXPECT_FALSE(send.Ok());
        EXPECT_EQ(received.back(), "ABORTCMD");
    }
    EXPECT_TRUE(ThreadedSend(kTitle, "MAKEFILEto the new handler").Delivered());
    EXPECT_EQ(later, std::vector<QByteArray>({"MAKEFILEto the new handler"}));
    EXPECT_EQ(received.size(), 2u);
}

TEST_F(ChannelTest, NobodyListeningMeansNoDelivery) {
    SingleInstance::Stop();
    EXPECT_FALSE(SingleInstance::IsRunning(kTitle));
    EXPECT_FALSE(QFile::exists(SingleInstance::ChannelName(kTitle))) << "the name is given back";
    QString error; // its words are checked with kestrum-send in e2e_second_instance
    EXPECT_FALSE(SingleInstance::SendToProcess(kTitle, "ABORTCMD", 10000, &error));
}

// A socket left by a killed editor is taken over: e2e_second_instance.
TEST(ChannelStartTest, ALiveInstanceKeepsItsName) {
    ScopedRuntimeDir runtime;
    QLocalServer other;
    ASSERT_TRUE(other.listen(SingleInstance::ChannelName(kTitle)));
    EXPECT_FALSE(SingleInstance::Listen(kTitle, [](const QByteArray&) {}));
    QLocalSocket probe;
    probe.connectToServer(SingleInstance::ChannelName(kTitle));
    EXPECT_TRUE(probe.waitForConnected(2000)) << "the live instance lost its name";
}

// Something other than a socket under the name: an empty folder of ours goes, anything else
// moves the channel to another name, which the sender finds as well.
TEST(ChannelStartTest, AThingInTheWayIsRemovedOrPassedBy) {
    for (bool withFile : {false, true}) {
        SCOPED_TRACE(withFile ? "a folder with a file" : "an empty folder");
        ScopedRuntimeDir runtime;
        const QString first = SingleInstance::ChannelName(kTitle);
        QDir().mkdir(first);
        if (withFile) QFile(first + "/keep").open(QIODevice::WriteOnly);
        QByteArray got;
        ASSERT_TRUE(SingleInstance::Listen(kTitle, [&](const QByteArray& r) { got = r; }));
        EXPECT_EQ(SingleInstance::ChannelName(kTitle) == first, !withFile);
        EXPECT_TRUE(SingleInstance::IsRunning(kTitle));
        EXPECT_TRUE(ThreadedSend(kTitle, "ABORTCMD").Delivered());
        EXPECT_EQ(got, "ABORTCMD");
        SingleInstance::Stop();
        EXPECT_EQ(QFileInfo::exists(first), withFile) << "what was not ours stays";
    }
}

// Without a runtime folder, the name is in a folder of this user's own (whose mode is
// ChannelPlace's test), never directly in the shared temporary folder.
TEST(ChannelStartTest, WithoutARuntimeFolderTheNameIsPrivate) {
    TempDir tmp;
    const QByteArray oldRuntime = qgetenv("XDG_RUNTIME_DIR"), oldTmp = qgetenv("TMPDIR");
    qunsetenv("XDG_RUNTIME_DIR");
    qputenv("TMPDIR", QByteArray::fromStdString(tmp.path()));
    const QString open =
        QString::fromStdString(tmp.path()) + kTitle + "-" + QString::number(::getuid());
    ASSERT_TRUE(SingleInstance::Listen(kTitle, [](const QByteArray&) {}));
    const QFileInfo folder(QFileInfo(SingleInstance::ChannelName(kTitle)).absolutePath());
    EXPECT_EQ(folder.absoluteFilePath(), open);
    EXPECT_TRUE(ThreadedSend(kTitle, "ABORTCMD").Delivered());
    SingleInstance::Stop();
    qputenv("XDG_RUNTIME_DIR", oldRuntime);
    qputenv("TMPDIR", oldTmp);
}

// Names and the working folder's name need not be UTF-8: they keep their bytes.
TEST(LoadFileRequestTest, ARelativeNameIsTakenFromTheWorkingFolder) {
    TempDir tmp;
    const QByteArray here = QByteArray::fromStdString(tmp.file("d\xe9"));
    ASSERT_EQ(::mkdir(here.constData(), 0700), 0);
    char* old = ::getcwd(nullptr, 0);
    ASSERT_EQ(::chdir(here.constData()), 0);
    struct Case {
        QByteArray name, request;
    } cases[] = {
        {"   ", "LOADFILE   "},
        {"/abs/file.c", "LOADFILE/abs/file.c"},
        {"caf\xe9.txt", "LOADFILE" + here + "/caf\xe9.txt"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(SingleInstance::LoadFileRequest(c.name), c.request) << c.name.toStdString();
    EXPECT_EQ(::chdir(old), 0);
    std::free(old);
}

} // namespace
