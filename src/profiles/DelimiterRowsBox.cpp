#include "profiles/DelimiterRowsBox.h"

#include "base/qt/AppGlobals.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

DelimiterRowsBox::DelimiterRowsBox(QWidget* parent)
    : QGroupBox("Color Code all text between these Bracers and Delimiters:", parent) {
    setAccessibleName(title());
    auto* grid = new QGridLayout(this);
    int row = 0;
    auto* note = new QLabel("All text between the specified delimiters are highlighted in the "
                            "corresponding specified color. Each delimiter must have a start "
                            "string and an end string.",
                            this);
    note->setWordWrap(true);
    grid->addWidget(note, row++, 0, 1, 3);
    const char* heads[] = {"Start:", "End:", "Color:"};
    for (int c = 0; c < 3; ++c) grid->addWidget(new QLabel(heads[c], this), row, c);
    ++row;
    for (size_t i = 0; i < 8; ++i, ++row) {
        txtDelimStart[i] = new QLineEdit(this);
        txtDelimEnd[i] = new QLineEdit(this);
        cboDelimColor[i] = new QComboBox(this);
        const QString n = QString::number(i + 1);
        txtDelimStart[i]->setAccessibleName("Start: " + n);
        txtDelimEnd[i]->setAccessibleName("End: " + n);
        cboDelimColor[i]->setAccessibleName("Color: " + n);
        int data = 1;
        for (const char* entry : {"Comment", "Delimiter 1", "Delimiter 2"})
            cboDelimColor[i]->addItem(entry, data++);
        grid->addWidget(txtDelimStart[i], row, 0);
        grid->addWidget(txtDelimEnd[i], row, 1);
        grid->addWidget(cboDelimColor[i], row, 2);
    }
    auto* note2 = new QLabel("NOTE: To have Kestrum color code text from a starting delimiter to "
                             "the end of the current line, place \\n in the place of the end "
                             "delimiter.",
                             this);
    note2->setWordWrap(true);
    grid->addWidget(note2, row, 0, 1, 3);
}

void DelimiterRowsBox::SelectFirstEntries() {
    for (QComboBox* c : cboDelimColor) c->setCurrentIndex(0);
}

DelimiterRows DelimiterRowsBox::Rows() const {
    DelimiterRows rows;
    for (size_t i = 0; i < 8; ++i) {
        rows[i].start = ToBytes(txtDelimStart[i]->text());
        rows[i].end = ToBytes(txtDelimEnd[i]->text());
        rows[i].colorIndex = cboDelimColor[i]->currentIndex();
    }
    return rows;
}

void DelimiterRowsBox::SetRows(const DelimiterRows& rows) {
    for (size_t i = 0; i < 8; ++i) {
        txtDelimStart[i]->setText(FromBytes(rows[i].start));
        txtDelimEnd[i]->setText(FromBytes(rows[i].end));
        cboDelimColor[i]->setCurrentIndex(rows[i].colorIndex);
    }
}
