#include "transforms/frmSpecialChar.h"

#include "base/qt/AppGlobals.h"
#include "editor/frmDocument.h"
#include "transforms/TransformCommands.h"
#include "transforms/core/HtmlAssist.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

frmSpecialChar::frmSpecialChar(frmDocument& doc, QWidget* parent) : QDialog(parent), doc_(doc) {
    setWindowTitle("Insert Special Characters");
    setAccessibleName("Insert Special Characters");
    auto* grid = new QGridLayout(this);
    lstChars = new QListWidget(this);
    lstChars->setObjectName("lstChars");
    // Drawn as the document draws, so a row looks as the character will.
    const EditorSettings& g = g_EditorSettings();
    QFont font(QString::fromStdString(g.EditorFont));
    if (g.EditorSize > 0) font.setPointSizeF(g.EditorSize);
    font.setBold(g.EditorBold);
    font.setItalic(g.EditorItalic);
    lstChars->setFont(font);
    for (const SpecialCharRow& row : SpecialCharRows(doc.rtfText->IsUtf8Document()))
        lstChars->addItem(doc.rtfText->FromDocumentBytes(row.text));
    auto* label = new QLabel("Special Characters to Insert:", this);
    txtChars = new QLineEdit(this);
    txtChars->setObjectName("txtChars");
    txtChars->setAccessibleName(label->text());
    cmdAdd = new QPushButton("Add", this);
    cmdClear = new QPushButton("Clear", this);
    cmdOK = new QPushButton("OK", this);
    cmdCancel = new QPushButton("Cancel", this);
    for (auto [b, name] : {std::pair{cmdAdd, "cmdAdd"},
                           {cmdClear, "cmdClear"},
                           {cmdOK, "cmdOK"},
                           {cmdCancel, "cmdCancel"}}) {
        b->setObjectName(name);
        b->setAccessibleName(b->text());
        b->setAutoDefault(false);
    }
    grid->addWidget(lstChars, 0, 0, 4, 1);
    grid->addWidget(cmdAdd, 0, 1);
    grid->addWidget(cmdClear, 1, 1);
    grid->addWidget(label, 4, 0);
    grid->addWidget(txtChars, 5, 0);
    grid->addWidget(cmdOK, 2, 1);
    grid->addWidget(cmdCancel, 3, 1);
    connect(cmdAdd, &QPushButton::clicked, this, [this] { cmdAdd_Click(); });
    connect(lstChars, &QListWidget::itemDoubleClicked, this, [this] { cmdAdd_Click(); });
    connect(cmdClear, &QPushButton::clicked, txtChars, &QLineEdit::clear);
    connect(cmdOK, &QPushButton::clicked, this, [this] {
        TransformCommands::InsertText(doc_, txtChars->text());
        accept();
    });
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmSpecialChar::cmdAdd_Click() {
    QListWidgetItem* item = lstChars->currentItem();
    if (!item || item->text().isEmpty()) return;
    txtChars->setText(txtChars->text() + item->text().back());
}
