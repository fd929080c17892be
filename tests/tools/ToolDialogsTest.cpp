#include "ToolsFixture.h"

#include "tools/CaptureView.h"
#include "tools/ToolForms.h"
#include "tools/frmAddCompiler.h"
#include "tools/frmCompilerOutput.h"
#include "tools/frmConfigCompilers.h"
#include "tools/frmConfigUtilities.h"
#include "tools/frmDOSCommand.h"
#include "tools/frmRunCompiler.h"

#include <QAction>
#include <QCheckBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

// A captured run in a console that closes is the end-to-end test's; here the run dialog's other
// forms and its folder.
TEST_F(ToolsFixture, RunDialogStartsItsFormInItsFolder) {
    SaveSetting("Kestrum", "Compilers and Viewers", "cc", "cc -c %N");
    OpenFile("prog.c", "int x;\n");
    for (bool both : {true, false}) {
        started.clear();
        OnModal("frmRunCompiler", [&](QDialog* d) {
            auto* run = static_cast<frmRunCompiler*>(d);
            run->lstCompilers->setCurrentRow(0);
            run->txtRunDir->setText(QString::fromStdString(tmp.path()));
            run->chkCaptureOutput->setChecked(both);
            run->chkCloseWindow->setChecked(both);
            if (both) OnModal("frmCompilerOutput", [](QDialog* out) { out->close(); });
            run->cmdOK->click();
        });
        main->mnuAdvancedRunCompiler_Click();
        ASSERT_EQ(started.size(), 1u);
        EXPECT_EQ(Form(started[0]), both ? "keep+capture" : "bare");
        EXPECT_EQ(Line(started[0]), "cc -c prog.c");
        EXPECT_EQ((started[0].dir + "/").toStdString(), tmp.path());
    }
}

// The default compiler's forms and the other dialogs.
TEST_F(ToolsFixture, DefaultCompilerRunsTwiceAndTheGuardNeedsAFile) {
    OpenFile("main.c", "x");
    struct Case {
        bool capture, keep;
        const char* first;
        const char* firstLine;
    };
    const Case cases[] = {{true, true, "keep+capture", "make %T"},
                          {false, true, "keep", "make %T"},
                          {true, false, "close+capture", ""}, // captures nothing
                          {false, false, "bare", "make %T"}};
    for (const auto& c : cases) {
        started.clear();
        Tools().SaveDefault({"make %T", "", c.keep, c.capture});
        if (c.capture) OnModal("frmCompilerOutput", [](QDialog* out) { out->close(); });
        main->mnuAdvancedRunDefCompiler_Click();
        ASSERT_EQ(started.size(), 2u);
        EXPECT_EQ(Form(started[0]), c.first);
        EXPECT_EQ(Line(started[0]), std::string(c.firstLine) == "" ? "" : "make main");
        EXPECT_EQ(Form(started[1]), "close");
        EXPECT_EQ(Line(started[1]), "make main");
        // With no directory set, the run takes place in the program's folder.
        EXPECT_EQ(started[0].dir + "/", AppDir());
    }
    started.clear();
    NewDocument(); // never saved
    Settle();
    dialogs.AnswerMsgBox(MsgResult::No);
    main->mnuAdvancedRunDefCompiler_Click();
    EXPECT_EQ(dialogs.asked.back().caption, "Confirm");
    EXPECT_TRUE(started.empty());
}

