#pragma once
// The two replace commands over any document: the prompting loop, driven by an answer
// callback, and the replace-all text rebuild.
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

// What the prompting loop needs of a document: the control's search (which selects its match)
// and the replacement of that selection.
class ReplaceTarget {
  public:
    virtual ~ReplaceTarget() = default;
    // Finds in [start, end) (end -1: to the end), selects the match and returns its position,
    // or returns -1.
    virtual int64_t Find(std::string_view text, int64_t start, int64_t end, bool matchCase) = 0;
    virtual void ReplaceSelection(std::string_view text) = 0;
    virtual int64_t SelStart() const = 0;
    virtual int64_t SelLength() const = 0;
};

enum class ReplaceAnswer { Yes, No, Cancel };

struct ReplaceOptions {
    bool matchCase = false;
    bool inSelection = false; // search [SelStart, SelStart + SelLength) as read at the start
    // After a Yes, move on behind the inserted text (the loop over all open documents) or
    // search again from the match's own start (the loop over the active document).
    bool advanceAfterYes = false;
};

// Prompts at each match; returns false when the answer was Cancel.
bool ReplacePrompting(ReplaceTarget& doc, std::string_view find, std::string_view replacement,
                      const ReplaceOptions& options, const std::function<ReplaceAnswer()>& ask);

// Every non-overlapping occurrence, left to right, never looking at inserted text; an empty
// find returns source. Linear: the result is built once.
std::string ReplaceTextCompare(std::string_view source, std::string_view find,
                               std::string_view replacement, bool matchCase);

// One occurrence of a replace-all: where it lies in the source.
struct ReplaceSpan {
    int64_t start;
    int64_t length;
};
// The occurrences ReplaceTextCompare replaces, in order.
void ForEachReplaceSpan(std::string_view source, std::string_view find, bool matchCase,
                        const std::function<void(ReplaceSpan)>& visit);
