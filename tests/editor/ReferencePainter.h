#pragma once
// A plain painter for cross-checking: each keyword and each pair searched on its own with a
// naive find, positions 1-based as the rules are written, colours kept per byte. Slow and
// obviously literal on purpose.
#include "base/EditorSettings.h"
#include "editor/core/Painter.h"

#include <string>
#include <vector>

struct RefDocument {
    std::string text;
    std::vector<int> slots; // per byte, -1 where nothing was painted
    PaintFlags flags;
    EditorSettings settings;
    std::vector<std::string> captions;

    explicit RefDocument(std::string t) : text(std::move(t)), slots(text.size(), -1) {}
};

void RefKeywordCoder(RefDocument& d, int64_t first, int64_t last, const std::string& list, int slot,
                     bool showProgress);
void RefCodeDelimiters(RefDocument& d, int64_t first, int64_t last, const std::string& opener,
                       std::string closer, int32_t& colourClass);
void RefColorCode(RefDocument& d);
void RefCodeLine(RefDocument& d, int64_t lineStart, int64_t lineLength);
void RefCodePassage(RefDocument& d, int64_t first, int64_t last);
