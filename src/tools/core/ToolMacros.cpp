#include "tools/core/ToolMacros.h"

#include "base/PathHelpers.h"
#include "base/MiscSubs.h"

#include <sys/stat.h>

std::string ShortPathOf(std::string_view path) {
    if (path.empty()) return {};
    std::string p(path);
    struct stat st;
    return ::stat(p.c_str(), &st) == 0 ? p : std::string();
}

std::string BaseNameOf(std::string_view path) { return StripExtension(FileNameOf(path)); }

std::string ToolMacros(std::string_view line, std::string_view path, MacroQuoting quoting) {
    const std::string shortPath = ShortPathOf(path);
    const std::string fullPath = quoting == MacroQuoting::QuoteFileAndLineEnd
                                     ? "\"" + std::string(path)
                                     : std::string(path);
    const std::pair<std::string_view, std::string> passes[] = {
        {"%f", shortPath},
        {"%p", PathOf(shortPath)},
        {"%n", FileNameOf(shortPath)},
        {"%l", StripExtension(shortPath)},
        {"%t", BaseNameOf(shortPath)},
        {"%F", fullPath},
        {"%P", PathOf(path)},
        {"%N", FileNameOf(path)},
        {"%L", StripExtension(path)},
        {"%T", BaseNameOf(path)},
    };
    // One scan gives what the ten passes give unless a pass could make a new macro: from a
    // '%' inside a value, or from a "%%" of the line whose second '%' begins a macro.
    bool oneScan = line.find("%%") == std::string_view::npos;
    for (const auto& p : passes) oneScan = oneScan && p.second.find('%') == std::string::npos;
    std::string s;
    if (oneScan) {
        s.reserve(line.size() + 64);
        for (size_t i = 0; i < line.size();) {
            size_t pct = line.find('%', i);
            if (pct == std::string_view::npos || pct + 1 >= line.size()) {
                s.append(line.substr(i));
                break;
            }
            s.append(line.substr(i, pct - i));
            const std::string* value = nullptr;
            for (const auto& p : passes)
                if (p.first[1] == line[pct + 1]) value = &p.second;
            if (value) {
                s += *value;
                i = pct + 2;
            } else {
                s += '%';
                i = pct + 1;
            }
        }
        if (quoting == MacroQuoting::QuoteFileAndLineEnd) s += '"';
        return s;
    }
    s.assign(line);
    for (const auto& [macro, value] : passes)
        if (s.find(macro) != std::string::npos) s = ReplaceText(s, macro, value);
    if (quoting == MacroQuoting::QuoteFileAndLineEnd) s += '"';
    return s;
}
