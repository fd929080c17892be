#include "search/frmFindEx.h"

#include "base/qt/AppGlobals.h"
#include "components/cDialogs.h"
#include "editor/DocumentHost.h"
#include "editor/frmDocument.h"
#include "search/DocumentSearch.h"
#include "search/SearchState.h"
#include "search/core/FindRules.h"

#include <QCheckBox>
#include <QFont>
#include <QGridLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

frmFindEx::frmFindEx(QWidget* parent) : QDialog(parent) {
    setWindowTitle(tr("Extended Find"));
    setAccessibleName(windowTitle());
    auto* grid = new QGridLayout(this);
    auto* label = new QLabel(tr("Extended Text to Find"), this);
    grid->addWidget(label, 0, 0);
    txtFind = new QPlainTextEdit(this);
    txtFind->setLineWrapMode(QPlainTextEdit::NoWrap); // both scroll bars
    txtFind->setTabChangesFocus(false);
    txtFind->setAccessibleName(label->text());
    txtFind->setMinimumSize(360, 140);
    // Typed in the look of the document.
    const EditorSettings& es = g_EditorSettings();
    QFont font(FromBytes(es.EditorFont));
    font.setPointSizeF(es.EditorSize > 0 ? es.EditorSize : 10);
    font.setBold(es.EditorBold);
    font.setItalic(es.EditorItalic);
    txtFind->setFont(font);
    label->setBuddy(txtFind);
    grid->addWidget(txtFind, 1, 0, 4, 1);
    chkCaseSensitive = new QCheckBox(tr("Case Sensitive"), this);
    grid->addWidget(chkCaseSensitive, 5, 0);
    cmdFind = new QPushButton(tr("&Find"), this);
    cmdFindNext = new QPushButton(tr("Find &Next"), this);
    cmdClose = new QPushButton(tr("Close"), this);
    grid->addWidget(cmdFind, 1, 1);
    grid->addWidget(cmdFindNext, 2, 1);
    grid->addWidget(cmdClose, 3, 1);
    for (QWidget* w : std::initializer_list<QWidget*>{chkCaseSensitive, cmdFind, cmdFindNext,
                                                      cmdClose})
        w->setAccessibleName(w->property("text").toString());
    connect(cmdFind, &QPushButton::clicked, this, &frmFindEx::cmdFind_Click);
    connect(cmdFindNext, &QPushButton::clicked, this, &frmFindEx::cmdFindNext_Click);
    connect(cmdClose, &QPushButton::clicked, this, &frmFindEx::cmdClose_Click);
}

void frmFindEx::SearchFromPosition() {
    frmDocument* doc = Host().ActiveDocument();
    if (!doc) return;
    RichEdit& rtf = *doc->rtfText;
    const std::string find = DocumentBytes(rtf, BoxToCrLf(txtFind->toPlainText()));
    int64_t r = InStrIndex(SearchPosition(), rtf.TextView(), find, chkCaseSensitive->isChecked());
    if (r != 0) {
        rtf.SetSelStart(r - 1);
        rtf.SetSelLength(int64_t(find.size()));
        SearchPosition() = int32_t(r + 1);
    } else {
        cDialogs::Get().MsgBox(tr("Search Text not found."), MsgButtons::OK, MsgIcon::None,
                               AppTitle());
    }
}

void frmFindEx::cmdFind_Click() {
    SearchPosition() = 1;
    if (frmDocument* doc = Host().ActiveDocument()) doc->rtfText->SetSelLength(0);
    SearchFromPosition();
}

void frmFindEx::cmdFindNext_Click() {
    if (SearchPosition() < 1) SearchPosition() = 1;
    SearchFromPosition();
}

void frmFindEx::cmdClose_Click() {
    if (QWidget* owner = parentWidget()) owner->activateWindow();
    done(QDialog::Rejected);
}
