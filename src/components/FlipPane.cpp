#include "components/FlipPane.h"

#include <QApplication>
#include <QBoxLayout>
#include <QElapsedTimer>
#include <QFrame>
#include <QMouseEvent>
#include <QPainter>
#include <QThread>
#include <algorithm>
#include <cmath>

namespace {

constexpr int kDraggerPixels = 5;
const QColor kDragColor(0x40, 0x60, 0xa0);

// The title: a label that draws its text upright across a narrow bar when the pane docked
// left or right is rolled up, so the caption stays readable in the thin strip.
class TitleLabel : public QLabel {
  public:
    using QLabel::QLabel;
    bool upright = false;

  protected:
    void paintEvent(QPaintEvent* e) override {
        if (!upright) return QLabel::paintEvent(e);
        QPainter p(this);
        p.translate(0, height());
        p.rotate(-90);
        p.drawText(QRect(4, 0, height() - 8, width()), Qt::AlignLeft | Qt::AlignVCenter, text());
    }
};

int ToPixels(double twips) {
    return int(std::lround(twips / FlipPane::kTwipsPerPixel));
}

} // namespace

FlipPane::FlipPane(Edge edge, const QString& caption, QWidget* parent)
    : QWidget(parent), edge_(edge) {
    auto* title = new TitleLabel(this);
    cmdMenu = title;
    cmdMenu->setObjectName("cmdMenu");
    cmdMenu->setFrameShape(QFrame::Panel);
    cmdMenu->setFrameShadow(QFrame::Raised);
    cmdMenu->setCursor(Qt::PointingHandCursor);
    cmdMenu->setMargin(2);
    cmdMenu->installEventFilter(this);

    picDragger = new QFrame(this);
    picDragger->setObjectName("picDragger");
    picDragger->setAutoFillBackground(true);
    picDragger->setCursor(Vertical() ? Qt::SizeVerCursor : Qt::SizeHorCursor);
    picDragger->installEventFilter(this);
    if (Vertical())
        picDragger->setFixedHeight(kDraggerPixels);
    else
        picDragger->setFixedWidth(kDraggerPixels);

    // The drag bar stands on the side that faces the documents.
    auto* outer = new QBoxLayout(Vertical() ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight, this);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->setSpacing(0);
    auto* inner = new QWidget(this);
    body_ = new QVBoxLayout(inner);
    body_->setContentsMargins(0, 0, 0, 0);
    body_->setSpacing(0);
    body_->addWidget(cmdMenu);
    if (edge_ == Bottom || edge_ == Right) outer->addWidget(picDragger);
    outer->addWidget(inner, 1);
    if (edge_ == Top || edge_ == Left) outer->addWidget(picDragger);

    SetCaption(caption);
    SetUnrolledTips();
    ApplyExtent(ToPixels(paneSize_));
}

void FlipPane::SetCaption(const QString& caption) {
    caption_ = caption;
    cmdMenu->setText(caption);
    setAccessibleName(caption);
    cmdMenu->setAccessibleName(caption);
}

void FlipPane::SetHostedWidget(QWidget* w) {
    if (hosted_) hosted_->deleteLater();
    hosted_ = w;
    if (!w) return;
    w->setParent(body_->parentWidget());
    body_->addWidget(w, 1);
    w->setVisible(!rolledUp_);
}

int FlipPane::BarThickness() const {
    return cmdMenu->sizeHint().height();
}

void FlipPane::ApplyExtent(int pixels) {
    pixels = std::max(pixels, 1);
    if (Vertical())
        setFixedHeight(pixels);
    else
        setFixedWidth(pixels);
}

bool FlipPane::SetMinSize(double twips, QString* error) {
    twips = std::max(twips, 400.0);
    if (twips > maxSize_) {
        if (error)
            *error = QStringLiteral("RollupHost: error 5000: What are you? Some kind of *MORON*?\r\n"
                                    "You just set the minimum size to be greater than the maximum!");
        return false;
    }
    minSize_ = twips;
    if (paneSize_ < minSize_) SetPaneSize(minSize_);
    return true;
}

void FlipPane::SetMaxSize(double twips) {
    maxSize_ = std::min(twips, 5000.0);
}

void FlipPane::SetPaneSize(double twips) {
    paneSize_ = std::clamp(twips, minSize_, std::max(minSize_, maxSize_));
    if (!rolledUp_) ApplyExtent(ToPixels(paneSize_));
}

void FlipPane::SetUnrolledTips() {
    picDragger->setToolTip(QStringLiteral("Drag to resize"));
    cmdMenu->setToolTip(RollupEvent == 0 ? QStringLiteral("Double-Click to Hide")
                                         : QStringLiteral("Click to minimise this panel."));
}

