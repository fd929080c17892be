#pragma once
// A small button that shows a colour and, when clicked, drops down a palette of 48 fixed
// colours with a button "Other..." for the system colour dialog.
#include <QColor>
#include <QPushButton>
#include <QRect>
#include <array>

class ColorButton;

// The dropped-down palette: 48 cells in 8 rows of 6, then "Other...".
class ColorPopup : public QWidget {
    Q_OBJECT
  public:
    explicit ColorPopup(ColorButton* owner);

    static constexpr int kCells = 48;
    static constexpr int kOther = 49; // the index of the "Other..." button
    // Cells are numbered from 1; 0 is none.
    static QColor CellColor(int index);
    QRect CellRect(int index) const; // the outer rectangle; for kOther the button
    int CellAt(const QPoint& p) const;
    int CurrentCell() const { return current_; }

  protected:
    void paintEvent(QPaintEvent* e) override;
    void mouseMoveEvent(QMouseEvent* e) override;
    void mousePressEvent(QMouseEvent* e) override;
    void mouseReleaseEvent(QMouseEvent* e) override;
    void keyPressEvent(QKeyEvent* e) override;

  private:
    ColorButton* owner_;
    int current_ = 0;
};

class ColorButton : public QPushButton {
    Q_OBJECT
  public:
    explicit ColorButton(QWidget* parent = nullptr);
    ~ColorButton() override; // the popup is a window of its own, without a parent

    QColor SelectedColor() const { return selected_; }
    void SetSelectedColor(const QColor& c);
    bool Flat() const { return isFlat(); }
    void SetFlat(bool flat) { setFlat(flat); }

    ColorPopup* Popup() const { return popup_; }
    void ShowPopup();
    void HidePopup();
    // Opens the colour dialog with the present colour; OK takes its answer.
    void ChooseOther();
    // Takes the colour of a palette cell, as a mouse up over it does.
    void ChooseCell(int index);

  signals:
    // A colour was chosen, in the palette or in the colour dialog.
    void Click();

  protected:
    void paintEvent(QPaintEvent* e) override;
    void keyPressEvent(QKeyEvent* e) override;

  private:
    QColor selected_ = QColor(255, 255, 255);
    ColorPopup* popup_ = nullptr;
};
