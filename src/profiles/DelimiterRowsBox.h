#pragma once
// The eight rows of delimiter boxes that both profile dialogs show: start, end and colour
// class ("Comment", "Delimiter 1", "Delimiter 2").
#include "profiles/core/OptionsTranslation.h"

#include <QGroupBox>
#include <array>

class QComboBox;
class QLineEdit;

class DelimiterRowsBox : public QGroupBox {
    Q_OBJECT
  public:
    explicit DelimiterRowsBox(QWidget* parent = nullptr);

    std::array<QLineEdit*, 8> txtDelimStart{};
    std::array<QLineEdit*, 8> txtDelimEnd{};
    std::array<QComboBox*, 8> cboDelimColor{};

    DelimiterRows Rows() const;
    void SetRows(const DelimiterRows& rows);
    void SelectFirstEntries();
};
