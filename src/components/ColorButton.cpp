#include "components/ColorButton.h"

#include "components/cDialogs.h"

#include <QApplication>
#include <QColorDialog>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QStyle>
#include <algorithm>
#include <qdrawutil.h>

namespace {
struct Rgb {
    int r, g, b;
};
constexpr std::array<Rgb, ColorPopup::kCells> kPalette = {{
    {0, 0, 0},       {0, 0, 66},      {0, 0, 132},     {0, 0, 149},     {0, 0, 255},
    {0, 66, 0},      {0, 66, 66},     {0, 66, 132},    {0, 132, 0},     {0, 132, 66},
    {0, 132, 132},   {0, 132, 198},   {0, 132, 255},   {0, 255, 0},     {0, 255, 66},
    {0, 255, 132},   {0, 255, 255},   {66, 0, 0},      {66, 0, 66},     {66, 0, 132},
    {66, 132, 132},  {132, 0, 0},     {132, 0, 66},    {132, 0, 132},   {132, 0, 255},
    {132, 66, 0},    {132, 66, 66},   {132, 132, 0},   {132, 132, 66},  {132, 132, 132},
    {132, 132, 198}, {132, 132, 255}, {132, 255, 0},   {132, 255, 132}, {132, 255, 255},
    {198, 198, 198}, {222, 222, 222}, {255, 0, 0},     {255, 0, 132},   {255, 0, 255},
    {255, 132, 0},   {255, 132, 66},  {255, 132, 132}, {255, 132, 198}, {255, 132, 255},
    {255, 255, 0},   {255, 255, 132}, {255, 255, 255},
}};
constexpr int kPitch = 18, kCell = 16, kEdge = 2, kColumns = 6, kRows = 8;
constexpr int kCellsRight = kEdge + (kColumns - 1) * kPitch + kCell;
constexpr int kCellsBottom = kEdge + (kRows - 1) * kPitch + kCell;
} // namespace

ColorPopup::ColorPopup(ColorButton* owner) : QWidget(nullptr, Qt::Popup), owner_(owner) {
    setMouseTracking(true);
    setFixedSize(kCellsRight + 4, kCellsBottom + 29);
    setAccessibleName("Colors");
}

QColor ColorPopup::CellColor(int index) {
    if (index < 1 || index > kCells) return {};
    const Rgb& c = kPalette[size_t(index - 1)];
    return QColor(c.r, c.g, c.b);
}

QRect ColorPopup::CellRect(int index) const {
    if (index == kOther) return QRect(kEdge, kCellsBottom + 4, kCellsRight - kEdge, 21);
    if (index < 1 || index > kCells) return {};
    const int i = index - 1;
    return QRect(kEdge + (i % kColumns) * kPitch, kEdge + (i / kColumns) * kPitch, kCell, kCell);
}

int ColorPopup::CellAt(const QPoint& p) const {
    for (int i = 1; i <= kOther; ++i)
        if (i <= kCells || i == kOther)
            if (CellRect(i).contains(p)) return i;
    return 0;
}

void ColorPopup::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), palette().window());
    for (int i = 1; i <= kCells; ++i) {
        QRect r = CellRect(i);
        qDrawShadePanel(&p, r, palette(), true, 1);
        p.fillRect(r.adjusted(1, 1, -1, -1), CellColor(i));
        if (i == current_) {
            p.setPen(palette().highlight().color());
            p.drawRect(r.adjusted(-1, -1, 0, 0));
        }
    }
    QRect other = CellRect(kOther);
    qDrawShadePanel(&p, other, palette(), current_ == kOther, 1);
    p.setPen(palette().buttonText().color());
    p.drawText(other, Qt::AlignCenter, "Other...");
}

void ColorPopup::mouseMoveEvent(QMouseEvent* e) {
    int cell = CellAt(e->position().toPoint());
    if (cell != current_) {
        current_ = cell;
        update();
    }
}

void ColorPopup::mousePressEvent(QMouseEvent* e) {
    if (!rect().contains(e->position().toPoint())) {
        owner_->HidePopup();
        return;
    }
    if (e->button() == Qt::LeftButton && CellAt(e->position().toPoint()) == kOther) {
        owner_->ChooseOther();
    }
}

void ColorPopup::mouseReleaseEvent(QMouseEvent* e) {
    const int cell = CellAt(e->position().toPoint());
    if (e->button() == Qt::LeftButton && rect().contains(e->position().toPoint()) && cell >= 1 &&
        cell <= kCells)
        owner_->ChooseCell(cell);
    else if (cell != kOther)
        owner_->HidePopup();
}

void ColorPopup::keyPressEvent(QKeyEvent* e) {
    if (e->key() == Qt::Key_Escape)
        owner_->HidePopup();
    else
        QWidget::keyPressEvent(e);
}

ColorButton::ColorButton(QWidget* parent) : QPushButton(parent) {
    setFlat(true);
    setFixedSize(40, 20);
    popup_ = new ColorPopup(this);
    connect(this, &QPushButton::clicked, this, &ColorButton::ShowPopup);
}

ColorButton::~ColorButton() {
    delete popup_;
}

void ColorButton::SetSelectedColor(const QColor& c) {
    selected_ = c;
    update();
}

void ColorButton::ShowPopup() {
    if (popup_->isVisible()) {
        HidePopup();
        return;
    }
    // Below the button, kept on the screen.
    QPoint at = mapToGlobal(QPoint(0, height()));
    if (QScreen* s = screen()) {
        QRect avail = s->availableGeometry();
        at.setX(std::clamp(at.x(), avail.left(),
                           std::max(avail.left(), avail.right() - popup_->width())));
        if (at.y() + popup_->height() > avail.bottom())
            at.setY(mapToGlobal(QPoint(0, 0)).y() - popup_->height());
    }
    popup_->move(at);
    popup_->show();
}

void ColorButton::HidePopup() {
    popup_->hide();
    QApplication::processEvents();
    update();
}

void ColorButton::ChooseCell(int index) {
    HidePopup();
    if (index < 1 || index > ColorPopup::kCells) return;
    SetSelectedColor(ColorPopup::CellColor(index));
    emit Click();
}

void ColorButton::ChooseOther() {
    HidePopup();
    // The dialog's custom colours start white each time: nothing is kept between uses.
    for (int i = 0; i < QColorDialog::customCount(); ++i)
        QColorDialog::setCustomColor(i, QColor(255, 255, 255));
    if (auto c = cDialogs::Get().ColorDialog(selected_)) {
        SetSelectedColor(*c);
        emit Click();
    }
}

void ColorButton::paintEvent(QPaintEvent* e) {
    QPushButton::paintEvent(e);
    QPainter p(this);
    QRect r = rect().adjusted(4, 4, -4, -4);
    p.fillRect(r, selected_);
    p.setPen(palette().shadow().color());
    p.drawRect(r.adjusted(0, 0, -1, -1));
}

void ColorButton::keyPressEvent(QKeyEvent* e) {
    if (e->key() == Qt::Key_Space && !(e->modifiers() & Qt::ShiftModifier)) {
        ShowPopup();
        return;
    }
    QPushButton::keyPressEvent(e);
}
