#include "app/core/TipFile.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <utility>

std::string TipFileNotFoundText() {
    return "That the " + std::string(kTipFileName) + " file was not found? ";
}

std::vector<std::string> SplitTipLines(std::string_view text) {
    std::vector<std::string> lines;
    std::size_t start = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\n' && text[i] != '\r') continue;
        lines.emplace_back(text.substr(start, i - start));
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
        start = i + 1;
    }
    if (start < text.size()) lines.emplace_back(text.substr(start));
    return lines;
}

bool TipOfTheDay::LoadTips(std::string_view fileName) {
    if (fileName.empty()) return false;
    const std::filesystem::path path{std::string(fileName)};
    std::error_code ec;
    if (!std::filesystem::is_regular_file(path, ec)) return false;
    std::ifstream in(path, std::ios::binary);
    if (!in) return false;
    std::string text{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    if (in.bad()) return false;
    AddTips(text);
    return true;
}

void TipOfTheDay::AddTips(std::string_view text) {
    for (auto& tip : SplitTipLines(text)) tips_.push_back(std::move(tip));
    DoNextTip();
}

void TipOfTheDay::DoNextTip() {
    ++current_;
    if (current_ > tips_.size()) current_ = 1;
}

std::optional<std::string> TipOfTheDay::CurrentTip() const {
    if (tips_.empty() || current_ == 0) return std::nullopt;
    return tips_[current_ - 1];
}
