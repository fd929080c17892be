#pragma once
// Case changes of a selection. A Latin-1 document changes ASCII and Latin-1 letters byte for
// byte; a UTF-8 document changes whole characters, which may change the byte length.
#include <string>
#include <string_view>

enum class CaseChange { Upper, Lower, Capitalize };

// Capitalize lowers everything, then upper-cases the first character of each word when it is
// a letter. A word starts at the beginning of the text and behind a space, tab, CR, LF, form
// feed, vertical tab or NUL.
std::string ChangeCase(std::string_view text, CaseChange how, bool utf8);
