// Four files opened through File > Open on a real X display: every document window lies inside
// the document area and shows its text; Window > Cascade leaves each one at least ten lines.
#include "support/AppFixture.h"

#include <QAction>
#include <Qsci/qsciscintilla.h>

namespace {
// True when the editor's text area is what the user sees at its top left corner.
bool TextIsInView(frmMain& main, frmDocument* doc) {
    QWidget* view = doc->rtfText->viewport();
    QPoint inside = view->mapToGlobal(QPoint(20, 8));
    return main.childAt(main.mapFromGlobal(inside)) == view;
}
} // namespace

TEST_F(AppFixture, FourOpenedFilesStayInViewAndCascadeAtAUsefulSize) {
    Start();
    main->resize(1100, 800);
    Settle();
    std::string lines;
    for (int i = 1; i <= 40; ++i) lines += "line " + std::to_string(i) + " of the file\n";
    for (const char* name : {"one.c", "two.txt", "three.html", "four.py"}) {
        dialogs.AnswerFile(QString::fromStdString(tmp.write(name, lines)));
        main->Command("mnuFileOpen")->trigger();
        Settle();
    }
    QTest::qWait(300); // let the window system map and lay out the windows
    Settle();

    const QRect area(QPoint(0, 0), main->mdiArea->viewport()->size());
    auto windows = main->mdiArea->subWindowList();
    ASSERT_EQ(windows.size(), 5); // the untitled document of the start and the four files
    for (QMdiSubWindow* w : windows) {
        EXPECT_TRUE(area.contains(w->geometry()))
            << w->windowTitle().toStdString() << " lies outside the document area";
    }
    frmDocument* active = main->ActiveForm();
    ASSERT_NE(active, nullptr);
    EXPECT_TRUE(TextIsInView(*main, active));

    main->Command("mnuWindowCascade")->trigger();
    QTest::qWait(200);
    Settle();
    for (QMdiSubWindow* w : main->mdiArea->subWindowList()) {
        EXPECT_TRUE(area.contains(w->geometry())) << w->windowTitle().toStdString();
        auto* doc = qobject_cast<frmDocument*>(w->widget());
        ASSERT_NE(doc, nullptr);
        long shown = doc->rtfText->SendScintilla(QsciScintillaBase::SCI_LINESONSCREEN);
        EXPECT_GE(shown, 10) << w->windowTitle().toStdString() << " shows " << shown << " lines";
    }
    EXPECT_TRUE(TextIsInView(*main, main->ActiveForm()));
}
