#include "printing/core/PageSetupValues.h"
#include "printing/frmPageSetup.h"
#include "printing/frmPrinting.h"
#include "printing/modPrintRTFText.h"
#include "profiles/frmConfigAssocProfile.h"

#include "printing/PdfReader.h"
#include "support/AppTest.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPrinter>
#include <QPushButton>
#include <QTimer>

class Printing : public FileCommandsFixture {
  protected:
    void SetUp() override {
        FileCommandsFixture::SetUp(); // the start loads the default margins
        ResetPrintingInProgressForTesting();
        SharedPrinter().setOutputFormat(QPrinter::PdfFormat);
        SharedPrinter().setOutputFileName(Path("out.pdf"));
    }
    void TearDown() override {
        ResetPrintingInProgressForTesting();
        FileCommandsFixture::TearDown();
    }
    static std::string Lines(int n, const char* word) {
        std::string t;
        for (int i = 1; i <= n; ++i) t += word + std::to_string(i) + "\r\n";
        return t;
    }
};

TEST_F(Printing, DocumentsIntoPdf) {
    struct Case {
        const char* name;
        std::string text;
        int minPages, maxPages;
        std::vector<QString> present;
    };
    const std::vector<Case> cases = {
        {"empty document: one blank page", "", 1, 1, {}},
        {"over pages, last line too", Lines(300, "line"), 4, 8, {"line1", "line150", "line300"}},
        {"a line far wider than the page wraps", std::string(2000, 'x') + "END", 1, 2, {"END"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Edit()->SetText(c.text);
        dialogs.AnswerPrint(true);
        main->mnuFilePrint_Click();
        PdfContents pdf = ReadPdf(Path("out.pdf"));
        EXPECT_GE(pdf.pages, c.minPages);
        EXPECT_LE(pdf.pages, c.maxPages);
        // Blanks are drawn as positions, not reliably as characters: compare without them.
        const QRegularExpression blank("\\s");
        const QString text = QString(pdf.text).remove(blank);
        for (const QString& want : c.present)
            EXPECT_TRUE(text.contains(QString(want).remove(blank))) << want.toStdString();
        EXPECT_FALSE(PrintingInProgress());
    }
    // Cancelled print dialog: nothing printed, nothing asked.
    QFile::remove(Path("out.pdf"));
    dialogs.AnswerPrint(false);
    main->mnuFilePrint_Click();
    EXPECT_FALSE(QFile::exists(Path("out.pdf")));
}

TEST_F(Printing, FailuresAndGuard) {
    Edit()->SetText(Lines(400, "row"));
    enum Action { None, Cancel, SecondJob, Unwritable };
    using O = PrintOutcome;
    const struct {
        const char* name;
        PrintMargins margins; // top, bottom, left, right
        Action action;
        PrintOutcome outcome;
        QString caption; // the box shown, empty for none
    } cases[] = {
        {"margins wider than the page", {1, 1, 15, 15}, None, O::NoRoom, "Printer Error"},
        {"margins taller than the page", {20, 20, 1, 1}, None, O::NoRoom, "Printer Error"},
        {"cancel in the progress window", {}, Cancel, O::Cancelled, ""},
        {"second job while one runs", {}, SecondJob, O::Printed, "Printing Error"},
        {"unwritable PDF path", {}, Unwritable, O::Failed, "Printer Error"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        g_PrintMargins() = c.margins;
        SharedPrinter().setOutputFileName(
            Path(c.action == Unwritable ? "missing/out.pdf" : "out.pdf"));
        dialogs.asked.clear();
        if (c.action == Cancel)
            QTimer::singleShot(0, [] {
                for (QWidget* w : QApplication::topLevelWidgets())
                    if (auto* p = qobject_cast<frmPrinting*>(w)) p->cmdCancel->click();
            });
        if (c.action == SecondJob) {
            QTimer::singleShot(0, [this] { main->mnuFilePrint_Click(); });
            dialogs.AnswerPrint(true);
        }
        if (!c.caption.isEmpty()) dialogs.AnswerMsgBox(MsgResult::OK);
        EXPECT_EQ(PrintDocument(*Edit(), SharedPrinter(), main.get()), c.outcome);
        Settle();
        std::vector<QString> boxes;
        for (const auto& q : dialogs.asked)
            if (q.kind == "MsgBox") boxes.push_back(q.caption);
        EXPECT_EQ(boxes,
                  c.caption.isEmpty() ? std::vector<QString>{} : std::vector<QString>{c.caption});
        EXPECT_FALSE(PrintingInProgress());
    }
}

TEST_F(Printing, PageSetupDialog) {
    g_PrintMargins() = {2.5f, 1, 1.5f, 3}; // top, bottom, left, right
    SetModalRunnerForTesting([](QDialog& d) {
        auto& dlg = static_cast<frmPageSetup&>(d);
        EXPECT_EQ(dlg.txtTop->text(), "2.5");
        EXPECT_EQ(dlg.txtRight->text(), "3");
        struct Typing {
            QLineEdit* box;
            const char* keys;
            QString shown;
        };
        for (const Typing& t : std::vector<Typing>{{dlg.txtTop, "1.2.3", "1.23"},
                                                   {dlg.txtBottom, ".", "."},
                                                   {dlg.txtLeft, "a-4,5 e", "45"},
                                                   {dlg.txtRight, "0.759\b", "0.75"}}) {
            t.box->clear();
            QTest::keyClicks(t.box, t.keys);
            EXPECT_EQ(t.box->text(), t.shown) << t.keys;
        }
        dlg.chkBlackAndWhite->setChecked(true);
        dlg.cmdOK->click();
    });
    main->mnuFilePageSetup_Click();
    SetModalRunnerForTesting(nullptr);
    EXPECT_EQ(Setting("TopMargin", "Printer Settings"), "1.23");
    EXPECT_EQ(Setting("BottomMargin", "Printer Settings"), "0");
    EXPECT_EQ(Setting("LeftMargin", "Printer Settings"), "45");
    EXPECT_EQ(Setting("RightMargin", "Printer Settings"), "0.75");
    EXPECT_FLOAT_EQ(g_PrintMargins().Top, 1.23f);
    EXPECT_FLOAT_EQ(g_PrintMargins().Right, 0.75f);
    EXPECT_TRUE(LoadBlackAndWhite(Store(), "Kestrum"));

    // Cancel stores nothing.
    SetModalRunnerForTesting([](QDialog& d) {
        static_cast<frmPageSetup&>(d).txtTop->setText("9");
        static_cast<frmPageSetup&>(d).cmdCancel->click();
    });
    main->mnuFilePageSetup_Click();
    SetModalRunnerForTesting(nullptr);
    EXPECT_EQ(Setting("TopMargin", "Printer Settings"), "1.23");
}
