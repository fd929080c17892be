#include "support/AppTest.h"
#include "transforms/TransformCommands.h"
#include "transforms/frmHTMLTags.h"
#include "transforms/frmSpacestoTabs.h"
#include "transforms/frmSpecialChar.h"
#include "transforms/frmTabsToSpaces.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

namespace TC = TransformCommands;

namespace {
using TransformDialogsTest = FileCommandsFixture;

// Answers a tab dialog: checks what it shows, types into the box and presses a button.
template <class Dialog> TC::DialogRunner Answer(QString* shown, const QString& typed, bool ok) {
    return [=](QDialog& d) {
        auto& dialog = dynamic_cast<Dialog&>(d);
        *shown = dialog.windowTitle() + "|" + dialog.txtSpaces->text();
        dialog.txtSpaces->clear();
        QTest::keyClicks(dialog.txtSpaces, typed);
        (ok ? dialog.cmdOK : dialog.cmdCancel)->click();
    };
}
} // namespace

TEST_F(TransformDialogsTest, TabDialogsReadTheirBoxAndKeepTheTextOnCancel) {
    g_EditorSettings().TabWidth = 3;
    struct Case {
        bool toSpaces;
        QString typed;
        bool ok;
        std::string text, want;
        QString shown;
    };
    std::vector<Case> cases = {
        {true, "3x", true, "\t", "   ", "Convert Tabs to Spaces|4"}, // the x is refused
        {true, "2", false, "a\tb", "a\tb", "Convert Tabs to Spaces|4"},
        {false, "2x", true, "     x", "\t\t x", "Spaces to Tabs|3"},
    };
    for (const auto& c : cases) {
        Edit()->SetText(c.text);
        Edit()->SetSelStart(2);
        QString shown;
        bool done = c.toSpaces
                        ? TC::TabsToSpaces(*Doc(), Answer<frmTabsToSpaces>(&shown, c.typed, c.ok))
                        : TC::SpacesToTabs(*Doc(), Answer<frmSpacestoTabs>(&shown, c.typed, c.ok));
        EXPECT_EQ(done, c.ok) << c.text;
        EXPECT_EQ(shown, c.shown);
        EXPECT_EQ(Edit()->Text(), c.want) << c.text;
        EXPECT_EQ(Edit()->SelStart(), c.ok ? 0 : 2) << c.text;
    }
}

TEST_F(TransformDialogsTest, TagPickerWrapsTheSelectionAndKeepsItsPlace) {
    Edit()->SetText("xabcx");
    Select(1, 3);
    Run("mnuFormatHTML");
    auto* tags = main->findChild<frmHTMLTags*>();
    ASSERT_TRUE(tags);
    auto pick = [&](const QString& entry) {
        auto found = tags->lstTags->findItems(entry, Qt::MatchExactly);
        ASSERT_EQ(found.size(), 1);
        tags->lstTags->setCurrentItem(found[0]);
        tags->InsertSelectedTag();
    };
    pick("<B> ... </B>");
    EXPECT_EQ(Edit()->Text(), "x<B>abc</B>x");
    EXPECT_EQ(Edit()->SelText(), "<B>abc</B>");
    Edit()->Undo();
    EXPECT_EQ(Edit()->Text(), "xabcx"); // one undo step
    Select(1, 3);
    pick("<BR>");
    EXPECT_EQ(Edit()->SelText(), "<BR>abc");

    Doc()->Changed = false;
    Doc()->CloseWith(frmDocument::vbFormCode);
    Settle();
    pick("<HR>"); // no document: nothing happens, the window stays
    EXPECT_TRUE(tags->isVisible());
    tags->setGeometry(40, 50, 300, 222);
    tags->close();
    Settle();
    EXPECT_EQ(Setting("HTMLW"), "300");
    EXPECT_EQ(Setting("HTMLH"), "222");
    frmHTMLTags again([] { return nullptr; });
    EXPECT_EQ(again.size(), QSize(300, 222));
}

TEST_F(TransformDialogsTest, SpecialCharactersGoInAtOneGoInTheDocumentsBytes) {
    for (bool utf8 : {false, true}) {
        Edit()->ResetEncoding(utf8);
        Edit()->SetText("ab");
        Select(1, 1);
        frmSpecialChar dialog(*Doc());
        ASSERT_EQ(dialog.lstChars->count(), 96);
        dialog.cmdAdd->click(); // no row chosen: nothing
        dialog.lstChars->setCurrentRow(233 - 160);
        dialog.cmdAdd->click();
        dialog.lstChars->setCurrentRow(0xFC - 160);
        dialog.cmdAdd->click();
        EXPECT_EQ(dialog.txtChars->text(), QString::fromUtf8("\xC3\xA9\xC3\xBC"));
        dialog.cmdOK->click();
        EXPECT_EQ(Edit()->Text(), utf8 ? "a\xC3\xA9\xC3\xBC" : "a\xE9\xFC") << utf8;
    }
}

TEST_F(TransformDialogsTest, MenuCommandsAreOneUndoStep) {
    const std::string text = "one\r\n  two\r\nthree";
    Edit()->SetText(text);
    Select(0, int64_t(text.size()));
    for (const char* name :
         {"mnuFormatIndent", "mnuFOrmatUpper", "mnuFOrmatTrim", "mnuEditConvertToUnix"}) {
        if (std::string_view(name) == "mnuEditConvertToUnix") dialogs.AnswerMsgBox(MsgResult::OK);
        Run(name);
        EXPECT_NE(Edit()->Text(), text) << name;
        Edit()->Undo();
        EXPECT_EQ(Edit()->Text(), text) << name;
        Select(0, int64_t(text.size()));
    }
}
