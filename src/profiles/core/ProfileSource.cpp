#include "profiles/core/ProfileSource.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <optional>
#include <set>
#include <vector>

namespace {

constexpr std::array<std::string_view, 3> kKeywordSections = {"[keywords 1]", "[keywords 2]",
                                                              "[keywords 3]"};
constexpr std::string_view kDelimiterSection = "[delimiters]";
constexpr std::array<std::string_view, 3> kClasses = {"comment", "delimiter1", "delimiter2"};

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

std::string_view TrimBlanks(std::string_view s) {
    while (!s.empty() && IsBlank(s.front())) s.remove_prefix(1);
    while (!s.empty() && IsBlank(s.back())) s.remove_suffix(1);
    return s;
}

// Profile strings are 8-bit text in the system's code page; plain printable ASCII is the
// only text that reads the same everywhere.
bool IsPlainText(std::string_view s) {
    return std::ranges::all_of(s, [](char c) { return c >= 0x20 && c < 0x7F; });
}

std::string Upper(std::string_view s) {
    std::string u(s);
    for (char& c : u) c = char(std::toupper(static_cast<unsigned char>(c)));
    return u;
}

std::vector<std::string_view> SplitBlanks(std::string_view s) {
    std::vector<std::string_view> fields;
    size_t i = 0;
    while (i < s.size()) {
        while (i < s.size() && IsBlank(s[i])) ++i;
        size_t start = i;
        while (i < s.size() && !IsBlank(s[i])) ++i;
        if (i > start) fields.push_back(s.substr(start, i - start));
    }
    return fields;
}

std::optional<std::string> Unescape(std::string_view field, std::string& error) {
    std::string out;
    for (size_t i = 0; i < field.size(); ++i) {
        if (field[i] != '\\') {
            out += field[i];
            continue;
        }
        char next = i + 1 < field.size() ? field[i + 1] : '\0';
        switch (next) {
        case 'n':
            out += "\r\n";
            break;
        case 's':
            out += ' ';
            break;
        case 't':
            out += '\t';
            break;
        case '\\':
            out += '\\';
            break;
        default:
            error = "unknown escape in \"" + std::string(field) + "\" (use \\n, \\s, \\t or \\\\)";
            return std::nullopt;
        }
        ++i;
    }
    return out;
}

class Parser {
  public:
    explicit Parser(ProfileSource& out) : out_(out) {
        out_ = {};
        out_.settings = EditorSettings::Defaults();
        // Rows not in use carry no class, as the profile editor writes them.
        out_.settings.Delimiters = {};
    }

    std::string Line(std::string_view line) {
        if (auto section = SectionOf(line)) return Enter(*section);
        if (section_ == kHeader) return HeaderLine(line);
        line = TrimBlanks(line);
        if (line.empty()) return {};
        if (!IsPlainText(line)) return "only printable ASCII text may stand in a profile";
        return section_ == kDelimiters ? DelimiterLine(line) : KeywordLine(line);
    }

    std::string Finish() {
        if (out_.name.empty()) return "the source names no profile (\"name:\" is missing)";
        if (!caseSensitive_ || !codeOrder_)
            return "\"case-sensitive:\" and \"code-order:\" must both be given";
        out_.settings.CaseSensitive = *caseSensitive_;
        out_.settings.CodeOrder = *codeOrder_;
        int32_t count = 0;
        for (int i = 0; i < 3; ++i) {
            for (const auto& e : lists_[i]) out_.settings.Keywords[i] += e + kKeywordSeparator;
            count += int32_t(lists_[i].size());
        }
        out_.settings.KeywordCount = count;
        return {};
    }

  private:
    static constexpr int kHeader = -1;
    static constexpr int kDelimiters = 3; // keyword sections are 0 to 2

    static std::optional<int> SectionOf(std::string_view line) {
        for (int i = 0; i < 3; ++i)
            if (line.starts_with(kKeywordSections[i])) return i;
        if (line.starts_with(kDelimiterSection)) return kDelimiters;
        return std::nullopt;
    }

    std::string Enter(int section) {
        if (seen_.contains(section)) return "a section appears twice";
        seen_.insert(section);
        section_ = section;
        return {};
    }

    std::string HeaderLine(std::string_view line) {
        line = TrimBlanks(line);
        if (line.empty() || line.front() == '#') return {};
        auto colon = line.find(':');
        if (colon == std::string_view::npos) return "expected \"key: value\" or a section";
        std::string_view key = TrimBlanks(line.substr(0, colon));
        std::string_view value = TrimBlanks(line.substr(colon + 1));
        if (key == "name") {
            if (!out_.name.empty()) return "the name is given twice";
            if (value.empty() || value == "." || value == ".." ||
                value.find('/') != std::string_view::npos || !IsPlainText(value))
                return "the name must be plain text usable as a file name";
            out_.name = value;
            return {};
        }
        std::optional<bool>* target = key == "case-sensitive" ? &caseSensitive_
                                      : key == "code-order"   ? &codeOrder_
                                                              : nullptr;
        if (!target) return "unknown key \"" + std::string(key) + "\"";
        if (target->has_value()) return "\"" + std::string(key) + "\" is given twice";
        if (value != "yes" && value != "no")
            return "\"" + std::string(key) + "\" takes \"yes\" or \"no\"";
        *target = value == "yes";
        return {};
    }

    std::string KeywordLine(std::string_view entry) {
        if (!caseSensitive_) return "\"case-sensitive:\" must come before the keyword lists";
        // The painter finds keywords by this comparison, so a second copy would only paint twice.
        std::string key = *caseSensitive_ ? std::string(entry) : Upper(entry);
        if (!entries_.insert(key).second)
            return "\"" + std::string(entry) + "\" is already in a keyword list";
        lists_[section_].emplace_back(entry);
        return {};
    }

    std::string DelimiterLine(std::string_view line) {
        auto fields = SplitBlanks(line);
        if (fields.size() != 3) return "a delimiter line is: class opener closer";
        auto cls = std::ranges::find(kClasses, fields[0]);
        if (cls == kClasses.end())
            return "unknown class \"" + std::string(fields[0]) +
                   "\" (comment, delimiter1 or delimiter2)";
        if (pairs_ == 8) return "a profile holds at most 8 delimiter pairs";
        std::string error;
        auto opener = Unescape(fields[1], error);
        auto closer = opener ? Unescape(fields[2], error) : std::nullopt;
        if (!closer) return error;
        out_.settings.Delimiters[pairs_++] = {*opener, *closer,
                                              int32_t(cls - kClasses.begin()) + 1};
        return {};
    }

    ProfileSource& out_;
    int section_ = kHeader;
    std::set<int> seen_;
    std::optional<bool> caseSensitive_, codeOrder_;
    std::array<std::vector<std::string>, 3> lists_;
    std::set<std::string> entries_;
    int pairs_ = 0;
};

} // namespace

std::string ParseProfileSource(std::string_view text, ProfileSource& out) {
    Parser p(out);
    int number = 0;
    while (!text.empty()) {
        auto nl = text.find('\n');
        std::string_view line = text.substr(0, nl);
        text = nl == std::string_view::npos ? std::string_view{} : text.substr(nl + 1);
        if (line.ends_with('\r')) line.remove_suffix(1);
        ++number;
        if (auto error = p.Line(line); !error.empty())
            return "line " + std::to_string(number) + ": " + error;
    }
    if (auto error = p.Finish(); !error.empty()) return error;
    return {};
}
