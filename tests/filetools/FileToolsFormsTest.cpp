#include "filetools/FileView.h"
#include "filetools/core/FolderListing.h"
#include "filetools/frmCompareFiles.h"
#include "filetools/frmComparison.h"
#include "filetools/frmFileInfo.h"

#include "support/AppFixture.h"

#include "components/FlipPane.h"
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTreeView>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {
// The rows below the drives, as "image text".
std::string RowsBelowDrives(const FileView& v) {
    QStringList out;
    for (const FileViewRow& r : v.model->Rows())
        if (r.image != kImageDrive) out << QString::number(r.image) + " " + r.text;
    return out.join(", ").toStdString();
}
std::string Join(const QStringList& l) {
    return l.join(", ").toStdString();
}

void WaitForListing(FileView& v) {
    QTRY_VERIFY_WITH_TIMEOUT(!v.Busy(), 10000);
}

QStringList ResultRows(const frmComparison& w) {
    QStringList out;
    const ComparisonModel& m = *w.model;
    for (int r = 0; r < m.rowCount(); ++r)
        out << m.index(r, 0).data().toString() + "|" + m.index(r, 1).data().toString() + "|" +
                   m.index(r, 2).data().toString() + "|" +
                   (m.index(r, 2).data(Qt::ForegroundRole).isValid() ? "dim" : "");
    return out;
}
} // namespace

using FileToolsForms = AppFixture;

TEST_F(FileToolsForms, FileViewListsAndNavigates) {
    // In a folder of its own: the fixture keeps its program and settings folders beside it.
    const std::string tree = tmp.file("tree/");
    for (const char* f : {"b.HTM", "a.tar.gz", "Readme", ".dot"})
        tmp.write(std::string("tree/") + f, "x");
    ::mkdir((tree + "sub").c_str(), 0755);
    ::mkdir((tree + "Alpha").c_str(), 0755);
    tmp.write("tree/sub/new\nline.txt", ""); // shown with a '?', handed on as it is
    const QString root = QString::fromStdString(tree).chopped(1);
    const QString parent = QString::fromStdString(ParentFolder(tree));

    FileView v;
    WaitForListing(v);
    v.SetPath(root);
    WaitForListing(v);
    EXPECT_EQ(v.Path(), root);
    EXPECT_EQ(v.model->Rows().front().text, "/"); // drives come first, the root among them
    EXPECT_EQ(RowsBelowDrives(v), Join({"2 .. [" + parent + "]", "1 Alpha", "1 sub", "11 a.tar.gz",
                                        "9 b.HTM", "4 Readme"}));
    EXPECT_EQ(v.model->Rows()[size_t(v.lvFiles->currentIndex().row())].image, kImageParent);

    // Into a folder: the event carries the new path with a trailing slash.
    QSignalSpy dirs(&v, &FileView::DirChange), files(&v, &FileView::FileDblClick);
    const int sub = int(v.model->Rows().size()) - 4;
    v.lvFiles->setCurrentIndex(v.model->index(sub));
    v.lvFiles_DblClick();
    WaitForListing(v);
    ASSERT_EQ(dirs.size(), 1);
    EXPECT_EQ(dirs[0][0].toString(), root + "/sub/");
    EXPECT_EQ(RowsBelowDrives(v), Join({"2 .. [" + root + "]", "6 new?line.txt"}));

    // A file: its full path goes out, and it is the selection.
    v.lvFiles->setCurrentIndex(v.model->index(int(v.model->Rows().size()) - 1));
    v.lvFiles_DblClick();
    ASSERT_EQ(files.size(), 1);
    EXPECT_EQ(files[0][0].toString(), root + "/sub/new\nline.txt");
    EXPECT_EQ(v.SelectedFiles(), root + "/sub/new\nline.txt");
    v.lvFiles->setCurrentIndex(v.model->index(0)); // a drive is no file
    EXPECT_EQ(v.SelectedFiles(), "");

    // A folder that vanished leaves the path and the list as they were.
    const std::string before = RowsBelowDrives(v);
    v.SetPath(root + "/gone");
    WaitForListing(v);
    EXPECT_EQ(v.Path(), root + "/sub");
    EXPECT_EQ(RowsBelowDrives(v), before);

    v.ParentDir();
    WaitForListing(v);
    EXPECT_EQ(v.Path(), root);
    v.SetPattern("*.htm");
    WaitForListing(v);
    EXPECT_EQ(RowsBelowDrives(v), Join({"2 .. [" + parent + "]", "1 Alpha", "1 sub", "9 b.HTM"}));
}

