#include "components/Subclass.h"

#include <QWidget>
#include <algorithm>

Subclass::Subclass(QObject* parent) : QObject(parent) {}

Subclass::~Subclass() {
    setHwnd(nullptr);
}

void Subclass::setHwnd(QWidget* window) {
    if (window == window_) return;
    if (window_) window_->removeEventFilter(this);
    window_ = window;
    if (window_) window_->installEventFilter(this);
}

bool Subclass::Messages(QEvent::Type type) const {
    return std::find(messages_.begin(), messages_.end(), type) != messages_.end();
}

void Subclass::setMessages(QEvent::Type type, bool subscribed) {
    auto it = std::find(messages_.begin(), messages_.end(), type);
    if (subscribed && it == messages_.end()) messages_.push_back(type);
    if (!subscribed && it != messages_.end()) messages_.erase(it);
}

bool Subclass::eventFilter(QObject* watched, QEvent* event) {
    if (watched == window_ && Messages(event->type())) emit WndProc(event);
    return false;
}
