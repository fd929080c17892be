// The file tools' speed targets, each against a baseline measured in the same run:
// - Compare Files on two 1,000,000-line files of about 30 MB, from the OK button to the results
//   window shown with its rows in the model, against cmp reading the same amount (two
//   identical 30 MB files, which it reads to the end); target at most 10 times.
// - scrolling the million rows a page at a time (time per page, for reference).
// - the browser entering a folder of 100,000 files until the list is shown, against a plain
//   readdir of the folder; target within 1 s, with the longest wait of the event loop meanwhile.
#include "base/qt/AppGlobals.h"
#include "filetools/FileView.h"
#include "filetools/core/LockStepCompare.h"
#include "filetools/frmCompareFiles.h"
#include "filetools/frmComparison.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QScrollBar>
#include <QTimer>
#include <QTreeView>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <sys/resource.h>
#include <unistd.h>

namespace {
double Ms(const QElapsedTimer& t) {
    return double(t.nsecsElapsed()) / 1e6;
}

// The processor time of this process so far, user and system.
double CpuMs() {
    rusage u{};
    ::getrusage(RUSAGE_SELF, &u);
    return double(u.ru_utime.tv_sec + u.ru_stime.tv_sec) * 1e3 +
           double(u.ru_utime.tv_usec + u.ru_stime.tv_usec) / 1e3;
}

// Lines of about 30 bytes, indented; every `changeEvery`th line differs when that is not 0.
void WriteLines(const std::string& path, int lines, int changeEvery) {
    std::string text;
    text.reserve(size_t(lines) * 32);
    char line[64];
    for (int i = 0; i < lines; ++i) {
        const bool changed = changeEvery && i % changeEvery == 0;
        std::snprintf(line, sizeof line, "    line %08d of the text %s\n", i,
                      changed ? "XX" : "ab");
        text += line;
    }
    std::FILE* f = std::fopen(path.c_str(), "wb");
    std::fwrite(text.data(), 1, text.size(), f);
    std::fclose(f);
}

double Cmp(const std::string& a, const std::string& b) {
    QElapsedTimer t;
    t.start();
    const int status = std::system(("cmp '" + a + "' '" + b + "'").c_str());
    if (status != 0) std::printf("cmp said the files differ (status %d)\n", status);
    return Ms(t);
}

// Runs the event loop until `done`, and returns the longest gap between two ticks of a 1 ms
// timer: how long the window could not answer.
template <typename Done> double LongestStall(Done done) {
    QElapsedTimer since;
    since.start();
    double longest = 0;
    QTimer tick;
    QObject::connect(&tick, &QTimer::timeout, [&] {
        longest = std::max(longest, Ms(since));
        since.restart();
    });
    tick.start(1);
    while (!done()) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return std::max(longest, Ms(since));
}
} // namespace

int main(int argc, char** argv) {
    if (!std::getenv("QT_QPA_PLATFORM")) setenv("QT_QPA_PLATFORM", "offscreen", 1);
    QApplication app(argc, argv);
    const std::string dir = std::filesystem::temp_directory_path() / "kestrum_filetools_bench/";
    std::filesystem::remove_all(dir);
    std::filesystem::create_directories(dir + "config");
    SetStoreDirectoryForTesting(dir + "config/"); // the dialog stores the two paths
    const std::string a = dir + "a.txt", a2 = dir + "a2.txt", b = dir + "b.txt";
    WriteLines(a, 1000000, 0);
    WriteLines(a2, 1000000, 0);
    WriteLines(b, 1000000, 7); // every seventh line differs
    std::printf("files: %.1f MB each\n", double(std::filesystem::file_size(a)) / (1 << 20));

    Cmp(a, a2); // the page cache holds all three files from here on
    const double cmp = Cmp(a, a2);
    QElapsedTimer t;
    t.start();
    ComparisonText bytes;
    ReadFileForComparison(a, bytes);
    ReadFileForComparison(b, bytes);
    const double read = Ms(t);
    t.restart();
    const double cpu0 = CpuMs();
    const size_t coreRows = CompareFiles(a, b, {}).rows.size();
    const double core = Ms(t), coreCpu = CpuMs() - cpu0;
    t.restart();
    frmCompareFiles dialog;
    dialog.txtFirstFile->setText(QString::fromStdString(a));
    dialog.txtSecondFile->setText(QString::fromStdString(b));
    frmComparison* w = dialog.cmdOK_Click();
    QApplication::processEvents(); // the first screen of rows drawn
    const double compare = Ms(t);
    std::printf("compare and show: %.1f ms, cmp: %.1f ms, ratio %.2f (target <= 10), %d rows\n",
                compare, cmp, compare / cmp, w->model->rowCount());
    std::printf("of that: reading both files %.1f ms, reading and comparing (%zu rows) %.1f ms "
                "(processor time %.1f ms)\n",
                read, coreRows, core, coreCpu);

    QScrollBar* bar = w->lvDifferences->verticalScrollBar();
    QElapsedTimer s;
    s.start();
    int pages = 0;
    for (int v = 0; v < bar->maximum() && pages < 500; v += bar->maximum() / 500, ++pages) {
        bar->setValue(v);
        w->lvDifferences->viewport()->repaint();
    }
    std::printf("scrolling: %.3f ms a page over %d pages spread over the list\n",
                Ms(s) / std::max(pages, 1), pages);
    delete w;

    const std::string many = dir + "many/";
    std::filesystem::create_directories(many);
    for (int i = 0; i < 100000; ++i) {
        char name[64];
        std::snprintf(name, sizeof name, "%sfile%06d.%s", many.c_str(), i, i % 3 ? "txt" : "c");
        ::close(::open(name, O_CREAT | O_WRONLY, 0644));
    }
    t.restart();
    size_t names = 0;
    if (DIR* d = ::opendir(many.c_str())) {
        while (::readdir(d)) ++names;
        ::closedir(d);
    }
    const double plain = Ms(t);
    FileView view;
    view.resize(300, 600);
    view.show();
    LongestStall([&] { return !view.Busy(); });
    t.restart();
    view.SetPath(QString::fromStdString(many).chopped(1));
    const double stall = LongestStall([&] { return !view.Busy(); });
    view.lvFiles->viewport()->repaint();
    const double listed = Ms(t);
    std::printf("browser: %d rows shown in %.1f ms (target < 1000), readdir of %zu names %.1f ms, "
                "ratio %.1f; longest wait of the event loop meanwhile %.1f ms\n",
                view.model->rowCount(), listed, names, plain, listed / plain, stall);
    std::filesystem::remove_all(dir);
    return 0;
}
