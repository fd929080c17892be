// Restoring a workspace of 100 files of 100 KB from the command line against opening the
// same files one by one through File > Open's code path, in the same run; the longest wait
// of the event loop during the restore; listing a cliptext library of 10,000 snippets and
// the completion key over it, each against a baseline of the same run. Prints the ratios
// with their targets.
#include "BenchSource.h"
#include "base/qt/AppGlobals.h"
#include "app/frmMain.h"
#include "components/cDialogs.h"
#include "editor/DocumentArray.h"
#include "editor/RichEdit.h"
#include "editor/frmDocument.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QListWidget>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>

namespace {

// No box may wait for a user here.
class SilentDialogs : public cDialogs {
  public:
    MsgResult MsgBox(const QString& text, MsgButtons, MsgIcon, const QString&) override {
        std::fprintf(stderr, "box: %s\n", text.toUtf8().constData());
        return MsgResult::OK;
    }
};

double Ms(QElapsedTimer& t) {
    return double(t.nsecsElapsed()) / 1e6;
}

void CloseAll() {
    for (frmDocument* d : Documents().OpenDocuments()) {
        d->Changed = false;
        d->CloseWith(frmDocument::vbFormCode);
    }
    QApplication::processEvents();
}

void Write(const std::string& path, std::string_view bytes) {
    std::ofstream(path, std::ios::binary).write(bytes.data(), std::streamsize(bytes.size()));
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    namespace fs = std::filesystem;
    fs::path root = fs::temp_directory_path() / "kestrum-workspace-bench";
    fs::remove_all(root);
    fs::create_directories(root / "files");
    fs::create_directories(root / "app" / "cliptext");
    SetStoreDirectoryForTesting((root / "config").string());
    SetAppDirForTesting(QString::fromStdString((root / "app").string() + "/"));
    if (const char* build = std::getenv("KESTRUM_BUILD_DIR"))
        fs::copy(fs::path(build) / "PROFILES", root / "app" / "PROFILES", fs::copy_options::recursive);
    SilentDialogs dialogs;
    cDialogs::Install(&dialogs);

    std::string ws;
    std::vector<QString> files;
    for (int i = 0; i < 100; ++i) {
        std::string path = (root / "files" / ("f" + std::to_string(i) + ".c")).string();
        Write(path, bench::GenerateCSource(100 * 1024, uint32_t(i + 1)));
        files.push_back(QString::fromStdString(path));
        ws += "f" + std::to_string(i) + ".c\r\n" + path + "\r\n";
    }
    std::string wsPath = (root / "files" / "all.KWS").string();
    Write(wsPath, ws);

    frmMain main;
    main.MDIForm_Load({});
    main.show();
    QApplication::processEvents();
    CloseAll();

    // Baseline: the open command's road for each file.
    QElapsedTimer t;
    t.start();
    for (const QString& f : files) {
        QString error;
        main.OpenFileInNewDocument(f, {}, true, &error);
        QApplication::processEvents();
    }
    double open = Ms(t);
    size_t opened = Documents().OpenDocuments().size();
    CloseAll();

    // The restore, with a 1 ms timer showing how long the event loop waits at most.
    QElapsedTimer gap;
    double longest = 0;
    QTimer tick;
    tick.setInterval(1);
    QObject::connect(&tick, &QTimer::timeout, [&] {
        longest = std::max(longest, Ms(gap));
        gap.restart();
    });
    tick.start();
    gap.start();
    t.restart();
    QString error;
    bool ok = main.LoadWorkspace(QString::fromStdString(wsPath), true, &error);
    double restore = Ms(t);
    tick.stop();
    size_t restored = Documents().OpenDocuments().size();
    CloseAll();

    std::printf("workspace of 100 x 100 KB: restore %.0f ms (%zu documents%s), one-by-one open "
                "%.0f ms (%zu documents)\n",
                restore, restored, ok ? "" : ", FAILED", open, opened);
    std::printf("  ratio restore / open: %.2f (target <= 3)\n", restore / open);
    std::printf("  longest wait of the event loop during the restore: %.0f ms\n", longest);

    // Cliptext: 10,000 snippets of mixed length.
    std::string lib;
    for (int i = 0; i < 10000; ++i)
        lib += "snippet_" + std::to_string(i) + "(argument, " + std::string(size_t(i % 60), 'x') +
               ");\\n// done\r\n";
    Write((root / "app" / "cliptext" / "big").string(), lib);
    main.RefreshClipFiles();
    main.lstClipFiles->setCurrentRow(0);
    t.restart();
    main.lstClipFiles_Click();
    QApplication::processEvents(); // the list drawn
    double list = Ms(t);
    // Baseline: the same lines put in a list widget as they are.
    QStringList lines;
    for (int i = 0; i < main.lstClip->count(); ++i) lines << main.lstClip->item(i)->text();
    QListWidget plain;
    plain.show();
    t.restart();
    plain.addItems(lines);
    QApplication::processEvents();
    double plainList = Ms(t);
    std::printf("cliptext library of %d snippets: listed in %.1f ms (target <= 200), plain "
                "list of the same lines %.1f ms, ratio %.2f\n",
                main.lstClip->count(), list, plainList, list / plainList);

    // The completion key: Space after a word that matches nothing searches the whole list.
    NewDocument();
    QApplication::processEvents();
    RichEdit* e = main.ActiveForm()->rtfText;
    e->setFocus();
    auto keyCost = [&](bool autoComplete) {
        g_EditorSettings().AutoComplete = autoComplete;
        double worst = 0;
        for (int i = 0; i < 20; ++i) {
            e->SetText("zzzword");
            e->SetSelStart(7);
            t.restart();
            QTest::keyClick(e, Qt::Key_Space);
            worst = std::max(worst, Ms(t));
        }
        return worst;
    };
    double off = keyCost(false), on = keyCost(true);
    t.restart();
    int hit = main.GoClip("zzzword");
    double lookup = Ms(t);
    std::printf("completion key over 10,000 snippets: worst %.2f ms (target <= 5), the same key "
                "without completion %.2f ms, ratio %.2f; the lookup alone %.3f ms (%d)\n",
                on, off, on / off, lookup, hit);

    CloseAll();
    cDialogs::Install(nullptr);
    fs::remove_all(root);
    return 0;
}
