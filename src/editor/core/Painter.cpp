#include "editor/core/Painter.h"

#include "editor/core/DelimiterScan.h"
#include "editor/core/KeywordMatcher.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

// Yields on a time basis: the work is counted, and only every few thousand units is the
// clock looked at, so that neither a find nor a keyword costs a call into the event loop.
class Pacer {
  public:
    explicit Pacer(PaintContext& ctx) : ctx_(ctx), last_(Clock::now()) {}

    // False when the pass must stop because the text changed.
    bool Tick(int64_t units) {
        budget_ -= units;
        if (budget_ > 0) return true;
        budget_ = kCheckEvery;
        if (!ctx_.Yield || Clock::now() - last_ < ctx_.YieldInterval) return true;
        bool goOn = ctx_.Yield();
        last_ = Clock::now();
        return goOn;
    }

  private:
    static constexpr int64_t kCheckEvery = 4096;
    PaintContext& ctx_;
    Clock::time_point last_;
    int64_t budget_ = kCheckEvery;
};

struct Pass {
    PaintContext& ctx;
    Pacer pacer{ctx};
};

PassResult Abort(PaintContext& ctx) {
    ctx.Flags.CodingInProgress = false;
    ctx.Flags.ChangedHighLight = true;
    return PassResult::Aborted;
}

int64_t TextSize(const PaintContext& ctx) {
    return int64_t(ctx.Text.size());
}

// Painting is cut to the text, as the control cuts a selection that runs past its end.
void PaintClipped(PaintContext& ctx, int64_t start, int64_t length, ColorSlot slot) {
    int64_t end = std::min(start + length, TextSize(ctx));
    start = std::max<int64_t>(start, 0);
    if (end > start) ctx.Target.Paint(start, end - start, slot);
}

void KeywordCaptions(PaintContext& ctx, const KeywordMatcher& matcher) {
    if (ctx.Progress)
        for (auto& e : matcher.Entries())
            ctx.Progress(std::to_string(e.counter) + std::string(kKeywordsCodedCaption));
}

// The keyword coder over several lists at once, with the flag effects of running it for each
// list in turn: all finds come from one scan, then each keyword's finds are painted in list
// order, so that later keywords still paint over earlier ones.
PassResult KeywordStage(Pass& pass, int64_t first, int64_t last,
                        const std::vector<std::string_view>& lists, const ColorSlot* slots,
                        bool showProgress) {
    PaintContext& ctx = pass.ctx;
    if (std::all_of(lists.begin(), lists.end(), [](auto l) { return l.empty(); }))
        return PassResult::Skipped;
    ctx.Flags.CodingInProgress = true;

    const int64_t lo = std::clamp<int64_t>(first, 0, TextSize(ctx));
    const int64_t hi = std::clamp<int64_t>(last, lo, TextSize(ctx));
    const std::string_view stretch = ctx.Text.substr(size_t(lo), size_t(hi - lo));
    auto matcher = SharedKeywordMatcher(lists, ctx.Settings.CaseSensitive);
    if (!matcher->Paint(stretch, lo, slots, ctx.Target,
                        [&](int64_t bytes) { return pass.pacer.Tick(bytes); }))
        return Abort(ctx);
    if (showProgress) KeywordCaptions(ctx, *matcher);
    ctx.Flags.CodingInProgress = false;
    ctx.Flags.ChangedHighLight = false;
    return PassResult::Done;
}

PassResult Delimiters(Pass& pass, int64_t first, int64_t last, std::string_view opener,
                      std::string_view closer, int32_t& colourClass) {
    PaintContext& ctx = pass.ctx;
    if (colourClass > 3 || colourClass < 1) colourClass = 1;
    if (closer == "\r\n") closer = "\n";
    if (ctx.Flags.CodingInProgress) return PassResult::Skipped;
    ctx.Flags.CodingInProgress = true;

    const std::string_view text = ctx.Text;
    const ColorSlot slot = DelimiterSlot(colourClass);
    int64_t from = first;
    for (;;) {
        const int64_t open = FindFrom(text, from, opener);
        if (open < 0) break;
        const int64_t close = FindFrom(text, open + 1, closer);
        if (close < 0) break;
        PaintClipped(ctx, open, close - open + int64_t(closer.size()), slot);
        // A pair closing behind the range is painted whole, and ends the call. The flags
        // stay as they are: the range callers rely on that.
        if (close > last) return PassResult::Done;
        if (!pass.pacer.Tick(close + 1 - from + 16)) return Abort(ctx);
        from = close + 1;
    }
    ctx.Flags.CodingInProgress = false;
    ctx.Flags.ChangedHighLight = false;
    return PassResult::Done;
}

constexpr std::array<ColorSlot, 3> kListSlots = {KeywordSlot(0), KeywordSlot(1), KeywordSlot(2)};

