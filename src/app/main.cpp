// The program's entry point. A first instance shows the splash, loads and shows the main
// window; a later one hands its command line to the first and ends at once.
#include "app/AppGlobals.h"
#include "app/SingleInstance.h"
#include "app/core/PathHelpers.h"
#include "app/frmMain.h"

#include <QApplication>
#include <QTimer>
#include <atomic>
#include <csignal>
#include <QPainter>
#include <QPixmap>
#include <QSplashScreen>

namespace {
std::atomic<bool> terminateRequested{false};

// The end of the session closes the main window as the user would, so that the window
// and layout keys are written.
void CatchTermination() {
    std::signal(SIGTERM, [](int) { terminateRequested = true; });
    std::signal(SIGHUP, [](int) { terminateRequested = true; });
}

void WatchForTermination(frmMain& main) {
    auto* t = new QTimer(&main);
    QObject::connect(t, &QTimer::timeout, &main, [&main] {
        if (!terminateRequested.exchange(false)) return;
        // A modal window (the start-up tip, a question) would hold the process open.
        if (QWidget* modal = QApplication::activeModalWidget()) modal->close();
        main.close();
    });
    t->start(100);
}

// The whole command line is one file name: blanks and all belong to it.
QString CommandLineOf(const QStringList& args) { return args.mid(1).join(' '); }

QPixmap SplashPicture() {
    QPixmap pm(420, 200);
    pm.fill(QColor(24, 40, 72));
    QPainter p(&pm);
    p.setPen(Qt::white);
    QFont f = p.font();
    f.setPointSize(28);
    f.setBold(true);
    p.setFont(f);
    p.drawText(QRect(0, 40, 420, 70), Qt::AlignCenter, QStringLiteral("Kestrum"));
    f.setPointSize(10);
    f.setBold(false);
    p.setFont(f);
    p.drawText(QRect(0, 120, 420, 30), Qt::AlignCenter,
               QStringLiteral("A programmer's text editor"));
    return pm;
}
} // namespace

int main(int argc, char** argv) {
    CatchTermination(); // a request that comes early is served once the window stands
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Kestrum"));
    QString commandLine = CommandLineOf(QApplication::arguments());

    if (SingleInstance::IsRunning(AppTitle())) {
        const QString target = AppTitle();
        AppTitle() = QStringLiteral("Previstance");
        QString name = FromBytes(StripQuotes(ToBytes(commandLine)));
        SingleInstance::SendToProcess(target, SingleInstance::LoadFileRequest(name));
        return 0;
    }

    QSplashScreen splash(SplashPicture());
    splash.show();
    app.processEvents();

    frmMain main;
    WatchForTermination(main);
    SingleInstance::Listen(AppTitle(), [&main](const QByteArray& r) { main.Subclass_WndProc(r); });
    main.MDIForm_Load(commandLine);
    main.show();
    splash.finish(&main);
    // The tip comes once the event loop runs, so that requests and the end of the session
    // are served while it stands.
    QTimer::singleShot(0, &main, [&main] { main.ShowStartupTip(); });
    return app.exec();
}
