#pragma once
// frmComparison: the results window of one comparison. Each comparison gets a window of its
// own. The list is a model over the comparison's rows, so a million rows need no widget or
// item object each.
#include "filetools/core/LockStepCompare.h"

#include <QAbstractTableModel>
#include <QIcon>
#include <QWidget>
#include <memory>

class QTreeView;

// lvDifferences' rows: "Line #" (the pair number and the row's icon), "1st File", "2nd File".
class ComparisonModel : public QAbstractTableModel {
    Q_OBJECT
  public:
    explicit ComparisonModel(QObject* parent = nullptr);
    void SetResult(std::shared_ptr<const ComparisonResult> result);
    const ComparisonResult* Result() const { return result_.get(); }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation o, int role) const override;

    // ImageList1: image 1 marks a differing row, image 2 an identical one.
    static QIcon Image(int index);
    // The full text of a cell; the display role shows at most kShownBytes of it.
    static constexpr int kFullTextRole = Qt::UserRole + 1;
    static constexpr size_t kShownBytes = 4096;

  private:
    std::shared_ptr<const ComparisonResult> result_;
};

class frmComparison : public QWidget {
    Q_OBJECT
  public:
    explicit frmComparison(QWidget* owner = nullptr);

    void SetResult(std::shared_ptr<const ComparisonResult> result);

    QTreeView* lvDifferences = nullptr;
    ComparisonModel* model = nullptr;

  protected:
    void resizeEvent(QResizeEvent* e) override;

  private:
    void Form_Load();
    void Form_Resize();
};
