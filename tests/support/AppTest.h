#pragma once
// The program's fixture with the helpers of the main window's tests, and a started program for
// driving the file commands with scripted dialog answers.
#include "base/qt/DataPaths.h"
#include "support/AppFixture.h"

#include <QTabBar>

struct AppTest : AppFixture {
    void TearDown() override {
        SetDataFoldersForTesting({}, {});
        AppFixture::TearDown();
    }
    // Closes the main window through its close step and starts it again.
    frmMain& Restart(const QString& commandLine = {}) {
        main->close();
        main.reset();
        return Start(commandLine);
    }
    // Triggers the command's menu item.
    void Run(const char* name) {
        QAction* a = main->Command(name);
        ASSERT_TRUE(a) << name;
        a->trigger();
        Settle();
    }
    frmDocument* Doc() { return main->ActiveForm(); }
    RichEdit* Edit() { return Doc()->rtfText; }
    void Select(int64_t start, int64_t length) {
        Edit()->SetSelStart(start);
        Edit()->SetSelLength(length);
    }
    static size_t OpenCount() { return Documents().OpenDocuments().size(); }
};

struct FileCommandsFixture : AppTest {
    void SetUp() override {
        AppTest::SetUp();
        Start();
    }

    static QString Q(const std::string& s) { return QString::fromStdString(s); }
    frmDocument* Slot(int i) { return Documents().Document(i); }

    // A new document holding text as typed, so that it counts as changed.
    frmDocument* NewWithText(std::string_view text) {
        NewDocument();
        Settle();
        frmDocument* d = Doc();
        d->rtfText->SetText(text);
        return d;
    }
    // The file opened through File > Open; the active document afterwards.
    frmDocument* OpenByDialog(const std::string& file) {
        dialogs.AnswerFile(Q(file));
        main->mnuFileOpen_Click();
        Settle();
        return Doc();
    }
    void Activate(frmDocument* d) {
        main->mdiArea->setActiveSubWindow(d->SubWindow());
        Settle();
    }
    QString TabText(const QString& key) {
        int i = main->FindTab(key);
        return i < 0 ? QStringLiteral("<no tab>") : main->tabFiles->tabText(i);
    }
    // The last question the program asked.
    const ScriptedDialogs::Question& Last() { return dialogs.asked.back(); }
    std::string Text(frmDocument* d) { return d->rtfText->Text(); }
};
