#include "editor/RichEdit.h"
#include "support/TempDir.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

// A load is one change of the text however many pieces the file is read in, so that the
// owner sees it once, and none when an empty control takes an empty file.
TEST(RichEditLoad, ALoadIsReportedAsOneChange) {
    TempDir dir;
    RichEdit edit;
    QSignalSpy changes(&edit, &QsciScintilla::textChanged);
    std::string line = "a line of text that ends with LF\n";
    std::string big;
    while (big.size() < (9u << 20)) big += line; // more than two reading chunks
    QString error;
    ASSERT_TRUE(edit.LoadFile(QString::fromStdString(dir.write("big.txt", big)), 1, &error));
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(edit.TextLength(), int64_t(big.size() + big.size() / line.size()));
    EXPECT_EQ(edit.Text().substr(0, line.size() + 1), line.substr(0, line.size() - 1) + "\r\n");
    // Typing is reported again after the load.
    edit.SetSelText("x");
    EXPECT_EQ(changes.count(), 2);

    std::string empty = dir.write("empty.txt", "");
    ASSERT_TRUE(edit.LoadFile(QString::fromStdString(empty), 1, &error));
    EXPECT_EQ(changes.count(), 3); // the text went
    ASSERT_TRUE(edit.LoadFile(QString::fromStdString(empty), 1, &error));
    EXPECT_EQ(changes.count(), 3); // nothing changed
}
