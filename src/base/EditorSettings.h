#pragma once
// The record of editor and syntax settings. The global active record, the selected profile
// and every document's private copy are all of this type, and a profile file is this record
// written field after field.
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

class SettingsStore;

// Colours are 32-bit longs: an RGB value with red in the low byte, or a system colour code.
constexpr int32_t RGB(int r, int g, int b) { return int32_t(r | (g << 8) | (b << 16)); }
constexpr int32_t kSysColorWindow = -2147483643;     // &H80000005, window background
constexpr int32_t kSysColorWindowText = -2147483640; // &H80000008, window text

// Keyword lists hold each entry followed by this character, the last one too.
constexpr char kKeywordSeparator = '\xFF';

struct DelimiterPair {
    std::string DelimiterStart; // empty: the pair is not in use
    std::string DelimiterEnd;   // a line end is stored as CR LF
    int32_t DelimiterColor = 0; // 1 "Comment", 2 "Delimiter 1", 3 "Delimiter 2"; 0 none chosen

    bool operator==(const DelimiterPair&) const = default;
};

struct EditorSettings {
    std::array<std::string, 3> Keywords;
    std::array<int32_t, 6> KeywordColor{};
    int32_t KeywordCount = 0;
    bool WordWrap = false;
    std::array<DelimiterPair, 8> Delimiters;
    std::string reserved; // kept for the file format only
    bool AutoCode = false;
    bool Backup = false;
    std::string EditorFont;
    float EditorSize = 0;
    std::string CompilerString;
    bool CodeOrder = false;
    bool CaseSensitive = false;
    bool AutoComplete = false;
    int16_t TabWidth = 0;
    bool EditorBold = false;
    bool EditorItalic = false;
    int32_t BGColor = 0;
    int32_t TextColor = 0;
    bool AutoBracers = false;
    bool RealTabs = false;

    bool operator==(const EditorSettings&) const = default;

    // The values that an empty store gives.
    static EditorSettings Defaults();
};

// Print margins in centimetres (section "Printer Settings").
struct PrintMargins {
    float Top = 1.5f, Bottom = 1.5f, Left = 1.5f, Right = 1.5f;
};

// Reads every editor key of section "Settings" into the record, in the order of the store's
// table. A key that is missing gives its default; a stored value that does not convert
// leaves the field as it was.
void LoadEditorSettings(SettingsStore& store, std::string_view app, EditorSettings& s);
void LoadPrintMargins(SettingsStore& store, std::string_view app, PrintMargins& m);
