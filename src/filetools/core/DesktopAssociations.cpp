#include "filetools/core/DesktopAssociations.h"

#include <algorithm>

namespace {

constexpr std::string_view kDefaultGroup = "[Default Applications]";
constexpr std::string_view kAddedGroup = "[Added Associations]";

std::string Lower(std::string_view s) {
    std::string out(s);
    for (char& c : out)
        if (c >= 'A' && c <= 'Z') c = char(c - 'A' + 'a');
    return out;
}

std::string_view Trim(std::string_view s) {
    while (!s.empty() && (s.front() == ' ' || s.front() == '\t')) s.remove_prefix(1);
    while (!s.empty() && (s.back() == ' ' || s.back() == '\t' || s.back() == '\r'))
        s.remove_suffix(1);
    return s;
}

std::string WithoutAccessKey(std::string_view text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '&') {
            if (i + 1 < text.size() && text[i + 1] == '&') out += text[++i];
            continue;
        }
        out += text[i];
    }
    return out;
}

// A shown name as a menu text again: each '&' doubled, so that it is no access key.
std::string AsMenuText(std::string_view shown) {
    std::string out;
    for (char c : shown) {
        out += c;
        if (c == '&') out += '&';
    }
    return out;
}

// A string value of a key file: backslash, line breaks and tabs written as escapes.
std::string EscapeValue(std::string_view s) {
    std::string out;
    for (char c : s) {
        switch (c) {
        case '\\': out += "\\\\"; break;
        case '\n': out += "\\n"; break;
        case '\r': out += "\\r"; break;
        case '\t': out += "\\t"; break;
        default: out += c;
        }
    }
    return out;
}

std::string UnescapeValue(std::string_view s) {
    std::string out;
    for (std::size_t i = 0; i < s.size(); ++i) {
        if (s[i] != '\\' || i + 1 == s.size()) {
            out += s[i];
            continue;
        }
        char n = s[++i];
        out += n == 'n' ? '\n' : n == 'r' ? '\r' : n == 't' ? '\t' : n == 's' ? ' ' : n;
    }
    return out;
}

std::string XmlEscape(std::string_view s) {
    std::string out;
    for (char c : s) {
        switch (c) {
        case '&': out += "&amp;"; break;
        case '<': out += "&lt;"; break;
        case '>': out += "&gt;"; break;
        case '"': out += "&quot;"; break;
        default: out += c;
        }
    }
    return out;
}

bool IsUtf8(std::string_view s) {
    const std::size_t n = s.size();
    for (std::size_t i = 0; i < n;) {
        const auto c = static_cast<unsigned char>(s[i]);
        std::size_t extra;
        if (c < 0x80) extra = 0;
        else if (c >= 0xC2 && c <= 0xDF) extra = 1;
        else if ((c & 0xF0) == 0xE0) extra = 2;
        else if (c >= 0xF0 && c <= 0xF4) extra = 3;
        else return false;
        if (extra > n - i - 1) return false;
        for (std::size_t k = 1; k <= extra; ++k)
            if ((static_cast<unsigned char>(s[i + k]) & 0xC0) != 0x80) return false;
        i += extra + 1;
    }
    return true;
}

std::vector<std::string> SplitLines(std::string_view text) {
    std::vector<std::string> lines;
    std::size_t start = 0;
    while (start < text.size()) {
        std::size_t end = text.find('\n', start);
        if (end == std::string_view::npos) end = text.size();
        std::string_view line = text.substr(start, end - start);
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        lines.emplace_back(line);
        start = end + 1;
    }
    return lines;
}

bool IsGroupHeader(std::string_view line) {
    std::string_view t = Trim(line);
    return t.size() >= 2 && t.front() == '[' && t.back() == ']';
}

// The key of a "key=value" line, or empty for any other line.
std::string_view KeyOf(std::string_view line) {
    std::string_view t = Trim(line);
    if (t.empty() || t.front() == '#' || t.front() == '[') return {};
    std::size_t eq = t.find('=');
    if (eq == std::string_view::npos) return {};
    return Trim(t.substr(0, eq));
}

std::string_view ValueOf(std::string_view line) {
    std::size_t eq = line.find('=');
    return eq == std::string_view::npos ? std::string_view{} : Trim(line.substr(eq + 1));
}

