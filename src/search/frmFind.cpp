#include "search/frmFind.h"

#include "base/qt/AppGlobals.h"
#include "components/cDialogs.h"
#include "editor/DocumentHost.h"
#include "editor/frmDocument.h"
#include "search/DocumentSearch.h"
#include "search/SearchState.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QScreen>

void PlaceSearchDialog(QWidget& dialog) {
    QScreen* screen = QGuiApplication::primaryScreen();
    if (!screen) return;
    QRect s = screen->geometry();
    dialog.adjustSize();
    dialog.move(s.x() + (s.width() - dialog.width()) / 2, s.y() + s.height() / 5);
}

frmFind::frmFind(QWidget* parent) : QDialog(parent) {
    setWindowTitle(tr("Find"));
    setAccessibleName(windowTitle());
    auto* grid = new QGridLayout(this);
    auto* label = new QLabel(tr("Text to Find"), this);
    grid->addWidget(label, 0, 0, 1, 2);
    cboFind = new QComboBox(this);
    cboFind->setEditable(true);
    cboFind->setInsertPolicy(QComboBox::NoInsert); // the history grows by cmdFind alone
    cboFind->setDuplicatesEnabled(true);
    cboFind->setMinimumWidth(300);
    cboFind->setAccessibleName(label->text());
    label->setBuddy(cboFind);
    grid->addWidget(cboFind, 1, 0, 1, 2);
    chkWholeWord = new QCheckBox(tr("Whole Word Match"), this);
    chkCaseSensitive = new QCheckBox(tr("Case Sensitive"), this);
    grid->addWidget(chkWholeWord, 2, 0);
    grid->addWidget(chkCaseSensitive, 3, 0);
    cmdFind = new QPushButton(tr("&Find"), this);
    cmdFindNext = new QPushButton(tr("Find &Next"), this);
    cmdClose = new QPushButton(tr("Close"), this);
    cmdFind->setDefault(true);
    grid->addWidget(cmdFind, 0, 2);
    grid->addWidget(cmdFindNext, 1, 2);
    grid->addWidget(cmdClose, 2, 2);
    for (QWidget* w : std::initializer_list<QWidget*>{chkWholeWord, chkCaseSensitive, cmdFind,
                                                      cmdFindNext, cmdClose})
        w->setAccessibleName(w->property("text").toString());
    connect(cmdFind, &QPushButton::clicked, this, &frmFind::cmdFind_Click);
    connect(cmdFindNext, &QPushButton::clicked, this, &frmFind::cmdFindNext_Click);
    connect(cmdClose, &QPushButton::clicked, this, &frmFind::cmdClose_Click);
    PlaceSearchDialog(*this);
}

frmFind& frmFind::Instance() {
    static QPointer<frmFind> instance;
    if (!instance) instance = new frmFind(cDialogs::ParentWidget());
    return *instance;
}

void frmFind::SearchFromPosition() {
    frmDocument* doc = Host().ActiveDocument();
    if (!doc) return;
    const QString text = cboFind->currentText();
    RichEdit& rtf = *doc->rtfText;
    SearchPosition() = int32_t(FindInDocument(rtf, DocumentBytes(rtf, text), SearchPosition(), -1,
                                              chkWholeWord->isChecked(),
                                              chkCaseSensitive->isChecked()));
    LastSearchText() = text;
}

void frmFind::cmdFind_Click() {
    cboFind->addItem(cboFind->currentText());
    SearchPosition() = 0;
    SearchFromPosition();
    if (SearchPosition() == -1) {
        cDialogs::Get().MsgBox(tr("Search Text not found."), MsgButtons::OK, MsgIcon::None,
                               AppTitle());
        SearchPosition() = 0;
    } else {
        SearchPosition() += 1;
    }
}

void frmFind::cmdFindNext_Click() {
    if (SearchPosition() < 0) SearchPosition() = 0;
    SearchFromPosition();
    if (SearchPosition() == -1)
        cDialogs::Get().MsgBox(tr("Search Text not found."), MsgButtons::OK, MsgIcon::None,
                               AppTitle());
    else
        SearchPosition() += 1;
}

void frmFind::cmdClose_Click() {
    hide();
    if (QWidget* owner = parentWidget()) owner->activateWindow();
}
