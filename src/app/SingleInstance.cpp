#include "app/SingleInstance.h"

#include "app/core/ChannelPlace.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLocalSocket>
#include <QPointer>
#include <QSocketNotifier>
#include <QTimer>
#include <QtEndian>
#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>
#include <vector>

namespace SingleInstance {
namespace {
constexpr char kAck = '\x06';
constexpr int kWatchMs = 1000;    // how often the listener checks that its name is still there
constexpr int kMaxRetryMs = 8000; // the longest wait between two tries to listen again
int idleClientMs = 5000;
int requestDeadlineMs = 10000;

// The socket's other end runs as this user. The runtime folder is the user's own, but a
// request may carry a private path or text, and the check costs nothing.
bool SameUser(qintptr fd) {
    ucred peer{};
    socklen_t len = sizeof peer;
    return fd >= 0 && ::getsockopt(int(fd), SOL_SOCKET, SO_PEERCRED, &peer, &len) == 0 &&
           peer.uid == ::getuid();
}

std::vector<std::string> Places(const QString& title, bool create) {
    QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (!runtime.isEmpty() && !QDir(runtime).exists()) runtime.clear();
    return ChannelPlace::SocketPaths(QFile::encodeName(runtime).toStdString(),
                                     QFile::encodeName(QDir::tempPath()).toStdString(),
                                     QFile::encodeName(title).toStdString(), ::getuid(), create);
}

QString NameOf(const std::string& path) {
    return QFile::decodeName(path.c_str());
}

// Somebody, of whatever user, accepts connections under the name.
bool Answers(const std::string& path) {
    QLocalSocket s;
    s.connectToServer(NameOf(path));
    bool up = s.waitForConnected(1000);
    s.abort();
    return up;
}

// A listening socket bound to the path with user-only access, or -1 with errno set.
int BindAt(const std::string& path) {
    sockaddr_un addr{};
    if (path.size() >= sizeof addr.sun_path) {
        errno = ENAMETOOLONG;
        return -1;
    }
    addr.sun_family = AF_UNIX;
    std::memcpy(addr.sun_path, path.data(), path.size());
    int fd = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (fd < 0) return -1;
    // Binding fails while the name exists: of two starts at once only one gets it. Nobody
    // can connect before listen, so the access is narrowed in time.
    if (::bind(fd, reinterpret_cast<const sockaddr*>(&addr), sizeof addr) != 0 ||
        ::chmod(path.c_str(), 0700) != 0 || ::listen(fd, 64) != 0) {
        int e = errno;
        ::close(fd);
        errno = e;
        return -1;
    }
    return fd;
}

struct Incoming {
    QByteArray buffer;
    qint64 expected = -1; // the announced length, once its four bytes are in
    bool done = false;
};

struct Connection {
    QPointer<QLocalSocket> sock;
    std::shared_ptr<Incoming> in;
};

// The listening end: a socket of its own rather than a QLocalServer, which closes for good,
// and removes its name, the first time an accept fails for want of descriptors.
struct Listener {
    QString title;
    std::function<void(const QByteArray&)> handler;
    std::unique_ptr<QObject> home; // parent of the timers and the connections
    int fd = -1;
    std::string path;
    dev_t dev = 0;
    ino_t ino = 0;
    QSocketNotifier* notifier = nullptr;
    QTimer* watch = nullptr;
    int acceptBackoffMs = 0;
    std::vector<Connection> connections; // in the order they came

