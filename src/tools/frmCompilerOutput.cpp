#include "tools/frmCompilerOutput.h"

#include "base/qt/AppGlobals.h"
#include "tools/core/ErrorLocation.h"

#include <QAction>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QTimer>
#include <QToolBar>
#include <QVBoxLayout>
#include <Qsci/qsciscintilla.h>
#include <cstring>

namespace {
// One step reads and appends at most this much: the control takes a few milliseconds for it.
constexpr std::size_t kSlice = 64 << 10;
// Steps follow each other for at most this long before the event loop runs again.
constexpr qint64 kStepsMs = 15;
// Only the beginning of a line is searched for a location: a tool may print one endless line.
constexpr std::size_t kLinkScan = 4096;
constexpr int kLinkIndicator = 8;
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
    txtOutput = new QsciScintilla(this);
    // A document without a style byte for each byte of text: the output is never coloured,
    // and every growth of a large output would copy the styles too. The control holds the
    // only reference once it shows the document.
    void* plain = reinterpret_cast<void*>(
        txtOutput->SendScintilla(QsciScintillaBase::SCI_CREATEDOCUMENT, 0UL,
                                 long(QsciScintillaBase::SC_DOCUMENTOPTION_STYLES_NONE)));
    if (plain) {
        txtOutput->SendScintilla(QsciScintillaBase::SCI_SETDOCPOINTER, 0UL, plain);
        txtOutput->SendScintilla(QsciScintillaBase::SCI_RELEASEDOCUMENT, 0UL, plain);
    }
    txtOutput->setObjectName("txtOutput");
    txtOutput->setAccessibleName("txtOutput");
    txtOutput->setUtf8(true);
    txtOutput->setMarginWidth(1, 0);
    QFont f("Terminal", 9);
    f.setStyleHint(QFont::TypeWriter);
    txtOutput->setFont(f);
    txtOutput->setText(tr("No Compiler Output.") + "\r\n");
    txtOutput->setReadOnly(true);
    // Nobody listens to changes of the text, and the control would answer each append with a
    // count of the characters before it; nor is an append ever undone.
    txtOutput->SendScintilla(QsciScintillaBase::SCI_SETMODEVENTMASK, 0UL);
    txtOutput->SendScintilla(QsciScintillaBase::SCI_SETUNDOCOLLECTION, 0UL);
    txtOutput->SendScintilla(QsciScintillaBase::SCI_EMPTYUNDOBUFFER);
    txtOutput->SendScintilla(QsciScintillaBase::SCI_INDICSETSTYLE, kLinkIndicator,
                             long(QsciScintillaBase::INDIC_PLAIN));
    txtOutput->SendScintilla(QsciScintillaBase::SCI_INDICSETFORE, kLinkIndicator, QColor(Qt::blue));
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
    if (!append) {
        sci->SendScintilla(QsciScintillaBase::SCI_CLEARALL);
        lineStart_ = 0;
        lineHead_.clear();
    }
    const long at = long(sci->SendScintilla(QsciScintillaBase::SCI_GETLENGTH));
    if (!bytes.empty())
        sci->SendScintilla(QsciScintillaBase::SCI_APPENDTEXT, bytes.size(), bytes.data());
    sci->setReadOnly(true);
    MarkLinks(at, bytes);
    // A reader scrolled back stays where he is; one at the end keeps following.
    if (following) sci->SendScintilla(QsciScintillaBase::SCI_SCROLLTOEND);
}

void frmCompilerOutput::MarkLinks(long at, std::string_view bytes) {
    const char* const begin = bytes.data();
    const char* const end = begin + bytes.size();
    for (const char* p = begin; p < end;) {
        const char* nl = static_cast<const char*>(std::memchr(p, '\n', std::size_t(end - p)));
        const char* stop = nl ? nl : end;
        if (lineHead_.size() < kLinkScan)
            lineHead_.append(p, std::min(std::size_t(stop - p), kLinkScan - lineHead_.size()));
        if (!nl) break;
        const long lineEnd = at + long(nl - begin); // the LF, or the CR before it
        std::string_view head(lineHead_);
        if (!head.empty() && head.back() == '\r' && head.size() < kLinkScan) head.remove_suffix(1);
        if (ParseErrorLocation(head)) {
            long length = lineEnd - lineStart_;
            // The CR of a CR LF may have come with the append before.
            if (length > 0 &&
                txtOutput->SendScintilla(QsciScintillaBase::SCI_GETCHARAT, lineEnd - 1) == '\r')
                --length;
            txtOutput->SendScintilla(QsciScintillaBase::SCI_SETINDICATORCURRENT, kLinkIndicator);
            txtOutput->SendScintilla(QsciScintillaBase::SCI_INDICATORFILLRANGE, lineStart_, length);
        }
        lineStart_ = lineEnd + 1;
        lineHead_.clear();
        p = nl + 1;
    }
}

bool frmCompilerOutput::IsLinkAt(long pos) const {
    return txtOutput->SendScintilla(QsciScintillaBase::SCI_INDICATORVALUEAT, kLinkIndicator, pos) !=
           0;
}

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
            if (OutputText() != "Unable to capture compiler output.")
                SetBytes("Unable to capture compiler output.", false);
            break;
        case CaptureTail::Kind::Replace:
            SetBytes(u.bytes, false);
            break;
        case CaptureTail::Kind::Append:
            SetBytes(u.bytes, true);
            break;
        }
    } while (tail_.more() && spent.elapsed() < kStepsMs);
    if (tail_.more() && !stepQueued_) {
        stepQueued_ = true;
        QTimer::singleShot(0, this, [this] {
            stepQueued_ = false;
            Timer1_Timer();
        });
    }
}

QString frmCompilerOutput::OutputText() const {
    return txtOutput->text();
}

std::string frmCompilerOutput::LineHead(int line) const {
    const long from = long(txtOutput->SendScintilla(QsciScintillaBase::SCI_POSITIONFROMLINE, line));
    const long to = long(txtOutput->SendScintilla(QsciScintillaBase::SCI_GETLINEENDPOSITION, line));
    if (from < 0 || to < from) return {};
    const std::size_t n = std::min(std::size_t(to - from), kLinkScan);
    std::string text(n + 1, '\0');
    txtOutput->SendScintilla(QsciScintillaBase::SCI_GETTEXTRANGE, from, from + long(n),
                             text.data());
    text.resize(n);
    return text;
}

void frmCompilerOutput::txtOutput_DblClick(int line) {
    const std::string text = LineHead(line);
    auto loc = ParseErrorLocation(text);
    if (!loc || !OpenLocation) return;
    std::string path = ResolveToolPath(loc->file, ToBytes(baseDir_));
    OpenLocation(FromBytes(path), loc->line, loc->column);
}

bool frmCompilerOutput::eventFilter(QObject* o, QEvent* e) {
    if (o == txtOutput->viewport() && e->type() == QEvent::MouseButtonDblClick) {
        const QPoint p = static_cast<QMouseEvent*>(e)->position().toPoint();
        long pos = txtOutput->SendScintilla(QsciScintillaBase::SCI_POSITIONFROMPOINT, p.x(), p.y());
        txtOutput_DblClick(
            int(txtOutput->SendScintilla(QsciScintillaBase::SCI_LINEFROMPOSITION, pos)));
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
