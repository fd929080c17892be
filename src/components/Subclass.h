#pragma once
// Subclass: watches the events of one window and raises the subscribed ones as WndProc, in
// the order they come. The window then handles every event as it would without the watcher.
#include <QEvent>
#include <QObject>
#include <QPointer>
#include <vector>

class QWidget;

class Subclass : public QObject {
    Q_OBJECT
  public:
    explicit Subclass(QObject* parent = nullptr);
    ~Subclass() override;

    // The watched window; none when it is null or has been destroyed.
    QWidget* hwnd() const { return window_; }
    void setHwnd(QWidget* window);

    // Whether an event type is subscribed; subscribing twice keeps one entry.
    bool Messages(QEvent::Type type) const;
    void setMessages(QEvent::Type type, bool subscribed);

  signals:
    void WndProc(QEvent* event);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QPointer<QWidget> window_;
    std::vector<QEvent::Type> messages_;
};