TEST_F(ToolsFixture, ConfigurationDialogKeepsTheStoredList) {
    frmConfigCompilers dlg(main.get());
    // Add: an empty command line is refused and the dialog stays; then a proper tool.
    OnModal("frmAddCompiler", [&](QDialog* d) {
        auto* add = static_cast<frmAddCompiler*>(d);
        add->txtName->setText("gcc");
        dialogs.AnswerMsgBox(MsgResult::OK);
        add->cmdOK->click();
        EXPECT_TRUE(add->isVisible());
        add->txtCommandLine->setText("  gcc %F ");
        add->cmdOK->click();
    });
    dlg.cmdAdd_Click();
    EXPECT_EQ(dialogs.asked.back().text,
              "All configured compilers MUST have both a menu title and a command line.");
    ASSERT_EQ(dlg.lstUtilities->count(), 1);
    EXPECT_EQ(Tools().Tool("gcc").commandLine, "gcc %F");
    // Edit: the name is locked; Cancel stores nothing.
    dlg.lstUtilities->setCurrentRow(0);
    OnModal("frmAddCompiler", [](QDialog* d) {
        auto* add = static_cast<frmAddCompiler*>(d);
        EXPECT_TRUE(add->txtName->isReadOnly());
        EXPECT_EQ(add->txtCommandLine->text(), "gcc %F");
        add->txtCommandLine->setText("changed");
        add->cmdCancel->click();
    });
    dlg.cmdEdit_Click();
    EXPECT_EQ(Tools().Tool("gcc").commandLine, "gcc %F");
    dlg.lstUtilities->setCurrentRow(0);
    dialogs.AnswerMsgBox(MsgResult::OK);
    dlg.cmdSetDefault_Click();
    EXPECT_EQ(dialogs.asked.back().text, "gcc set as default compiler.");
    dlg.lstUtilities->setCurrentRow(0);
    dlg.cmdRemove_Click();
    EXPECT_EQ(dlg.lstUtilities->count(), 0);
    EXPECT_EQ(Tools().LoadDefault().commandLine, "gcc %F");
}

TEST_F(ToolsFixture, UtilitiesMenuFollowsTheStoreUpToTwenty) {
    QAction* first = main->mnuUtilityCmds[0];
    frmConfigUtilities dlg(main.get());
    for (int i = 0; i < 20; ++i) Tools().SaveUtility("u" + std::to_string(i), "true");
    dlg.UpdateList();
    dialogs.AnswerMsgBox(MsgResult::OK);
    dlg.cmdAdd_Click(); // no form: the message only
    EXPECT_EQ(dialogs.asked.back().text, "You can only have a maximum of 20 Utilities configured.");
    main->RefreshUtils();
    EXPECT_TRUE(main->mnuUtilityCmds[19]->isVisible());
    EXPECT_FALSE(main->mnuUtilityCmds[20]->isVisible());
    main->mnuUtilityCmds_Click(3);
    ASSERT_EQ(started.size(), 1u);
    EXPECT_EQ(Form(started[0]), "bare");
    DeleteSetting("Kestrum", "Utilities");
    Tools().SaveUtility("Only", "top");
    main->RefreshUtils();
    DeleteSetting("Kestrum", "Utilities", "Only");
    main->RefreshUtils();
    // The first entry keeps what it showed; the separator goes; a click starts nothing.
    EXPECT_TRUE(first->isVisible());
    EXPECT_EQ(first->text(), "Only");
    EXPECT_FALSE(main->UtilsSeparator->isVisible());
    main->mnuUtilityCmds_Click(0);
    EXPECT_EQ(started.size(), 1u);
}

TEST_F(ToolsFixture, DosCommandQuotesTheFileAndKeepsItsLine) {
    OpenFile("a b.txt", "x");
    OnModal("frmDOSCommand", [&](QDialog* d) {
        auto* dos = static_cast<frmDOSCommand*>(d);
        dialogs.AnswerMsgBox(MsgResult::OK);
        dos->cmdOK->click(); // empty line: message, stays
        EXPECT_TRUE(dos->isVisible());
        dos->txtCommandLine->setText("wc -l %F");
        dos->cmdOK->click();
    });
    main->mnuAdvancedDOSCmd_Click();
    EXPECT_EQ(dialogs.asked.back().caption, "No Command Line.");
    ASSERT_EQ(started.size(), 1u);
    EXPECT_EQ(Form(started[0]), "keep");
    EXPECT_EQ(Line(started[0]), "wc -l \"" + tmp.file("a b.txt") + "\"");
    OnModal("frmDOSCommand", [](QDialog* d) {
        EXPECT_EQ(static_cast<frmDOSCommand*>(d)->txtCommandLine->text().left(7), "wc -l \"");
        static_cast<frmDOSCommand*>(d)->cmdCancel->click();
    });
    main->mnuAdvancedDOSCmd_Click();
}

