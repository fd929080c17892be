#include "tools/frmCompilerOutput.h"

#include "base/qt/AppGlobals.h"
#include "tools/CaptureView.h"
#include "tools/core/ErrorLocation.h"

#include <QAction>
#include <QElapsedTimer>
#include <QTimer>
#include <QToolBar>
#include <QVBoxLayout>

namespace {
// One step reads and indexes at most this much: a millisecond or so.
constexpr std::size_t kSlice = 64 << 10;
// Steps follow each other for at most this long before the event loop runs again.
constexpr qint64 kStepsMs = 10;
constexpr double kTwips = 15.0;

int Geometry(const char* key, int def) {
    // Held to what a window system can place: a hand-edited value may be anything.
    auto v = settings_convert::ToDoubleIn(
        ToBytes(GetSetting(AppTitle(), "Settings", key, QString::number(def))), -32768 * kTwips,
        32767 * kTwips);
    return int(v.value_or(def) / kTwips);
}
} // namespace

frmCompilerOutput::frmCompilerOutput(const QString& captureFile, const QString& baseDir,
                                     QWidget* parent)
    : QDialog(parent), tail_(captureFile.toStdString()), baseDir_(baseDir), slice_(kSlice) {
    setWindowTitle(tr("DOS Program Output Capture"));
    setAccessibleName(windowTitle());
    setObjectName("frmCompilerOutput");
    auto* v = new QVBoxLayout(this);
    v->setContentsMargins(0, 0, 0, 0);
    tbCompilerOut = new QToolBar(this);
    tbCompilerOut->setObjectName("tbCompilerOut");
    QAction* refresh = tbCompilerOut->addAction(tr("Refresh"));
    refresh->setObjectName("Refresh");
    refresh->setToolTip(tr("Refresh Compiler Output"));
    // The button's key and the one the handler looks for differ in case, so a click never
    // refreshes: the timer alone does.
    connect(refresh, &QAction::triggered, this, [this, refresh] {
        if (refresh->objectName() == "REFRESH") Timer1_Timer();
    });
    txtOutput = new CaptureView(this);
    txtOutput->setObjectName("txtOutput");
    txtOutput->setAccessibleName("txtOutput");
    QFont f("Terminal", 9);
    f.setStyleHint(QFont::TypeWriter);
    f.setFixedPitch(true);
    txtOutput->setFont(f);
    txtOutput->SetText(ToBytes(tr("No Compiler Output.")) + "\r\n");
    connect(txtOutput, &CaptureView::LineDoubleClicked, this,
            &frmCompilerOutput::txtOutput_DblClick);
    v->addWidget(tbCompilerOut);
    v->addWidget(txtOutput, 1);
    setGeometry(Geometry("CompX", 0), Geometry("CompY", 0), Geometry("CompW", 7725),
                Geometry("CompH", 4050));
    Timer1 = new QTimer(this);
    Timer1->setInterval(500);
    connect(Timer1, &QTimer::timeout, this, &frmCompilerOutput::Timer1_Timer);
    Timer1->start();
}

frmCompilerOutput::~frmCompilerOutput() = default;

void frmCompilerOutput::Timer1_Timer() {
    // Steps follow each other for a little while; what is left waits for the event loop.
    QElapsedTimer spent;
    spent.start();
    do {
        CaptureTail::Update u = tail_.Poll(slice_);
        switch (u.kind) {
        case CaptureTail::Kind::Unchanged:
            break;
        case CaptureTail::Kind::Failed:
            if (!failed_) txtOutput->SetText(ToBytes(tr("Unable to capture compiler output.")));
            failed_ = true;
            break;
        case CaptureTail::Kind::Replace:
            failed_ = false;
            txtOutput->ShowFile(tail_.path());
            txtOutput->Append(u.bytes);
            break;
        case CaptureTail::Kind::Append:
            txtOutput->Append(u.bytes);
            break;
        }
    } while (tail_.more() && spent.elapsed() < kStepsMs);
    if (tail_.more() && !stepQueued_) {
        stepQueued_ = true;
        // A timer, not a posted call: it takes turns with the other timers, which a stream of
        // posted calls could keep waiting.
        QTimer::singleShot(1, this, [this] {
            stepQueued_ = false;
            Timer1_Timer();
        });
    }
}

QString frmCompilerOutput::OutputText() const {
    return txtOutput->Text();
}

void frmCompilerOutput::txtOutput_DblClick(int line) {
    auto loc = ParseErrorLocation(txtOutput->LineHead(line));
    if (!loc || !OpenLocation) return;
    std::string path = ResolveToolPath(loc->file, ToBytes(baseDir_));
    OpenLocation(FromBytes(path), loc->line, loc->column);
}

void frmCompilerOutput::Form_Unload() {
    if (unloaded_) return;
    unloaded_ = true;
    Timer1->stop();
    const QRect g = geometry();
    const QString app = AppTitle();
    auto save = [&](const char* key, int px) {
        SaveSetting(app, "Settings", key, QString::number(px * kTwips));
    };
    save("CompX", g.x());
    save("CompY", g.y());
    save("CompW", g.width());
    save("CompH", g.height());
}

void frmCompilerOutput::done(int r) {
    Form_Unload();
    QDialog::done(r);
}
