#include "transforms/core/HtmlFormat.h"

#include "base/MiscSubs.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::array<std::string_view, 10> kSelfClosing = {
    "br", "hr", "img", "meta", "applet", "p", "!--", "input", "!doctype", "area"};

// 1-based search from a 1-based start, 0 when not found (or when start is out of range).
int64_t InStr(std::string_view t, int64_t start, std::string_view what) {
    if (start < 1 || start > int64_t(t.size()) + 1) return 0;
    size_t p = t.find(what, size_t(start - 1));
    return p == std::string_view::npos ? 0 : int64_t(p) + 1;
}

std::string Lower(std::string_view s) {
    std::string out(s);
    for (char& c : out)
        if (c >= 'A' && c <= 'Z') c = char(c + 32);
    return out;
}

std::string WithoutCrLfAndTabs(std::string_view text, bool tabToSpace) {
    std::string out;
    out.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        char c = text[i];
        if (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n') {
            ++i;
            continue;
        }
        if (c == '\t') {
            if (tabToSpace) out += ' ';
            continue;
        }
        out += c;
    }
    return out;
}

} // namespace

std::string HTMLTrimBrackets(std::string_view text) {
    return ReplaceText(ReplaceText(ReplaceText(text, " >", ">"), "< ", "<"), "> <", "><");
}

std::string HTMLCompact(std::string_view text) {
    return HTMLTrimBrackets(WithoutCrLfAndTabs(text, true));
}

std::string HTMLLoose(std::string_view text) {
    return ReplaceText(HTMLCompact(text), "><", ">\r\n<");
}

std::optional<std::string> HTMLIndent(std::string_view text, size_t maxBytes) {
    std::optional<std::string> walked = HTMLIndentTags(WithoutCrLfAndTabs(text, false), maxBytes);
    if (!walked) return std::nullopt;
    return HTMLTrimBrackets(*walked);
}

HTMLTag HTMLNextTag(std::string_view text, int64_t position) {
    HTMLTag tag;
    int64_t s = InStr(text, position, "<");
    int64_t e = InStr(text, position, ">");
    if (s == 0 || e < s) return tag; // a failed cut leaves the record empty
    tag.text = std::string(text.substr(size_t(s - 1), size_t(e - s + 1)));
    tag.start = s;
    tag.end = e;
    return tag;
}

std::string HTMLTagName(std::string_view tag) {
    int64_t e = InStr(tag, 1, " ");
    if (tag.size() >= 4 && tag.substr(1, 3) == "!--")
        e = 5;
    else if (e == 0)
        e = InStr(tag, 1, ">");
    if (e < 2) return {}; // a negative length fails, and the name stays empty
    return std::string(tag.substr(std::min<size_t>(1, tag.size()), size_t(e - 2)));
}

std::optional<std::string> HTMLIndentTags(std::string_view t, size_t maxBytes) {
    const int64_t n = int64_t(t.size());
    std::string output;
    output.reserve(t.size() + t.size() / 4);
    // Text ahead of the first tag is kept together with that "<", which comes again with the
    // tag itself.
    if (t.empty() || t[0] != '<') {
        int64_t first = InStr(t, 1, "<");
        output.append(t.substr(0, size_t(first == 0 ? n : first)));
    }
    int64_t depth = 0, p = 0, q = 0;
    // The next "</" is kept between rounds, so that a text with few closing tags is not
    // searched to its end at every tag.
    int64_t nextClose = -1;
    auto append = [&](int64_t from, int64_t to) {
        // A negative depth fails the repeat of tabs, and the whole piece is skipped.
        if (depth < 0 || from < 1) return true;
        if (output.size() + 2 + size_t(depth) + size_t(to - from) > maxBytes) return false;
        output.append("\r\n");
        output.append(size_t(depth), '\t');
        output.append(t.substr(size_t(from - 1), size_t(to - from)));
        return true;
    };
    do {
        if (nextClose >= 0 && nextClose < p + 1) nextClose = -1;
        if (nextClose < 0) {
            nextClose = InStr(t, p + 1, "</");
            if (nextClose == 0) nextClose = n + 2; // none left: stays out of reach
        }
        const int64_t close = nextClose <= n ? nextClose : 0;
        const int64_t open = InStr(t, p + 1, "<");
        if (close > 0 && open == close) {
            p = close;
            q = InStr(t, p + 1, "<");
            if (q == 0) q = n + 1;
            --depth;
            if (!append(p, q)) return std::nullopt;
        } else {
            p = open;
            q = InStr(t, p + 1, "<");
            if (q == 0) q = n + 1;
            if (!append(p, q)) return std::nullopt;
            if (p > 0) {
                std::string name = Lower(HTMLTagName(HTMLNextTag(t, p).text));
                if (std::find(kSelfClosing.begin(), kSelfClosing.end(), name) == kSelfClosing.end())
                    ++depth;
            }
        }
    } while (p > 0);
    return output;
}
