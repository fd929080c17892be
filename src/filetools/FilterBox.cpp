#include "filetools/FilterBox.h"

#include "base/qt/AppGlobals.h"
#include "filetools/core/FolderListing.h"

#include <QComboBox>
#include <QVBoxLayout>

namespace {
QString Token(int index, const QString& text) {
    return FromBytes(FilterToken(index, ToBytes(text), "|"));
}
} // namespace

FilterBox::FilterBox(QWidget* parent) : QWidget(parent) {
    setObjectName("FilterBox");
    cboFilters = new QComboBox(this);
    cboFilters->setObjectName("cboFilters");
    cboFilters->setAccessibleName("Filters");
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(cboFilters);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed); // as high as the combo box
    connect(cboFilters, &QComboBox::activated, this, [this] { cboFilters_Click(); });
    Refresh();
}

void FilterBox::SetFilters(const QString& filters) {
    filters_ = filters;
    Refresh();
}

void FilterBox::Refresh() {
    cboFilters->clear();
    for (int i = 1;; i += 2) {
        const QString label = Token(i, filters_);
        if (label.isEmpty()) break;
        cboFilters->addItem(label);
    }
    cboFilters->setCurrentIndex(cboFilters->count() ? 0 : -1);
    current_ = Token(2, filters_);
}

void FilterBox::cboFilters_Click() {
    current_ = Token(2 * cboFilters->currentIndex() + 2, filters_);
    emit Click();
}
