#include "printing/frmPrinting.h"

#include <QCloseEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

frmPrinting::frmPrinting(QWidget* owner) : QWidget(owner, Qt::Tool) {
    setWindowTitle("Printing");
    setAccessibleName(windowTitle());
    auto* layout = new QVBoxLayout(this);
    lblMessage = new QLabel("Sending to Printer. Please Wait...", this);
    lblMessage->setAccessibleName(lblMessage->text());
    ProgressBar = new QProgressBar(this);
    ProgressBar->setRange(0, 100);
    ProgressBar->setAccessibleName("ProgressBar");
    cmdCancel = new QPushButton("Cancel", this);
    cmdCancel->setAccessibleName("Cancel");
    layout->addWidget(lblMessage);
    layout->addWidget(ProgressBar);
    layout->addWidget(cmdCancel, 0, Qt::AlignRight);
    connect(cmdCancel, &QPushButton::clicked, this, [this] { cancelled_ = true; });
}

void frmPrinting::closeEvent(QCloseEvent* e) {
    // Closing the window while the job runs stops the job; the loop closes it afterwards.
    cancelled_ = true;
    e->ignore();
}
