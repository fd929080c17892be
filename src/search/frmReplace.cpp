#include "search/frmReplace.h"

#include "components/cDialogs.h"
#include "editor/DocumentArray.h"
#include "editor/DocumentHost.h"
#include "editor/frmDocument.h"
#include "search/DocumentSearch.h"

#include <QApplication>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

QPointer<frmReplace>& Plain() {
    static QPointer<frmReplace> p;
    return p;
}
QPointer<frmReplaceEx>& Extended() {
    static QPointer<frmReplaceEx> p;
    return p;
}

// The documents a command works on: every open one in slot order, or the active one.
std::vector<frmDocument*> TargetDocuments(bool all) {
    if (all) return Documents().OpenDocuments();
    if (frmDocument* doc = Host().ActiveDocument()) return {doc};
    return {};
}

void BringToFront(frmDocument* doc) {
    if (QMdiSubWindow* w = doc->SubWindow(); w && w->isMinimized()) w->showNormal();
    Host().ActivateDocument(doc);
}

} // namespace

frmReplace& frmReplace::Instance() {
    if (!Plain()) Plain() = new frmReplace(cDialogs::ParentWidget());
    return *Plain();
}
bool frmReplace::Loaded() { return !Plain().isNull(); }

frmReplaceEx& frmReplaceEx::Instance() {
    if (!Extended()) Extended() = new frmReplaceEx(cDialogs::ParentWidget());
    return *Extended();
}
bool frmReplaceEx::Loaded() { return !Extended().isNull(); }

frmReplace::frmReplace(bool extended, QWidget* parent) : QDialog(parent) {
    setWindowTitle(extended ? tr("Extended Replace") : tr("Replace"));
    setAccessibleName(windowTitle());
    setAttribute(Qt::WA_DeleteOnClose, false);
    auto* grid = new QGridLayout(this);
    auto* findLabel = new QLabel(tr("Text to Find"), this);
    auto* replaceLabel = new QLabel(tr("Replace With"), this);
    QWidget *findBox, *replaceBox;
    if (extended) {
        txtFindBox = new QPlainTextEdit(this);
        txtReplaceBox = new QPlainTextEdit(this);
        for (QPlainTextEdit* e : {txtFindBox, txtReplaceBox}) {
            e->setLineWrapMode(QPlainTextEdit::NoWrap); // both scroll bars
            e->setMinimumSize(320, 90);
        }
        findBox = txtFindBox;
        replaceBox = txtReplaceBox;
    } else {
        txtFindLine = new QLineEdit(this);
        txtReplaceLine = new QLineEdit(this);
        txtFindLine->setMinimumWidth(300);
        findBox = txtFindLine;
        replaceBox = txtReplaceLine;
    }
    findBox->setAccessibleName(findLabel->text());
    replaceBox->setAccessibleName(replaceLabel->text());
    findLabel->setBuddy(findBox);
    replaceLabel->setBuddy(replaceBox);
    grid->addWidget(findLabel, 0, 0);
    grid->addWidget(findBox, 1, 0);
    grid->addWidget(replaceLabel, 2, 0);
    grid->addWidget(replaceBox, 3, 0);
    chkCaseSensitive = new QCheckBox(tr("Case Sensitive"), this);
    chkAll = new QCheckBox(tr("Search All Open Files"), this);
    grid->addWidget(chkCaseSensitive, 4, 0);
    grid->addWidget(chkAll, 5, 0);
    auto* scope = new QGroupBox(tr("Search Scope"), this);
    scope->setAccessibleName(scope->title());
    auto* scopeLayout = new QVBoxLayout(scope);
    optEntireFile = new QRadioButton(tr("Entire File"), scope);
    optSelection = new QRadioButton(tr("Selected Text Only"), scope);
    optEntireFile->setChecked(true);
    scopeLayout->addWidget(optEntireFile);
    scopeLayout->addWidget(optSelection);
    grid->addWidget(scope, 6, 0);
    cmdReplace = new QPushButton(tr("&Replace"), this);
    cmdReplaceAll = new QPushButton(tr("Replace &All"), this);
    cmdClose = new QPushButton(tr("Cancel"), this);
    auto* buttons = new QVBoxLayout;
    for (QPushButton* b : {cmdReplace, cmdReplaceAll, cmdClose}) buttons->addWidget(b);
    buttons->addStretch();
    grid->addLayout(buttons, 0, 1, 7, 1);
    for (QAbstractButton* b : std::initializer_list<QAbstractButton*>{
             chkCaseSensitive, chkAll, optEntireFile, optSelection, cmdReplace, cmdReplaceAll,
             cmdClose})
        b->setAccessibleName(b->text());
    connect(cmdReplace, &QPushButton::clicked, this, &frmReplace::cmdReplace_Click);
    connect(cmdReplaceAll, &QPushButton::clicked, this, &frmReplace::cmdReplaceAll_Click);
    connect(cmdClose, &QPushButton::clicked, this, &frmReplace::cmdClose_Click);
}

