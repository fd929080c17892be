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
constexpr int kYieldMs = 50;

} // namespace

void ReplaceAllInDocument(RichEdit& rtf, bool inSelection, std::string_view find,
                          std::string_view replacement, bool matchCase) {
    if (find.empty()) return;
    const int64_t rangeStart = inSelection ? rtf.SelStart() : 0;
    const int64_t rangeLength = inSelection ? rtf.SelLength() : rtf.TextLength();
    if (rangeLength <= 0) return;

    // The occurrences and the new text of each stretch, worked out over the text as it is.
    std::vector<TextEdit> edits;
    {
        std::string_view range = rtf.TextViewFrom(rangeStart).substr(0, size_t(rangeLength));
        std::vector<ReplaceSpan> group;
        auto flush = [&] {
            if (group.empty()) return;
            if (group.size() <= kSparseStretch) {
                for (const ReplaceSpan& s : group)
                    edits.push_back({rangeStart + s.start, s.length, std::string(replacement)});
            } else {
                TextEdit e{rangeStart + group.front().start, 0, {}};
                int64_t at = group.front().start;
                for (const ReplaceSpan& s : group) {
                    e.text.append(range.substr(size_t(at), size_t(s.start - at)));
                    e.text.append(replacement);
                    at = s.start + s.length;
                }
                e.length = rangeStart + at - e.start;
                edits.push_back(std::move(e));
            }
            group.clear();
        };
        ForEachReplaceSpan(range, find, matchCase, [&](ReplaceSpan s) {
            if (!group.empty() && s.start - group.front().start > kStretchBytes) flush();
            group.push_back(s);
        });
        flush();
    }
    // Replacing an occurrence by the same bytes changes nothing: leave Changed alone.
    edits.erase(std::remove_if(edits.begin(), edits.end(),
                               [&](const TextEdit& e) {
                                   return e.text == rtf.TextViewFrom(e.start).substr(
                                                        0, size_t(e.length));
                               }),
                edits.end());
    if (edits.empty()) return;

    QPointer<RichEdit> guard(&rtf);
    QElapsedTimer clock;
    clock.start();
    // The control grows its buffers once, to the final size, as a step of its own between two
    // turns of the event loop: the first longer edit would otherwise do it in the middle of
    // the replacing, on top of the planning before it.
    int64_t growth = 0;
    for (const TextEdit& e : edits) growth += int64_t(e.text.size()) - e.length;
    if (growth > 0) {
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        if (!guard) return;
        rtf.SendScintilla(QsciScintillaBase::SCI_ALLOCATE,
                          static_cast<unsigned long>(rtf.TextLength() + growth + 1));
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        if (!guard) return;
        clock.restart();
    }
    int64_t delta = 0;
    rtf.beginUndoAction(); // one undo step, however many stretches
    for (const TextEdit& e : edits) {
        rtf.SetSelStart(e.start + delta);
        rtf.SetSelLength(e.length);
        rtf.SetSelText(e.text);
        delta += int64_t(e.text.size()) - e.length;
        if (clock.elapsed() >= kYieldMs) {
            // As the painter does: paint and serve timers, but take no input meanwhile.
            QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
            if (!guard) return;
            clock.restart();
        }
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
