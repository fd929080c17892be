#pragma once
// A started program for driving the file commands with scripted dialog answers.
#include "support/AppFixture.h"

#include <QTabBar>

struct FileCommandsFixture : AppFixture {
    void SetUp() override {
        AppFixture::SetUp();
        Start();
    }

    static QString Q(const std::string& s) { return QString::fromStdString(s); }
    frmDocument* Doc() { return main->ActiveForm(); }
    frmDocument* Slot(int i) { return Documents().Document(i); }
    size_t OpenCount() { return Documents().OpenDocuments().size(); }

    // A new document holding text as typed, so that it counts as changed.
    frmDocument* NewWithText(std::string_view text) {
        NewDocument();
        Settle();
        frmDocument* d = Doc();
        d->rtfText->SetText(text);
        return d;
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
