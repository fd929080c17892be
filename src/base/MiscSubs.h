#pragma once
// String routines shared by every subsystem.
#include <string>
#include <string_view>

enum class LineEndStyle; // base/TextCodec.h

// Finds separator in work from the first position. If found, returns what stands before it
// and cuts work to what follows; if not, returns an empty string and leaves work alone.
std::string NextToken(std::string_view separator, std::string& work);
// Replaces all occurrences left to right; inserted text is never scanned again. An empty
// find returns source unchanged.
std::string ReplaceText(std::string_view source, std::string_view find,
                        std::string_view replacement);
// Deletes every occurrence of the character.
std::string RemoveChar(std::string_view text, char character);
// Removes blanks (spaces only) from both ends, as the runtime's Trim does.
std::string_view Trim(std::string_view s);
std::string_view LTrim(std::string_view s);

// Reads a whole file. On failure (missing, a folder, a read error) returns false with the
// system's reason in error.
bool ReadWholeFile(const std::string& path, std::string& bytes, std::string& error);
// Reads a whole file as the editor's buffer holds it: bytes kept, every line end made CR LF
// (as ToCrLf), in one pass; style, when given, gets the line ends the file was written with.
// Refuses what ReadWholeFile refuses, with the same reasons.
bool ReadFileCrLf(const std::string& path, std::string& text, std::string& error,
                  LineEndStyle* style = nullptr);
// Reserves capacity in s, asking for huge pages where the block is large enough, so that
// filling a block of many megabytes does not fault on every 4 KB page.
void ReserveLarge(std::string& s, size_t capacity);
// Asks for huge pages over a block of memory not yet written (advice only).
void AdviseHugePages(const void* block, size_t size);

// A size in bytes as text: whole bytes as "###,###" plus " Bytes" (0 gives " Bytes"), from
// 1 KB on the size in KB, MB or GB with three decimals ("1.500 KB").
std::string SizeText(double bytes);
