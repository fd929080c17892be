#pragma once
// The colour-coding painter: keyword lists and delimiter pairs painted over a text by plain
// string search, as the document window colours its text. Pure logic: the text comes in as a
// byte view (line ends CR LF, positions 0-based byte offsets) and colours go out to a
// PaintTarget; the window does the widget side (selection, Changed, hiding, redraw) around
// these calls.
#include "base/EditorSettings.h"
#include "editor/core/SlotBuffer.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <string_view>

// The two colouring flags of a document window.
struct PaintFlags {
    bool CodingInProgress = false; // a pass is running: the re-entrancy guard
    bool ChangedHighLight = false; // the text changed since it was last coloured
};

struct PaintContext {
    std::string_view Text;    // read in place, never copied
    EditorSettings& Settings; // Keywords, Delimiters, CodeOrder, CaseSensitive; DelimiterColor
                              // is written back when a coder clamps it
    PaintFlags& Flags;
    PaintTarget& Target;
    // Runs the event loop for a moment. Returns false when the text changed meanwhile: the
    // pass then stops at once and leaves ChangedHighLight set, so that it runs again later.
    std::function<bool()> Yield;
    // Shows a caption in the progress label. May be empty.
    std::function<void(std::string_view)> Progress;
    // How much work goes by between two calls of Yield.
    std::chrono::milliseconds YieldInterval{30};
    // About how much text a whole-document pass colours at a time: its colours go to the
    // target stretch by stretch (see PaintTarget::Stretch).
    int64_t StretchBytes = 8 << 20;
};

enum class PassResult {
    Skipped, // a guard returned before any work; no flag but those its guard names changed
    Done,
    Aborted, // Yield returned false: CodingInProgress is false and ChangedHighLight true
};

// Colours each keyword of one list between positions first and last with slot. Keywords are
// trimmed and taken in list order, later ones painting over earlier ones; each is searched as
// a plain substring (folded ASCII letters unless Settings.CaseSensitive), the search going on
// one character behind each find's end. A find is coloured when the bytes before and after it
// are both below 65 ("A"); a find at the start of the stretch or one that reaches its end is
// coloured whatever stands on its other side. An empty list returns at once (Skipped);
// otherwise CodingInProgress is set for the run and both flags are clear at its end.
PassResult KeywordCoder(PaintContext& ctx, int64_t first, int64_t last, std::string_view list,
                        ColorSlot slot, bool showProgress);

// Colours the pairs of one delimiter entry, always case-sensitive, searching the whole text
// from position first on. colourClass outside 1 to 3 becomes 1 (the caller's value changes); a
// closer CR LF is taken as LF. Returns Skipped while CodingInProgress is set. The closer is
// looked for from one character behind the opener's start, the next opener from one character
// behind the closer's start. A pair whose closer starts behind last is still painted, and then
// the call ends leaving CodingInProgress set and ChangedHighLight as it was; an opener without
// a closer ends the search. At a normal end both flags are clear.
PassResult CodeDelimiters(PaintContext& ctx, int64_t first, int64_t last, std::string_view opener,
                          std::string_view closer, int32_t& colourClass);

// True when ColorCode would act: not while a pass runs, and only when the colours are stale.
inline bool ColorCodeWanted(const PaintFlags& f) {
    return !f.CodingInProgress && f.ChangedHighLight;
}

// The whole document: paints everything as text, then the keyword lists and the delimiter
// pairs in the order CodeOrder asks for (keywords first when it is true), with progress
// captions. Clears both flags at the end. The colours go to the target through Stretch and
// Finished only, a stretch at a time.
PassResult ColorCode(PaintContext& ctx);

// Recolours the line that starts at lineStart and is lineLength long without its line end.
// The keyword range takes in the line end; the delimiter range reaches two characters
// further, and CodingInProgress is cleared before each pair. Skipped (CodingInProgress left
// false) unless ChangedHighLight is set and no pass runs.
PassResult CodeLine(PaintContext& ctx, int64_t lineStart, int64_t lineLength);

// Recolours positions first to last-1, as after a paste. Because it holds CodingInProgress
// across its coders, with CodeOrder false it paints keywords only, with all lists empty no
// delimiters, and once a pair stops behind last the later pairs paint nothing.
PassResult CodePassage(PaintContext& ctx, int64_t first, int64_t last);

// The progress captions of a whole-document pass.
inline constexpr std::string_view kCodingDelimitersCaption = "Coding Bracers and Delimiters...";
inline constexpr std::string_view kKeywordsCodedCaption = " Keywords/Identifiers Coded...";
