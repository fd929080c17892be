// The program's entry point. A first instance shows the splash, loads and shows the main
// window; a later one hands its command line to the first and ends at once.
#include "base/qt/AppGlobals.h"
#include "app/SingleInstance.h"
#include "base/PathHelpers.h"
#include "app/frmMain.h"

#include <QApplication>
#include <QDialog>
#include <QTimer>
#include <atomic>
#include <csignal>
#include <QPainter>
#include <QPixmap>
#include <QSplashScreen>

namespace {
std::atomic<bool> terminateRequested{false};
// Events are also served before the main loop runs (the splash waits for the window to show),
// and an exit asked for then would be forgotten when the loop starts.
bool mainLoopRunning = false;

// The end of the session closes the main window as the user would, so that the window
// and layout keys are written.
void CatchTermination() {
    std::signal(SIGTERM, [](int) { terminateRequested = true; });
    std::signal(SIGHUP, [](int) { terminateRequested = true; });
}

// The request is served as soon as the program can close: a box that stands open (a
// start-up message, say) is dismissed first, and a load or colouring pass is let finish.
// The close then asks about unsaved documents as any close does.
void WatchForTermination(frmMain& main) {
    auto* t = new QTimer(&main);
    QObject::connect(t, &QTimer::timeout, &main, [&main] {
        if (!terminateRequested) return;
        if (QWidget* modal = QApplication::activeModalWidget()) {
            if (auto* dialog = qobject_cast<QDialog*>(modal))
                dialog->reject();
            else
                modal->close();
            return;
        }
        if (!mainLoopRunning || main.Busy()) return;
        terminateRequested = false;
        // A close the user cancelled keeps the program; once the window has gone, the
        // program ends even if a window of its own (a tool window, say) would hold it.
        if (main.close() || !main.isVisible()) QCoreApplication::exit(0);
    });
    t->start(100);
}

// The whole command line is one file name: blanks and all belong to it. It stays the bytes
// the system gave, which need not be UTF-8 (Qt's own list of the arguments would not keep
// them).
std::string CommandLineOf(int argc, char** argv) {
    std::string line;
    for (int i = 1; i < argc; ++i) line += (i > 1 ? " " : "") + std::string(argv[i]);
    return line;
}

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
    // Read after QApplication took its own options out of argv.
    const std::string line = CommandLineOf(argc, argv);

    if (SingleInstance::IsRunning(AppTitle())) {
        const QString target = AppTitle();
        AppTitle() = QStringLiteral("Previstance");
        SingleInstance::SendToProcess(
            target, SingleInstance::LoadFileRequest(QByteArray::fromStdString(StripQuotes(line))));
        return 0;
    }

    QSplashScreen splash(SplashPicture());
    splash.show();
    app.processEvents();

    frmMain main;
    WatchForTermination(main);
    SingleInstance::Listen(AppTitle(), [&main](const QByteArray& r) { main.Subclass_WndProc(r); });
    main.MDIForm_Load(FromBytes(line));
    main.show();
    splash.finish(&main);
    // The tip comes once the event loop runs, so that requests and the end of the session
    // are served while it stands.
    QTimer::singleShot(0, &main, [&main] { main.ShowStartupTip(); });
    QTimer::singleShot(0, [] { mainLoopRunning = true; });
    return app.exec();
}