void FlipPane::Animate(int from, int to) {
    // Ten steps of a tenth each, with a short pause in which the window repaints.
    animating_ = true;
    for (int step = 1; step <= 10; ++step) {
        ApplyExtent(from + (to - from) * step / 10);
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        QThread::msleep(8);
    }
    animating_ = false;
}

void FlipPane::Rollup() {
    if (rolledUp_ || animating_) return;
    picDragger->hide();
    rolledUp_ = true;
    cmdMenu->setToolTip(QStringLiteral("Click to restore this panel."));
    picDragger->setToolTip(QStringLiteral("Click to restore"));
    int from = Vertical() ? height() : width();
    int to = BarThickness();
    if (hosted_) hosted_->hide();
    static_cast<TitleLabel*>(cmdMenu)->upright = !Vertical();
    if (!Vertical()) {
        body_->setAlignment(cmdMenu, Qt::Alignment());
        cmdMenu->setMinimumHeight(QFontMetrics(cmdMenu->font()).horizontalAdvance(caption_) + 12);
    }
    if (UseAnimation)
        Animate(from, to);
    else
        ApplyExtent(to);
    cmdMenu->update();
}

void FlipPane::Unroll() {
    if (!rolledUp_ || animating_) return;
    rolledUp_ = false;
    static_cast<TitleLabel*>(cmdMenu)->upright = false;
    cmdMenu->setMinimumHeight(0);
    picDragger->setCursor(Vertical() ? Qt::SizeVerCursor : Qt::SizeHorCursor);
    picDragger->setPalette(QPalette());
    picDragger->show();
    SetUnrolledTips();
    if (hosted_) hosted_->show();
    int from = BarThickness();
    int to = ToPixels(paneSize_);
    if (UseAnimation)
        Animate(from, to);
    else
        ApplyExtent(to);
    cmdMenu->update();
}

void FlipPane::cmdMenu_Click() {
    if (rolledUp_) {
        Unroll();
        emit UserUnroll();
        return;
    }
    if (RollupEvent == 0) return;
    Rollup();
    emit UserRollup();
}

void FlipPane::cmdMenu_DblClick() {
    if (rolledUp_) {
        Unroll();
        emit UserUnroll();
    } else {
        Rollup();
        emit UserRollup();
    }
}

void FlipPane::picDragger_MouseDown(Qt::MouseButton button, QPoint) {
    if (rolledUp_ || !(minSize_ < maxSize_) || button == Qt::RightButton || !AllowResize) return;
    dragging_ = true;
    QPalette p = picDragger->palette();
    p.setColor(QPalette::Window, kDragColor);
    picDragger->setPalette(p);
}

void FlipPane::picDragger_MouseMove(Qt::MouseButtons buttons, QPoint global) {
    if (!dragging_ || !(buttons & Qt::LeftButton)) return;
    QRect r(mapToGlobal(QPoint(0, 0)), size());
    int pixels = 0;
    switch (edge_) {
    case Top: pixels = global.y() - r.top(); break;
    case Bottom: pixels = r.bottom() + 1 - global.y(); break;
    case Left: pixels = global.x() - r.left(); break;
    case Right: pixels = r.right() + 1 - global.x(); break;
    }
    SetPaneSize(pixels * kTwipsPerPixel);
}

void FlipPane::picDragger_MouseUp(QPoint) {
    if (!dragging_) return;
    picDragger->setPalette(QPalette());
    dragging_ = false;
    emit SizeChanged(paneSize_);
}

bool FlipPane::eventFilter(QObject* o, QEvent* e) {
    if (o == cmdMenu) {
        // The release that ends a double click is not a click of its own.
        if (e->type() == QEvent::MouseButtonRelease && swallowRelease_) {
            swallowRelease_ = false;
            return true;
        }
        if (e->type() == QEvent::MouseButtonRelease &&
            static_cast<QMouseEvent*>(e)->button() == Qt::LeftButton &&
            cmdMenu->rect().contains(static_cast<QMouseEvent*>(e)->position().toPoint())) {
            cmdMenu_Click();
            return true;
        }
        if (e->type() == QEvent::MouseButtonDblClick) {
            swallowRelease_ = true;
            cmdMenu_DblClick();
            return true;
        }
    } else if (o == picDragger) {
        // Only mouse events are taken as such; the bar also gets tool tips, paints and more.
        auto mouse = [e] { return static_cast<QMouseEvent*>(e); };
        switch (e->type()) {
        case QEvent::MouseButtonPress:
            picDragger_MouseDown(mouse()->button(), mouse()->globalPosition().toPoint());
            return true;
        case QEvent::MouseMove:
            picDragger_MouseMove(mouse()->buttons(), mouse()->globalPosition().toPoint());
            return true;
        case QEvent::MouseButtonRelease:
            picDragger_MouseUp(mouse()->globalPosition().toPoint());
            return true;
        default:
            break;
        }
    }
    return QWidget::eventFilter(o, e);
}
