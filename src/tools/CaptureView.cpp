#include "tools/CaptureView.h"

#include "base/TextCodec.h"
#include "base/qt/AppGlobals.h"
#include "tools/core/ErrorLocation.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <optional>
#include <unistd.h>

namespace {
// A copy of the selection stops here: selecting a whole output of gigabytes must not hang.
constexpr std::uint64_t kCopyMost = 64u << 20;
constexpr int kTab = 8;

// An open file read at offsets, closed when it goes.
class FileReader {
  public:
    explicit FileReader(const std::string& path)
        : fd_(::open(path.c_str(), O_RDONLY | O_CLOEXEC)) {}
    ~FileReader() {
        if (fd_ >= 0) ::close(fd_);
    }
    FileReader(const FileReader&) = delete;
    FileReader& operator=(const FileReader&) = delete;
    // A file cut short since it was indexed gives what is left of it.
    std::string Read(std::uint64_t at, std::size_t n) const {
        std::string out(n, '\0');
        std::size_t got = 0;
        while (fd_ >= 0 && got < n) {
            const ssize_t r = ::pread(fd_, out.data() + got, n - got, off_t(at + got));
            if (r < 0 && errno == EINTR) continue;
            if (r <= 0) break;
            got += std::size_t(r);
        }
        out.resize(got);
        return out;
    }

  private:
    int fd_;
};

// Where a line's head cut at kLineHead ends without the start of a sequence it could not hold.
std::size_t WholeSequences(std::string_view s) {
    for (std::size_t back = 1; back <= 3 && back <= s.size(); ++back) {
        const auto c = static_cast<unsigned char>(s[s.size() - back]);
        if (c < 0x80) break;
        if (c >= 0xC0) {
            const std::size_t need = c >= 0xF0 ? 4 : c >= 0xE0 ? 3 : 2;
            return need > back ? s.size() - back : s.size();
        }
    }
    return s.size();
}
} // namespace

CaptureView::CaptureView(QWidget* parent) : QAbstractScrollArea(parent) {
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setCursor(Qt::IBeamCursor);
}

CaptureView::~CaptureView() = default;

void CaptureView::SetText(std::string bytes) {
    path_.clear();
    text_.clear();
    index_.Clear();
    anchor_ = caret_ = 0;
    verticalScrollBar()->setValue(0);
    horizontalScrollBar()->setValue(0);
    Append(bytes);
}

void CaptureView::ShowFile(std::string path) {
    SetText({});
    path_ = std::move(path);
}

void CaptureView::Append(std::string_view bytes) {
    QScrollBar* v = verticalScrollBar();
    // A reader scrolled back stays where he is; one at the end keeps following.
    const bool following = v->value() >= v->maximum();
    if (path_.empty()) text_.append(bytes);
    index_.Append(bytes);
    UpdateRanges();
    if (following) v->setValue(v->maximum());
    viewport()->update();
}

int CaptureView::lines() const {
    return int(std::min<std::size_t>(index_.lines(), INT_MAX));
}

std::string CaptureView::Read(std::uint64_t from, std::uint64_t to) const {
    to = std::min(to, index_.size());
    if (from >= to) return {};
    if (path_.empty()) return text_.substr(std::size_t(from), std::size_t(to - from));
    return FileReader(path_).Read(from, std::size_t(to - from));
}

QString CaptureView::Text() const {
    return ShownText(FromBytes(Read(0, index_.size())));
}

std::vector<std::string> CaptureView::Heads(int first, int last) const {
    std::vector<std::string> heads;
    std::optional<FileReader> file;
    if (!path_.empty()) file.emplace(path_);
    for (int line = first; line < last; ++line) {
        const std::uint64_t from = index_.Start(std::size_t(line));
        const std::uint64_t end = index_.End(std::size_t(line));
        const std::uint64_t to = std::min(end, from + kLineHead);
        std::string head = file ? file->Read(from, std::size_t(to - from))
                                : text_.substr(std::size_t(from), std::size_t(to - from));
        if (to == end && !head.empty() && head.back() == '\r') head.pop_back();
        heads.push_back(std::move(head));
    }
    return heads;
}

std::string CaptureView::LineHead(int line) const {
    if (line < 0 || line >= lines()) return {};
    return std::move(Heads(line, line + 1).front());
}

bool CaptureView::Ended(int line) const {
    return line >= 0 && line + 1 < lines();
}

bool CaptureView::IsLink(int line) const {
    return Ended(line) && ParseErrorLocation(LineHead(line)).has_value();
}

