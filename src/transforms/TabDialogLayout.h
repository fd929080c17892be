#pragma once
// The layout both tab dialogs share: a sentence around the box, OK and Cancel below.
#include <QString>

class QDialog;
class QLineEdit;
class QPushButton;

struct TabDialogParts {
    QLineEdit* box;
    QPushButton* ok;
    QPushButton* cancel;
};
// OK sets tag to "NC", Cancel empties it; both hide the dialog.
TabDialogParts BuildTabDialog(QDialog& dialog, QString& tag, const QString& caption,
                              const QString& before, const QString& after);
