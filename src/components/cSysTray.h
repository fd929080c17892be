#pragma once
// cSysTray: the program's one icon in the desktop's notification area, with a tip, turning
// the clicks on it into mouse events. Where the desktop has no notification area the icon is
// still wanted (InTray) but never added, and the program runs on without it.
#include <QIcon>
#include <QString>
#include <QSystemTrayIcon>

class cSysTray : public QSystemTrayIcon {
    Q_OBJECT
  public:
    // Mouse buttons as the events report them.
    enum Button { vbLeftButton = 1, vbRightButton = 2, vbMiddleButton = 4 };
    // Notification areas show one short line; a longer tip is cut here.
    static constexpr int kMaxTip = 63;

    explicit cSysTray(QObject* parent = nullptr);
    ~cSysTray() override;

    bool InTray() const { return inTray_; }
    void SetInTray(bool on);
    // The icon is really in the notification area.
    bool Added() const { return isVisible(); }

    QIcon TrayIcon() const { return icon(); }
    // A null icon is refused and the present one kept.
    void SetTrayIcon(const QIcon& picture);
    QString TrayTip() const { return tip_; }
    void SetTrayTip(const QString& tip);

    // The program's icon, drawn here so that it needs no image plugin.
    static QIcon DefaultIcon();

  signals:
    void MouseDown(int button);
    void MouseUp(int button);
    void MouseDblClick(int button);

  private:
    void OnActivated(QSystemTrayIcon::ActivationReason reason);

    bool inTray_ = false;
    QString tip_;
};
