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
        main->mnuFileNew_Click();
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

// The filter of the dialogs that open and save documents: 27 pairs of label and patterns,
// all files first, with the system's own spelling kept.
inline void ExpectDocumentFilter(const QString& filter) {
    QStringList parts = filter.split('|');
    EXPECT_EQ(parts.size(), 54) << filter.toStdString();
    EXPECT_TRUE(filter.startsWith("All Files (*.*)|*.*|Text Files (*.txt, *.doc, *.faq)|"));
    EXPECT_TRUE(filter.contains("|Obect Pascal Files (*.pas)|*.pas|"));
    EXPECT_TRUE(filter.contains("|Perl Files(*.pl, *.pm, *.cgi)|*.pl;*.pm;*.cgi|"));
    EXPECT_TRUE(filter.contains("|DataFlex Files (*.src, *.pkg, *.frm)|*.pkg;*.frm;*.src|"));
    EXPECT_TRUE(filter.endsWith("|*.mak;*.frm;*.bas;*.cls;*.pag;*.ctl;*.vbp"));
}
