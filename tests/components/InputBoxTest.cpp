#include "components/frmInputBox.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>

TEST(InputBox, OnlyNameSafeCharactersCanBeTyped) {
    frmInputBox box;
    box.show();
    QTest::keyClicks(box.txtResponse, "my/pro.file\\ name!_(1)+=ok?");
    EXPECT_EQ(box.txtResponse->text(), "myprofile name!_(1)+=ok");
    QTest::keyClick(box.txtResponse, Qt::Key_Backspace);
    EXPECT_EQ(box.txtResponse->text(), "myprofile name!_(1)+=o");
    // Pasted text is not filtered; only typed keys are.
    box.txtResponse->insert("a.b");
    EXPECT_TRUE(box.txtResponse->text().endsWith("a.b"));
}

TEST(InputBox, CancelAndAnEmptyOkLookAlike) {
    auto answer = [](std::function<void(frmInputBox*)> act) {
        QTimer::singleShot(0, [act] {
            for (QWidget* w : QApplication::topLevelWidgets())
                if (auto* b = qobject_cast<frmInputBox*>(w); b && b->isVisible()) act(b);
        });
    };
    answer([](frmInputBox* b) { b->Command2->click(); });
    EXPECT_EQ(frmInputBox::Prompt("Name?", "Title", "default", nullptr), "");
    answer([](frmInputBox* b) {
        b->txtResponse->clear();
        b->Command1->click();
    });
    EXPECT_EQ(frmInputBox::Prompt("Name?", "Title", "default", nullptr), "");
    answer([](frmInputBox* b) {
        EXPECT_EQ(b->windowTitle(), "Title");
        EXPECT_EQ(b->lblCaption->text(), "Name?");
        b->Command1->click();
    });
    EXPECT_EQ(frmInputBox::Prompt("Name?", "Title", "default", nullptr), "default");
}
