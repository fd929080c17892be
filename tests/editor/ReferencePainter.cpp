#include "editor/ReferencePainter.h"

#include <cctype>

namespace {

// InStr(start, s, find): 1-based position or 0. start beyond the text finds nothing; an
// empty find is found at start.
int64_t InStr(int64_t start, const std::string& s, const std::string& find, bool ignoreCase) {
    if (start > int64_t(s.size())) return 0;
    if (find.empty()) return start;
    for (int64_t i = start - 1; i + int64_t(find.size()) <= int64_t(s.size()); ++i) {
        bool same = true;
        for (size_t k = 0; k < find.size() && same; ++k) {
            unsigned char a = s[size_t(i) + k], b = find[k];
            if (ignoreCase && a < 128 && b < 128) a = std::tolower(a), b = std::tolower(b);
            same = a == b;
        }
        if (same) return i + 1;
    }
    return 0;
}

std::string TrimBlanks(std::string s) {
    while (!s.empty() && s.front() == ' ') s.erase(0, 1);
    while (!s.empty() && s.back() == ' ') s.pop_back();
    return s;
}

// The text's own string routines as the coder uses them.
std::string Token(std::string& work) {
    auto p = work.find('\xFF');
    if (p == std::string::npos) return "";
    std::string t = work.substr(0, p);
    work.erase(0, p + 1);
    return t;
}

void Colour(RefDocument& d, int64_t selStart, int64_t selLength, int slot) {
    for (int64_t i = selStart; i < selStart + selLength; ++i)
        if (i >= 0 && i < int64_t(d.text.size())) d.slots[size_t(i)] = slot;
}

// Asc(Mid(s, pos, 1)): fails (false) when there is no character there.
bool CodeAt(const std::string& s, int64_t pos, int& code) {
    if (pos < 1 || pos > int64_t(s.size())) return false;
    code = static_cast<unsigned char>(s[size_t(pos - 1)]);
    return true;
}

// The three keyword lists in order, into slots 1 to 3.
void RefKeywordLists(RefDocument& d, int64_t first, int64_t last, bool showProgress) {
    for (int i = 0; i < 3; ++i)
        RefKeywordCoder(d, first, last, d.settings.Keywords[i], i + 1, showProgress);
}

} // namespace

void RefKeywordCoder(RefDocument& d, int64_t first, int64_t last, const std::string& list, int slot,
                     bool showProgress) {
    std::string work = list;
    if (work.empty()) return;
    d.flags.CodingInProgress = true;
    std::string s;
    if (first < int64_t(d.text.size()) && last > first)
        s = d.text.substr(size_t(first), size_t(last - first));
    int counter = 0;
    do {
        std::string token = Token(work);
        ++counter;
        if (showProgress)
            d.captions.push_back(std::to_string(counter) + " Keywords/Identifiers Coded...");
        token = TrimBlanks(token);
        if (token.empty()) break;
        int64_t len = int64_t(token.size()), p = 1;
        for (;;) {
            int64_t f = InStr(p, s, token, !d.settings.CaseSensitive);
            if (f == 0) break;
            // A failing test (no character there) skips to the statement that colours.
            int after = 0, before = 0;
            bool colour = true;
            if (CodeAt(s, f + len, after) && CodeAt(s, f - 1, before))
                colour = after < 65 && before < 65;
            if (colour) Colour(d, first + f - 1, len, slot);
            p = f + len + 1;
        }
    } while (!TrimBlanks(work).empty());
    d.flags.CodingInProgress = false;
    d.flags.ChangedHighLight = false;
}

void RefCodeDelimiters(RefDocument& d, int64_t first, int64_t last, const std::string& opener,
                       std::string closer, int32_t& colourClass) {
    if (colourClass > 3 || colourClass < 1) colourClass = 1;
    if (closer == "\r\n") closer = "\n";
    if (d.flags.CodingInProgress) return;
    int64_t p = first + 1;
    d.flags.CodingInProgress = true;
    const std::string& t = d.text;
    for (;;) {
        p = InStr(p, t, opener, false);
        if (p == 0) break;
        int64_t q = InStr(p + 1, t, closer, false);
        if (q == 0) break;
        Colour(d, p - 1, (q - p) + int64_t(closer.size()), colourClass + 3);
        if (q > last + 1) return;
        p = q + 1;
    }
    d.flags.CodingInProgress = false;
    d.flags.ChangedHighLight = false;
}

void RefColorCode(RefDocument& d) {
    if (d.flags.CodingInProgress || !d.flags.ChangedHighLight) return;
    int64_t n = int64_t(d.text.size());
    Colour(d, 0, n, 0);
    auto delimiters = [&] {
        d.captions.push_back("Coding Bracers and Delimiters...");
        for (auto& p : d.settings.Delimiters)
            if (!p.DelimiterStart.empty() && !p.DelimiterEnd.empty())
                RefCodeDelimiters(d, 0, n, p.DelimiterStart, p.DelimiterEnd, p.DelimiterColor);
    };
    auto keywords = [&] { RefKeywordLists(d, 0, n, true); };
    if (!d.settings.CodeOrder)
        delimiters(), keywords();
    else
        keywords(), delimiters();
    d.flags.ChangedHighLight = false;
    d.flags.CodingInProgress = false;
}

void RefCodeLine(RefDocument& d, int64_t a, int64_t lineLength) {
    if (!d.flags.CodingInProgress && d.flags.ChangedHighLight) {
        int64_t n = lineLength + 2;
        Colour(d, a, n, 0);
        auto keywords = [&] { RefKeywordLists(d, a, a + n, false); };
        auto delimiters = [&] {
            for (auto& p : d.settings.Delimiters)
                if (!p.DelimiterStart.empty()) {
                    d.flags.CodingInProgress = false;
                    RefCodeDelimiters(d, a, a + 2 + n, p.DelimiterStart, p.DelimiterEnd,
                                      p.DelimiterColor);
                }
        };
        if (d.settings.CodeOrder)
            keywords(), delimiters();
        else
            delimiters(), keywords();
        d.flags.CodingInProgress = false;
        d.flags.ChangedHighLight = false;
    }
    d.flags.CodingInProgress = false;
}

void RefCodePassage(RefDocument& d, int64_t first, int64_t last) {
    if (first == last) {
        d.flags.CodingInProgress = false;
        return;
    }
    if (d.flags.CodingInProgress || !d.flags.ChangedHighLight) return;
    d.flags.CodingInProgress = true;
    Colour(d, first, last - first, 0);
    auto keywords = [&] { RefKeywordLists(d, first, last, false); };
    auto delimiters = [&] {
        for (auto& p : d.settings.Delimiters)
            if (!p.DelimiterStart.empty() && !p.DelimiterEnd.empty())
                RefCodeDelimiters(d, first, last, p.DelimiterStart, p.DelimiterEnd,
                                  p.DelimiterColor);
    };
    if (d.settings.CodeOrder)
        keywords(), delimiters();
    else
        delimiters(), keywords();
    d.flags.ChangedHighLight = false;
    d.flags.CodingInProgress = false;
}
