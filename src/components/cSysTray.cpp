#include "components/cSysTray.h"

#include <QPainter>
#include <QPixmap>
#include <algorithm>

cSysTray::cSysTray(QObject* parent) : QSystemTrayIcon(parent) {
    setIcon(DefaultIcon());
    connect(this, &QSystemTrayIcon::activated, this, &cSysTray::OnActivated);
}

cSysTray::~cSysTray() {
    SetInTray(false);
}

void cSysTray::SetInTray(bool on) {
    if (on == inTray_) return;
    inTray_ = on;
    if (!on)
        hide();
    else if (QSystemTrayIcon::isSystemTrayAvailable())
        show();
}

void cSysTray::SetTrayIcon(const QIcon& picture) {
    if (!picture.isNull()) setIcon(picture);
}

void cSysTray::SetTrayTip(const QString& tip) {
    tip_ = tip;
    setToolTip(tip.left(kMaxTip));
}

// The platform reports whole clicks, not presses and releases: a click raises both events.
void cSysTray::OnActivated(QSystemTrayIcon::ActivationReason reason) {
    auto click = [this](int button) {
        emit MouseDown(button);
        emit MouseUp(button);
    };
    switch (reason) {
    case QSystemTrayIcon::Trigger:
        click(vbLeftButton);
        break;
    case QSystemTrayIcon::Context:
        click(vbRightButton);
        break;
    case QSystemTrayIcon::MiddleClick:
        click(vbMiddleButton);
        break;
    case QSystemTrayIcon::DoubleClick:
        emit MouseDblClick(vbLeftButton);
        break;
    case QSystemTrayIcon::Unknown:
        break;
    }
}

QIcon cSysTray::DefaultIcon() {
    QIcon icon;
    for (int size : {16, 22, 32, 48, 64}) {
        QPixmap pm(size, size);
        pm.fill(Qt::transparent);
        QPainter p(&pm);
        p.setRenderHint(QPainter::Antialiasing);
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(24, 40, 72));
        p.drawRoundedRect(QRectF(0.5, 0.5, size - 1, size - 1), size / 6.0, size / 6.0);
        // A "K" of three strokes.
        QPen pen(QColor(240, 200, 80), std::max(2.0, size / 7.0), Qt::SolidLine, Qt::RoundCap);
        p.setPen(pen);
        const double l = size * 0.32, r = size * 0.72, t = size * 0.22, b = size * 0.78,
                     m = size * 0.5;
        p.drawLine(QPointF(l, t), QPointF(l, b));
        p.drawLine(QPointF(r, t), QPointF(l, m));
        p.drawLine(QPointF(l + size * 0.08, m - size * 0.05), QPointF(r, b));
        p.end();
        icon.addPixmap(pm);
    }
    return icon;
}
