#include "search/DocumentSearch.h"

#include "editor/RichEdit.h"
#include "search/core/FindRules.h"

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QPointer>
#include <algorithm>

int64_t FindInDocument(RichEdit& rtf, std::string_view text, int64_t start, int64_t end,
                       bool wholeWord, bool matchCase) {
    const int64_t n = rtf.TextLength();
    if (text.empty() || start > n) return -1;
    if (start < 0) start = 0;
    // Read from one byte before start only: the whole-word test looks at it, and reading
    // the buffer from its beginning would move a large document's gap for nothing.
    const int64_t base = start > 0 ? start - 1 : 0;
    std::string_view view = rtf.TextViewFrom(base);
    int64_t localEnd = end < 0 || end > n ? -1 : end - base;
    int64_t hit = FindText(view, text, start - base, localEnd, wholeWord, matchCase);
    if (hit < 0) return -1;
    int64_t pos = base + hit;
    rtf.SetSelStart(pos);
    rtf.SetSelLength(int64_t(text.size()));
    return pos;
}

std::string DocumentBytes(const RichEdit& rtf, const QString& text) {
    return rtf.ToDocumentBytes(text).value_or(std::string());
}

QString BoxToCrLf(const QString& boxText) {
    QString t = boxText;
    t.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    t.replace(QLatin1Char('\n'), QLatin1String("\r\n"));
    return t;
}

QString CrLfToBox(const QString& text) {
    QString t = text;
    t.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    return t;
}

int64_t RichEditTarget::Find(std::string_view text, int64_t start, int64_t end, bool matchCase) {
    return FindInDocument(rtf_, text, start, end, false, matchCase);
}
void RichEditTarget::ReplaceSelection(std::string_view text) { rtf_.SetSelText(text); }
int64_t RichEditTarget::SelStart() const { return rtf_.SelStart(); }
int64_t RichEditTarget::SelLength() const { return rtf_.SelLength(); }

namespace {

// A stretch with few occurrences gets each replaced by itself, so that the colours round
// them stay; a dense one is replaced whole, from its first occurrence to its last.
constexpr size_t kSparseStretch = 32;
constexpr int64_t kStretchBytes = 256 * 1024;
constexpr int kYieldMs = 20;

} // namespace

void ReplaceAllInDocument(RichEdit& rtf, bool inSelection, std::string_view find,
                          std::string_view replacement, bool matchCase) {
    if (find.empty()) return;
    const int64_t rangeStart = inSelection ? rtf.SelStart() : 0;
    const int64_t rangeLength = inSelection ? rtf.SelLength() : rtf.TextLength();
    if (rangeLength <= 0) return;

    QPointer<RichEdit> guard(&rtf);
    QElapsedTimer clock;
    clock.start();
    // Serves the event loop once the time is up; false when the control went meanwhile.
    auto yieldOnTime = [&] {
        if (clock.elapsed() < kYieldMs) return true;
        // As the painter does: paint and serve timers, but take no input meanwhile.
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        clock.restart();
        return !guard.isNull();
    };

    // The occurrences, then the new text of each stretch, worked out over the text as it is.
    // The event loop is served between stretches; should the text change meanwhile, the
    // work starts again over the new text.
    std::vector<TextEdit> edits;
    for (bool planned = false; !planned;) {
        const quint64 version = rtf.Version();
        auto range = [&] { return rtf.TextViewFrom(rangeStart).substr(0, size_t(rangeLength)); };
        std::vector<ReplaceSpan> spans;
        ForEachReplaceSpan(range(), find, matchCase, [&](ReplaceSpan s) { spans.push_back(s); });
        edits.clear();
        planned = true;
        for (size_t first = 0, next; first < spans.size(); first = next) {
            for (next = first + 1;
                 next < spans.size() && spans[next].start - spans[first].start <= kStretchBytes;)
                ++next;
            const std::string_view text = range();
            if (next - first <= kSparseStretch) {
                // The few occurrences of the stretch, each replaced by itself, unless the
                // replacement is the same bytes (which changes nothing).
                for (size_t i = first; i < next; ++i)
                    if (text.substr(size_t(spans[i].start), size_t(spans[i].length)) !=
                        replacement)
                        edits.push_back({rangeStart + spans[i].start, spans[i].length,
                                         std::string(replacement)});
            } else {
                TextEdit e{rangeStart + spans[first].start, 0, {}};
                int64_t at = spans[first].start;
                for (size_t i = first; i < next; ++i) {
                    e.text.append(text.substr(size_t(at), size_t(spans[i].start - at)));
                    e.text.append(replacement);
                    at = spans[i].start + spans[i].length;
                }
                e.length = rangeStart + at - e.start;
                if (e.text != text.substr(size_t(e.start - rangeStart), size_t(e.length)))
                    edits.push_back(std::move(e));
            }
            if (!yieldOnTime()) return;
            if (rtf.Version() != version) {
                planned = false;
                break;
            }
        }
    }
    if (edits.empty()) return;
    // The control grows its buffers once, to the final size, as a step of its own between two
    // turns of the event loop: the first longer edit would otherwise do it in the middle of
    // the replacing, on top of the planning before it.
    int64_t growth = 0;
    for (const TextEdit& e : edits) growth += int64_t(e.text.size()) - e.length;
    if (growth > 0) {
        const quint64 version = rtf.Version();
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        if (!guard) return;
        rtf.SendScintilla(QsciScintillaBase::SCI_ALLOCATE,
                          static_cast<unsigned long>(rtf.TextLength() + growth + 1));
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        if (!guard) return;
        // The plan holds for the text it was made over only.
        if (rtf.Version() != version)
            return ReplaceAllInDocument(rtf, inSelection, find, replacement, matchCase);
        clock.restart();
    }
    int64_t delta = 0;
    rtf.beginUndoAction(); // one undo step, however many stretches
    for (const TextEdit& e : edits) {
        rtf.SetSelStart(e.start + delta);
        rtf.SetSelLength(e.length);
        rtf.SetSelText(e.text);
        delta += int64_t(e.text.size()) - e.length;
        if (!yieldOnTime()) return;
    }
    rtf.endUndoAction();
    if (inSelection) {
        rtf.SetSelStart(rangeStart);
        rtf.SetSelLength(rangeLength + delta);
        rtf.SetSelStart(rangeStart + rangeLength + delta); // as assigning SelText leaves it
    } else {
        rtf.SetSelStart(0); // as assigning Text leaves it
    }
}

namespace {
std::function<void(QDialog&)>& Runner() {
    static std::function<void(QDialog&)> runner;
    return runner;
}
} // namespace

void ShowSearchDialog(QDialog& dialog) {
    if (Runner())
        Runner()(dialog);
    else
        dialog.exec();
}

void SetSearchDialogRunnerForTesting(std::function<void(QDialog&)> runner) {
    Runner() = std::move(runner);
}
