#pragma once
// Commands that work line by line on the lines a selection touches: indent, unindent, the
// three trims and the line-comment form of Comment Block. They compute edits over the text
// (with CR LF line ends); the caller applies them as one undo step.
#include "base/TextEdit.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

struct LineCommandResult {
    std::vector<TextEdit> edits; // ascending, not overlapping
    // The selection afterwards, in the edited text: from the start of the first line to the
    // end of the last one, without its line end.
    int64_t selStart = 0;
    int64_t selLength = 0;
};

enum class LineStep { Indent, Unindent, TrimTrailing, TrimPreceding, Trim, Prefix };

// unit: the indent unit for Indent/Unindent, the text to put in front for Prefix.
LineCommandResult LineCommand(std::string_view text, int64_t selStart, int64_t selLength,
                              LineStep step, std::string_view unit);

// The indent unit: a tab, or tabWidth spaces.
std::string IndentUnit(bool realTabs, int tabWidth);