std::vector<std::string> SplitList(std::string_view value) {
    std::vector<std::string> items;
    std::size_t start = 0;
    while (start <= value.size()) {
        std::size_t end = value.find(';', start);
        if (end == std::string_view::npos) end = value.size();
        std::string_view item = Trim(value.substr(start, end - start));
        if (!item.empty()) items.emplace_back(item);
        start = end + 1;
    }
    return items;
}

std::string JoinList(const std::vector<std::string>& items) {
    std::string out;
    for (const auto& i : items) out += i + ";";
    return out;
}

// The groups of a key file in order, each with its lines.
std::vector<std::pair<std::string, std::vector<std::string>>>
GroupsOf(std::string_view text) {
    std::vector<std::pair<std::string, std::vector<std::string>>> groups;
    for (auto& line : SplitLines(text)) {
        if (IsGroupHeader(line))
            groups.push_back({std::string(Trim(line)), {}});
        else if (!groups.empty())
            groups.back().second.push_back(line);
    }
    return groups;
}

} // namespace

bool IsAssociableExtension(std::string_view extension) {
    if (extension.empty() || extension.size() > 64) return false;
    if (extension.front() == '.' || extension.back() == '.') return false;
    for (char c : extension) {
        bool ok = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
                  c == '_' || c == '-' || c == '+' || c == '.';
        if (!ok) return false;
    }
    return true;
}

std::string OwnMimeType(std::string_view extension) {
    return "text/x-kestrum-" + Lower(extension);
}

std::string MimePackageFileName(std::string_view extension) {
    return "kestrum-" + Lower(extension) + ".xml";
}

std::string MimePackageXml(std::string_view mimeType, std::string_view extension,
                           std::string_view comment) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<mime-info xmlns=\"http://www.freedesktop.org/standards/shared-mime-info\">\n"
           "  <mime-type type=\"" + XmlEscape(mimeType) + "\">\n"
           "    <comment>" + XmlEscape(comment) + "</comment>\n"
           "    <sub-class-of type=\"text/plain\"/>\n"
           "    <glob pattern=\"*." + XmlEscape(Lower(extension)) + "\"/>\n"
           "  </mime-type>\n"
           "</mime-info>\n";
}

std::string QuoteExecArgument(std::string_view argument) {
    constexpr std::string_view reserved = " \t\n\"'\\><~|&;$*?#()`";
    std::string arg;
    for (char c : argument) {
        arg += c;
        if (c == '%') arg += '%';
    }
    if (!arg.empty() && arg.find_first_of(reserved) == std::string::npos) return arg;
    std::string out = "\"";
    for (char c : arg) {
        if (c == '"' || c == '`' || c == '$' || c == '\\') out += '\\';
        out += c;
    }
    return out + "\"";
}

std::string DesktopEntryText(const DesktopEntryFields& f) {
    std::string out = "[Desktop Entry]\n"
                      "Type=Application\n"
                      "Name=" + EscapeValue(WithoutAccessKey(f.name)) + "\n";
    if (!f.comment.empty()) out += "Comment=" + EscapeValue(f.comment) + "\n";
    out += "Exec=" + EscapeValue(f.exec) + "\n";
    if (!f.icon.empty()) out += "Icon=" + EscapeValue(f.icon) + "\n";
    out += "Terminal=false\nNoDisplay=true\n";
    if (!f.mimeTypes.empty()) out += "MimeType=" + JoinList(f.mimeTypes) + "\n";
    if (!f.verbs.empty()) {
        std::vector<std::string> names;
        for (const auto& v : f.verbs) names.push_back(v.name);
        out += "Actions=" + JoinList(names) + "\n";
    }
    for (const auto& v : f.verbs)
        out += "\n[Desktop Action " + v.name + "]\nName=" + EscapeValue(WithoutAccessKey(v.text)) +
               "\nExec=" + EscapeValue(v.exec) + "\n";
    return out;
}

std::string DesktopEntryValue(std::string_view text, std::string_view key) {
    for (const auto& [name, lines] : GroupsOf(text)) {
        if (name != "[Desktop Entry]") continue;
        for (const auto& line : lines)
            if (KeyOf(line) == key) return UnescapeValue(ValueOf(line));
    }
    return {};
}

