#pragma once
// Small path and command-line helpers of the start-up path. Paths use '/'.
#include <string>
#include <string_view>

// Trims blanks from both ends; if the trimmed text starts with a double quote, returns it
// without its first and last character (whatever the last one is); otherwise returns the
// argument as given, untrimmed.
std::string StripQuotes(std::string_view s);
// The text behind the last '/'; empty when there is none.
std::string FileNameOf(std::string_view path);
// The text before the last '.', without the dot; empty when there is none.
std::string StripExtension(std::string_view path);
// The text up to and including the last '/'; empty when there is none.
std::string PathOf(std::string_view path);
// The program's folder with one trailing '/'.
std::string AppDirFrom(std::string_view programDir);
