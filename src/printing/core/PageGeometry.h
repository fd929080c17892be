#pragma once
// Where the text goes on a printed page, and the loop that hands the text to the edit
// control's range formatter page by page. All lengths are in twips (1/1440 inch).
#include <cstdint>
#include <string_view>

constexpr double kTwipsPerCm = 567;

// A rectangle as the range formatter takes it: integral twips.
struct TwipRect {
    int32_t left = 0, top = 0, right = 0, bottom = 0;
    bool operator==(const TwipRect&) const = default;
};

// The margins in twips. The left one is rounded when converted; the others stay fractional
// until they meet the printer's offsets.
struct MarginTwips {
    int32_t left = 0;
    double top = 0, right = 0, bottom = 0;
};
MarginTwips MarginsToTwips(float leftCm, float topCm, float rightCm, float bottomCm);

// What the printer reports of its page.
struct PageMetrics {
    double pageWidth = 0, pageHeight = 0;           // the sheet, twips
    double printableWidth = 0, printableHeight = 0; // the area the device can reach, twips
    double offsetXPixels = 0, offsetYPixels = 0;    // where that area starts, device pixels
    double twipsPerPixelX = 1, twipsPerPixelY = 1;
};

struct FormatRects {
    TwipRect draw; // where the text is laid out, relative to the printable area
    TwipRect page; // the printable area itself
};
// The rectangles of one page. Margins that leave no room are passed on unchecked; the page
// loop notices a page that takes no text.
FormatRects ComputeFormatRects(const PageMetrics& page, const MarginTwips& margins);

// Progress of a job in whole percent: 0 for an empty text, never above 100.
int ProgressPercent(int64_t next, int64_t textLength);

// The steps of one print job, supplied by the printer layer.
class PageSink {
  public:
    virtual ~PageSink() = default;
    // Lays out and renders one page from position first; returns the first position that
    // did not fit.
    virtual int64_t FormatPage(int64_t first) = 0;
    // Starts the next page; false when the device failed.
    virtual bool NewPage() = 0;
    // Shows progress and lets events run; false when the user cancelled the job.
    virtual bool Progress(int percent) = 0;
};

enum class PageLoopEnd {
    Finished,  // the whole text is on the pages
    Cancelled, // the user stopped the job between pages
    Stalled,   // a page took no text (no room between the margins): stopping avoids a hang
    Failed,    // the device refused a new page
};

struct PageLoopResult {
    PageLoopEnd end = PageLoopEnd::Finished;
    int pages = 0; // pages rendered
};

// Renders pages until the text is used up. A text that ends exactly at a page's end gives
// no extra page; an empty text gives one blank page.
PageLoopResult RunPageLoop(int64_t textLength, PageSink& sink);

// The length of the longest line of a text, line ends not counted.
int64_t LongestLine(std::string_view text);
