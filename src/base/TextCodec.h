#pragma once
// How file bytes become the editor's buffer and back. The buffer holds every line end as
// CR LF; bytes are otherwise kept exactly as they are in the file.
#include <string>
#include <string_view>

// Turns lone LF and lone CR into CR LF; CR LF stays.
std::string ToCrLf(std::string_view bytes);
// True when the text needs no change by ToCrLf (cheap pre-check for large files).
bool IsAllCrLf(std::string_view bytes);
// True when the bytes are well-formed UTF-8 (no overlongs, no surrogates, at most U+10FFFF).
bool IsValidUtf8(std::string_view bytes);
// Deletes every CR: the bytes of an export with UNIX line ends.
std::string StripCr(std::string_view bytes);

// The line ends a file was written with. The buffer always holds CR LF; a document writes its
// file back with the style it was read with. A file with more than one kind is Mixed and is
// written with CR LF; one without any line end counts as LF.
enum class LineEndStyle { CrLf, Lf, Cr, Mixed };

// The buffer's CR LF pairs written as the style asks (CR LF for CrLf and Mixed).
std::string FromCrLf(std::string_view text, LineEndStyle style);

// The same two jobs for a file read in chunks, so that a large file is never held twice.
class CrLfNormalizer {
  public:
    // Appends the converted chunk to out. A CR at the end of a chunk waits for the next one.
    void Feed(std::string_view chunk, std::string& out);
    // The same into a buffer with room for 2 * chunk.size() + 2 bytes; returns the end of
    // what was written.
    char* Convert(std::string_view chunk, char* out);
    void Finish(std::string& out);
    // The style of the line ends seen so far.
    LineEndStyle Style() const;

  private:
    bool pendingCr_ = false;
    bool crLf_ = false, lf_ = false, cr_ = false; // the kinds of line ends seen
};

class Utf8Validator {
  public:
    void Feed(std::string_view chunk);
    bool Finish();
    bool StillValid() const { return valid_; }

  private:
    bool valid_ = true;
    std::string carry_; // an incomplete sequence at the end of the last chunk
};
