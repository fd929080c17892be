#pragma once
// A document for painter tests: text, settings, flags and a slot buffer wired into a context,
// with the result shown one character per byte.
#include "editor/core/Painter.h"

#include <string>
#include <utility>
#include <vector>

// Colours out of date and no pass running: CodingInProgress false, ChangedHighLight true.
constexpr PaintFlags kStale{false, true};

// The flags in a form that compares and prints: CodingInProgress, ChangedHighLight.
inline std::pair<bool, bool> FlagPair(PaintFlags f) {
    return {f.CodingInProgress, f.ChangedHighLight};
}

struct PaintHarness {
    std::string text;
    EditorSettings settings = EditorSettings::Defaults();
    PaintFlags flags = kStale;
    SlotBuffer slots;
    std::vector<std::string> captions;
    PaintContext ctx{text,  settings, flags,
                     slots, {},       [this](std::string_view c) { captions.emplace_back(c); }};

    explicit PaintHarness(std::string t) : text(std::move(t)) {}
    PaintHarness(const PaintHarness&) = delete;

    // The slot of each byte of the text, -1 where nothing was painted.
    std::vector<int> Slots() const {
        std::vector<int> v(text.size());
        for (size_t i = 0; i < v.size(); ++i) {
            uint8_t s = slots.At(int64_t(i));
            v[i] = s == SlotBuffer::kNotPainted ? -1 : s;
        }
        return v;
    }
    // One character per byte: the slot's digit, or '.' where nothing was painted.
    std::string Show() const {
        std::string s;
        for (int v : Slots()) s += v < 0 ? '.' : char('0' + v);
        return s;
    }
};
