#pragma once
// The binary profile file: an EditorSettings record written field after field, in the
// record's order, with no header. Integers and floats are little-endian; a string is a
// 16-bit length followed by that many 8-bit characters; a Boolean is 16 bits, true being -1.
// The layout is spelled out byte by byte, never taken from the host's struct layout, so a
// file written by one build is read by any other.
#include "base/EditorSettings.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

// The longest string a profile can hold: its length must fit the 16-bit length field.
constexpr size_t kMaxProfileString = 65535;

// How a read of a profile ended.
enum class ProfileReadStatus {
    Complete,  // every field of the record was read; bytes behind the record are ignored
    Short,     // the data ended inside the record (an empty file too)
    NotOpened, // the path could not be opened as a file; the record is untouched
};

struct ProfileReadResult {
    ProfileReadStatus status = ProfileReadStatus::NotOpened;
    size_t length = 0; // bytes taken: the record's length when Complete
    std::string error; // NotOpened: the reason
};

// Reads a record from the start of bytes into s. Reading stops at the end of the data: the
// fields read whole up to then are set, and a field cut short and all fields behind it keep
// the values they had in s. Callers that want a clean partial record clear s first.
ProfileReadResult ReadProfile(std::string_view bytes, EditorSettings& s);
// The same from a file. A path that is missing, unreadable, or not a regular file (a folder)
// gives NotOpened; a file that opens but holds less than a record gives Short.
ProfileReadResult ReadProfileFile(const std::string& path, EditorSettings& s);

// The record as profile bytes, or why it cannot be written.
struct EncodedProfile {
    std::string bytes; // the whole record; empty when error is set
    std::string error; // names the field that does not fit
    bool ok() const { return error.empty(); }
};

// The reserved string is always written empty. A string longer than kMaxProfileString
// refuses the whole record.
EncodedProfile EncodeProfile(const EditorSettings& s);

// Writes the record over the start of the file at path, creating the file when it is
// missing. The file is not truncated: a shorter record leaves the tail of an older, longer
// profile behind it, which readers never reach. Nothing at all is written when the record
// cannot be encoded. Returns an error text, empty on success.
std::string WriteProfileFile(const std::string& path, const EditorSettings& s);

// The record that the profile editor saves: only the keyword lists, the delimiter pairs,
// CodeOrder and CaseSensitive are set; every other field is zero or empty.
EditorSettings NewProfileRecord(const std::array<std::string, 3>& keywords,
                                const std::array<DelimiterPair, 8>& delimiters, bool codeOrder,
                                bool caseSensitive);
