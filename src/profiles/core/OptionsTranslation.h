#pragma once
// The transfer between the editor options dialog and the settings record, and the writer of
// the record into the settings store. The dialog's controls are mirrored by a plain value
// so that the rules live here, free of any window.
#include "base/EditorSettings.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

class SettingsStore;

using KeywordEntries = std::array<std::vector<std::string>, 3>;

// One row of delimiter boxes. colorIndex is the colour box's list index (0 "Comment",
// 1 "Delimiter 1", 2 "Delimiter 2"), -1 when nothing is selected.
struct DelimiterRow {
    std::string start, end;
    int colorIndex = 0;
    bool operator==(const DelimiterRow&) const = default;
};
using DelimiterRows = std::array<DelimiterRow, 8>;

// What the options dialog's controls hold.
struct OptionsDialogValues {
    KeywordEntries lists;
    std::array<int32_t, 6> keywordColors{};
    int32_t bgColor = 0, textColor = 0;
    bool wordWrap = false, autoComplete = false, autoCode = false, codeOrder = false;
    bool caseSensitive = false, autoBracers = false, backup = false, sysTray = false;
    bool hardTabs = false;
    std::string fontName;
    float fontSize = 0;
    bool bold = false, italic = false;
    std::string tabWidthText;
    DelimiterRows delimiters;
    bool operator==(const OptionsDialogValues&) const = default;
};

// The entries of a keyword string: split at the separator, each trimmed; blank entries are
// skipped and an empty one (two separators together) ends the list, as does text without a
// separator behind it.
std::vector<std::string> SplitKeywordList(std::string_view keywords);
// Each entry followed by the separator.
std::string JoinKeywordList(const std::vector<std::string>& entries);

// A delimiter end as its box shows it: CR LF as the two characters "\n".
std::string DelimiterEndToBox(std::string_view end);
// The box's text back: exactly "\n" becomes CR LF, anything else stays as typed.
std::string DelimiterEndFromBox(std::string_view box);

// The delimiter pairs from the rows. A row's colour is its selected class (1 to 3), or 0
// with no selection, or with requireStart also 0 when the row has no start.
std::array<DelimiterPair, 8> DelimitersFromRows(const DelimiterRows& rows, bool requireStart);
// The rows of the pairs: a pair with a start and a class of 1 to 3 selects that class; every
// other row keeps the first entry.
DelimiterRows RowsFromDelimiters(const std::array<DelimiterPair, 8>& pairs);

// Fills the dialog's values from the record and the stored tray switch.
void UpdateDisplayElements(const EditorSettings& s, bool sysTray, OptionsDialogValues& v);
// Moves the dialog's values into the record. A tab width that is empty or does not fit
// leaves TabWidth as it was.
void TranslateSettings(const OptionsDialogValues& v, EditorSettings& s);

// Writes the record and the tray switch to section "Settings" in the fixed key order.
// Throws what the store throws when it cannot write.
void SaveEditorSettings(SettingsStore& store, std::string_view app, const EditorSettings& s,
                        bool sysTray);
