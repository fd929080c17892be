#include "transforms/TabDialogLayout.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

TabDialogParts BuildTabDialog(QDialog& dialog, QString& tag, const QString& caption,
                              const QString& before, const QString& after) {
    dialog.setWindowTitle(caption);
    dialog.setAccessibleName(caption);
    auto* outer = new QVBoxLayout(&dialog);
    auto* row = new QHBoxLayout;
    auto* box = new QLineEdit("4", &dialog);
    box->setObjectName("txtSpaces");
    box->setMaximumWidth(60);
    row->addWidget(new QLabel(before, &dialog));
    row->addWidget(box);
    row->addWidget(new QLabel(after, &dialog));
    outer->addLayout(row);
    auto* buttons = new QHBoxLayout;
    auto* ok = new QPushButton("OK", &dialog);
    auto* cancel = new QPushButton("Cancel", &dialog);
    ok->setObjectName("cmdOK");
    cancel->setObjectName("cmdCancel");
    ok->setDefault(true);
    for (QPushButton* b : {ok, cancel}) {
        b->setAccessibleName(b->text());
        buttons->addWidget(b);
    }
    outer->addLayout(buttons);
    QObject::connect(ok, &QPushButton::clicked, &dialog, [&dialog, &tag] {
        tag = "NC";
        dialog.accept();
    });
    QObject::connect(cancel, &QPushButton::clicked, &dialog, [&dialog, &tag] {
        tag.clear();
        dialog.reject();
    });
    return {box, ok, cancel};
}
