#include "components/frmInputBox.h"

#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

frmInputBox::frmInputBox(QWidget* parent) : QDialog(parent) {
    auto* v = new QVBoxLayout(this);
    lblCaption = new QLabel(this);
    lblCaption->setWordWrap(true);
    txtResponse = new QLineEdit(this);
    txtResponse->installEventFilter(this);
    Command1 = new QPushButton(tr("OK"), this);
    Command2 = new QPushButton(tr("Cancel"), this);
    Command1->setDefault(true);
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(Command1, QDialogButtonBox::AcceptRole);
    buttons->addButton(Command2, QDialogButtonBox::RejectRole);
    v->addWidget(lblCaption);
    v->addWidget(txtResponse);
    v->addWidget(buttons);
    connect(Command1, &QPushButton::clicked, this, [this] {
        Tag = txtResponse->text();
        accept();
    });
    connect(Command2, &QPushButton::clicked, this, [this] {
        Tag.clear();
        reject();
    });
    connect(this, &QDialog::rejected, this, [this] { Tag.clear(); });
    setMinimumWidth(360);
}

bool frmInputBox::AcceptsKey(int c) {
    static const QString allowed = QStringLiteral(
        " ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz1234567890!@#$%^&*()-_+=");
    return c == 8 || (c > 0 && c < 0x10000 && allowed.contains(QChar(char16_t(c))));
}

bool frmInputBox::eventFilter(QObject* o, QEvent* e) {
    if (o == txtResponse && e->type() == QEvent::FocusIn)
        QTimer::singleShot(0, txtResponse, &QLineEdit::selectAll);
    if (o == txtResponse && e->type() == QEvent::KeyPress) {
        auto* k = static_cast<QKeyEvent*>(e);
        // Only keys that type a character are filtered; editing and moving keys pass.
        if (!k->text().isEmpty() && k->text()[0].isPrint() &&
            !(k->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) &&
            !AcceptsKey(k->text()[0].unicode()))
            return true;
    }
    return QDialog::eventFilter(o, e);
}

QString frmInputBox::Prompt(const QString& prompt, const QString& title, const QString& def,
                            QWidget* parent) {
    frmInputBox box(parent);
    box.txtResponse->setText(def);
    box.lblCaption->setText(prompt);
    box.setWindowTitle(title);
    box.txtResponse->selectAll();
    box.exec();
    return box.Tag;
}