CaptureView::Cells CaptureView::Decode(std::string_view head, bool cut) {
    const bool utf8 =
        IsValidUtf8(head) || (cut && IsValidUtf8(head.substr(0, WholeSequences(head))));
    Cells c;
    c.text.reserve(qsizetype(head.size()));
    c.byteOf.reserve(head.size() + 1);
    auto put = [&c](char32_t u, std::size_t at) {
        if (u == '\t') {
            do {
                c.text += QChar(' ');
                c.byteOf.push_back(int(at));
            } while (c.text.size() % kTab != 0);
            return;
        }
        // Control bytes of binary output are drawn as their pictures, not as nothing.
        if (u < 0x20) u += 0x2400;
        if (u == 0x7F) u = 0x2421;
        if (QChar::requiresSurrogates(u)) {
            c.text += QChar(QChar::highSurrogate(u));
            c.byteOf.push_back(int(at));
            c.text += QChar(QChar::lowSurrogate(u));
        } else {
            c.text += QChar(char16_t(u));
        }
        c.byteOf.push_back(int(at));
    };
    for (std::size_t i = 0; i < head.size();) {
        const auto b = static_cast<unsigned char>(head[i]);
        std::size_t n = 1;
        char32_t u = b;
        if (utf8 && b >= 0x80) {
            n = b >= 0xF0 ? 4 : b >= 0xE0 ? 3 : 2;
            if (i + n > head.size()) break; // the cut end of a long line
            u = b & (0x3F >> (n - 1));
            for (std::size_t k = 1; k < n; ++k) u = (u << 6) | (head[i + k] & 0x3F);
        }
        put(u, i);
        i += n;
    }
    c.byteOf.push_back(int(head.size()));
    return c;
}

int CaptureView::lineHeight() const {
    return std::max(1, fontMetrics().lineSpacing());
}

int CaptureView::cellWidth() const {
    return std::max(1, fontMetrics().horizontalAdvance('M'));
}

QRect CaptureView::LineRect(int line) const {
    const int top = (line - verticalScrollBar()->value()) * lineHeight();
    return {0, top, viewport()->width(), lineHeight()};
}

void CaptureView::UpdateRanges() {
    const int page = std::max(1, viewport()->height() / lineHeight());
    QScrollBar* v = verticalScrollBar();
    v->setRange(0, std::max(0, lines() - page));
    v->setPageStep(page);
    QScrollBar* h = horizontalScrollBar();
    const auto widest = int(std::min<std::uint64_t>(index_.longest(), kLineHead));
    h->setRange(0, std::max(0, widest * cellWidth() + 2 * kIndent - viewport()->width()));
    h->setPageStep(std::max(1, viewport()->width()));
    h->setSingleStep(cellWidth() * 4);
}

void CaptureView::resizeEvent(QResizeEvent* e) {
    QScrollBar* v = verticalScrollBar();
    const bool following = v->value() >= v->maximum();
    QAbstractScrollArea::resizeEvent(e);
    UpdateRanges();
    if (following) v->setValue(v->maximum());
}

void CaptureView::paintEvent(QPaintEvent*) {
    QPainter p(viewport());
    const int lh = lineHeight(), cw = cellWidth();
    const int first = verticalScrollBar()->value();
    const int last = std::min(lines(), first + viewport()->height() / lh + 1);
    const int scrollX = horizontalScrollBar()->value();
    // Only the cells in sight are laid out: a line may hold thousands.
    const int cell0 = std::max(0, (scrollX - kIndent) / cw - 1);
    const int cells = viewport()->width() / cw + 3;
    const std::uint64_t selFrom = std::min(anchor_, caret_), selTo = std::max(anchor_, caret_);
    const std::vector<std::string> heads = Heads(first, last);
    const QFontMetrics fm = fontMetrics();
    for (int line = first; line < last; ++line) {
        const std::string& head = heads[std::size_t(line - first)];
        const std::uint64_t start = index_.Start(std::size_t(line));
        const bool cut = index_.End(std::size_t(line)) - start > kLineHead;
        const Cells c = Decode(head, cut);
        const int top = (line - first) * lh;
        const int x0 = kIndent - scrollX;
        if (selFrom < selTo && selTo > start && selFrom <= index_.End(std::size_t(line))) {
            auto cellOf = [&](std::uint64_t pos) {
                const auto off =
                    int(std::min<std::uint64_t>(pos - std::min(pos, start), head.size()));
                return int(std::lower_bound(c.byteOf.begin(), c.byteOf.end(), off) -
                           c.byteOf.begin());
            };
            const int a = selFrom > start ? cellOf(selFrom) : 0;
            int b = cellOf(selTo);
            if (selTo > index_.End(std::size_t(line))) ++b; // the line end is selected too
            p.fillRect(QRect(x0 + a * cw, top, (b - a) * cw, lh), palette().highlight());
        }
        if (cell0 >= c.text.size()) continue;
        p.setPen(palette().color(QPalette::Text));
        p.drawText(x0 + cell0 * cw, top + fm.ascent(), c.text.mid(cell0, cells));
        if (Ended(line) && ParseErrorLocation(head)) {
            p.setPen(Qt::blue);
            const int y = top + fm.ascent() + 1 + std::max(0, fm.descent() / 2);
            p.drawLine(x0, y, x0 + int(c.text.size()) * cw, y);
        }
    }
}

