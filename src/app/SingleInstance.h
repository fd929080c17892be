#pragma once
// The local channel through which a later start of the program, or kestrum-send, hands its
// request to the first instance. It is named from the application title and the user, lives
// in the user's runtime folder with user-only access, and carries one request per
// connection: a 32-bit big-endian length, the bytes, and a one-byte acknowledgement back once
// the request has been handled. Both ends refuse a peer that runs as another user.
// Qt Core and Network only: kestrum-send links it without the editor's windows.
#include <QByteArray>
#include <QString>
#include <functional>

namespace SingleInstance {

// The socket path of the channel of an application title: the one this process listens on,
// else the first one a first instance would take (empty when there is no place for it).
QString ChannelName(const QString& title);

// True when a first instance of this user answers on the channel of this title.
bool IsRunning(const QString& title);

// Takes the channel's name for this process. A name left behind by a crashed instance is
// removed first, but only when nobody answers on it; an empty folder of ours in its place too,
// and anything else there moves the channel to another name. Returns false when it cannot
// listen. Once listening, the channel outlives a shortage of descriptors and the loss of its
// name: it accepts again, and takes its name again, as soon as it can.
// The handler runs in the event loop (also in a modal dialog's), once per complete request.
bool Listen(const QString& title, std::function<void(const QByteArray&)> onRequest);
void Stop();

// Sends the request and waits until the first instance has handled it. An empty request is
// sent as "Send Test String". False when nobody took it; *error then says why.
bool SendToProcess(const QString& title, const QByteArray& request, int timeoutMs = 10000,
                   QString* error = nullptr);

// The request of a later start: "LOADFILE" and the file's name, as the bytes the system gave,
// so that a name that is not UTF-8 arrives unchanged. A relative name is made full from this
// process's working folder, as the first instance has a folder of its own; a blank name stays
// as it is.
QByteArray LoadFileRequest(const QByteArray& name);

// Requests larger than this are refused and the connection dropped.
constexpr qint64 kMaxRequest = 256LL << 20;

// At most this many request connections are open at once; a new one beyond them drops the
// oldest one whose request is not complete yet.
constexpr int kMaxClients = 32;

// A client that sends nothing for this long is dropped. Tests shorten it.
void SetIdleClientTimeout(int ms);
// A client whose request is not complete this long after it connected is dropped, however
// steadily it sends. Tests shorten it.
void SetRequestDeadline(int ms);

} // namespace SingleInstance
