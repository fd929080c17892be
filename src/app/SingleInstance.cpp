#include "app/SingleInstance.h"

#include <QDir>
#include <QLocalServer>
#include <QLocalSocket>
#include <QPointer>
#include <QTimer>
#include <QtEndian>
#include <unistd.h>

namespace SingleInstance {
namespace {
QPointer<QLocalServer> server;
std::function<void(const QByteArray&)> handler;
constexpr int kIdleClientMs = 5000;

// Reads one request from a connected client as its bytes arrive, then acknowledges it.
void Serve(QLocalSocket* sock) {
    auto buffer = std::make_shared<QByteArray>();
    auto expected = std::make_shared<qint64>(-1);
    auto* idle = new QTimer(sock);
    idle->setSingleShot(true);
    idle->start(kIdleClientMs);
    QObject::connect(idle, &QTimer::timeout, sock, [sock] { sock->abort(); });
    QObject::connect(sock, &QLocalSocket::disconnected, sock, &QObject::deleteLater);
    QObject::connect(sock, &QLocalSocket::readyRead, sock, [sock, buffer, expected, idle] {
        idle->start(kIdleClientMs);
        buffer->append(sock->readAll());
        if (*expected < 0 && buffer->size() >= 4) {
            *expected = qFromBigEndian<quint32>(buffer->constData());
            buffer->remove(0, 4);
            if (*expected > kMaxRequest) {
                sock->abort();
                return;
            }
        }
        if (*expected < 0 || buffer->size() < *expected) return;
        QByteArray request = buffer->left(*expected);
        buffer->clear();
        idle->stop();
        sock->write("\x06", 1);
        sock->flush();
        sock->disconnectFromServer();
        if (handler) handler(request);
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
    bool up = s.waitForConnected(1000);
    s.abort();
    return up;
}

bool Listen(const QString& title, std::function<void(const QByteArray&)> onRequest) {
    Stop();
    handler = std::move(onRequest);
    QString name = ChannelName(title);
    server = new QLocalServer;
    server->setSocketOptions(QLocalServer::UserAccessOption);
    if (!server->listen(name)) {
        // Somebody answering there is a live instance; otherwise the name is stale.
        if (IsRunning(title)) return false;
        QLocalServer::removeServer(name);
        if (!server->listen(name)) return false;
    }
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
}

bool SendToProcess(const QString& title, const QByteArray& request, int timeoutMs) {
    if (request.size() > kMaxRequest) return false;
    QLocalSocket s;
    s.connectToServer(ChannelName(title));
    if (!s.waitForConnected(timeoutMs)) return false;
    char len[4];
    qToBigEndian<quint32>(quint32(request.size()), len);
    s.write(len, 4);
    s.write(request);
    while (s.bytesToWrite() > 0)
        if (!s.waitForBytesWritten(timeoutMs)) return false;
    while (s.bytesAvailable() < 1)
        if (!s.waitForReadyRead(timeoutMs)) return false;
    return s.read(1) == "\x06";
}

} // namespace SingleInstance
