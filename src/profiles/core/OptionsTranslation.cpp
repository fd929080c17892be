#include "profiles/core/OptionsTranslation.h"

#include "base/SettingsStore.h"
#include "base/MiscSubs.h"

#include <algorithm>
#include <limits>

namespace sc = settings_convert;

std::vector<std::string> SplitKeywordList(std::string_view keywords) {
    std::vector<std::string> out;
    std::string work(keywords);
    const std::string_view sep(&kKeywordSeparator, 1);
    for (;;) {
        std::string token = NextToken(sep, work);
        if (token.empty()) break;
        std::string_view t = Trim(token);
        if (!t.empty()) out.emplace_back(t);
    }
    return out;
}

std::string JoinKeywordList(const std::vector<std::string>& entries) {
    std::string s;
    for (const auto& e : entries) {
        s += e;
        s += kKeywordSeparator;
    }
    return s;
}

std::string DelimiterEndToBox(std::string_view end) {
    return end == "\r\n" ? std::string("\\n") : std::string(end);
}

std::string DelimiterEndFromBox(std::string_view box) {
    return box == "\\n" ? std::string("\r\n") : std::string(box);
}

std::array<DelimiterPair, 8> DelimitersFromRows(const DelimiterRows& rows, bool requireStart) {
    std::array<DelimiterPair, 8> pairs;
    for (size_t i = 0; i < pairs.size(); ++i) {
        const DelimiterRow& r = rows[i];
        DelimiterPair& p = pairs[i];
        const bool selected = r.colorIndex >= 0 && r.colorIndex <= 2;
        p.DelimiterColor = (selected && !(requireStart && r.start.empty())) ? r.colorIndex + 1 : 0;
        p.DelimiterStart = r.start;
        p.DelimiterEnd = DelimiterEndFromBox(r.end);
    }
    return pairs;
}

DelimiterRows RowsFromDelimiters(const std::array<DelimiterPair, 8>& pairs) {
    DelimiterRows rows;
    for (size_t i = 0; i < pairs.size(); ++i) {
        const DelimiterPair& p = pairs[i];
        rows[i].start = p.DelimiterStart;
        rows[i].end = DelimiterEndToBox(p.DelimiterEnd);
        rows[i].colorIndex = 0;
        if (!p.DelimiterStart.empty() && p.DelimiterColor >= 1 && p.DelimiterColor <= 3)
            rows[i].colorIndex = p.DelimiterColor - 1;
    }
    return rows;
}

void UpdateDisplayElements(const EditorSettings& s, bool sysTray, OptionsDialogValues& v) {
    v.hardTabs = s.RealTabs;
    v.sysTray = sysTray;
    v.bgColor = s.BGColor;
    v.textColor = s.TextColor;
    v.fontName = s.EditorFont;
    v.fontSize = s.EditorSize;
    v.bold = s.EditorBold;
    v.italic = s.EditorItalic;
    v.tabWidthText = std::to_string(s.TabWidth);
    for (size_t i = 0; i < 3; ++i) v.lists[i] = SplitKeywordList(s.Keywords[i]);
    v.keywordColors = s.KeywordColor;
    v.wordWrap = s.WordWrap;
    v.autoCode = s.AutoCode;
    v.backup = s.Backup;
    v.codeOrder = s.CodeOrder;
    v.caseSensitive = s.CaseSensitive;
    v.autoComplete = s.AutoComplete;
    v.autoBracers = s.AutoBracers;
    v.delimiters = RowsFromDelimiters(s.Delimiters);
}

void TranslateSettings(const OptionsDialogValues& v, EditorSettings& s) {
    for (size_t i = 0; i < 3; ++i) s.Keywords[i] = JoinKeywordList(v.lists[i]);
    s.KeywordColor = v.keywordColors;
    s.WordWrap = v.wordWrap;
    s.AutoComplete = v.autoComplete;
    s.AutoCode = v.autoCode;
    s.CodeOrder = v.codeOrder;
    s.CaseSensitive = v.caseSensitive;
    s.AutoBracers = v.autoBracers;
    size_t count = v.lists[0].size() + v.lists[1].size() + v.lists[2].size();
    s.KeywordCount = int32_t(std::min<size_t>(count, std::numeric_limits<int32_t>::max()));
    s.EditorFont = v.fontName;
    s.EditorBold = v.bold;
    s.EditorItalic = v.italic;
    s.EditorSize = v.fontSize;
    s.Backup = v.backup;
    if (auto tw = sc::ToInteger(Trim(v.tabWidthText)); tw &&
                                                       *tw >= std::numeric_limits<int16_t>::min() &&
                                                       *tw <= std::numeric_limits<int16_t>::max())
        s.TabWidth = int16_t(*tw);
    s.BGColor = v.bgColor;
    s.TextColor = v.textColor;
    s.RealTabs = v.hardTabs;
    s.Delimiters = DelimitersFromRows(v.delimiters, false);
}

void SaveEditorSettings(SettingsStore& store, std::string_view app, const EditorSettings& s,
                        bool sysTray) {
    SettingsStore::Batch batch(store); // the dialog's fifty keys in one save
    auto put = [&](const std::string& key, std::string_view value) {
        store.SaveSetting(app, "Settings", key, value);
    };
    auto num = [](long long n) { return std::to_string(n); };
    for (int i = 0; i < 3; ++i) put("Keywords" + num(i), s.Keywords[i]);
    for (int i = 0; i < 6; ++i) put("KeywordColor" + num(i), num(s.KeywordColor[i]));
    put("WordWrap", sc::FromBool(s.WordWrap));
    put("AutoCode", sc::FromBool(s.AutoCode));
    put("CodeOrder", sc::FromBool(s.CodeOrder));
    put("AutoComplete", sc::FromBool(s.AutoComplete));
    put("TabWidth", num(s.TabWidth));
    put("TextColor", num(s.TextColor));
    put("BGColor", num(s.BGColor));
    put("AutoBracers", sc::FromBool(s.AutoBracers));
    put("RealTabs", sc::FromBool(s.RealTabs));
    put("SysTray", sysTray ? "1" : "0");
    for (int i = 0; i < 8; ++i) {
        put("DelimiterStart" + num(i), s.Delimiters[i].DelimiterStart);
        put("DelimiterEnd" + num(i), s.Delimiters[i].DelimiterEnd);
        put("DelimiterColor" + num(i), num(s.Delimiters[i].DelimiterColor));
    }
    put("Backup", sc::FromBool(s.Backup));
    put("KeywordCount", num(s.KeywordCount));
    put("EditorFont", s.EditorFont);
    put("EditorSize", sc::FromSingle(s.EditorSize));
    put("EditorBold", sc::FromBool(s.EditorBold));
    put("EditorItalic", sc::FromBool(s.EditorItalic));
    put("Case Sensitive", sc::FromBool(s.CaseSensitive));
    batch.Commit();
}