TEST_F(ToolsFixture, OutputWindowFollowsTheFileAndOpensErrorLines) {
    tmp.write("sub/a.c", "one\ntwo\nthree\n");
    frmDocument* doc = OpenFile("main.c", "x");
    const QString cap = Path("cap.txt");
    frmCompilerOutput out(cap, QString::fromStdString(tmp.path()), main.get());
    out.show();
    out.OpenLocation = [this](const QString& p, int l, int c) { main->OpenToolLocation(p, l, c); };
    EXPECT_EQ(out.OutputText(), "No Compiler Output.\r\n");
    out.Timer1_Timer();
    EXPECT_EQ(out.OutputText(), "Unable to capture compiler output.");
    tmp.write("cap.txt", "building\nsub/a.c:2:3: error: bad\n");
    out.Timer1_Timer();
    EXPECT_EQ(out.OutputText(), "building\nsub/a.c:2:3: error: bad\n");
    out.txtOutput_DblClick(0); // no location: nothing opens
    EXPECT_EQ(main->ActiveForm(), doc);
    out.txtOutput_DblClick(1);
    frmDocument* opened = main->ActiveForm();
    ASSERT_NE(opened, doc);
    EXPECT_EQ(opened->Tag, Path("sub/a.c"));
    EXPECT_EQ(Documents().OpenDocuments().size(), 3u);
    out.close();
    EXPECT_NE(Setting("CompW"), "<none>");
}

// The output arrives in slices smaller than its lines: every byte gets in once, in order, and
// exactly the lines that name a location are marked.
TEST_F(ToolsFixture, OutputWindowMarksLinkLinesAcrossSlices) {
    const std::string longTail(9000, 'x');
    const struct {
        const char* name;
        std::string text;
        std::size_t slice;
        std::vector<bool> links; // per line
    } cases[] = {
        {"compiler and traceback lines",
         "a.c:1: x\nplain\nb.py\n  File \"b.py\", line 3\n",
         5,
         {true, false, false, true}},
        {"CR LF line ends", "x\r\nsrc/m.c:12:4: error\r\n", 3, {false, true}},
        {"CR and LF in two slices", "x\r\nsrc/m.c:12:4: error\r\n", 23, {false, true}},
        {"a line not yet ended is not marked", "ok\nc.c:2: late", 4, {false, false}},
        {"a long line found by its beginning", "a.c:1: " + longTail + "\n", 1000, {true}},
        {"a location past the searched beginning", longTail + " a.c:1:\n", 1000, {false}},
    };
    for (const auto& k : cases) {
        SCOPED_TRACE(k.name);
        const std::string cap = tmp.write("cap.txt", k.text);
        frmCompilerOutput out(QString::fromStdString(cap), Path(""), main.get());
        out.SetSliceForTesting(k.slice);
        int steps = 0; // the first replaces "No Compiler Output."
        do {
            out.Timer1_Timer();
            QCoreApplication::processEvents();
        } while (++steps < 100 && out.OutputText().size() < qsizetype(k.text.size()));
        EXPECT_EQ(out.OutputText().toStdString(), k.text);
        ASSERT_GE(out.txtOutput->lines(), int(k.links.size()));
        for (std::size_t line = 0; line < k.links.size(); ++line)
            EXPECT_EQ(out.txtOutput->IsLink(int(line)), k.links[line]) << "line " << line;
    }
}
