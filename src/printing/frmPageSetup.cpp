#include "printing/frmPageSetup.h"

#include "base/qt/AppGlobals.h"
#include "components/HelpSystem.h"
#include "printing/core/PageSetupValues.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <cstdio>

frmPageSetup::frmPageSetup(QWidget* parent) : QDialog(parent) {
    setWindowTitle("Page Setup");
    setAccessibleName(windowTitle());
    auto* frame = new QGroupBox("Margins", this);
    frame->setAccessibleName("Margins");
    auto* form = new QFormLayout(frame);
    const PrintMargins& m = g_PrintMargins();
    auto box = [&](const char* caption, float value) {
        auto* b = new QLineEdit(QString::fromStdString(MarginToText(value)), frame);
        b->setAccessibleName(caption);
        b->installEventFilter(this);
        form->addRow(caption, b);
        return b;
    };
    txtTop = box("Top Margin (in cm):", m.Top);
    txtBottom = box("Bottom Margin (in cm):", m.Bottom);
    txtLeft = box("Left Margin (in cm):", m.Left);
    txtRight = box("Right Margin (in cm):", m.Right);
    chkBlackAndWhite = new QCheckBox("Print in black and white", this);
    chkBlackAndWhite->setAccessibleName(chkBlackAndWhite->text());
    chkBlackAndWhite->setChecked(LoadBlackAndWhite(Store(), ToBytes(AppTitle())));

    cmdOK = new QPushButton("OK", this);
    cmdCancel = new QPushButton("Cancel", this);
    cmdHelp = new QPushButton("Help", this);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    for (QPushButton* b : {cmdOK, cmdCancel, cmdHelp}) {
        b->setAccessibleName(b->text());
        buttons->addWidget(b);
    }
    cmdOK->setDefault(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(frame);
    layout->addWidget(chkBlackAndWhite);
    layout->addLayout(buttons);
    connect(cmdOK, &QPushButton::clicked, this, &frmPageSetup::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmPageSetup::cmdCancel_Click);
    connect(cmdHelp, &QPushButton::clicked, this, &frmPageSetup::cmdHelp_Click);
}

bool frmPageSetup::eventFilter(QObject* o, QEvent* e) {
    auto* box = qobject_cast<QLineEdit*>(o);
    if (!box) return QDialog::eventFilter(o, e);
    if (e->type() == QEvent::FocusIn) {
        // The box takes the click that focused it after this event; select once it has.
        QTimer::singleShot(0, box, &QLineEdit::selectAll);
    } else if (e->type() == QEvent::KeyPress) {
        auto* k = static_cast<QKeyEvent*>(e);
        const QString t = k->text();
        if (t.size() == 1 && t[0].unicode() >= 32 && t[0].unicode() != 127 &&
            !AcceptMarginKey(ToBytes(box->text()), t[0].unicode() < 128 ? t[0].unicode() : 0))
            return true; // refused without a sound
    }
    return QDialog::eventFilter(o, e);
}

void frmPageSetup::cmdOK_Click() {
    PrintMargins m;
    m.Top = MarginFromText(ToBytes(txtTop->text()));
    m.Bottom = MarginFromText(ToBytes(txtBottom->text()));
    m.Left = MarginFromText(ToBytes(txtLeft->text()));
    m.Right = MarginFromText(ToBytes(txtRight->text()));
    try {
        SavePageSetup(Store(), ToBytes(AppTitle()), m, chkBlackAndWhite->isChecked());
    } catch (const SettingsStoreError& err) {
        // The store reports nothing to the user; the margins still hold for this session.
        std::fprintf(stderr, "Kestrum: %s\n", err.what());
    }
    g_PrintMargins() = m;
    accept();
}

void frmPageSetup::cmdCancel_Click() {
    reject();
}

void frmPageSetup::cmdHelp_Click() {
    ShowHelpTopic("file_page_setup");
}
