#include "search/core/ReplaceLoop.h"

#include "search/core/FindRules.h"

bool ReplacePrompting(ReplaceTarget& doc, std::string_view find, std::string_view replacement,
                      const ReplaceOptions& options, const std::function<ReplaceAnswer()>& ask) {
    int64_t position = 0;
    int64_t end = -1; // read once: the bound is a fixed offset, never corrected
    if (options.inSelection) {
        position = doc.SelStart();
        end = position + doc.SelLength();
    }
    for (;;) {
        position = doc.Find(find, position, end, options.matchCase);
        if (position < 0) return true;
        switch (ask()) {
        case ReplaceAnswer::Yes:
            doc.ReplaceSelection(replacement);
            if (options.advanceAfterYes) position += int64_t(replacement.size());
            break;
        case ReplaceAnswer::No:
            position += int64_t(find.size());
            break;
        case ReplaceAnswer::Cancel:
            return false;
        }
    }
}

void ForEachReplaceSpan(std::string_view source, std::string_view find, bool matchCase,
                        const std::function<void(ReplaceSpan)>& visit) {
    if (find.empty()) return;
    int64_t from = 0;
    for (;;) {
        int64_t at = FindText(source, find, from, -1, false, matchCase);
        if (at < 0) return;
        visit({at, int64_t(find.size())});
        from = at + int64_t(find.size());
    }
}

std::string ReplaceTextCompare(std::string_view source, std::string_view find,
                               std::string_view replacement, bool matchCase) {
    std::string out;
    out.reserve(source.size());
    int64_t copied = 0;
    ForEachReplaceSpan(source, find, matchCase, [&](ReplaceSpan s) {
        out.append(source.substr(size_t(copied), size_t(s.start - copied)));
        out.append(replacement);
        copied = s.start + s.length;
    });
    out.append(source.substr(size_t(copied)));
    return out;
}
