#pragma once
// The tips of the day: the tips file "Kestrum.dat" beside the program holds one tip per line,
// in the order in which they are shown, and the tip window steps through them.
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

inline constexpr std::string_view kTipFileName = "Kestrum.dat";

// What the tip window shows in place of a tip when the tips file is not there.
std::string TipFileNotFoundText();

// Splits the file's text into tips, one per line. A line ends at LF, CR LF or a lone CR, so a
// tip never holds a line break; a last line without a line end counts, and the line end at
// the end of the file makes no empty tip behind it. Empty lines in between are tips as well.
std::vector<std::string> SplitTipLines(std::string_view text);

// One showing of the tip window. The tip number starts at 0 and every load or Next moves it
// on by one, back to 1 behind the last tip, so each showing starts at the file's first tip.
class TipOfTheDay {
  public:
    // Adds the tips of the file to the collection and moves to the next tip. False, with
    // nothing changed, when the name is empty or names no readable regular file.
    bool LoadTips(std::string_view fileName);
    // The same for text already in memory.
    void AddTips(std::string_view text);
    void DoNextTip();

    // The tip to show; nullopt while there are none, so that the window keeps its text.
    std::optional<std::string> CurrentTip() const;
    std::size_t CurrentNumber() const { return current_; }
    std::size_t Count() const { return tips_.size(); }

  private:
    std::vector<std::string> tips_;
    std::size_t current_ = 0;
};