std::vector<std::string_view> KeywordLists(const PaintContext& ctx) {
    const auto& k = ctx.Settings.Keywords;
    return {k[0], k[1], k[2]};
}

PassResult AllKeywords(Pass& pass, int64_t first, int64_t last, bool showProgress) {
    return KeywordStage(pass, first, last, KeywordLists(pass.ctx), kListSlots.data(), showProgress);
}

// The entries of the delimiter table that a whole-document pass paints: opener and closer
// both given.
bool Searched(const DelimiterPair& d) {
    return !d.DelimiterStart.empty() && !d.DelimiterEnd.empty();
}

DelimiterScan ScanFor(const PaintContext& ctx) {
    std::vector<DelimiterScan::Pair> pairs;
    for (auto& d : ctx.Settings.Delimiters)
        if (Searched(d))
            pairs.push_back({d.DelimiterStart, d.DelimiterEnd == "\r\n" ? "\n" : d.DelimiterEnd});
    return DelimiterScan(ctx.Text, std::move(pairs));
}

// Paints the pairs found, in table order, over positions lo to hi - 1, whose slots are at
// bytes (position lo at bytes[0]). A pair's spans follow each other, their ends too.
void PaintSpans(const DelimiterScan& scan, const std::vector<ColorSlot>& slots, uint8_t* bytes,
                int64_t lo, int64_t hi) {
    for (size_t p = 0; p < slots.size(); ++p) {
        const auto& spans = scan.Spans(p);
        auto i = std::partition_point(spans.begin(), spans.end(),
                                      [&](const auto& s) { return s.start + s.length <= lo; });
        for (; i != spans.end() && i->start < hi; ++i) {
            const int64_t a = std::max(i->start, lo), b = std::min(i->start + i->length, hi);
            std::memset(bytes + (a - lo), int(slots[p]), size_t(b - a));
        }
    }
}

// Stretches from this length on have their pairs painted on two threads.
constexpr int64_t kPaintOnTwoThreadsFrom = 1 << 20;

void PaintSpansOfStretch(const DelimiterScan& scan, const std::vector<ColorSlot>& slots,
                         uint8_t* bytes, int64_t lo, int64_t hi) {
    if (hi - lo < kPaintOnTwoThreadsFrom) return PaintSpans(scan, slots, bytes, lo, hi);
    const int64_t mid = lo + (hi - lo) / 2;
    std::jthread other([&] { PaintSpans(scan, slots, bytes + (mid - lo), mid, hi); });
    PaintSpans(scan, slots, bytes, lo, mid);
}

// The slots of the searched entries of the delimiter table, in table order; their colour
// classes are clamped as the delimiter coder clamps them, in the settings too if write.
std::vector<ColorSlot> PairSlots(EditorSettings& settings, bool write) {
    std::vector<ColorSlot> slots;
    for (auto& d : settings.Delimiters) {
        if (!Searched(d)) continue;
        const int32_t c = d.DelimiterColor > 3 || d.DelimiterColor < 1 ? 1 : d.DelimiterColor;
        if (write) d.DelimiterColor = c;
        slots.push_back(DelimiterSlot(c));
    }
    return slots;
}

// The delimiter table in order. needBoth: only entries with opener and closer; otherwise the
// closer is not looked at. clearFirst: CodingInProgress is cleared before each entry.
PassResult AllDelimiters(Pass& pass, int64_t first, int64_t last, bool needBoth, bool clearFirst) {
    for (auto& d : pass.ctx.Settings.Delimiters) {
        if (needBoth ? !Searched(d) : d.DelimiterStart.empty()) continue;
        if (clearFirst) pass.ctx.Flags.CodingInProgress = false;
        if (Delimiters(pass, first, last, d.DelimiterStart, d.DelimiterEnd, d.DelimiterColor) ==
            PassResult::Aborted)
            return PassResult::Aborted;
    }
    return PassResult::Done;
}

// Runs the keyword and the delimiter stage in the order CodeOrder asks for (keywords first
// when it is true). False when one of them aborted; the other then does not run.
template <typename K, typename D> bool Stages(bool keywordsFirst, K keywords, D delimiters) {
    constexpr auto ok = [](PassResult r) { return r != PassResult::Aborted; };
    return keywordsFirst ? ok(keywords()) && ok(delimiters()) : ok(delimiters()) && ok(keywords());
}

} // namespace

PassResult KeywordCoder(PaintContext& ctx, int64_t first, int64_t last, std::string_view list,
                        ColorSlot slot, bool showProgress) {
    Pass pass{ctx};
    return KeywordStage(pass, first, last, {list}, &slot, showProgress);
}

PassResult CodeDelimiters(PaintContext& ctx, int64_t first, int64_t last, std::string_view opener,
                          std::string_view closer, int32_t& colourClass) {
    Pass pass{ctx};
    return Delimiters(pass, first, last, opener, closer, colourClass);
}