TEST_F(FileToolsForms, CompareDialogStoresPathsAndShowsRows) {
    const QString one = QString::fromStdString(tmp.write("one.txt", "a\n  b\n"));
    const QString two = QString::fromStdString(tmp.write("two.txt", "A\nb\nc\n"));
    // The rows of each option are run by kestrum_do_compare.sh; here how the window shows them.
    frmCompareFiles dlg;
    EXPECT_FALSE(dlg.chkCaseSensitive->isChecked() || dlg.chkOpenFiles->isChecked() ||
                 dlg.chkShowDifferent->isChecked() || dlg.chkIgnoreBlanks->isChecked());
    dlg.txtFirstFile->setText(one);
    dlg.txtSecondFile->setText(two);
    dlg.chkCaseSensitive->setChecked(true);
    frmComparison* w = dlg.cmdOK_Click();
    EXPECT_EQ(w->windowTitle(), "Comparison Results - [one.txt:two.txt]");
    EXPECT_EQ(Join(ResultRows(*w)), "1|a|A|, 2|b|b|dim");
    w->close(); // deletes itself
    EXPECT_EQ(Setting("File1", "Comparison"), one);
    frmCompareFiles again;
    EXPECT_EQ(again.txtSecondFile->text(), two);
}

TEST_F(FileToolsForms, FileInfoShowsWhatTheTestSet) {
    const std::string f = tmp.write(".notes", std::string(1536, 'x'));
    struct timespec times[2] = {{951782400 + 3723, 0}, {1700000000, 0}}; // access, modification
    ASSERT_EQ(::utimensat(AT_FDCWD, f.c_str(), times, 0), 0);
    ASSERT_EQ(::chmod(f.c_str(), 0444), 0);
    frmFileInfo info;
    info.updatestats(QString::fromStdString(f), true);
    EXPECT_EQ(info.txtname->text().toStdString(), f);
    EXPECT_EQ(info.txtsize->text(), "1.500 KB");
    EXPECT_EQ(info.lbldate[1]->text(), "14/11/2023 22:13:20");
    EXPECT_EQ(info.lbldate[2]->text(), "29/2/2000 1:2:3");
    EXPECT_FALSE(info.lblMod->isHidden());
    QStringList checked;
    for (size_t i = 1; i <= 7; ++i)
        if (info.attributes[i]->isChecked()) checked << info.attributes[i]->text();
    const QStringList expected =
        ::geteuid() == 0 ? QStringList{"Hidden"} : QStringList{"Hidden", "Read Only"};
    EXPECT_EQ(Join(checked), Join(expected));
}

TEST_F(FileToolsForms, MainWindowCommands) {
    frmMain& m = Start();
    // Unsaved: the message, and no dialog.
    dialogs.AnswerMsgBox(MsgResult::OK);
    m.mnuViewFileInfo_Click();
    ASSERT_EQ(dialogs.asked.size(), 1u);
    EXPECT_EQ(dialogs.asked[0].caption, "Information Unavailable.");

    // The browser's double click opens the file as a document, in the recent list.
    const QString file = QString::fromStdString(tmp.write("page.txt", "hello\r\n"));
    m.lstFiles_FileDblClick(file);
    ASSERT_NE(m.ActiveForm(), nullptr);
    EXPECT_EQ(m.ActiveForm()->Tag, file);
    EXPECT_EQ(m.ActiveForm()->Caption(), "page.txt");
    EXPECT_EQ(m.RecentFiles[1], file);
    EXPECT_FALSE(m.ActiveForm()->Changed);
    EXPECT_EQ(m.picBrowser->HostedWidget(), m.lstFiles);
}
