#pragma once
// The local channel through which a later start of the program hands its request to the
// first one. It is named from the application title and the user, lives in the user's
// runtime folder with user-only access, and carries one request per connection: a 32-bit
// length, the bytes, and a one-byte acknowledgement back.
#include <QByteArray>
#include <QString>
#include <functional>

namespace SingleInstance {

// The socket path for an application title.
QString ChannelName(const QString& title);

// True when a first instance answers on the channel of this title.
bool IsRunning(const QString& title);

// Takes the channel's name for this process. A name left behind by a crashed instance is
// removed first, but only when nobody answers on it. Returns false when it cannot listen.
bool Listen(const QString& title, std::function<void(const QByteArray&)> onRequest);
void Stop();

// Sends the request and waits for the acknowledgement. False when nobody took it.
bool SendToProcess(const QString& title, const QByteArray& request, int timeoutMs = 10000);

// Requests larger than this are refused and the connection dropped.
constexpr qint64 kMaxRequest = 256LL << 20;

} // namespace SingleInstance