PassResult ColorCode(PaintContext& ctx) {
    if (!ColorCodeWanted(ctx.Flags)) return PassResult::Skipped;
    // Stretch by stretch: each gets the text slot, then the keywords and the pairs in the
    // order CodeOrder asks for (keywords first when it is true), and goes to the target as
    // soon as it is finished. The pairs are searched over the whole text as the delimiter
    // coder searches them, in step with the stretches; with keywords first, beside the
    // keyword scan.
    Pass pass{ctx};
    const bool keywordsFirst = ctx.Settings.CodeOrder;
    if (!keywordsFirst && ctx.Progress) ctx.Progress(kCodingDelimitersCaption);
    const std::vector<ColorSlot> pairSlots = PairSlots(ctx.Settings, !keywordsFirst);
    DelimiterScan scan = ScanFor(ctx);
    const std::vector<std::string_view> lists = KeywordLists(ctx);
    std::shared_ptr<const KeywordMatcher> matcher;
    std::optional<KeywordMatcher::Stretches> keywords;
    if (std::any_of(lists.begin(), lists.end(), [](auto l) { return !l.empty(); })) {
        matcher = SharedKeywordMatcher(lists, ctx.Settings.CaseSensitive);
        keywords.emplace(*matcher, ctx.Text, kListSlots.data());
    }
    ctx.Flags.CodingInProgress = true;
    const ScanTick tick = [&](int64_t bytes) { return pass.pacer.Tick(bytes); };
    const int64_t n = TextSize(ctx), stretchBytes = std::max<int64_t>(ctx.StretchBytes, 1);
    std::vector<uint8_t> own;
    for (int64_t from = 0; from < n;) {
        const int64_t to =
            keywords ? keywords->End(from, stretchBytes) : std::min(n, from + stretchBytes);
        uint8_t* slots = ctx.Target.Stretch(from, to - from);
        if (!slots) {
            own.assign(size_t(to - from), uint8_t(ColorSlot::Text));
            slots = own.data();
        }
        auto pairs = [&] {
            scan.Advance(to);
            PaintSpansOfStretch(scan, pairSlots, slots, from, to);
        };
        if (!keywordsFirst) pairs();
        if (keywords) {
            KeywordMatcher::Alongside ahead;
            if (keywordsFirst) ahead = [&](int64_t end) { scan.Advance(end); };
            if (!keywords->Paint(from, to, slots, tick, ahead)) return Abort(ctx);
        }
        if (keywordsFirst) pairs();
        scan.Forget(to);
        ctx.Target.Finished(from, slots, to - from);
        if (!pass.pacer.Tick(to - from)) return Abort(ctx);
        from = to;
    }
    if (matcher) KeywordCaptions(ctx, *matcher);
    if (keywordsFirst) {
        PairSlots(ctx.Settings, true);
        if (ctx.Progress) ctx.Progress(kCodingDelimitersCaption);
    }
    ctx.Flags.ChangedHighLight = false;
    ctx.Flags.CodingInProgress = false;
    return PassResult::Done;
}

PassResult CodeLine(PaintContext& ctx, int64_t lineStart, int64_t lineLength) {
    if (ctx.Flags.CodingInProgress || !ctx.Flags.ChangedHighLight) {
        ctx.Flags.CodingInProgress = false;
        return PassResult::Skipped;
    }
    Pass pass{ctx};
    const int64_t a = lineStart, n = lineLength + 2; // the line with its line end
    PaintClipped(ctx, a, n, ColorSlot::Text);
    auto keywords = [&] { return AllKeywords(pass, a, a + n, false); };
    auto delimiters = [&] { return AllDelimiters(pass, a, a + 2 + n, false, true); };
    if (!Stages(ctx.Settings.CodeOrder, keywords, delimiters)) return PassResult::Aborted;
    ctx.Flags.CodingInProgress = false;
    ctx.Flags.ChangedHighLight = false;
    return PassResult::Done;
}

PassResult CodePassage(PaintContext& ctx, int64_t first, int64_t last) {
    if (first == last) {
        ctx.Flags.CodingInProgress = false;
        return PassResult::Skipped;
    }
    if (ctx.Flags.CodingInProgress || !ctx.Flags.ChangedHighLight) return PassResult::Skipped;
    // Held across the coders on purpose: the delimiter coder returns while it is set.
    ctx.Flags.CodingInProgress = true;
    Pass pass{ctx};
    PaintClipped(ctx, first, last - first, ColorSlot::Text);
    auto keywords = [&] { return AllKeywords(pass, first, last, false); };
    auto delimiters = [&] { return AllDelimiters(pass, first, last, true, false); };
    if (!Stages(ctx.Settings.CodeOrder, keywords, delimiters)) return PassResult::Aborted;
    ctx.Flags.ChangedHighLight = false;
    ctx.Flags.CodingInProgress = false;
    return PassResult::Done;
}
