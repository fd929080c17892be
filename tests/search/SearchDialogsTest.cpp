#include "support/AppTest.h"

#include "search/DocumentSearch.h"
#include "search/SearchState.h"
#include "search/frmFind.h"
#include "search/frmFindEx.h"
#include "search/frmFindInFiles.h"
#include "search/frmFindPattern.h"
#include "search/frmReplace.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>

namespace {

struct SearchDialogsTest : FileCommandsFixture {
    void SetUp() override {
        FileCommandsFixture::SetUp();
        SearchPosition() = 0;
        LastSearchText().clear();
    }
    frmDocument* Holding(const char* text) {
        Edit()->SetText(text);
        Doc()->Changed = false;
        return Doc();
    }
    static QString Sel(frmDocument* doc) {
        return QStringLiteral("%1 %2").arg(doc->rtfText->SelStart()).arg(doc->rtfText->SelLength());
    }
    // The messages asked since the last call, their texts joined by '|'.
    QString Messages() {
        QStringList texts;
        for (size_t i = seen_; i < dialogs.asked.size(); ++i) texts << dialogs.asked[i].text;
        seen_ = dialogs.asked.size();
        return texts.join('|');
    }
    size_t seen_ = 0;
};

const QString kNotFound = "Search Text not found.";

// The whole-word, case-blind menu Find Next and the press sequences that kestrum-do replays
// are run end to end by kestrum_do_search.sh; here what only the dialogs show.
TEST_F(SearchDialogsTest, FindKeepsEveryTextAndAnEmptyOneFindsNothing) {
    frmDocument* doc = Holding("aaaa");
    frmFind& f = frmFind::Instance();
    f.cboFind->setEditText("aa");
    f.cmdFind->click();
    f.cmdFindNext->click();
    EXPECT_EQ(Sel(doc), "1 2");
    f.cmdFind->click();
    EXPECT_EQ(Sel(doc), "0 2") << "cmdFind starts at the top again";
    EXPECT_EQ(f.cboFind->count(), 2) << "every cmdFind adds its text, duplicates too";
    EXPECT_EQ(LastSearchText(), "aa");
    f.cboFind->setEditText("");
    dialogs.AnswerMsgBox(MsgResult::OK);
    f.cmdFind->click();
    EXPECT_EQ(Messages(), kNotFound) << "an empty text finds nothing";
    f.cmdClose->click();
    EXPECT_TRUE(f.isHidden());
}

// Failing over and over without starting again is kestrum_do_search.sh's.
TEST_F(SearchDialogsTest, ExtendedFindCollapsesOnFailureAndLeavesTheLastSearchText) {
    frmDocument* doc = Holding("foo\nbar foo\nBAR");
    frmFindEx f;
    f.txtFind->setPlainText("Foo\nBar");
    f.cmdFind->click();
    f.cmdFindNext->click();
    EXPECT_EQ(Sel(doc), "9 8");
    f.chkCaseSensitive->setChecked(true);
    dialogs.AnswerMsgBox(MsgResult::OK);
    f.cmdFind->click();
    EXPECT_EQ(Messages(), kNotFound);
    EXPECT_EQ(Sel(doc), "9 0") << "cmdFind collapsed the selection before it failed";
    EXPECT_EQ(LastSearchText(), "") << "only frmFind writes it";
}

TEST_F(SearchDialogsTest, PatternSelectsTheFirstCharacterAndRefusesABadStart) {
    frmDocument* doc = Holding("xa1b a2b");
    frmFindPattern& f = frmFindPattern::Instance();
    const QString invalid = "Invalid search expression. The first character of the search "
                            "expression must be a letter in the range of A-Z or a-z, or ";
    const struct {
        const char* expression;
        char button; // 'F' cmdFind, 'N' cmdFindNext
        const char* selection;
        QString message;
    } steps[] = {
        {"a#b", 'F', "1 1", ""},
        {"zz", 'F', "1 0", "No match for search expression found."},
        {"*b", 'F', "1 0", invalid + "any digit."},
        {"*b", 'N', "1 0", invalid + "in a digit."},
    };
    for (const auto& s : steps) {
        f.cboFind->setEditText(s.expression);
        if (!s.message.isEmpty()) dialogs.AnswerMsgBox(MsgResult::OK);
        (s.button == 'F' ? f.cmdFind : f.cmdFindNext)->click();
        EXPECT_EQ(Sel(doc), s.selection) << s.expression << s.button;
        if (!s.message.isEmpty()) {
            EXPECT_EQ(dialogs.asked.back().caption.toStdString(),
                      s.message.startsWith("Invalid") ? "Invalid Expression." : "Kestrum");
        }
        EXPECT_EQ(Messages(), s.message) << s.expression << s.button;
    }
}

TEST_F(SearchDialogsTest, ReplacePromptsAndCancelKeepsTheDialogLoaded) {
    frmDocument* doc = Holding("xa a");
    frmReplace* f = &frmReplace::Instance();
    f->txtFindLine->setText("a");
    f->txtReplaceLine->setText("aa");
    // The active document alone: a Yes searches again from the inserted text.
    dialogs.AnswerMsgBox(MsgResult::Yes)
        .AnswerMsgBox(MsgResult::No)
        .AnswerMsgBox(MsgResult::Yes)
        .AnswerMsgBox(MsgResult::Cancel);
    f->cmdReplace->click();
    EXPECT_EQ(doc->rtfText->Text(), "xaaa a");
    EXPECT_TRUE(frmReplace::Loaded()) << "a Cancel keeps the texts for the next time";
    EXPECT_EQ(f->txtFindLine->text(), "a");
    EXPECT_EQ(dialogs.asked.back().caption, "Ocurrence Found");
    doc->rtfText->Undo();
    EXPECT_EQ(doc->rtfText->Text(), "xa a") << "one undo step";

    // A normal end unloads. A Yes over all open documents is kestrum_do_search.sh's.
    dialogs.AnswerMsgBox(MsgResult::No).AnswerMsgBox(MsgResult::No);
    f->cmdReplace->click();
    QApplication::processEvents();
    EXPECT_FALSE(frmReplace::Loaded());
    Messages();
}

// What a replacement makes of the text is kestrum_do_search.sh's; here an absent text.
TEST_F(SearchDialogsTest, ReplaceAllOfAnAbsentTextChangesNothing) {
    frmDocument* doc = Holding("xyz");
    frmReplace& f = frmReplace::Instance();
    f.txtFindLine->setText("q");
    f.txtReplaceLine->setText("x");
    dialogs.AnswerMsgBox(MsgResult::OK);
    f.cmdReplaceAll->click();
    QApplication::processEvents();
    EXPECT_EQ(doc->rtfText->Text(), "xyz");
    EXPECT_FALSE(doc->Changed);
    EXPECT_EQ(Messages(), "All occurrences replaced.");
    EXPECT_EQ(dialogs.asked.back().caption, "Replace Complete.");
    EXPECT_FALSE(frmReplace::Loaded());
}

TEST_F(SearchDialogsTest, ExtendedReplaceTakesLineBreaksAndIsReachedFromTheMenu) {
    frmDocument* doc = Holding("a\nb\na\nb\n");
    SetSearchDialogRunnerForTesting([&](QDialog& d) {
        auto* f = qobject_cast<frmReplaceEx*>(&d);
        ASSERT_TRUE(f);
        EXPECT_EQ(f->windowTitle(), "Extended Replace");
        f->txtFindBox->setPlainText("a\nb");
        f->txtReplaceBox->setPlainText("c");
        f->cmdReplaceAll->click();
    });
    dialogs.AnswerMsgBox(MsgResult::OK);
    main->mnuSearchReplaceEx_Click();
    EXPECT_EQ(doc->rtfText->Text(), "c\r\nc\r\n");
    doc->rtfText->Undo();
    EXPECT_EQ(doc->rtfText->Text(), "a\r\nb\r\na\r\nb\r\n");
    Messages();
}

// The walk and the filter are the core's and kestrum_do_search.sh's; here the pane's rows.
TEST_F(SearchDialogsTest, FindInFilesListsRowsAndOpensTheMatch) {
    tmp.write("tree/sub/two.h", "x\n  needle\n");
    tmp.write("tree/skip.txt", "needle\n");
    frmFindInFiles f;
    f.txtFind->setText("needle");
    f.txtFolder->setText(Path("tree"));
    f.txtFilter->setText("*.c;*.h");
    f.cmdFind->click();
    FindInFilesPane& pane = FindInFilesPane::Instance();
    pane.Wait();
    QApplication::processEvents();
    ASSERT_EQ(pane.lstResults->count(), 1);
    EXPECT_FALSE(pane.Running());
    EXPECT_EQ(pane.lstResults->item(0)->text(), Path("tree") + "/sub/two.h:2:   needle");
    pane.OpenRow(0);
    frmDocument* opened = main->ActiveForm();
    EXPECT_TRUE(opened->Tag.endsWith("two.h"));
    EXPECT_EQ(opened->rtfText->SelText(), "needle");
    f.txtFolder->setText(Path("missing"));
    dialogs.AnswerMsgBox(MsgResult::OK);
    f.cmdFind->click();
    EXPECT_TRUE(Messages().contains("does not exist"));
}

} // namespace
