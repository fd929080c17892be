#include "app/SingleInstance.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLocalServer>
#include <QLocalSocket>
#include <QPointer>
#include <QTimer>
#include <QtEndian>
#include <memory>
#include <sys/socket.h>
#include <unistd.h>

namespace SingleInstance {
namespace {
QPointer<QLocalServer> server;
std::function<void(const QByteArray&)> handler;
int idleClientMs = 5000;
constexpr char kAck = '\x06';

// The socket's other end runs as this user. The runtime folder is the user's own, but the
// fallback folder is shared, and a request may carry a private path or text.
bool SameUser(qintptr fd) {
    ucred peer{};
    socklen_t len = sizeof peer;
    return fd >= 0 && ::getsockopt(int(fd), SOL_SOCKET, SO_PEERCRED, &peer, &len) == 0 &&
           peer.uid == ::getuid();
}

// Somebody, of whatever user, accepts connections under the name.
bool Answers(const QString& name) {
    QLocalSocket s;
    s.connectToServer(name);
    bool up = s.waitForConnected(1000);
    s.abort();
    return up;
}

void Drop(QLocalSocket* sock) {
    sock->abort();
    sock->deleteLater();
}

struct Incoming {
    QByteArray buffer;
    qint64 expected = -1; // the announced length, once its four bytes are in
    bool done = false;
};

// Hands a complete request to the handler and then acknowledges it. The handler runs from the
// event loop rather than inside the socket's signal: it may open dialogs, and in their event
// loop the client, or the whole channel, can go away under it.
void Handle(QLocalSocket* sock, const QByteArray& request) {
    QPointer<QLocalSocket> client(sock);
    QMetaObject::invokeMethod(
        QCoreApplication::instance(),
        [client, request] {
            if (auto h = handler) h(request); // a copy survives a Listen from inside it
            if (!client) return;
            client->write(&kAck, 1);
            client->flush();
            client->disconnectFromServer();
        },
        Qt::QueuedConnection);
}

// Reads one request from a connected client as its bytes arrive, hands it to the handler and
// then acknowledges it. A client that announces too much, stops sending or goes away early is
// dropped without the handler hearing of it; other clients are served meanwhile.
void Serve(QLocalSocket* sock) {
    QObject::connect(sock, &QLocalSocket::disconnected, sock, &QObject::deleteLater);
    if (!SameUser(sock->socketDescriptor())) return Drop(sock);
    auto in = std::make_shared<Incoming>();
    auto* idle = new QTimer(sock);
    idle->setSingleShot(true);
    QObject::connect(idle, &QTimer::timeout, sock, [sock] { Drop(sock); });
    idle->start(idleClientMs);
    QObject::connect(sock, &QLocalSocket::readyRead, sock, [sock, in, idle] {
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
        Handle(sock, in->buffer.left(in->expected));
        in->buffer = QByteArray();
    });
}
} // namespace

QString ChannelName(const QString& title) {
    QString dir = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (dir.isEmpty() || !QDir(dir).exists()) dir = QDir::tempPath();
    return QStringLiteral("%1/%2-%3.sock").arg(dir, title).arg(::getuid());
}

bool IsRunning(const QString& title) {
    QLocalSocket s;
    s.connectToServer(ChannelName(title));
    bool up = s.waitForConnected(1000) && SameUser(s.socketDescriptor());
    s.abort();
    return up;
}

bool Listen(const QString& title, std::function<void(const QByteArray&)> onRequest) {
    Stop();
    const QString name = ChannelName(title);
    // Listening without socket options binds the name itself, which fails while the name
    // exists: of two starts at once only one gets it. (With options the socket would be made
    // elsewhere and renamed over whatever is there, a live instance's name too.)
    auto listener = std::make_unique<QLocalServer>();
    if (!listener->listen(name)) {
        // Somebody answering there is a live instance; otherwise the name was left behind by
        // one that crashed, and is taken over.
        if (Answers(name) || !QLocalServer::removeServer(name) || !listener->listen(name))
            return false;
    }
    // User-only; a peer of another user is refused anyway.
    QFile::setPermissions(name, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    server = listener.release();
    handler = std::move(onRequest);
    QObject::connect(server, &QLocalServer::newConnection, server, [] {
        while (QLocalSocket* c = server->nextPendingConnection()) Serve(c);
    });
    return true;
}

void Stop() {
    if (server) {
        server->close();
        delete server;
    }
    handler = nullptr;
}

bool SendToProcess(const QString& title, const QByteArray& request, int timeoutMs, QString* error) {
    auto fail = [error](const QString& why) {
        if (error) *error = why;
        return false;
    };
    const QByteArray text = request.isEmpty() ? QByteArrayLiteral("Send Test String") : request;
    if (text.size() > kMaxRequest) return fail(QStringLiteral("the request is larger than 256 MB"));
    QLocalSocket s;
    s.connectToServer(ChannelName(title));
    if (!s.waitForConnected(timeoutMs))
        return fail(QStringLiteral("no %1 editor is running").arg(title));
    if (!SameUser(s.socketDescriptor()))
        return fail(
            QStringLiteral("the channel %1 belongs to another user").arg(s.fullServerName()));
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

QByteArray LoadFileRequest(const QString& name) {
    QString path = name;
    if (!name.trimmed().isEmpty() && QDir::isRelativePath(name))
        path = QDir::current().absoluteFilePath(name);
    return "LOADFILE" + path.toUtf8();
}

void SetIdleClientTimeout(int ms) {
    idleClientMs = ms;
}

} // namespace SingleInstance
