#pragma once
// The macros of a configured command line (%F, %f, %P, ...) and the path helpers they use.
#include <string>
#include <string_view>

// The path itself when it names an existing file or folder, else empty: the platform has no
// short names, so the lower-case macros spell the same as the upper-case ones.
std::string ShortPathOf(std::string_view path);
// StripExtension of FileNameOf: empty for a name without a dot.
std::string BaseNameOf(std::string_view path);

enum class MacroQuoting {
    None,
    // The DOS command dialog's form: "%F" gets a double quote in front of the path, and one
    // double quote is appended to the whole line, whether or not "%F" occurred.
    QuoteFileAndLineEnd,
};

// Expands the ten macros of line for the document path P, in a fixed order, each pass over
// the result of the one before (text coming from the path is not protected from later
// passes). Linear in the line and the result: one scan when no pass can make a new macro,
// else one ReplaceText a pass that has something to replace.
std::string ToolMacros(std::string_view line, std::string_view path,
                       MacroQuoting quoting = MacroQuoting::None);
