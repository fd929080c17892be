#pragma once
// Driving the local channel from a test: the channel's sender blocks until the request has
// been handled, and the handler runs in this thread's event loop, so the sender runs in a
// thread of its own while the test keeps the loop turning.
#include "app/SingleInstance.h"
#include "support/TempDir.h"

#include <QLocalSocket>
#include <QTest>
#include <QThread>
#include <atomic>
#include <memory>

// A send in a thread; Finished() once the sender has its answer or has given up.
class ThreadedSend {
  public:
    ThreadedSend(const QString& title, const QByteArray& request, int timeoutMs = 10000) {
        thread_.reset(QThread::create([this, title, request, timeoutMs] {
            ok_ = SingleInstance::SendToProcess(title, request, timeoutMs, &error_);
        }));
        thread_->start();
    }
    ~ThreadedSend() { thread_->wait(); }
    bool Finished() const { return thread_->isFinished(); }
    // Turns the event loop until the sender is done; false when it is not within the time.
    bool Wait(int ms = 15000) {
        return QTest::qWaitFor([this] { return Finished(); }, ms);
    }
    bool Ok() const { return ok_; }
    // Waits, and tells whether the request was acknowledged.
    bool Delivered() { return Wait() && Ok(); }
    QString Error() const { return Finished() ? error_ : QString(); }

  private:
    std::unique_ptr<QThread> thread_;
    std::atomic<bool> ok_{false};
    QString error_;
};

// A runtime folder of the test's own, so that no test touches the user's channel.
class ScopedRuntimeDir {
  public:
    ScopedRuntimeDir() : old_(qgetenv("XDG_RUNTIME_DIR")) {
        qputenv("XDG_RUNTIME_DIR", QByteArray::fromStdString(dir_.path()));
    }
    ~ScopedRuntimeDir() {
        SingleInstance::Stop();
        SingleInstance::SetIdleClientTimeout(5000);
        SingleInstance::SetRequestDeadline(10000);
        qputenv("XDG_RUNTIME_DIR", old_);
    }

  private:
    TempDir dir_;
    QByteArray old_;
};
