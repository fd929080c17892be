#include "filetools/frmComparison.h"

#include "base/qt/AppGlobals.h"

#include <QApplication>
#include <QHeaderView>
#include <QPainter>
#include <QPalette>
#include <QScreen>
#include <QTreeView>
#include <QVBoxLayout>

namespace {
QString Shown(std::string_view text) {
    return ShownText(FromBytes(text.substr(0, ComparisonModel::kShownBytes)));
}

// A small document glyph: red-edged for a difference, grey for an identical row.
QIcon DocumentGlyph(const QColor& edge) {
    QPixmap pm(16, 16);
    pm.fill(Qt::transparent);
    QPainter p(&pm);
    p.setPen(edge);
    p.setBrush(Qt::white);
    p.drawRect(3, 1, 10, 13);
    for (int y = 4; y < 13; y += 3) p.drawLine(5, y, 11, y);
    return QIcon(pm);
}
} // namespace

ComparisonModel::ComparisonModel(QObject* parent) : QAbstractTableModel(parent) {}

void ComparisonModel::SetResult(std::shared_ptr<const ComparisonResult> result) {
    beginResetModel();
    result_ = std::move(result);
    endResetModel();
}

int ComparisonModel::rowCount(const QModelIndex& parent) const {
    if (parent.isValid() || !result_) return 0;
    return static_cast<int>(std::min<size_t>(result_->rows.size(), INT_MAX));
}

int ComparisonModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : 3; }

QIcon ComparisonModel::Image(int index) {
    static const QIcon differ = DocumentGlyph(QColor(200, 0, 0));
    static const QIcon same = DocumentGlyph(QColor(150, 150, 150));
    return index == 1 ? differ : same;
}

QVariant ComparisonModel::data(const QModelIndex& index, int role) const {
    if (!result_ || !index.isValid()) return {};
    const ComparisonRow& row = result_->rows[size_t(index.row())];
    const int col = index.column();
    switch (role) {
    case Qt::DisplayRole:
        if (col == 0) return QString::number(row.pair);
        return Shown(col == 1 ? result_->Text1(row) : result_->Text2(row));
    case kFullTextRole:
        if (col == 0) return QString::number(row.pair);
        return ShownText(FromBytes(col == 1 ? result_->Text1(row) : result_->Text2(row)));
    case Qt::DecorationRole:
        if (col == 0) return Image(ComparisonResult::Icon(row));
        return {};
    case Qt::ForegroundRole: // ghosted: identical rows are drawn dimmed
        if (row.identical) return QApplication::palette().brush(QPalette::Disabled, QPalette::Text);
        return {};
    default:
        return {};
    }
}

QVariant ComparisonModel::headerData(int section, Qt::Orientation o, int role) const {
    if (o != Qt::Horizontal || role != Qt::DisplayRole) return {};
    static const char* const kColumns[] = {"Line #", "1st File", "2nd File"};
    return section >= 0 && section < 3 ? QString(kColumns[section]) : QVariant();
}

frmComparison::frmComparison(QWidget* owner) : QWidget(owner, Qt::Window) {
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName("frmComparison");
    setWindowTitle("Comparison Results");
    setAccessibleName(windowTitle());
    lvDifferences = new QTreeView(this);
    lvDifferences->setObjectName("lvDifferences");
    lvDifferences->setAccessibleName("Differences");
    lvDifferences->setRootIsDecorated(false);
    lvDifferences->setUniformRowHeights(true); // a million rows scroll without measuring each
    lvDifferences->setItemsExpandable(false);
    lvDifferences->setSelectionBehavior(QAbstractItemView::SelectRows);
    lvDifferences->setEditTriggers(QAbstractItemView::NoEditTriggers);
    lvDifferences->setTextElideMode(Qt::ElideRight);
    model = new ComparisonModel(this);
    lvDifferences->setModel(model);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(lvDifferences);
    Form_Load();
}

void frmComparison::SetResult(std::shared_ptr<const ComparisonResult> result) {
    model->SetResult(std::move(result));
}

void frmComparison::Form_Load() {
    // Three quarters of the screen each way.
    if (QScreen* s = QApplication::primaryScreen()) {
        const QSize size = s->availableGeometry().size();
        resize(size.width() * 3 / 4, size.height() * 3 / 4);
    }
}

void frmComparison::resizeEvent(QResizeEvent* e) {
    QWidget::resizeEvent(e);
    Form_Resize();
}

void frmComparison::Form_Resize() {
    // The two text columns share the width, less 600 twips each; the first keeps its width.
    constexpr int kTwips600 = 40;
    const int half = std::max(20, lvDifferences->viewport()->width() / 2 - kTwips600);
    lvDifferences->header()->resizeSection(1, half);
    lvDifferences->header()->resizeSection(2, half);
}
