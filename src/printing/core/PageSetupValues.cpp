#include "printing/core/PageSetupValues.h"

#include "base/EditorSettings.h"
#include "base/SettingsStore.h"

#include <cmath>
#include <cstdlib>

bool AcceptMarginKey(std::string_view boxText, int keyAscii) {
    if (keyAscii == 8) return true;
    if (keyAscii >= '0' && keyAscii <= '9') return true;
    if (keyAscii == '.') return boxText.find('.') == std::string_view::npos;
    return false;
}

float MarginFromText(std::string_view text) {
    // The leading run of digits with at most one point, as the box's filter lets through;
    // pasted text may hold anything after it.
    size_t i = 0;
    while (i < text.size() && (text[i] == ' ' || text[i] == '\t')) ++i;
    std::string number;
    bool point = false, digit = false;
    for (; i < text.size(); ++i) {
        char c = text[i];
        if (c >= '0' && c <= '9') {
            digit = true;
        } else if (c == '.' && !point) {
            point = true;
        } else {
            break;
        }
        number += c;
    }
    if (!digit) return 0;
    float v = std::strtof(number.c_str(), nullptr);
    return std::isfinite(v) ? v : 0;
}

std::string MarginToText(float cm) {
    return settings_convert::FromSingle(cm);
}

void SavePageSetup(SettingsStore& store, std::string_view app, const PrintMargins& m,
                   bool blackAndWhite) {
    store.SaveSetting(app, kPrinterSection, "TopMargin", MarginToText(m.Top));
    store.SaveSetting(app, kPrinterSection, "BottomMargin", MarginToText(m.Bottom));
    store.SaveSetting(app, kPrinterSection, "LeftMargin", MarginToText(m.Left));
    store.SaveSetting(app, kPrinterSection, "RightMargin", MarginToText(m.Right));
    store.SaveSetting(app, kPrinterSection, kBlackAndWhiteKey,
                      settings_convert::FromBool(blackAndWhite));
}

bool LoadBlackAndWhite(SettingsStore& store, std::string_view app) {
    auto v = settings_convert::ToBool(
        store.GetSetting(app, kPrinterSection, kBlackAndWhiteKey, "False"));
    return v.value_or(false);
}
