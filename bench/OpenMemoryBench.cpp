// Memory of a large file opened in a document window and coloured, as File > Open does: the
// file loaded into a new document, then coloured with the C profile. Each size runs in a
// fresh process, since a process's high-water mark (VmHWM) never goes down; the baseline is
// a fresh process holding one empty document window. Prints the peak after the load and
// after the colours, what stays held once the colours are in place, and how long the
// colouring took.
#include "BenchSource.h"
#include "base/qt/AppGlobals.h"
#include "editor/DocumentArray.h"
#include "editor/DocumentHost.h"
#include "editor/frmDocument.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <string>
#include <unistd.h>

namespace {

constexpr double kMB = 1 << 20;

// VmHWM and VmRSS of this process, in MB.
std::pair<double, double> Memory() {
    std::ifstream status("/proc/self/status");
    double hwm = -1, rss = -1;
    for (std::string line; std::getline(status, line);) {
        if (line.rfind("VmHWM:", 0) == 0) hwm = std::stod(line.substr(6)) / 1024;
        if (line.rfind("VmRSS:", 0) == 0) rss = std::stod(line.substr(6)) / 1024;
    }
    return {hwm, rss};
}

// In a child process: an empty document window, then the file opened and coloured if one
// is named. Prints "peak-after-load peak-after-colours held" in MB.
int Child(const char* file) {
    int argc = 1;
    char name[] = "open_memory_bench";
    char* argv[] = {name, nullptr};
    QApplication app(argc, argv);
    Documents().Reset(nullptr);
    g_EditorSettings() = EditorSettings::Defaults();
    bench::SetCProfile(g_EditorSettings());
    frmDocument* doc = NewDocument();
    QApplication::processEvents();
    double afterLoad = Memory().first, colouring = 0;
    if (*file) {
        QString error;
        frmDocument* opened =
            Host().OpenFileInNewDocument(QString::fromLocal8Bit(file), {}, false, &error);
        if (!opened) {
            std::fprintf(stderr, "open failed: %s\n", qPrintable(error));
            return 1;
        }
        doc = opened;
        QApplication::processEvents();
        afterLoad = Memory().first;
        doc->Settings() = g_EditorSettings();
        QElapsedTimer timer;
        timer.start();
        doc->ColorCode();
        QApplication::processEvents();
        colouring = double(timer.nsecsElapsed()) / 1e6;
    }
    auto [peak, held] = Memory();
    std::printf("%.1f %.1f %.1f %.1f\n", afterLoad, peak, held, colouring);
    doc->Changed = false;
    return 0;
}

bool Measure(const std::string& file, double out[4]) {
    QProcess p;
    p.start(QCoreApplication::applicationFilePath(), {"--child", QString::fromStdString(file)});
    if (!p.waitForFinished(900000) || p.exitCode() != 0) return false;
    return std::sscanf(p.readAllStandardOutput().constData(), "%lf %lf %lf %lf", &out[0], &out[1],
                       &out[2], &out[3]) == 4;
}

} // namespace

int main(int argc, char** argv) {
    if (!std::getenv("QT_QPA_PLATFORM")) setenv("QT_QPA_PLATFORM", "offscreen", 1);
    if (argc == 3 && std::strcmp(argv[1], "--child") == 0) return Child(argv[2]);
    QApplication app(argc, argv);

    double empty[4];
    if (!Measure("", empty)) return 1;
    std::printf("empty document window: %.0f MB\n", empty[1]);
    const std::string path = "/tmp/kestrum-open-memory-" + std::to_string(::getpid()) + ".c";
    bool met = true;
    for (size_t mb : {100, 200}) {
        {
            std::string text = bench::GenerateCSource(mb << 20);
            std::ofstream(path, std::ios::binary).write(text.data(), std::streamsize(text.size()));
        }
        double m[4];
        if (!Measure(path, m)) return 1;
        const double size = double(mb << 20) / kMB;
        const double ratio = (m[1] - empty[1]) / size;
        std::printf("%zu MB C source (CR LF): peak after load %.0f MB, after colours %.0f MB, "
                    "held %.0f MB; colouring %.0f ms\n  (peak - empty) / size %.2f (target < "
                    "2.5)%s\n",
                    mb, m[0], m[1], m[2], m[3], ratio, ratio < 2.5 ? "" : "  NOT MET");
        if (mb == 100)
            std::printf("  peak %.0f MB (target < 350 MB)%s\n", m[1],
                        m[1] < 350 ? "" : "  NOT MET");
        met = met && ratio < 2.5;
    }
    std::remove(path.c_str());
    return met ? 0 : 3;
}
