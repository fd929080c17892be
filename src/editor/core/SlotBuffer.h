#pragma once
// Where the painter's colours go. The painter never touches a widget: it reports each
// coloured stretch to a PaintTarget, and the editor applies the collected result in one go.
#include "editor/core/ColorSlot.h"

#include <cstddef>
#include <cstdint>
#include <vector>

class PaintTarget {
  public:
    virtual ~PaintTarget() = default;
    // Gives positions start to start + length - 1 the slot; what is painted last wins.
    virtual void Paint(int64_t start, int64_t length, ColorSlot slot) = 0;
    // The slot bytes of positions start to start + length - 1 when the target holds them in
    // one piece already, else null. Painting there is the same as Paint, and may be done from
    // several threads at once on different positions.
    virtual uint8_t* Direct(int64_t start, int64_t length) { return nullptr; }

    // A whole-document pass hands its colours over stretch by stretch, in text order with no
    // gaps, so that the whole text's colours need not be held in one piece. It paints a
    // stretch where Stretch says: the target's own bytes for it, all painted as text, or null
    // for a buffer of the pass's own. Finished then gives the stretch's final slot bytes (in the
    // target's bytes or in that buffer), and the pass does not touch them again. By default
    // they go to Paint run by run.
    virtual uint8_t* Stretch(int64_t start, int64_t length) { return nullptr; }
    virtual void Finished(int64_t start, const uint8_t* bytes, int64_t length);
};

// A window of slots over the text, one byte per position, starting at Base(). Painting
// outside the window grows it, since a delimiter pair may run far behind the range that a
// pass was asked for. Positions inside the window that nobody painted hold kNotPainted.
class SlotBuffer final : public PaintTarget {
  public:
    static constexpr uint8_t kNotPainted = 0xFF;

    struct Run {
        int64_t start;
        int64_t length;
        ColorSlot slot;
        bool operator==(const Run&) const = default;
    };

    // An empty window at base; reserve is only a capacity hint.
    explicit SlotBuffer(int64_t base = 0, int64_t reserve = 0);

    // Negative positions are cut off; an empty or negative length paints nothing.
    void Paint(int64_t start, int64_t length, ColorSlot slot) override;
    uint8_t* Direct(int64_t start, int64_t length) override;
    // The window's own bytes: a whole document is painted in place.
    uint8_t* Stretch(int64_t start, int64_t length) override;
    void Finished(int64_t start, const uint8_t* bytes, int64_t length) override;

    int64_t Base() const { return base_; }
    int64_t Size() const { return int64_t(slots_.size()); }
    // The raw slot bytes of the window (kNotPainted where nothing was painted).
    const uint8_t* Data() const { return slots_.data(); }
    // The slot byte at a position, kNotPainted outside the window.
    uint8_t At(int64_t pos) const;

    // Calls f(start, length, slot) for each maximal run of equal painted slots, in order.
    template <typename F> void ForEachRun(F&& f) const {
        const uint8_t* p = slots_.data();
        for (int64_t i = 0, n = Size(), end; i < n; i = end) {
            end = RunEnd(i);
            if (p[i] != kNotPainted) f(base_ + i, end - i, ColorSlot(p[i]));
        }
    }
    // Calls f(start, slots, length) for each maximal stretch of painted positions, with the
    // slot bytes themselves: the form in which a styling call takes a whole stretch at once.
    template <typename F> void ForEachSpan(F&& f) const {
        const uint8_t* p = slots_.data();
        for (int64_t i = 0, n = Size(), end; i < n; i = end) {
            if (p[i] == kNotPainted) {
                end = RunEnd(i);
                continue;
            }
            for (end = i; end < n && p[end] != kNotPainted;) ++end;
            f(base_ + i, p + i, end - i);
        }
    }
    std::vector<Run> Runs() const;
    // Moves the slot bytes out and leaves the window empty: a whole document's colours are
    // handed on without a copy.
    std::vector<uint8_t> TakeBytes();

  private:
    // The end of the run of equal bytes that starts at i.
    int64_t RunEnd(int64_t i) const;

    int64_t base_;
    std::vector<uint8_t> slots_;
};