    ~Listener() {
        // The name is given back, unless it has meanwhile become somebody else's.
        if (NameIsOurs()) ::unlink(path.c_str());
        Close();
        home.reset();
    }
    // The name is still the socket this process bound: a cleaner of temporary files, or a
    // crashed second start, may have removed it.
    bool NameIsOurs() const {
        struct stat st {};
        return fd >= 0 && ::stat(path.c_str(), &st) == 0 && S_ISSOCK(st.st_mode) &&
               st.st_dev == dev && st.st_ino == ino;
    }
    // Stops listening. The notifier may be the one whose signal is being served.
    void Close() {
        if (notifier) {
            notifier->setEnabled(false);
            notifier->deleteLater();
        }
        notifier = nullptr;
        if (fd >= 0) ::close(fd);
        fd = -1;
    }
};
std::unique_ptr<Listener> listener;

enum class Take { Listening, LiveInstance, NoPlace };

// Takes the first usable name: a stale socket is taken over, an empty folder or file of ours
// removed, and anything else skipped. A live instance on any of the names keeps the channel.
Take TakeName(Listener& l) {
    const std::vector<std::string> paths = Places(l.title, true);
    for (const std::string& p : paths)
        if (ChannelPlace::ClearLeftovers(p, ::getuid()) == ChannelPlace::Occupant::Socket &&
            Answers(p))
            return Take::LiveInstance;
    for (const std::string& p : paths) {
        ChannelPlace::Occupant o = ChannelPlace::ClearLeftovers(p, ::getuid());
        if (o == ChannelPlace::Occupant::Foreign) continue;
        if (o == ChannelPlace::Occupant::Socket) ::unlink(p.c_str()); // nobody answered on it
        int fd = BindAt(p);
        if (fd < 0) {
            // Somebody bound it just now: another start that wins the race.
            if (errno == EADDRINUSE) return Take::LiveInstance;
            continue;
        }
        struct stat st {};
        ::stat(p.c_str(), &st);
        l.fd = fd;
        l.path = p;
        l.dev = st.st_dev;
        l.ino = st.st_ino;
        return Take::Listening;
    }
    return Take::NoPlace;
}

void AcceptPending();

void Drop(QLocalSocket* sock) {
    sock->abort();
    sock->deleteLater();
}

void StartAccepting(Listener& l) {
    l.notifier = new QSocketNotifier(l.fd, QSocketNotifier::Read, l.home.get());
    QObject::connect(l.notifier, &QSocketNotifier::activated, l.home.get(),
                     [] { AcceptPending(); });
}

// Checks the name and takes it again when it has gone, waiting longer after each failure.
void Watch(Listener& l) {
    if (l.NameIsOurs()) {
        l.watch->setInterval(kWatchMs);
        return;
    }
    l.Close();
    l.path.clear();
    if (TakeName(l) == Take::Listening) {
        StartAccepting(l);
        l.watch->setInterval(kWatchMs);
    } else {
        l.watch->setInterval(std::clamp(l.watch->interval() * 2, kWatchMs, kMaxRetryMs));
    }
}

// Frees a descriptor and a place by dropping the oldest client whose request is still coming.
bool DropOldestIdle(Listener& l) {
    for (Connection& c : l.connections)
        if (c.sock && !c.in->done) {
            QLocalSocket* s = c.sock;
            c.sock = nullptr;
            Drop(s);
            return true;
        }
    return false;
}

// Hands a complete request to the handler and then acknowledges it. The handler runs from the
// event loop rather than inside the socket's signal: it may open dialogs, and in their event
// loop the client, or the whole channel, can go away under it.
void Handle(QLocalSocket* sock, const QByteArray& request) {
    QPointer<QLocalSocket> client(sock);
    QMetaObject::invokeMethod(
        QCoreApplication::instance(),
        [client, request] {
            if (!listener) return;
            if (auto h = listener->handler) h(request); // a copy survives a Listen inside it
            if (!client) return;
            client->write(&kAck, 1);
            client->flush();
            client->disconnectFromServer();
        },
        Qt::QueuedConnection);
}

// Reads one request from a connected client as its bytes arrive, hands it to the handler and
// then acknowledges it. A client that announces too much, stops sending, takes too long or
// goes away early is dropped without the handler hearing of it; other clients are served
// meanwhile.
void Serve(Listener& l, QLocalSocket* sock) {
    QObject::connect(sock, &QLocalSocket::disconnected, sock, &QObject::deleteLater);
    if (!SameUser(sock->socketDescriptor())) return Drop(sock);
    auto in = std::make_shared<Incoming>();
    l.connections.push_back({sock, in});
    auto* idle = new QTimer(sock);
    idle->setSingleShot(true);
    QObject::connect(idle, &QTimer::timeout, sock, [sock] { Drop(sock); });
    idle->start(idleClientMs);
    auto* deadline = new QTimer(sock);
    deadline->setSingleShot(true);
    QObject::connect(deadline, &QTimer::timeout, sock, [sock] { Drop(sock); });
    deadline->start(requestDeadlineMs);
    QObject::connect(sock, &QLocalSocket::readyRead, sock, [sock, in, idle, deadline] {
        if (in->done) {
            sock->readAll(); // anything behind the request is not ours to read
            return;
        }
        idle->start(idleClientMs);
        in->buffer.append(sock->readAll());
        if (in->expected < 0) {
            if (in->buffer.size() < 4) return;
            in->expected = qFromBigEndian<quint32>(in->buffer.constData());
            in->buffer.remove(0, 4);
            if (in->expected > kMaxRequest) return Drop(sock);
        }
        if (in->buffer.size() < in->expected) return;
        in->done = true;
        idle->stop();
        deadline->stop();
        Handle(sock, in->buffer.left(in->expected));
        in->buffer = QByteArray();
    });
}

// Takes a new connection, within the cap on open connections.
void Admit(Listener& l, int fd) {
    std::erase_if(l.connections, [](const Connection& c) { return !c.sock; });
    if (qsizetype(l.connections.size()) >= kMaxClients && !DropOldestIdle(l)) {
        ::close(fd); // every open one is being handled: the newcomer waits for none of them
        return;
    }
    auto* sock = new QLocalSocket(l.home.get());
    if (!sock->setSocketDescriptor(fd)) {
        ::close(fd);
        delete sock;
        return;
    }
    Serve(l, sock);
}

// Accepts every waiting connection. Out of descriptors, the oldest incomplete client makes
// room; with none to drop, accepting pauses for a while, longer each time, and the waiting
// connections stay queued.
void AcceptPending() {
    Listener& l = *listener;
    bool dropped = false;
    while (l.fd >= 0) {
        int fd = ::accept4(l.fd, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
        if (fd >= 0) {
            l.acceptBackoffMs = 0;
            dropped = false;
            Admit(l, fd);
            continue;
        }
        if (errno == EINTR || errno == ECONNABORTED) continue;
        if (errno == EAGAIN || errno == EWOULDBLOCK) return;
        if (errno == EMFILE || errno == ENFILE || errno == ENOBUFS || errno == ENOMEM) {
            if (!dropped && DropOldestIdle(l)) {
                dropped = true;
                continue;
            }
            l.notifier->setEnabled(false);
            l.acceptBackoffMs = std::clamp(l.acceptBackoffMs * 2, 50, kMaxRetryMs / 4);
            QTimer::singleShot(l.acceptBackoffMs, l.notifier, [n = l.notifier] {
                n->setEnabled(true);
                AcceptPending();
            });
            return;
        }
        // The listening socket itself has failed: the watch takes the name again.
        l.Close();
        l.watch->setInterval(0);
        return;
    }
}
} // namespace

QString ChannelName(const QString& title) {
    if (listener && listener->title == title && !listener->path.empty())
        return NameOf(listener->path);
    std::vector<std::string> paths = Places(title, false);
    return paths.empty() ? QString() : NameOf(paths.front());
}

// The first instance of this user that answers on one of the title's names.
bool ConnectTo(QLocalSocket& s, const QString& title, int timeoutMs, QString* why) {
    for (const std::string& p : Places(title, false)) {
        s.connectToServer(NameOf(p));
        if (!s.waitForConnected(timeoutMs)) continue;
        if (SameUser(s.socketDescriptor())) return true;
        if (why) *why = QStringLiteral("the channel %1 belongs to another user").arg(NameOf(p));
        s.abort();
    }
    return false;
}

bool IsRunning(const QString& title) {
    QLocalSocket s;
    bool up = ConnectTo(s, title, 1000, nullptr);
    s.abort();
    return up;
}

bool Listen(const QString& title, std::function<void(const QByteArray&)> onRequest) {
    Stop();
    auto l = std::make_unique<Listener>();
    l->title = title;
    if (TakeName(*l) != Take::Listening) return false;
    l->home = std::make_unique<QObject>();
    l->handler = std::move(onRequest);
    listener = std::move(l);
    StartAccepting(*listener);
    listener->watch = new QTimer(listener->home.get());
    QObject::connect(listener->watch, &QTimer::timeout, listener->home.get(),
                     [] { Watch(*listener); });
    listener->watch->start(kWatchMs);
    return true;
}

void Stop() {
    listener.reset();
}

bool SendToProcess(const QString& title, const QByteArray& request, int timeoutMs, QString* error) {
    auto fail = [error](const QString& why) {
        if (error) *error = why;
        return false;
    };
    const QByteArray text = request.isEmpty() ? QByteArrayLiteral("Send Test String") : request;
    if (text.size() > kMaxRequest) return fail(QStringLiteral("the request is larger than 256 MB"));
    QLocalSocket s;
    QString why = QStringLiteral("no %1 editor is running").arg(title);
    if (!ConnectTo(s, title, timeoutMs, &why)) return fail(why);
    char len[4];
    qToBigEndian<quint32>(quint32(text.size()), len);
    s.write(len, 4);
    s.write(text);
    while (s.bytesToWrite() > 0)
        if (!s.waitForBytesWritten(timeoutMs))
            return fail(QStringLiteral("the %1 editor did not take the request").arg(title));
    while (s.bytesAvailable() < 1)
        if (!s.waitForReadyRead(timeoutMs))
            return fail(QStringLiteral("the %1 editor did not answer").arg(title));
    char ack = 0;
    if (s.read(&ack, 1) != 1 || ack != kAck)
        return fail(QStringLiteral("the %1 editor did not answer").arg(title));
    return true;
}

QByteArray LoadFileRequest(const QByteArray& name) {
    QByteArray path = name;
    if (!name.trimmed().isEmpty() && !name.startsWith('/')) {
        // The working folder as bytes as well: it may hold a name that is not UTF-8 too.
        if (char* cwd = ::getcwd(nullptr, 0)) {
            QByteArray folder(cwd);
            std::free(cwd);
            if (!folder.endsWith('/')) folder += '/';
            path = folder + name;
        }
    }
    return "LOADFILE" + path;
}

void SetIdleClientTimeout(int ms) {
    idleClientMs = ms;
}

void SetRequestDeadline(int ms) {
    requestDeadlineMs = ms;
}

} // namespace SingleInstance
