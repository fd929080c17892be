#include "search/frmFindPattern.h"

#include "base/qt/AppGlobals.h"
#include "components/HelpSystem.h"
#include "components/cDialogs.h"
#include "editor/DocumentHost.h"
#include "editor/frmDocument.h"
#include "search/DocumentSearch.h"
#include "search/SearchState.h"
#include "search/core/PatternMatch.h"
#include "search/frmFind.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QPointer>
#include <QPushButton>

frmFindPattern::frmFindPattern(QWidget* parent) : QDialog(parent) {
    setWindowTitle(tr("Find Pattern"));
    setAccessibleName(windowTitle());
    auto* grid = new QGridLayout(this);
    auto* label = new QLabel(tr("Search Expression"), this);
    grid->addWidget(label, 0, 0);
    cboFind = new QComboBox(this);
    cboFind->setEditable(true);
    cboFind->setInsertPolicy(QComboBox::NoInsert);
    cboFind->setDuplicatesEnabled(true);
    cboFind->setMinimumWidth(300);
    cboFind->setAccessibleName(label->text());
    label->setBuddy(cboFind);
    grid->addWidget(cboFind, 1, 0);
    auto* note = new QLabel(
        tr("Note - the search expression must begin with a letter or number character."), this);
    note->setWordWrap(true);
    grid->addWidget(note, 2, 0, 2, 1);
    cmdFind = new QPushButton(tr("&Find"), this);
    cmdFindNext = new QPushButton(tr("Find &Next"), this);
    cmdHelp = new QPushButton(tr("Help"), this);
    cmdClose = new QPushButton(tr("Close"), this);
    cmdFind->setDefault(true);
    grid->addWidget(cmdFind, 0, 1);
    grid->addWidget(cmdFindNext, 1, 1);
    grid->addWidget(cmdHelp, 2, 1);
    grid->addWidget(cmdClose, 3, 1);
    for (QPushButton* b : {cmdFind, cmdFindNext, cmdHelp, cmdClose})
        b->setAccessibleName(b->text());
    connect(cmdFind, &QPushButton::clicked, this, &frmFindPattern::cmdFind_Click);
    connect(cmdFindNext, &QPushButton::clicked, this, &frmFindPattern::cmdFindNext_Click);
    connect(cmdHelp, &QPushButton::clicked, this, [] { ShowHelpTopic("search_find_pattern"); });
    connect(cmdClose, &QPushButton::clicked, this, &frmFindPattern::cmdClose_Click);
    PlaceSearchDialog(*this);
}

frmFindPattern& frmFindPattern::Instance() {
    static QPointer<frmFindPattern> instance;
    if (!instance) instance = new frmFindPattern(cDialogs::ParentWidget());
    return *instance;
}

int64_t frmFindPattern::SearchFromPosition() {
    frmDocument* doc = Host().ActiveDocument();
    if (!doc) return 0;
    RichEdit& rtf = *doc->rtfText;
    int64_t r = FindPatternPos(SearchPosition(), rtf.TextView(),
                               DocumentBytes(rtf, cboFind->currentText()));
    if (r > 0) {
        rtf.SetSelStart(r - 1);
        rtf.SetSelLength(1);
        SearchPosition() = int32_t(r + 1);
    }
    return r;
}

void frmFindPattern::cmdFind_Click() {
    cboFind->addItem(cboFind->currentText());
    SearchPosition() = 1;
    if (frmDocument* doc = Host().ActiveDocument()) doc->rtfText->SetSelLength(0);
    int64_t r = SearchFromPosition();
    if (r == 0)
        cDialogs::Get().MsgBox(tr("No match for search expression found."), MsgButtons::OK,
                               MsgIcon::None, AppTitle());
    else if (r == -1)
        cDialogs::Get().MsgBox(
            tr("Invalid search expression. The first character of the search expression must "
               "be a letter in the range of A-Z or a-z, or any digit."),
            MsgButtons::OK, MsgIcon::Exclamation, tr("Invalid Expression."));
}

void frmFindPattern::cmdFindNext_Click() {
    if (SearchPosition() < 1) SearchPosition() = 1;
    int64_t r = SearchFromPosition();
    if (r == 0)
        cDialogs::Get().MsgBox(tr("Search Text not found."), MsgButtons::OK, MsgIcon::None,
                               AppTitle());
    else if (r == -1)
        cDialogs::Get().MsgBox(
            tr("Invalid search expression. The first character of the search expression must "
               "be a letter in the range of A-Z or a-z, or in a digit."),
            MsgButtons::OK, MsgIcon::Exclamation, tr("Invalid Expression."));
}

void frmFindPattern::cmdClose_Click() {
    hide();
    if (QWidget* owner = parentWidget()) owner->activateWindow();
}