QString frmReplace::FindText() const {
    return txtFindBox ? BoxToCrLf(txtFindBox->toPlainText()) : txtFindLine->text();
}
QString frmReplace::ReplaceWith() const {
    return txtReplaceBox ? BoxToCrLf(txtReplaceBox->toPlainText()) : txtReplaceLine->text();
}
void frmReplace::SetFindText(const QString& text) {
    if (txtFindBox)
        txtFindBox->setPlainText(CrLfToBox(text));
    else
        txtFindLine->setText(text);
}
void frmReplace::SetReplaceWith(const QString& text) {
    if (txtReplaceBox)
        txtReplaceBox->setPlainText(CrLfToBox(text));
    else
        txtReplaceLine->setText(text);
}

void frmReplace::Unload() {
    hide();
    done(QDialog::Rejected);
    deleteLater();
    // The instance is gone for the next command at once, not at the next turn of the loop.
    if (Plain() == this) Plain() = nullptr;
    if (Extended() == this) Extended() = nullptr;
}

void frmReplace::cmdReplace_Click() {
    hide();
    ReplaceOptions options;
    options.matchCase = chkCaseSensitive->isChecked();
    options.inSelection = !optEntireFile->isChecked() && optSelection->isChecked();
    const bool all = chkAll->isChecked();
    // The loop over all open documents moves on behind an inserted text; the loop over the
    // active one searches again from the start of what it inserted.
    options.advanceAfterYes = all;
    auto ask = [] {
        switch (cDialogs::Get().MsgBox(tr("Do you wish to replace this occurrence?"),
                                       MsgButtons::YesNoCancel, MsgIcon::Question,
                                       tr("Ocurrence Found"))) {
        case MsgResult::Yes: return ReplaceAnswer::Yes;
        case MsgResult::No: return ReplaceAnswer::No;
        default: return ReplaceAnswer::Cancel;
        }
    };
    if (optEntireFile->isChecked() || optSelection->isChecked()) {
        for (frmDocument* doc : TargetDocuments(all)) {
            QPointer<frmDocument> alive(doc);
            if (all) BringToFront(doc);
            RichEdit& rtf = *doc->rtfText;
            RichEditTarget target(rtf);
            bool finished;
            {
                UndoGroup group(rtf);
                finished = ReplacePrompting(target, DocumentBytes(rtf, FindText()),
                                            DocumentBytes(rtf, ReplaceWith()), options, ask);
            }
            if (!finished) return; // Cancel: stay loaded, hidden, with the texts as they are
            if (!alive) break;
        }
    }
    Unload();
}

void frmReplace::cmdReplaceAll_Click() {
    hide();
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const bool matchCase = chkCaseSensitive->isChecked();
    if (optEntireFile->isChecked() || optSelection->isChecked()) {
        const bool inSelection = !optEntireFile->isChecked();
        // A document may go while the event loop is served between stretches.
        std::vector<QPointer<frmDocument>> docs;
        for (frmDocument* doc : TargetDocuments(chkAll->isChecked())) docs.emplace_back(doc);
        for (const QPointer<frmDocument>& doc : docs) {
            if (!doc) continue;
            RichEdit& rtf = *doc->rtfText;
            ReplaceAllInDocument(rtf, inSelection, DocumentBytes(rtf, FindText()),
                                 DocumentBytes(rtf, ReplaceWith()), matchCase);
        }
    }
    QApplication::restoreOverrideCursor();
    cDialogs::Get().MsgBox(tr("All occurrences replaced."), MsgButtons::OK, MsgIcon::Information,
                           tr("Replace Complete."));
    Unload();
}

void frmReplace::cmdClose_Click() { Unload(); }

void frmReplace::reject() { Unload(); }
