#include "tools/core/ToolMacros.h"

#include "app/core/PathHelpers.h"
#include "transforms/core/MiscSubs.h"

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
    std::string s(line);
    for (const auto& [macro, value] : passes)
        if (s.find(macro) != std::string::npos) s = ReplaceText(s, macro, value);
    if (quoting == MacroQuoting::QuoteFileAndLineEnd) s += '"';
    return s;
}
