#include "base/EditorSettings.h"

#include "base/SettingsStore.h"

#include <limits>

namespace sc = settings_convert;

namespace {
// Beyond these a hand-edited value makes the editor unusable: unreadable or giant text, a
// Tab key that inserts pages of blanks, margins larger than any sheet.
constexpr float kMinFontSize = 1, kMaxFontSize = 400;
constexpr int16_t kMaxTabWidth = 256;
constexpr float kMaxMargin = 100;
} // namespace

EditorSettings EditorSettings::Defaults() {
    EditorSettings s;
    s.KeywordColor = {RGB(0, 0, 128), RGB(0, 128, 128), RGB(128, 128, 128),
                      RGB(0, 128, 0), RGB(0, 128, 128), RGB(128, 0, 128)};
    for (auto& d : s.Delimiters) d.DelimiterColor = kSysColorWindowText;
    s.AutoCode = true;
    s.CodeOrder = true;
    s.AutoComplete = true;
    s.EditorFont = "Courier New";
    s.EditorSize = 10;
    s.BGColor = kSysColorWindow;
    s.TextColor = kSysColorWindowText;
    s.TabWidth = 4;
    s.AutoBracers = true;
    return s;
}

namespace {
struct Reader {
    SettingsStore& store;
    std::string_view app;
    std::string_view section;

    std::string Raw(std::string_view key, std::string_view def) {
        return store.GetSetting(app, section, key, def);
    }
    void Text(std::string_view key, std::string_view def, std::string& out) { out = Raw(key, def); }
    void Bool(std::string_view key, bool def, bool& out) {
        if (auto v = sc::ToBool(Raw(key, sc::FromBool(def)))) out = *v;
    }
    template <typename Int> void Integer(std::string_view key, long long def, Int& out) {
        auto v = sc::ToInteger(Raw(key, std::to_string(def)));
        // An overflowing value fails like any other bad value: the field keeps what it had.
        if (v && *v >= std::numeric_limits<Int>::min() && *v <= std::numeric_limits<Int>::max())
            out = static_cast<Int>(*v);
    }
    // A number held to the range in which it means something.
    template <typename Num> void Ranged(std::string_view key, Num def, Num lo, Num hi, Num& out) {
        if (auto v = sc::ToDoubleIn(Raw(key, std::to_string(def)), double(lo), double(hi)))
            out = static_cast<Num>(*v);
    }
};
} // namespace

void LoadEditorSettings(SettingsStore& store, std::string_view app, EditorSettings& s) {
    const EditorSettings d = EditorSettings::Defaults();
    Reader r{store, app, "Settings"};
    for (int i = 0; i < 3; ++i) r.Text("Keywords" + std::to_string(i), "", s.Keywords[i]);
    r.Integer("KeywordCount", 0, s.KeywordCount);
    for (int i = 0; i < 6; ++i)
        r.Integer("KeywordColor" + std::to_string(i), d.KeywordColor[i], s.KeywordColor[i]);
    r.Bool("Wordwrap", false, s.WordWrap);
    for (int i = 0; i < 8; ++i) {
        std::string n = std::to_string(i);
        r.Text("DelimiterStart" + n, "", s.Delimiters[i].DelimiterStart);
        r.Text("DelimiterEnd" + n, "", s.Delimiters[i].DelimiterEnd);
        r.Integer("DelimiterColor" + n, kSysColorWindowText, s.Delimiters[i].DelimiterColor);
    }
    r.Bool("AutoCode", true, s.AutoCode);
    r.Bool("CodeOrder", true, s.CodeOrder);
    r.Bool("Backup", false, s.Backup);
    r.Bool("AutoComplete", true, s.AutoComplete);
    r.Text("EditorFont", d.EditorFont, s.EditorFont);
    r.Ranged<float>("EditorSize", 10, kMinFontSize, kMaxFontSize, s.EditorSize);
    r.Bool("EditorBold", false, s.EditorBold);
    r.Bool("EditorItalic", false, s.EditorItalic);
    r.Integer("BGColor", kSysColorWindow, s.BGColor);
    r.Integer("TextColor", kSysColorWindowText, s.TextColor);
    r.Text("CompilerString", "", s.CompilerString);
    r.Bool("Case Sensitive", false, s.CaseSensitive);
    r.Ranged<int16_t>("TabWidth", 4, 0, kMaxTabWidth, s.TabWidth);
    r.Bool("AutoBracers", true, s.AutoBracers);
    r.Bool("RealTabs", false, s.RealTabs);
}

void LoadPrintMargins(SettingsStore& store, std::string_view app, PrintMargins& m) {
    Reader r{store, app, "Printer Settings"};
    r.Ranged<float>("TopMargin", 1.5f, 0, kMaxMargin, m.Top);
    r.Ranged<float>("BottomMargin", 1.5f, 0, kMaxMargin, m.Bottom);
    r.Ranged<float>("LeftMargin", 1.5f, 0, kMaxMargin, m.Left);
    r.Ranged<float>("RightMargin", 1.5f, 0, kMaxMargin, m.Right);
}
