#pragma once
// The values of the Page Setup dialog: margins in centimetres as typed, and the switch that
// prints every colour as black, stored in section "Printer Settings".
#include <string>
#include <string_view>

class SettingsStore;
struct PrintMargins;

inline constexpr std::string_view kPrinterSection = "Printer Settings";
inline constexpr std::string_view kBlackAndWhiteKey = "BlackAndWhite";

// Whether a margin box takes the typed character: digits and one ".", and backspace (8).
bool AcceptMarginKey(std::string_view boxText, int keyAscii);
// The number a margin box holds: its leading number, 0 when it starts with none ("." too).
float MarginFromText(std::string_view text);
// A margin as the box shows it: the number without blanks ("1.5", "2").
std::string MarginToText(float cm);

// Stores the four boxes' numbers in the order top, bottom, left, right, then the switch.
// Throws what the store throws when it cannot write.
void SavePageSetup(SettingsStore& store, std::string_view app, const PrintMargins& m,
                   bool blackAndWhite);
bool LoadBlackAndWhite(SettingsStore& store, std::string_view app);