int CaptureView::LineAtY(int y) const {
    const int line = verticalScrollBar()->value() + (y < 0 ? -1 : y / lineHeight());
    return std::clamp(line, 0, lines() - 1);
}

std::uint64_t CaptureView::PosAt(QPoint pt) const {
    const int line = LineAtY(pt.y());
    const std::string head = LineHead(line);
    const std::uint64_t start = index_.Start(std::size_t(line));
    const Cells c = Decode(head, index_.End(std::size_t(line)) - start > kLineHead);
    const int x = pt.x() + horizontalScrollBar()->value() - kIndent;
    // A click on the right half of a cell places the caret after it.
    const int cell = std::clamp((x + cellWidth() / 2) / cellWidth(), 0, int(c.text.size()));
    return start + std::uint64_t(c.byteOf[std::size_t(cell)]);
}

void CaptureView::SetSelection(std::uint64_t anchor, std::uint64_t caret) {
    anchor_ = std::min(anchor, index_.size());
    caret_ = std::min(caret, index_.size());
    viewport()->update();
}

QString CaptureView::SelectedText() const {
    const std::uint64_t from = std::min(anchor_, caret_);
    const std::uint64_t to = std::min(std::max(anchor_, caret_), from + kCopyMost);
    return ShownText(FromBytes(Read(from, to)));
}

void CaptureView::copy() const {
    if (anchor_ != caret_) QApplication::clipboard()->setText(SelectedText());
}

void CaptureView::selectAll() {
    SetSelection(0, index_.size());
}

void CaptureView::keyPressEvent(QKeyEvent* e) {
    if (e == QKeySequence::Copy) return copy();
    if (e == QKeySequence::SelectAll) return selectAll();
    QScrollBar* v = verticalScrollBar();
    QScrollBar* h = horizontalScrollBar();
    const bool ctrl = e->modifiers() & Qt::ControlModifier;
    switch (e->key()) {
    case Qt::Key_Up:
        return v->triggerAction(QAbstractSlider::SliderSingleStepSub);
    case Qt::Key_Down:
        return v->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    case Qt::Key_PageUp:
        return v->triggerAction(QAbstractSlider::SliderPageStepSub);
    case Qt::Key_PageDown:
        return v->triggerAction(QAbstractSlider::SliderPageStepAdd);
    case Qt::Key_Left:
        return h->triggerAction(QAbstractSlider::SliderSingleStepSub);
    case Qt::Key_Right:
        return h->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    case Qt::Key_Home:
        return (ctrl ? v : h)->triggerAction(QAbstractSlider::SliderToMinimum);
    case Qt::Key_End:
        return (ctrl ? v : h)->triggerAction(QAbstractSlider::SliderToMaximum);
    default:
        QAbstractScrollArea::keyPressEvent(e);
    }
}

void CaptureView::mousePressEvent(QMouseEvent* e) {
    if (e->button() != Qt::LeftButton) return QAbstractScrollArea::mousePressEvent(e);
    const std::uint64_t pos = PosAt(e->position().toPoint());
    SetSelection(e->modifiers() & Qt::ShiftModifier ? anchor_ : pos, pos);
}

void CaptureView::mouseMoveEvent(QMouseEvent* e) {
    if (!(e->buttons() & Qt::LeftButton)) return;
    const QPoint pt = e->position().toPoint();
    // Dragging past the top or the bottom scrolls a line at a time.
    if (pt.y() < 0) verticalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepSub);
    if (pt.y() >= viewport()->height())
        verticalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    SetSelection(anchor_, PosAt(pt));
}

void CaptureView::mouseReleaseEvent(QMouseEvent* e) {
    e->setAccepted(e->button() == Qt::LeftButton);
}

void CaptureView::mouseDoubleClickEvent(QMouseEvent* e) {
    if (e->button() == Qt::LeftButton) emit LineDoubleClicked(LineAtY(e->position().toPoint().y()));
}