std::vector<std::string> MimeTypesOfDesktopEntry(std::string_view text) {
    return SplitList(DesktopEntryValue(text, "MimeType"));
}

std::vector<DesktopVerb> VerbsOfDesktopEntry(std::string_view text) {
    std::vector<DesktopVerb> verbs;
    constexpr std::string_view prefix = "[Desktop Action ";
    for (const auto& [name, lines] : GroupsOf(text)) {
        if (name.rfind(prefix, 0) != 0) continue;
        DesktopVerb v;
        v.name = name.substr(prefix.size(), name.size() - prefix.size() - 1);
        for (const auto& line : lines) {
            if (KeyOf(line) == "Name") v.text = AsMenuText(UnescapeValue(ValueOf(line)));
            if (KeyOf(line) == "Exec") v.exec = UnescapeValue(ValueOf(line));
        }
        if (!v.name.empty()) verbs.push_back(std::move(v));
    }
    return verbs;
}

void AddMissing(std::vector<std::string>& into, const std::vector<std::string>& add) {
    for (const auto& item : add)
        if (std::find(into.begin(), into.end(), item) == into.end()) into.push_back(item);
}

MimeAppsResult MergeMimeApps(std::string_view existing, const std::vector<std::string>& mimeTypes,
                             std::string_view desktopId) {
    MimeAppsResult r;
    if (existing.find('\0') != std::string_view::npos || !IsUtf8(existing)) {
        r.error = "The file is not a text file of associations; it was left as it is.";
        return r;
    }
    const std::string eol = existing.find("\r\n") != std::string_view::npos ? "\r\n" : "\n";
    std::vector<std::string> lines = SplitLines(existing);
    const std::string id(desktopId);

    // Rewrites the matching keys of every group with that name, then adds the keys it still
    // lacks behind the last line of the first such group (or in a new group at the end).
    auto apply = [&](std::string_view group, auto&& newValue) {
        std::vector<bool> seen(mimeTypes.size(), false);
        std::size_t insertAt = std::string::npos;
        bool inGroup = false, inFirst = false;
        for (std::size_t i = 0; i < lines.size(); ++i) {
            if (IsGroupHeader(lines[i])) {
                inGroup = Trim(lines[i]) == group;
                inFirst = inGroup && insertAt == std::string::npos;
                if (inFirst) insertAt = i + 1;
                continue;
            }
            if (!inGroup) continue;
            if (inFirst && !Trim(lines[i]).empty()) insertAt = i + 1;
            const std::string key(KeyOf(lines[i]));
            for (std::size_t m = 0; m < mimeTypes.size(); ++m) {
                if (key != mimeTypes[m]) continue;
                std::string value = newValue(ValueOf(lines[i]));
                lines[i] = mimeTypes[m] + "=" + value;
                seen[m] = true;
                break;
            }
        }
        std::vector<std::string> missing;
        for (std::size_t m = 0; m < mimeTypes.size(); ++m)
            if (!seen[m]) missing.push_back(mimeTypes[m] + "=" + newValue(std::string_view{}));
        if (missing.empty()) return;
        if (insertAt == std::string::npos) {
            if (!lines.empty() && !Trim(lines.back()).empty()) lines.emplace_back();
            lines.emplace_back(group);
            insertAt = lines.size();
        }
        lines.insert(lines.begin() + std::ptrdiff_t(insertAt), missing.begin(), missing.end());
    };

    apply(kDefaultGroup, [&](std::string_view) { return id; });
    apply(kAddedGroup, [&](std::string_view old) {
        std::vector<std::string> items{id};
        AddMissing(items, SplitList(old));
        return JoinList(items);
    });

    for (const auto& line : lines) r.text += line + eol;
    r.ok = true;
    return r;
}

std::vector<std::string> ExtensionsToOffer(const std::vector<std::string>& tableKeys) {
    std::vector<std::string> out;
    for (const auto& key : tableKeys) {
        std::string upper(Trim(key));
        for (char& c : upper)
            if (c >= 'a' && c <= 'z') c = char(c - 'a' + 'A');
        if (upper != "EXE" && upper != "COM" && upper != "BAT") out.push_back(key);
    }
    out.push_back("KWS");
    return out;
}
