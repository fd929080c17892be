// Speed of the painter on a generated 10 MB C source, as ratios against baselines measured in
// the same run: (a) the whole-document pass against one memchr pass over the buffer, (b) a
// plain painter (a find per keyword over a copy of the text) against the painter, (d) CodeLine
// on a line of a 10 MB document against the same line in a 10 KB one.
#include "BenchSource.h"
#include "editor/core/Painter.h"

#include <cstdio>
#include <cstring>
#include <vector>

namespace {

class NullTarget final : public PaintTarget {
  public:
    void Paint(int64_t, int64_t length, ColorSlot) override { painted += length; }
    // A whole-document pass's stretches are taken as they are, not run by run.
    void Finished(int64_t, const uint8_t*, int64_t length) override { painted += length; }
    int64_t painted = 0;
};

// The straightforward way: per list a copy of the text, per keyword a find loop with the
// boundary rule, colours into a byte per position; delimiters by find as well.
std::vector<uint8_t> PlainPainter(std::string_view text, EditorSettings& s) {
    std::vector<uint8_t> slots(text.size(), 0);
    auto paint = [&](size_t start, size_t len, int slot) {
        std::memset(slots.data() + start, slot, std::min(len, text.size() - start));
    };
    for (int l = 0; l < 3; ++l) {
        std::string copy(text);
        std::string work = s.Keywords[size_t(l)];
        for (size_t p; (p = work.find(kKeywordSeparator)) != std::string::npos;) {
            std::string k = work.substr(0, p);
            work.erase(0, p + 1);
            if (k.empty()) break;
            for (size_t f = copy.find(k); f != std::string::npos;
                 f = copy.find(k, f + k.size() + 1)) {
                size_t e = f + k.size();
                if (f == 0 || e == copy.size() ||
                    (uint8_t(copy[e]) < 65 && uint8_t(copy[f - 1]) < 65))
                    paint(f, k.size(), l + 1);
            }
        }
    }
    for (auto& d : s.Delimiters) {
        if (d.DelimiterStart.empty() || d.DelimiterEnd.empty()) continue;
        std::string close = d.DelimiterEnd == "\r\n" ? "\n" : d.DelimiterEnd;
        std::string copy(text);
        for (size_t p = copy.find(d.DelimiterStart); p != std::string::npos;
             p = copy.find(d.DelimiterStart, p)) {
            size_t q = copy.find(close, p + 1);
            if (q == std::string::npos) break;
            paint(p, q - p + close.size(), d.DelimiterColor + 3);
            p = q + 1;
        }
    }
    return slots;
}

double TimeColorCode(std::string_view text, EditorSettings& s, PaintTarget& target, int runs) {
    return bench::BestOf(runs, [&] {
        PaintFlags flags{false, true};
        PaintContext ctx{text, s, flags, target, {}, {}};
        ColorCode(ctx);
    });
}

double TimeCodeLine(const std::string& doc, int64_t lineStart, int64_t lineLength,
                    EditorSettings& s) {
    constexpr int kReps = 2000;
    return bench::BestOf(5,
                         [&] {
                             for (int i = 0; i < kReps; ++i) {
                                 SlotBuffer slots(lineStart, lineLength + 2);
                                 PaintFlags flags{false, true};
                                 PaintContext ctx{doc, s, flags, slots, {}, {}};
                                 CodeLine(ctx, lineStart, lineLength);
                             }
                         }) /
           kReps;
}

// A document of about size bytes with a known line in its middle; returns the line's start.
int64_t DocumentWithLine(size_t size, const std::string& line, std::string& doc) {
    std::string half = bench::GenerateCSource(size / 2, 7);
    doc = half + line + "\r\n" + bench::GenerateCSource(size / 2, 8);
    return int64_t(half.size());
}

} // namespace

int main() {
    const std::string text = bench::GenerateCSource(10u << 20);
    EditorSettings s = EditorSettings::Defaults();
    bench::SetCProfile(s);
    std::printf("text: %.1f MB, %d keywords, 4 delimiter pairs\n", double(text.size()) / (1 << 20),
                80);

    // (a) The painter's scan against one memchr pass (for a byte that does not occur, so that
    // it reads the whole buffer) and against a line count by memchr.
    volatile int absent = 1;
    double memchrPass = bench::BestOf(20, [&] {
        const void* r = std::memchr(text.data(), absent, text.size());
        asm volatile("" : : "r"(r) : "memory");
    });
    double lineCount = bench::BestOf(10, [&] {
        size_t lines = 0;
        for (const char *p = text.data(), *end = p + text.size();
             (p = static_cast<const char*>(std::memchr(p, '\n', size_t(end - p)))); ++p)
            ++lines;
        asm volatile("" : : "r"(lines) : "memory");
    });
    NullTarget null;
    double scan = TimeColorCode(text, s, null, 10);
    SlotBuffer slots(0, int64_t(text.size()));
    double painted = TimeColorCode(text, s, slots, 10);
    std::printf("memchr pass %.3f ms, memchr line count %.3f ms, scan %.3f ms, scan into a slot "
                "buffer %.3f ms\n",
                memchrPass * 1e3, lineCount * 1e3, scan * 1e3, painted * 1e3);
    // Into a slot buffer the word scan runs on two threads, as in the editor; into the null
    // target on one.
    std::printf("(a) scan into a slot buffer/memchr = %.1f (target <= 10)\n", painted / memchrPass);
    std::printf("    the same/memchr line count = %.1f\n", painted / lineCount);
    std::printf("    one thread, no slot buffer: /memchr = %.1f, /memchr line count = %.1f\n",
                scan / memchrPass, scan / lineCount);

    // (b) The plain painter against the painter, both giving a slot per byte.
    std::vector<uint8_t> plain;
    double plainTime = bench::BestOf(2, [&] { plain = PlainPainter(text, s); });
    bool same = std::memcmp(plain.data(), slots.Data(), text.size()) == 0;
    std::printf("(b) plain painter/painter = %.1f (target > 1)%s\n", plainTime / painted,
                same ? "" : "  [results differ]");

    // (d) CodeLine cost follows the line, not the document.
    const std::string line = "    if (count > limit) printf(\"%d\", count); /* check */ // done";
    std::string big, small;
    int64_t bigAt = DocumentWithLine(10u << 20, line, big);
    int64_t smallAt = DocumentWithLine(10u << 10, line, small);
    double tBig = TimeCodeLine(big, bigAt, int64_t(line.size()), s);
    double tSmall = TimeCodeLine(small, smallAt, int64_t(line.size()), s);
    std::printf("CodeLine %.2f us in 10 MB, %.2f us in 10 KB\n", tBig * 1e6, tSmall * 1e6);
    std::printf("(d) CodeLine 10 MB/10 KB = %.2f (target <= 2)\n", tBig / tSmall);
    return 0;
}
