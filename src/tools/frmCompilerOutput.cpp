#include "tools/frmCompilerOutput.h"

#include "base/qt/AppGlobals.h"
#include "tools/core/ErrorLocation.h"

#include <Qsci/qsciscintilla.h>
#include <QAction>
#include <QMouseEvent>
#include <QTimer>
#include <QToolBar>
#include <QVBoxLayout>

namespace {
// One read per step; a step that leaves more to read lets the event loop run before the next.
constexpr std::size_t kChunk = 1 << 20;
constexpr double kTwips = 15.0;

int Geometry(const char* key, int def) {
    bool ok = false;
    double v = GetSetting(AppTitle(), "Settings", key, QString::number(def)).toDouble(&ok);
    return int((ok ? v : def) / kTwips);
}
} // namespace

frmCompilerOutput::frmCompilerOutput(const QString& captureFile, const QString& baseDir,
                                     QWidget* parent)
    : QDialog(parent), tail_(captureFile.toStdString()), baseDir_(baseDir) {
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
    txtOutput = new QsciScintilla(this);
    txtOutput->setObjectName("txtOutput");
    txtOutput->setAccessibleName("txtOutput");
    txtOutput->setUtf8(true);
    txtOutput->setMarginWidth(1, 0);
    QFont f("Terminal", 9);
    f.setStyleHint(QFont::TypeWriter);
    txtOutput->setFont(f);
    txtOutput->setText(tr("No Compiler Output.") + "\r\n");
    txtOutput->setReadOnly(true);
    txtOutput->viewport()->installEventFilter(this);
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

void frmCompilerOutput::SetBytes(const std::string& bytes, bool append) {
    auto* sci = txtOutput;
    int lines = int(sci->SendScintilla(QsciScintillaBase::SCI_GETLINECOUNT));
    int firstVisible = int(sci->SendScintilla(QsciScintillaBase::SCI_GETFIRSTVISIBLELINE));
    int onScreen = int(sci->SendScintilla(QsciScintillaBase::SCI_LINESONSCREEN));
    bool following = firstVisible + onScreen >= lines - 1;
    sci->setReadOnly(false);
    if (!append) sci->SendScintilla(QsciScintillaBase::SCI_CLEARALL);
    if (!bytes.empty())
        sci->SendScintilla(QsciScintillaBase::SCI_APPENDTEXT, bytes.size(), bytes.data());
    sci->setReadOnly(true);
    // A reader scrolled back stays where he is; one at the end keeps following.
    if (following) sci->SendScintilla(QsciScintillaBase::SCI_SCROLLTOEND);
}

void frmCompilerOutput::Timer1_Timer() {
    CaptureTail::Update u = tail_.Poll(kChunk);
    switch (u.kind) {
    case CaptureTail::Kind::Unchanged: break;
    case CaptureTail::Kind::Failed:
        if (OutputText() != "Unable to capture compiler output.")
            SetBytes("Unable to capture compiler output.", false);
        break;
    case CaptureTail::Kind::Replace: SetBytes(u.bytes, false); break;
    case CaptureTail::Kind::Append: SetBytes(u.bytes, true); break;
    }
    if (tail_.more()) QTimer::singleShot(0, this, &frmCompilerOutput::Timer1_Timer);
}

QString frmCompilerOutput::OutputText() const { return txtOutput->text(); }

void frmCompilerOutput::txtOutput_DblClick(int line) {
    auto len = txtOutput->SendScintilla(QsciScintillaBase::SCI_LINELENGTH, line);
    std::string text(std::size_t(len) + 1, '\0');
    txtOutput->SendScintilla(QsciScintillaBase::SCI_GETLINE, line, text.data());
    text.resize(std::size_t(len));
    auto loc = ParseErrorLocation(text);
    if (!loc || !OpenLocation) return;
    std::string path = ResolveToolPath(loc->file, ToBytes(baseDir_));
    OpenLocation(FromBytes(path), loc->line, loc->column);
}

bool frmCompilerOutput::eventFilter(QObject* o, QEvent* e) {
    if (o == txtOutput->viewport() && e->type() == QEvent::MouseButtonDblClick) {
        const QPoint p = static_cast<QMouseEvent*>(e)->position().toPoint();
        long pos = txtOutput->SendScintilla(QsciScintillaBase::SCI_POSITIONFROMPOINT, p.x(), p.y());
        txtOutput_DblClick(int(txtOutput->SendScintilla(QsciScintillaBase::SCI_LINEFROMPOSITION, pos)));
    }
    return QDialog::eventFilter(o, e);
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
