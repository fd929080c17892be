#pragma once
// Keyword lists as the settings hold them: each entry followed by the separator.
#include "base/EditorSettings.h"

#include <initializer_list>
#include <string>

inline std::string KeywordList(std::initializer_list<const char*> entries) {
    std::string list;
    for (const char* e : entries) list += std::string(e) + kKeywordSeparator;
    return list;
}
