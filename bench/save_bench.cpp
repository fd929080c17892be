// Whole-file save and load through the edit control against plain file I/O of the same bytes
// in the same run, and the peak memory of loading a large file. Prints the ratios with their
// targets. Peak memory is read from VmHWM in a fresh process for each measurement, since the
// high-water mark of a process never goes down.
#include "BenchSource.h"
#include "editor/RichEdit.h"

#include <QApplication>
#include <QByteArray>
#include <QFile>
#include <QProcess>
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace {

constexpr size_t kMB = 1 << 20;

bool PlainWrite(const std::string& path, std::string_view bytes, bool sync = false) {
    int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    if (fd < 0) return false;
    bool ok = ::write(fd, bytes.data(), bytes.size()) == ssize_t(bytes.size());
    if (sync) ok = ::fdatasync(fd) == 0 && ok;
    return ::close(fd) == 0 && ok;
}

// The least a replacement that survives a crash needs: a new file, its data on disk, and a
// rename over the old one.
bool PlainDurableReplace(const std::string& path, std::string_view bytes) {
    std::string temporary = path + ".new";
    return PlainWrite(temporary, bytes, true) && ::rename(temporary.c_str(), path.c_str()) == 0;
}

// The control's text replaced by what a plain read of the file gives, as the control itself
// sets text. Undo is off during it, as it is in LoadFile.
void PlainLoad(RichEdit& e, const QString& path) {
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) return;
    QByteArray bytes = f.readAll();
    e.SendScintilla(QsciScintillaBase::SCI_SETUNDOCOLLECTION, 0UL);
    e.SendScintilla(QsciScintillaBase::SCI_SETTEXT, 0UL, bytes.constData());
    e.SendScintilla(QsciScintillaBase::SCI_SETUNDOCOLLECTION, 1UL);
    e.SendScintilla(QsciScintillaBase::SCI_EMPTYUNDOBUFFER);
}

long PeakKilobytes() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.rfind("VmHWM:", 0) == 0) return std::stol(line.substr(6));
    return -1;
}

// In a child process: an editor, loading the file if one is named; prints the peak in kB.
int PeakChild(const char* file) {
    int argc = 1;
    char name[] = "save_bench";
    char* argv[] = {name, nullptr};
    QApplication app(argc, argv);
    RichEdit e;
    e.resize(800, 600);
    e.show();
    QApplication::processEvents();
    if (*file) {
        QString error;
        if (!e.LoadFile(QString::fromLocal8Bit(file), 1, &error)) {
            std::fprintf(stderr, "load failed: %s\n", qPrintable(error));
            return 1;
        }
        QApplication::processEvents();
    }
    std::printf("%ld\n", PeakKilobytes());
    return 0;
}

long PeakOf(const std::string& file) {
    QProcess p;
    p.start(QCoreApplication::applicationFilePath(), {"--peak", QString::fromStdString(file)});
    if (!p.waitForFinished(600000) || p.exitCode() != 0) return -1;
    return p.readAllStandardOutput().trimmed().toLong();
}

void Row(const char* what, double ratio, const char* detail, double target, bool atMost) {
    bool met = atMost ? ratio <= target : ratio < target;
    std::printf("%-58s %6.2f  (%s)  target %s %.1f%s\n", what, ratio, detail, atMost ? "<=" : "<",
                target, met ? "" : "  NOT MET");
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    if (argc == 3 && std::strcmp(argv[1], "--peak") == 0) return PeakChild(argv[2]);

    QApplication app(argc, argv);
    std::filesystem::path dir = std::filesystem::temp_directory_path() /
                                ("kestrum-save-bench-" + std::to_string(::getpid()));
    std::filesystem::create_directories(dir);
    const std::string crlf = bench::GenerateCSource(10 * kMB);
    const std::string lf = [&] {
        std::string s = crlf;
        s.erase(std::remove(s.begin(), s.end(), '\r'), s.end());
        return s;
    }();
    char detail[128];

    // --- save: through the control (temporary file and rename) against one plain write ---
    RichEdit e;
    e.SetText(crlf);
    const std::string saved = (dir / "saved.c").string(), plain = (dir / "plain.c").string();
    QString error;
    double save = bench::BestOf(7, [&] { e.SaveFile(QString::fromStdString(saved), 1, &error); });
    double write = bench::BestOf(7, [&] { PlainWrite(plain, e.TextView()); });
    std::snprintf(detail, sizeof detail, "%.1f ms vs %.1f ms", save * 1e3, write * 1e3);
    Row("save 10 MB: SaveFile / plain write()", save / write, detail, 1.5, true);
    // What the safe save costs beyond a plain write is the data's trip to the disk before the
    // rename (QSaveFile syncs on commit); against the same steps done by hand:
    double durable = bench::BestOf(7, [&] { PlainDurableReplace(plain, e.TextView()); });
    std::snprintf(detail, sizeof detail, "%.1f ms vs %.1f ms", save * 1e3, durable * 1e3);
    std::printf("%-58s %6.2f  (%s)  for reference\n",
                "save 10 MB: SaveFile / new file + fdatasync + rename", save / durable, detail);

    // --- load: LoadFile against a plain read and SCI_SETTEXT, for both kinds of line end ---
    for (const auto& [name, text] : {std::pair{"CR LF", &crlf}, std::pair{"LF", &lf}}) {
        std::string source = (dir / "source.c").string();
        std::ofstream(source, std::ios::binary).write(text->data(), std::streamsize(text->size()));
        QString path = QString::fromStdString(source);
        double load = bench::BestOf(7, [&] { e.LoadFile(path, 1, &error); });
        double base = bench::BestOf(7, [&] { PlainLoad(e, path); });
        std::snprintf(detail, sizeof detail, "%.1f ms vs %.1f ms", load * 1e3, base * 1e3);
        std::string what = std::string("load 10 MB, ") + name + ": LoadFile / read + SCI_SETTEXT";
        Row(what.c_str(), load / base, detail, 1.5, true);
    }

    // --- peak memory of loading 100 MB, beyond that of the empty editor ---
    for (const auto& [name, ends] : {std::pair{"CR LF", true}, std::pair{"LF", false}}) {
        std::string big = bench::GenerateCSource(100 * kMB);
        if (!ends) big.erase(std::remove(big.begin(), big.end(), '\r'), big.end());
        std::string file = (dir / "big.c").string();
        std::ofstream(file, std::ios::binary).write(big.data(), std::streamsize(big.size()));
        long empty = PeakOf(""), loaded = PeakOf(file);
        double mb = double(big.size()) / kMB;
        double extra = double(loaded - empty) / 1024;
        std::snprintf(detail, sizeof detail, "%.0f MB for a %.0f MB file; empty editor %.0f MB",
                      extra, mb, double(empty) / 1024);
        std::string what = std::string("peak memory, 100 MB ") + name + ": extra / file size";
        Row(what.c_str(), extra / mb, detail, 3.0, false);
    }
    std::filesystem::remove_all(dir);
    return 0;
}
