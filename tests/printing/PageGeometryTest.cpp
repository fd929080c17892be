#include "printing/core/PageGeometry.h"
#include "printing/core/PageSetupValues.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

// An A4 sheet (11906 x 16838 twips) whose printable area starts 0.25 inch in at 600 dpi.
static PageMetrics A4() {
    PageMetrics p;
    p.pageWidth = 11906;
    p.pageHeight = 16838;
    p.printableWidth = 11186;
    p.printableHeight = 16118;
    p.offsetXPixels = 150;
    p.offsetYPixels = 150;
    p.twipsPerPixelX = p.twipsPerPixelY = 1440.0 / 600;
    return p;
}

TEST(PageGeometry, Rectangles) {
    struct Case {
        const char* name;
        PageMetrics page;
        float left, top, right, bottom; // cm
        TwipRect draw;
    };
    PageMetrics noOffset = A4();
    noOffset.offsetXPixels = noOffset.offsetYPixels = 0;
    PageMetrics zero;
    const std::vector<Case> cases = {
        // 1.5 cm = 850.5 twips: the left margin rounds half to even (850), the others meet
        // the 360-twip offset first: 850.5 - 360 = 490.5 -> 490.
        {"default margins", A4(), 1.5f, 1.5f, 1.5f, 1.5f, {490, 490, 10696, 15628}},
        {"no offset", noOffset, 1, 2, 3, 4, {567, 1134, 10205, 14570}},
        {"zero margins reach behind the offset", A4(), 0, 0, 0, 0, {-360, -360, 11546, 16478}},
        {"margins wider than the page are passed on", A4(), 15, 1, 16, 1, {8145, 207, 2474, 15911}},
        {"zero-size page", zero, 1, 1, 1, 1, {567, 567, -567, -567}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        FormatRects r =
            ComputeFormatRects(c.page, MarginsToTwips(c.left, c.top, c.right, c.bottom));
        EXPECT_EQ(r.draw, c.draw);
        EXPECT_EQ(r.page, (TwipRect{0, 0, int32_t(c.page.printableWidth),
                                    int32_t(c.page.printableHeight)}));
    }
}

// A printer that takes a fixed number of positions a page, and stops where told.
struct FakeSink : PageSink {
    int64_t perPage;
    int cancelAtCall = -1; // Progress call (0-based) that answers cancel
    int failAtPage = -1;   // NewPage call (0-based) that fails
    std::vector<int64_t> firsts;
    std::vector<int> progress;
    int newPages = 0;

    int64_t FormatPage(int64_t first) override {
        firsts.push_back(first);
        return first + perPage;
    }
    bool NewPage() override { return newPages++ != failAtPage; }
    bool Progress(int percent) override {
        progress.push_back(percent);
        return int(progress.size()) - 1 != cancelAtCall;
    }
};

TEST(PageGeometry, PageLoop) {
    struct Case {
        const char* name;
        int64_t length, perPage;
        int cancelAt, failAt;
        PageLoopEnd end;
        std::vector<int64_t> firsts;
        std::vector<int> progress;
    };
    const auto F = PageLoopEnd::Finished;
    const std::vector<Case> cases = {
        {"three pages", 250, 100, -1, -1, F, {0, 100, 200}, {0, 40, 80}},
        {"text ending on a page end gives no extra page", 200, 100, -1, -1, F, {0, 100}, {0, 50}},
        {"empty text: one blank page", 0, 100, -1, -1, F, {0}, {0}},
        {"a page that takes nothing stops the job", 50, 0, -1, -1, PageLoopEnd::Stalled, {0}, {0}},
        {"cancel before the first page", 250, 100, 0, -1, PageLoopEnd::Cancelled, {}, {0}},
        {"cancel between pages", 250, 100, 1, -1, PageLoopEnd::Cancelled, {0}, {0, 40}},
        {"device fails at the second page", 250, 100, -1, 0, PageLoopEnd::Failed, {0}, {0, 40}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        FakeSink sink;
        sink.perPage = c.perPage;
        sink.cancelAtCall = c.cancelAt;
        sink.failAtPage = c.failAt;
        PageLoopResult r = RunPageLoop(c.length, sink);
        EXPECT_EQ(r.end, c.end);
        EXPECT_EQ(sink.firsts, c.firsts);
        EXPECT_EQ(r.pages, int(c.firsts.size()));
        EXPECT_EQ(sink.progress, c.progress);
    }
}

// The keys a margin box takes are typed in the page setup dialog's test.
TEST(PageSetupValues, MarginFromText) {
    const std::pair<const char*, float> cases[] = {
        {"2.5", 2.5f},   {"abc", 0},      {".5", 0.5f},
        {"1.5cm", 1.5f}, {"1.2.3", 1.2f}, {"99999999999999999999999999999999999999999", 0},
    };
    for (auto [text, cm] : cases) EXPECT_FLOAT_EQ(MarginFromText(text), cm) << text;
}

TEST(PageGeometry, LongestLine) {
    const std::pair<std::string, int64_t> cases[] = {
        {"", 0},
        {"ab\r\nabcde\r\nx", 5},
        {"a\nabcd\rab", 4},
        {"short\r\n" + std::string(200000, 'x'), 200000},
    };
    for (const auto& [text, longest] : cases) EXPECT_EQ(LongestLine(text), longest) << text.size();
}
