#include "editor/core/PaintCommand.h"

#include "base/TextCodec.h"

#include <charconv>
#include <cstdio>

std::optional<PaintCommand> ParsePaintCommand(const std::vector<std::string>& args,
                                              std::string& error) {
    PaintCommand c;
    bool options = true, haveFile = false;
    auto fail = [&](std::string why) {
        error = std::move(why);
        return std::nullopt;
    };
    for (size_t i = 0; i < args.size(); ++i) {
        const std::string& a = args[i];
        auto values = [&](size_t count) { return args.size() - i - 1 >= count; };
        if (options && a == "--") {
            options = false;
        } else if (options && (a == "--help" || a == "-h")) {
            c.help = true;
        } else if (options && a == "--keywords") {
            if (!values(1)) return fail("--keywords needs a file name");
            c.keywordFile = args[++i];
        } else if (options && a == "--profile") {
            if (!values(1)) return fail("--profile needs a profile name or path");
            c.profile = args[++i];
        } else if (options && a == "--delimiter") {
            if (!values(3)) return fail("--delimiter needs OPEN CLOSE CLASS");
            if (c.delimiters.size() == 8) return fail("at most 8 delimiter pairs");
            const std::string& cls = args[i + 3];
            int value = -1;
            auto [end, ec] = std::from_chars(cls.data(), cls.data() + cls.size(), value);
            if (ec != std::errc() || end != cls.data() + cls.size() || value < 0 || value > 3)
                return fail("delimiter class must be 0 to 3, not \"" + cls + "\"");
            std::string close = args[i + 2] == "\\n" ? std::string("\r\n") : args[i + 2];
            c.delimiters.push_back({args[i + 1], close, value});
            i += 3;
        } else if (options && a == "--case-sensitive") {
            c.caseSensitive = true;
        } else if (options && a == "--delimiters-first") {
            c.delimitersFirst = true;
        } else if (options && a == "--format") {
            if (!values(1)) return fail("--format needs runs, html or none");
            const std::string& f = args[++i];
            if (f == "runs")
                c.format = PaintFormat::Runs;
            else if (f == "html")
                c.format = PaintFormat::Html;
            else if (f == "none")
                c.format = PaintFormat::None;
            else
                return fail("unknown format \"" + f + "\" (runs, html or none)");
        } else if (options && a.size() > 1 && a[0] == '-') {
            return fail("unknown option \"" + a + "\"");
        } else {
            if (haveFile) return fail("only one FILE, got \"" + c.file + "\" and \"" + a + "\"");
            c.file = a;
            haveFile = true;
        }
    }
    if (!haveFile && !c.help) return fail("no FILE given");
    return c;
}

EditorSettings PaintSettings(const PaintCommand& command,
                             const std::array<std::string, 3>& keywordLists) {
    EditorSettings s = EditorSettings::Defaults();
    s.Keywords = keywordLists;
    s.Delimiters = {};
    for (size_t i = 0; i < command.delimiters.size() && i < s.Delimiters.size(); ++i)
        s.Delimiters[i] = command.delimiters[i];
    s.CaseSensitive = command.caseSensitive;
    s.CodeOrder = !command.delimitersFirst;
    return s;
}

std::string FormatRuns(const SlotBuffer& slots) {
    std::string out;
    char line[64];
    slots.ForEachRun([&](int64_t start, int64_t length, ColorSlot slot) {
        int n = std::snprintf(line, sizeof line, "%lld %lld %d\n", static_cast<long long>(start),
                              static_cast<long long>(length), int(slot));
        out.append(line, size_t(n));
    });
    return out;
}

namespace {

void AppendEscaped(std::string& out, std::string_view text) {
    for (char c : text) {
        switch (c) {
        case '&':
            out += "&amp;";
            break;
        case '<':
            out += "&lt;";
            break;
        case '>':
            out += "&gt;";
            break;
        case '"':
            out += "&quot;";
            break;
        default:
            out += c;
        }
    }
}

// "#rrggbb" of a colour whose low byte is red.
std::string CssColour(int32_t colour) {
    char s[8];
    std::snprintf(s, sizeof s, "#%02x%02x%02x", colour & 0xFF, (colour >> 8) & 0xFF,
                  (colour >> 16) & 0xFF);
    return s;
}

} // namespace

std::string FormatHtml(std::string_view text, const SlotBuffer& slots, std::string_view title) {
    const EditorSettings colours = EditorSettings::Defaults();
    std::string out = "<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"";
    out += IsValidUtf8(text) ? "utf-8" : "windows-1252";
    out += "\">\n<title>";
    AppendEscaped(out, title);
    out += "</title>\n</head>\n<body style=\"background:#ffffff;color:#000000\">\n<pre>";
    int64_t at = 0;
    auto plain = [&](int64_t upTo) {
        if (upTo > at) AppendEscaped(out, text.substr(size_t(at), size_t(upTo - at)));
        at = std::max(at, upTo);
    };
    slots.ForEachRun([&](int64_t start, int64_t length, ColorSlot slot) {
        if (start >= int64_t(text.size())) return;
        plain(start);
        if (slot == ColorSlot::Text) return plain(start + length);
        out += "<span style=\"color:" +
               CssColour(colours.KeywordColor[size_t(KeywordColorIndex(slot))]) + "\">";
        plain(start + length);
        out += "</span>";
    });
    plain(int64_t(text.size()));
    out += "</pre>\n</body>\n</html>\n";
    return out;
}
