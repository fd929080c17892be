#include "printing/core/PageGeometry.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {
// Conversion to an integral twip value rounds half to even, as the printer's integer fields
// are assigned from fractional values; out-of-range values are clamped, never UB.
int32_t ToTwips(double v) {
    if (std::isnan(v)) return 0;
    constexpr double lo = std::numeric_limits<int32_t>::min();
    constexpr double hi = std::numeric_limits<int32_t>::max();
    if (v <= lo) return std::numeric_limits<int32_t>::min();
    if (v >= hi) return std::numeric_limits<int32_t>::max();
    return static_cast<int32_t>(std::nearbyint(v));
}
} // namespace

MarginTwips MarginsToTwips(float leftCm, float topCm, float rightCm, float bottomCm) {
    MarginTwips m;
    m.left = ToTwips(double(leftCm) * kTwipsPerCm);
    m.top = double(topCm) * kTwipsPerCm;
    m.right = double(rightCm) * kTwipsPerCm;
    m.bottom = double(bottomCm) * kTwipsPerCm;
    return m;
}

FormatRects ComputeFormatRects(const PageMetrics& page, const MarginTwips& margins) {
    const int32_t offsetX = ToTwips(page.offsetXPixels * page.twipsPerPixelX);
    const int32_t offsetY = ToTwips(page.offsetYPixels * page.twipsPerPixelY);
    FormatRects r;
    r.draw.left = ToTwips(double(margins.left) - offsetX);
    r.draw.top = ToTwips(margins.top - offsetY);
    r.draw.right = ToTwips(page.pageWidth - margins.right - offsetX);
    r.draw.bottom = ToTwips(page.pageHeight - margins.bottom - offsetY);
    r.page = {0, 0, ToTwips(page.printableWidth), ToTwips(page.printableHeight)};
    return r;
}

int ProgressPercent(int64_t next, int64_t textLength) {
    if (textLength <= 0 || next <= 0) return 0;
    if (next >= textLength) return 100;
    return int(double(next) / double(textLength) * 100);
}

PageLoopResult RunPageLoop(int64_t textLength, PageSink& sink) {
    PageLoopResult result;
    int64_t first = 0;
    if (!sink.Progress(ProgressPercent(first, textLength))) {
        result.end = PageLoopEnd::Cancelled;
        return result;
    }
    for (;;) {
        const int64_t next = sink.FormatPage(first);
        ++result.pages;
        if (next >= textLength) break;
        if (next <= first) {
            result.end = PageLoopEnd::Stalled;
            break;
        }
        first = next;
        if (!sink.Progress(ProgressPercent(first, textLength))) {
            result.end = PageLoopEnd::Cancelled;
            break;
        }
        if (!sink.NewPage()) {
            result.end = PageLoopEnd::Failed;
            break;
        }
    }
    return result;
}

int64_t LongestLine(std::string_view text) {
    int64_t longest = 0;
    size_t start = 0;
    while (start <= text.size()) {
        size_t end = text.find_first_of("\r\n", start);
        if (end == std::string_view::npos) end = text.size();
        longest = std::max<int64_t>(longest, int64_t(end - start));
        if (end == text.size()) break;
        start = end + 1;
    }
    return longest;
}
