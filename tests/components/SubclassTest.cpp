// The window watcher: which events it raises, and that the window still gets them all.
#include "components/Subclass.h"

#include <QApplication>
#include <QWidget>
#include <gtest/gtest.h>
#include <memory>

namespace {
const auto kFirst = QEvent::Type(QEvent::User + 1);
const auto kSecond = QEvent::Type(QEvent::User + 2);

// A window that counts the events of the two test types that reach it.
class CountingWidget : public QWidget {
  public:
    int seen = 0;

  protected:
    bool event(QEvent* e) override {
        if (e->type() == kFirst || e->type() == kSecond) ++seen;
        return QWidget::event(e);
    }
};

struct SubclassTest : ::testing::Test {
    void SetUp() override {
        QObject::connect(&hook, &Subclass::WndProc,
                         [this](QEvent* e) { raised.push_back(e->type()); });
    }
    static void Post(QWidget* w, QEvent::Type type) {
        QEvent e(type);
        QApplication::sendEvent(w, &e);
    }
    Subclass hook;
    std::vector<QEvent::Type> raised;
};

TEST_F(SubclassTest, OnlySubscribedEventsAreRaisedAndAllReachTheWindow) {
    CountingWidget w;
    hook.setHwnd(&w);
    hook.setMessages(kFirst, true);
    hook.setMessages(kFirst, true); // twice: still one entry
    Post(&w, kFirst);
    Post(&w, kSecond);
    EXPECT_EQ(raised, std::vector<QEvent::Type>({kFirst}));
    EXPECT_EQ(w.seen, 2);

    hook.setMessages(kSecond, false); // not listed: nothing happens
    hook.setMessages(kFirst, false);
    EXPECT_FALSE(hook.Messages(kFirst));
    Post(&w, kFirst);
    EXPECT_EQ(raised.size(), 1u);
    EXPECT_EQ(w.seen, 3);
}

TEST_F(SubclassTest, TheWindowCanBeSetAgainReplacedClearedOrDestroyed) {
    auto a = std::make_unique<CountingWidget>();
    CountingWidget b;
    hook.setMessages(kFirst, true);
    hook.setHwnd(a.get());
    hook.setHwnd(a.get()); // the same window again: still watched once
    Post(a.get(), kFirst);
    EXPECT_EQ(raised.size(), 1u);
    hook.setHwnd(&b);
    Post(a.get(), kFirst);
    Post(&b, kFirst);
    EXPECT_EQ(raised.size(), 2u);
    hook.setHwnd(nullptr);
    Post(&b, kFirst);
    EXPECT_EQ(raised.size(), 2u);

    // A window that dies leaves the watcher empty, and it can watch another.
    hook.setHwnd(a.get());
    a.reset();
    EXPECT_EQ(hook.hwnd(), nullptr);
    hook.setHwnd(&b);
    Post(&b, kFirst);
    EXPECT_EQ(raised.size(), 3u);
}

} // namespace
