#include "tools/CaptureView.h"

#include "support/TempDir.h"

#include <QApplication>
#include <QClipboard>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace {
// A view of a capture file, all of it read.
struct View {
    View(TempDir& tmp, const std::string& file) {
        const std::string path = tmp.write("cap.txt", file);
        view.resize(300, 160);
        view.show();
        view.ShowFile(path);
        view.Append(file);
    }
    QPoint At(int line, int cell) const {
        const int cw = view.fontMetrics().horizontalAdvance('M');
        return {CaptureView::kIndent + cell * cw + 1, view.LineRect(line).center().y()};
    }
    CaptureView view;
};
} // namespace

// A drag from one cell to another copies the bytes under it: tabs and UTF-8 take their whole
// cells, and text invalid as UTF-8 is copied as Latin-1.
TEST(CaptureView, CopiesTheDraggedSelection) {
    const struct {
        const char* name;
        std::string text;
        int fromLine, fromCell, toLine, toCell;
        QString copied;
    } cases[] = {
        {"across a CR LF", "alpha\r\nbeta\n", 0, 2, 1, 2, "pha\r\nbe"},
        {"backwards", "alpha\r\nbeta\n", 1, 2, 0, 2, "pha\r\nbe"},
        {"past a tab", "a\tb\n", 0, 0, 0, 8, "a\t"},
        {"UTF-8", "h\xc3\xa9llo\n", 0, 0, 0, 3, QString::fromUtf8("h\xc3\xa9l")},
        {"Latin-1", "h\xe9llo\n", 0, 1, 0, 3, QString::fromLatin1("\xe9l")},
        {"past the end of a line", "ab\ncd\n", 0, 1, 0, 40, "b"},
    };
    TempDir tmp;
    for (const auto& k : cases) {
        SCOPED_TRACE(k.name);
        View v(tmp, k.text);
        QApplication::clipboard()->setText("unchanged");
        QTest::keyClick(&v.view, Qt::Key_C, Qt::ControlModifier); // nothing selected yet
        EXPECT_EQ(QApplication::clipboard()->text(), "unchanged");
        QTest::mousePress(v.view.viewport(), Qt::LeftButton, {}, v.At(k.fromLine, k.fromCell));
        QMouseEvent move(QEvent::MouseMove, v.At(k.toLine, k.toCell),
                         v.view.viewport()->mapToGlobal(v.At(k.toLine, k.toCell)), Qt::NoButton,
                         Qt::LeftButton, {});
        QApplication::sendEvent(v.view.viewport(), &move);
        QTest::mouseRelease(v.view.viewport(), Qt::LeftButton, {}, v.At(k.toLine, k.toCell));
        v.view.grab(); // draws the selection
        QTest::keyClick(&v.view, Qt::Key_C, Qt::ControlModifier);
        EXPECT_EQ(QApplication::clipboard()->text(), k.copied);
    }
}

// A double click reports the line under it, wherever the view is scrolled; the view follows
// the end of the output until the reader scrolls away from it.
TEST(CaptureView, DoubleClickHitsTheLineAndTheViewFollowsTheEnd) {
    std::string text;
    for (int i = 0; i < 300; ++i) text += i == 250 ? "src/f.c:7:2: error\n" : "line\n";
    TempDir tmp;
    View v(tmp, text);
    QScrollBar* bar = v.view.verticalScrollBar();
    ASSERT_GT(bar->maximum(), 0);
    EXPECT_EQ(bar->value(), bar->maximum());
    bar->setValue(245);
    QSignalSpy clicked(&v.view, &CaptureView::LineDoubleClicked);
    QTest::mouseDClick(v.view.viewport(), Qt::LeftButton, {}, v.At(250, 1));
    ASSERT_EQ(clicked.size(), 1);
    EXPECT_EQ(clicked[0][0].toInt(), 250);
    EXPECT_TRUE(v.view.IsLink(250));
    EXPECT_FALSE(v.view.IsLink(251));
    QTest::keyClick(&v.view, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(v.view.SelectedText(), QString::fromStdString(text)); // select all takes it all

    QTest::keyClick(&v.view, Qt::Key_End, Qt::ControlModifier);
    v.view.Append("more\nlines\n");
    EXPECT_EQ(bar->value(), bar->maximum()); // followed
    QTest::keyClick(&v.view, Qt::Key_Up);
    const int kept = bar->value();
    v.view.Append("still more\n");
    EXPECT_EQ(bar->value(), kept); // stays where the reader scrolled to
    EXPECT_LT(kept, bar->maximum());
}
