// A real shell command run from the Run dialog with its output captured: the output window
// shows it with the exit status, and a double click on the error line opens the file there.
#include "support/AppTest.h"
#include "tools/CaptureView.h"
#include "tools/frmCompilerOutput.h"
#include "tools/frmRunCompiler.h"

#include <QCheckBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QTimer>
#include <sys/stat.h>

TEST_F(FileCommandsFixture, CapturedRunShowsOutputAndOpensTheErrorLine) {
    // A terminal that runs its command in place, as a real one would inside its window.
    const std::string term =
        tmp.write("term", "#!/bin/sh\n[ \"$1\" = -e ] && shift\nexec \"$@\"\n");
    ::chmod(term.c_str(), 0755);
    SaveSetting("Kestrum", "Settings", "Terminal", QString::fromStdString(term));
    // A stored tool chosen from the list: its line is expanded for the document.
    const std::string command = "echo building %N; echo \"%N:3:5: error: no\" >&2; exit 4";
    SaveSetting("Kestrum", "Compilers and Viewers", "cc", QString::fromStdString(command));
    frmDocument* doc = OpenFile("prog.c", "int a;\nint b;\nint c;\n");
    std::string shown;
    frmDocument* opened = nullptr;
    QTimer::singleShot(50, [&] {
        auto* run = qobject_cast<frmRunCompiler*>(QApplication::activeModalWidget());
        ASSERT_NE(run, nullptr);
        EXPECT_TRUE(run->lstCompilers->selectedItems().isEmpty()); // none chosen at first
        run->lstCompilers->setCurrentRow(0);
        EXPECT_EQ(run->txtCmdLine->text().toStdString(), command); // expanded when it runs
        run->txtRunDir->setText(QString::fromStdString(tmp.path()));
        run->chkCaptureOutput->setChecked(true);
        run->chkCloseWindow->setChecked(false);
        QTimer::singleShot(50, [&] {
            auto* out = qobject_cast<frmCompilerOutput*>(QApplication::activeModalWidget());
            ASSERT_NE(out, nullptr);
            QElapsedTimer t;
            t.start();
            while (!out->OutputText().contains("Tool finished") && t.elapsed() < 20000)
                QTest::qWait(50);
            shown = out->OutputText().toStdString();
            // Double click on the second line, where the error stands.
            auto* view = out->txtOutput;
            view->verticalScrollBar()->setValue(0);
            QTest::mouseDClick(view->viewport(), Qt::LeftButton, {},
                               view->LineRect(1).topLeft() + QPoint(8, 4));
            Settle();
            opened = main->ActiveForm();
            out->close();
        });
        run->cmdOK->click();
    });
    main->mnuAdvancedRunCompiler_Click();
    EXPECT_EQ(shown, "building prog.c\nprog.c:3:5: error: no\nTool finished (exit 4)\n");
    EXPECT_EQ(Setting("CaptureOutput"), "1"); // the boxes are kept for the next run
    EXPECT_EQ(Setting("CloseWindow"), "0");
    EXPECT_EQ(opened, doc); // open already: activated, not opened twice
    int line = -1, index = -1;
    doc->rtfText->getCursorPosition(&line, &index);
    EXPECT_EQ(line, 2);
    EXPECT_EQ(index, 4);
}
