#pragma once
// FlipPane: a container docked to one edge of the main window that rolls up to a thin bar
// and unrolls again, with a bar to drag its size. Sizes are in twips, as the settings and the
// callers count them (15 twips to a pixel).
#include <QLabel>
#include <QPointer>
#include <QString>
#include <QWidget>

class QBoxLayout;

class FlipPane : public QWidget {
    Q_OBJECT
  public:
    enum Edge { Top = 1, Bottom = 2, Left = 3, Right = 4 };
    static constexpr double kTwipsPerPixel = 15;

    explicit FlipPane(Edge edge, const QString& caption, QWidget* parent = nullptr);

    // The control shown inside the pane; the pane takes it over.
    void SetHostedWidget(QWidget* w);
    QWidget* HostedWidget() const { return hosted_; }

    QString Caption() const { return caption_; }
    void SetCaption(const QString& caption);
    Edge DockEdge() const { return edge_; }

    bool AllowResize = true;
    // 0: a single click on the title does not roll the pane up, only a double click does.
    int32_t RollupEvent = 1;
    bool UseAnimation = true;
    QString ControlName;

    double MinSize() const { return minSize_; }
    double MaxSize() const { return maxSize_; }
    // Below 400 is raised to 400; above the maximum is refused with the component's own
    // error text (source "RollupHost", number 5000) in *error. Grows a smaller pane.
    bool SetMinSize(double twips, QString* error = nullptr);
    // Above 5000 is cut to 5000.
    void SetMaxSize(double twips);

    // The size across the docking edge, unrolled (twips); what a drag or the caller set.
    double PaneSize() const { return paneSize_; }
    void SetPaneSize(double twips);
    double CurrentWidth() const { return width() * kTwipsPerPixel; }
    double CurrentHeight() const { return height() * kTwipsPerPixel; }
    bool RolledUp() const { return rolledUp_; }
    bool Dragging() const { return dragging_; }

    void Rollup();
    void Unroll();

    // The events of the title and the drag bar, callable as the program calls them.
    void cmdMenu_Click();
    void cmdMenu_DblClick();
    void picDragger_MouseDown(Qt::MouseButton button, QPoint global);
    void picDragger_MouseMove(Qt::MouseButtons buttons, QPoint global);
    void picDragger_MouseUp(QPoint global);

    QLabel* cmdMenu = nullptr;
    QWidget* picDragger = nullptr;

  signals:
    void UserRollup();
    void UserUnroll();
    // At the end of a drag: the new height for a pane docked at the top or bottom, the new
    // width for one docked left or right, in twips.
    void SizeChanged(double twips);

  protected:
    bool eventFilter(QObject* o, QEvent* e) override;

  private:
    bool Vertical() const { return edge_ == Top || edge_ == Bottom; }
    int BarThickness() const;
    void ApplyExtent(int pixels);
    void Animate(int from, int to);
    void SetUnrolledTips();

    Edge edge_;
    QString caption_;
    QPointer<QWidget> hosted_;
    QBoxLayout* body_ = nullptr;
    double minSize_ = 400;
    double maxSize_ = 5000;
    double paneSize_ = 3000;
    bool rolledUp_ = false;
    bool animating_ = false;
    bool dragging_ = false;
    bool swallowRelease_ = false;
};
