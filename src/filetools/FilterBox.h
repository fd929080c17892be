#pragma once
// FilterBox: a drop-down of file filters. Filters is one text of alternating labels and
// patterns separated by "|"; CurrentFilter is the pattern of the chosen label.
#include <QWidget>

class QComboBox;

class FilterBox : public QWidget {
    Q_OBJECT
  public:
    explicit FilterBox(QWidget* parent = nullptr);

    QString Filters() const { return filters_; }
    void SetFilters(const QString& filters);
    QString CurrentFilter() const { return current_; }
    // Lists the labels anew and chooses the first.
    void Refresh();

    QComboBox* cboFilters = nullptr;

  signals:
    void Click();

  private:
    void cboFilters_Click();
    QString filters_ = "All Files|*.*";
    QString current_;
};
